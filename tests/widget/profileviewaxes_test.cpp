// SPDX-License-Identifier: BSD-3-Clause
#include <support/profilefixture.h>
#include <visualization/range.h>

#include <vtkAxis.h>
#include <vtkPen.h>
#include <vtkRenderWindow.h>
#include <vtkTextProperty.h>

#include <QColor>
#include <QString>

#include <climits>
#include <gtest/gtest.h>
#include <vector>

using ovl::ProfileView;
using ovl::Range;
using ovl::test::ProfileFixture;

namespace {

/** The operations of one axis, which are the same for all four. */
struct AxisOperations {
    const char* initialTitle;
    int axis;
    QString (ProfileView::*title)() const;
    void (ProfileView::*setTitle)(const QString&);
    QColor (ProfileView::*color)() const;
    void (ProfileView::*setColor)(const QColor&);
    bool (ProfileView::*visible)() const;
    void (ProfileView::*setVisible)(bool);
    void (ProfileView::*setRange)(int, int);
};

const AxisOperations kAxes[] = {
    {"Left", vtkAxis::LEFT, &ProfileView::leftTitle, &ProfileView::setLeftTitle,
        &ProfileView::leftColorTitle, &ProfileView::setLeftColorTitle,
        &ProfileView::leftAxisVisibility, &ProfileView::setleftAxisVisibility,
        &ProfileView::setLeftRange},
    {"Bottom", vtkAxis::BOTTOM, &ProfileView::bottomTitle, &ProfileView::setBottomTitle,
        &ProfileView::bottomColorTitle, &ProfileView::setBottomColorTitle,
        &ProfileView::bottomAxisVisibility, &ProfileView::setBottomAxisVisibility,
        &ProfileView::setBottomRange},
    {"Right", vtkAxis::RIGHT, &ProfileView::rightTitle, &ProfileView::setRightTitle,
        &ProfileView::rightColorTitle, &ProfileView::setRightColorTitle,
        &ProfileView::RightAxisVisibility, &ProfileView::setRightAxisVisibility,
        &ProfileView::setRightRange},
    {"Top", vtkAxis::TOP, &ProfileView::topTitle, &ProfileView::setTopTitle,
        &ProfileView::topColorTitle, &ProfileView::setTopColorTitle,
        &ProfileView::topAxisVisibility, &ProfileView::setTopAxisVisibility,
        &ProfileView::setTopRange},
};

class ProfileViewAxis : public testing::TestWithParam<AxisOperations> {
protected:
    vtkAxis* axis() { return f.axis(GetParam().axis); }
    ProfileView* view() { return f.view.get(); }

    ProfileFixture f;
};

INSTANTIATE_TEST_SUITE_P(All, ProfileViewAxis, testing::ValuesIn(kAxes),
    [](const auto& tested) { return tested.param.initialTitle; });

TEST_P(ProfileViewAxis, HasATitle)
{
    EXPECT_EQ((view()->*GetParam().title)(), GetParam().initialTitle);
    const QString title = QString("depth in ") + QChar(0xB5) + "m";
    (view()->*GetParam().setTitle)(title);
    EXPECT_EQ((view()->*GetParam().title)(), title);
    EXPECT_EQ(axis()->GetTitle(), title.toStdString());
    EXPECT_FALSE(view()->isDirty());
    for (const AxisOperations& other : kAxes)
        if (other.axis != GetParam().axis) {
            EXPECT_EQ((view()->*other.title)(), other.initialTitle);
        }
}

TEST_P(ProfileViewAxis, ColoursItsTitleAndNotItsLabels)
{
    (view()->*GetParam().setColor)(QColor(255, 51, 0, 9));
    const double* title = axis()->GetTitleProperties()->GetColor();
    EXPECT_EQ(title[0], 1.0);
    EXPECT_NEAR(title[1], 0.2, 1e-5);
    EXPECT_EQ(title[2], 0.0);
    const double* label = axis()->GetLabelProperties()->GetColor();
    EXPECT_EQ(label[0] + label[1] + label[2], 3.0);
    EXPECT_FALSE(view()->isDirty());
}

TEST_P(ProfileViewAxis, TitleColourReadsBackAsAlmostBlack)
{
    EXPECT_EQ((view()->*GetParam().color)(), QColor(1, 1, 1)); // of white
    (view()->*GetParam().setColor)(QColor(255, 254, 0));
    EXPECT_EQ((view()->*GetParam().color)(), QColor(1, 0, 0));
    (view()->*GetParam().setColor)(QColor(0, 0, 255, 0));
    EXPECT_EQ((view()->*GetParam().color)(), QColor(0, 0, 1, 255));
    (view()->*GetParam().setColor)((view()->*GetParam().color)()); // darkens it
    EXPECT_EQ((view()->*GetParam().color)(), QColor(0, 0, 0));
}

TEST_P(ProfileViewAxis, VisibilityGetterTellsAnotherFlagThanTheSetterWrites)
{
    (view()->*GetParam().setVisible)(false);
    EXPECT_FALSE(axis()->GetVisible());
    EXPECT_TRUE((view()->*GetParam().visible)());
    (view()->*GetParam().setVisible)(true);
    EXPECT_TRUE(axis()->GetVisible());
    axis()->SetAxisVisible(false);
    EXPECT_FALSE((view()->*GetParam().visible)());
    (view()->*GetParam().setVisible)(true);
    EXPECT_FALSE((view()->*GetParam().visible)());
    EXPECT_FALSE(view()->isDirty());
}

TEST_P(ProfileViewAxis, HomeRangeIsShownByResetViewOnly)
{
    ProfileFixture square(2, {300, 300});
    vtkAxis* squareAxis = square.axis(GetParam().axis);
    const double before = squareAxis->GetMaximum();
    (square.view.get()->*GetParam().setRange)(-20, 70);
    EXPECT_EQ(squareAxis->GetMaximum(), before);
    EXPECT_FALSE(square.view->isDirty());
    square.view->resetView();
    EXPECT_EQ(squareAxis->GetMinimum(), -20.0);
    EXPECT_EQ(squareAxis->GetMaximum(), 70.0);
    EXPECT_TRUE(square.view->isDirty());
}

TEST(ProfileViewAxes, ATitleOfTheChart)
{
    ProfileFixture f;
    EXPECT_EQ(f.view->title(), "Chart");
    f.view->setTitle("Profile of line 7");
    EXPECT_EQ(f.view->title(), "Profile of line 7");
    EXPECT_EQ(f.chart()->GetTitle(), "Profile of line 7");
    EXPECT_FALSE(f.view->isDirty());
}

TEST(ProfileViewAxes, AutomaticAxesOverruleTheVisibilityAtEachPaint)
{
    ProfileFixture f;
    f.view->resetView();
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    f.view->drawPlots();
    f.view->setBottomAxisVisibility(false); // both act at once
    f.view->setTopAxisVisibility(true);
    EXPECT_FALSE(f.axis(vtkAxis::BOTTOM)->GetVisible());
    EXPECT_TRUE(f.axis(vtkAxis::TOP)->GetVisible());
    f.render();
    EXPECT_TRUE(f.axis(vtkAxis::BOTTOM)->GetVisible()); // corner 0 holds a visible curve
    EXPECT_FALSE(f.axis(vtkAxis::TOP)->GetVisible());
    f.view->setPlotCorner(1, 2);
    f.render();
    EXPECT_FALSE(f.axis(vtkAxis::BOTTOM)->GetVisible());
    EXPECT_TRUE(f.axis(vtkAxis::TOP)->GetVisible());
    EXPECT_TRUE(f.axis(vtkAxis::RIGHT)->GetVisible());
}

TEST(ProfileViewAxes, TheHostHasFourRangesOfItsOwn)
{
    ProfileFixture f;
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(f.view->range(i).isEmpty());
        f.view->range(i).set(i, 10.0 + i);
    }
    f.view->resetView();
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(&f.view->range(i), &f.view->range(i));
        EXPECT_EQ(f.view->range(i).min(), i);
        EXPECT_EQ(f.view->range(i).max(), 10.0 + i);
    }
}

TEST(ProfileViewAxes, ZoomSwitchesAreOneForEachOfThreeAxes)
{
    ProfileFixture f;
    const bool* zoom = f.chart()->GetAxisZoomEnabled();
    EXPECT_TRUE(f.view->horizontalZoomEnabled());
    EXPECT_TRUE(f.view->leftVerticalZoomEnabled());
    EXPECT_TRUE(f.view->rightVerticalZoomEnabled());
    const vtkMTimeType before = f.chart()->GetMTime();
    f.view->enableHorizontalZoom(false);
    EXPECT_FALSE(f.view->horizontalZoomEnabled());
    EXPECT_TRUE(f.view->leftVerticalZoomEnabled() && f.view->rightVerticalZoomEnabled());
    EXPECT_FALSE(zoom[vtkAxis::BOTTOM]);
    f.view->enabledLeftVerticalZoom(false);
    EXPECT_FALSE(f.view->leftVerticalZoomEnabled());
    EXPECT_FALSE(zoom[vtkAxis::LEFT]);
    EXPECT_TRUE(f.view->rightVerticalZoomEnabled());
    f.view->enabledRightVerticalZoom(false);
    EXPECT_FALSE(f.view->rightVerticalZoomEnabled());
    EXPECT_FALSE(zoom[vtkAxis::RIGHT]);
    EXPECT_TRUE(zoom[vtkAxis::TOP]); // it has no switch
    f.view->enableHorizontalZoom(true);
    EXPECT_TRUE(f.view->horizontalZoomEnabled());
    EXPECT_FALSE(f.view->leftVerticalZoomEnabled() || f.view->rightVerticalZoomEnabled());
    EXPECT_EQ(f.chart()->GetMTime(), before);
    EXPECT_FALSE(f.view->isDirty());
}

TEST(ProfileViewAxes, TheCrosshairCursorIsTheCharts)
{
    ProfileFixture f;
    EXPECT_FALSE(f.view->usingCrosshairCursor());
    f.view->setCrosshairCursor(true);
    EXPECT_TRUE(f.view->usingCrosshairCursor());
    EXPECT_TRUE(f.chart()->GetCrosshairCursor());
    EXPECT_FALSE(f.view->isDirty());
}

// resetView ---------------------------------------------------------------------------------------

struct Home {
    int minimum;
    int maximum;
};

/** Home ranges in a window of a size, and what the two axes that are widened then show. */
struct WideningCase {
    const char* name;
    QSize size;
    Home bottom;
    Home left;
    Home shownBottom;
    Home shownLeft;
};

const WideningCase kWidenings[] = {
    {"Square", {200, 200}, {0, 1000}, {0, 1000}, {0, 1000}, {0, 1000}},
    {"TwiceAsWide", {400, 200}, {0, 1000}, {0, 1000}, {-250, 1250}, {0, 1000}},
    {"TwiceAsHigh", {200, 400}, {0, 1000}, {0, 1000}, {0, 1000}, {-250, 1250}},
    {"WideTakesTheLeftExtent", {400, 200}, {10, 20}, {0, 100}, {-15, 45}, {0, 100}},
    {"HighTakesTheBottomExtent", {200, 400}, {0, 100}, {10, 20}, {0, 100}, {-15, 45}},
    {"WideWithLeftReversed", {400, 200}, {0, 1000}, {1000, 0}, {-250, 1250}, {1000, 0}},
    {"WideWithBottomReversed", {400, 200}, {1000, 0}, {0, 1000}, {750, 250}, {0, 1000}},
    {"HighWithBottomReversed", {200, 400}, {1000, 0}, {0, 1000}, {1000, 0}, {-250, 1250}},
    // 1002 / 4 = 250.5, towards zero on both sides of it
    {"TruncatesTowardsZero", {400, 200}, {0, 1000}, {0, 1002}, {-250, 1250}, {0, 1002}},
    {"TruncatesAPositiveMinimum", {400, 200}, {300, 300}, {0, 1002}, {49, 550}, {0, 1002}},
    {"NoExtentWidensNothing", {400, 200}, {5, 6}, {7, 7}, {5, 6}, {7, 7}},
    // a size of 0 counts as 1: |1000 * 0.01 - 1000| / 2 = 495
    {"NoWidth", {0, 100}, {0, 1000}, {0, 1000}, {0, 1000}, {-495, 1495}},
    {"NoHeight", {100, 0}, {0, 1000}, {0, 1000}, {-495, 1495}, {0, 1000}},
    {"NoSizeAtAll", {0, 0}, {0, 1000}, {0, 1000}, {0, 1000}, {0, 1000}},
    {"StopsAtTheWidestWholeNumbers", {400, 200}, {INT_MIN, INT_MAX}, {INT_MIN, INT_MAX},
        {INT_MIN, INT_MAX}, {INT_MIN, INT_MAX}},
};

class ProfileViewWidening : public testing::TestWithParam<WideningCase> { };

INSTANTIATE_TEST_SUITE_P(All, ProfileViewWidening, testing::ValuesIn(kWidenings),
    [](const auto& tested) { return tested.param.name; });

void expectAxis(ProfileFixture& f, int axis, Home shown)
{
    // As the axis takes them: it keeps two equal or reversed ends as they are given.
    EXPECT_EQ(f.axis(axis)->GetMinimum(), shown.minimum);
    EXPECT_EQ(f.axis(axis)->GetMaximum(), shown.maximum);
}

TEST_P(ProfileViewWidening, FollowsTheProportionsOfTheWindow)
{
    const WideningCase& c = GetParam();
    ProfileFixture f(2, {200, 200});
    f.window()->SetSize(c.size.width(), c.size.height());
    f.view->setBottomRange(c.bottom.minimum, c.bottom.maximum);
    f.view->setLeftRange(c.left.minimum, c.left.maximum);
    f.view->setTopRange(-7, 8);
    f.view->setRightRange(-9, 10);
    for (int repeat = 0; repeat < 2; ++repeat) { // the home ranges themselves stay
        f.view->resetView();
        expectAxis(f, vtkAxis::BOTTOM, c.shownBottom);
        expectAxis(f, vtkAxis::LEFT, c.shownLeft);
        expectAxis(f, vtkAxis::TOP, {-7, 8});
        expectAxis(f, vtkAxis::RIGHT, {-9, 10});
    }
}

TEST(ProfileViewAxes, HomeRangesStartFromZeroToAThousand)
{
    ProfileFixture f(2, {300, 300});
    f.view->resetView();
    for (int axis = 0; axis < 4; ++axis)
        expectAxis(f, axis, {0, 1000});
}

TEST(ProfileViewAxes, TheViewDoesNotResetItself)
{
    ProfileFixture f(2, {300, 300});
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    f.view->drawPlots();
    f.render();
    EXPECT_NE(f.axis(vtkAxis::BOTTOM)->GetMaximum(), 1000.0);
}

TEST(ProfileViewAxes, ResetViewFollowsAResizedWindow)
{
    ProfileFixture f(2, {300, 300});
    f.view->resetView();
    f.resize({400, 200});
    f.view->resetView();
    expectAxis(f, vtkAxis::BOTTOM, {-250, 1250});
    f.resize({300, 300});
    f.view->resetView();
    expectAxis(f, vtkAxis::BOTTOM, {0, 1000});
}

TEST(ProfileViewAxes, ResetViewUndoesThePanOfTheUser)
{
    ProfileFixture f(2, {300, 300});
    f.view->resetView();
    f.axis(vtkAxis::BOTTOM)->SetRange(5.0, 6.0);
    f.view->resetView();
    f.render();
    expectAxis(f, vtkAxis::BOTTOM, {0, 1000});
}

#ifndef NDEBUG
TEST(ProfileViewAxesDeathTest, ARangeOutOfRangeIsNamed)
{
    ProfileFixture f;
    EXPECT_DEATH(f.view->range(4), "ProfileView::range.* 4");
    EXPECT_DEATH(f.view->range(-1), "ProfileView::range.* -1");
}
#else
TEST(ProfileViewAxes, ARangeOutOfRangeIsOneOfTheFour)
{
    ProfileFixture f;
    EXPECT_EQ(&f.view->range(4), &f.view->range(0));
}
#endif

} // namespace
