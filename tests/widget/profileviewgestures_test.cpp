// SPDX-License-Identifier: BSD-3-Clause
// The mouse and the keys on a view as its host has it: from Qt's events to what the host gets.
#include <support/profilefixture.h>
#include <visualization/line.h>
#include <visualization/plot.h>
#include <visualization/point.h>
#include <visualization/shape.h>

#include <vtkAxis.h>
#include <vtkDoubleArray.h>
#include <vtkPlot.h>
#include <vtkTable.h>
#include <vtkTooltipItem.h>

#include <QCursor>

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

using ovl::Plot;
using ovl::Point;
using ovl::ProfileView;
using ovl::Shape;
using ovl::test::ProfileFixture;

namespace {

constexpr int kColumns = 2;
constexpr double kHome = 1000.0; ///< all axes show 0 to this
constexpr double kRounding = 1e-3; // positions of the mouse come as floats
constexpr int kAxes[] = {vtkAxis::LEFT, vtkAxis::BOTTOM, vtkAxis::RIGHT, vtkAxis::TOP};

/** What a shape's callbacks were told. */
struct Told {
    int presses = 0;
    int releases = 0;
    double x = 0; ///< the sum of all motions
    double y = 0;
    std::vector<Point> grabbed; ///< the handle as it was before each motion along x
};

/** A square window with a curve through (100, 900), (500, 700) and (900, 900), at its home. */
class ProfileViewGestures : public testing::Test {
protected:
    ProfileViewGestures()
        : f(kColumns, {400, 400})
    {
        f.fill({{100, 500, 900}, {900, 700, 900}});
        f.view->setPlotTitle(1, "curve");
        f.view->drawPlots();
        f.view->resetView();
        f.render();
        f.view->setDirty(false);
    }

    /** The pixel in which data lie. */
    QPointF pixel(double x, double y)
    {
        const QPointF exact = f.position(x, y);
        return {std::round(exact.x()), std::round(exact.y())};
    }

    /** Where the plot area begins, from the left or from below. */
    double firstPixel(int coordinate) { return f.chart()->GetPoint1()[coordinate]; }
    double unitsPerPixel(int coordinate)
    {
        return kHome / (f.chart()->GetPoint2()[coordinate] - firstPixel(coordinate));
    }

    /** The data at a pixel, while the axes are at their home. */
    Point dataAt(QPointF at)
    {
        const double fromBottom = f.widget()->height() - 1 - at.y();
        return {(at.x() - firstPixel(0)) * unitsPerPixel(0),
            (fromBottom - firstPixel(1)) * unitsPerPixel(1)};
    }

    void expectRange(int axis, double minimum, double maximum)
    {
        EXPECT_NEAR(f.axis(axis)->GetMinimum(), minimum, kRounding) << "axis " << axis;
        EXPECT_NEAR(f.axis(axis)->GetMaximum(), maximum, kRounding) << "axis " << axis;
    }
    void expectHome()
    {
        for (const int axis : kAxes)
            expectRange(axis, 0, kHome);
    }

    /** Whether the view has become dirty since the last time it was asked. */
    bool becameDirty()
    {
        const bool dirty = f.view->isDirty();
        f.view->setDirty(false);
        return dirty;
    }

    /** Shows a square region of interest that follows the mouse. */
    void showRegion(int identifier, double lower, double upper, Told& told, bool handles = true)
    {
        Shape region;
        region.setIdentifier(identifier);
        region.addLine(Point(lower, lower), Point(upper, lower));
        region.addLine(Point(upper, lower), Point(upper, upper));
        region.addLine(Point(upper, upper), Point(lower, upper));
        region.addLine(Point(lower, upper), Point(lower, lower));
        region.setInteractive(true);
        region.setCanDragAlongX(true);
        region.setCanDragAlongY(true);
        region.setHandleVisibility(handles);
        connect(region, identifier, told);
        f.view->addShape(region);
        f.view->drawShapes();
        f.render();
        f.view->setDirty(false);
    }

    void connect(Shape& region, int identifier, Told& told)
    {
        region.setOnMousePressCallback([&told] { ++told.presses; });
        region.setOnMouseReleaseCallback([&told] { ++told.releases; });
        const auto always = [](const Point&) { return true; };
        region.setXTranslationCallback([this, identifier, &told, always](double dx) {
            told.x += dx;
            moveIf(identifier, Point(dx, 0), always);
        });
        region.setYTranslationCallback([this, identifier, &told, always](double dy) {
            told.y += dy;
            moveIf(identifier, Point(0, dy), always);
        });
        region.setXResizeCallback([this, identifier, &told](const Point& handle, double dx) {
            told.x += dx;
            told.grabbed.push_back(handle);
            const double x = handle.x();
            moveIf(identifier, Point(dx, 0), [x](const Point& p) { return p.x() == x; });
        });
        region.setYResizeCallback([this, identifier, &told](const Point& handle, double dy) {
            told.y += dy;
            const double y = handle.y();
            moveIf(identifier, Point(0, dy), [y](const Point& p) { return p.y() == y; });
        });
    }

    /** Moves those points of the view's own shape that are `concerned`. */
    template <class Concerned> void moveIf(int identifier, const Point& step, Concerned concerned)
    {
        Shape* shape = f.view->shape(identifier);
        const auto moveOne = [&](Point* point) {
            if (concerned(*point))
                *point += step;
        };
        for (int i = 0; i < shape->numberOfLines(); ++i) {
            moveOne(shape->line(i)->p1());
            moveOne(shape->line(i)->p2());
        }
        for (int i = 0; i < shape->numberOfHandles(); ++i)
            moveOne(shape->handle(i));
    }

    /** A row of the table that draws a shape's handles or lines. */
    Point drawn(int identifier, bool handles, int row)
    {
        const Shape* shape = f.view->shape(identifier);
        for (vtkIdType i = 0; i < f.chart()->GetNumberOfPlots(); ++i) {
            const Plot* part = dynamic_cast<Plot*>(f.plot(static_cast<int>(i)));
            if (part->shape != shape || part->isHandle != handles)
                continue;
            vtkTable* table = f.table(static_cast<int>(i));
            return {table->GetValue(row, 0).ToDouble(), table->GetValue(row, 1).ToDouble()};
        }
        ADD_FAILURE() << "no such plot";
        return {};
    }

    void expectDrawn(int identifier, bool handles, int row, double x, double y)
    {
        const Point point = drawn(identifier, handles, row);
        EXPECT_NEAR(point.x(), x, kRounding) << "row " << row << (handles ? " handle" : " line");
        EXPECT_NEAR(point.y(), y, kRounding) << "row " << row << (handles ? " handle" : " line");
    }

    ProfileFixture f;
};

// The axes ----------------------------------------------------------------------------------------

TEST_F(ProfileViewGestures, ALeftDragPansBothAxesWithTheMouse)
{
    const QPointF from = pixel(300, 300);
    const double x = 30 * unitsPerPixel(0);
    const double y = 20 * unitsPerPixel(1);
    f.press(from);
    EXPECT_TRUE(becameDirty());
    expectHome();
    f.move(from + QPointF(10, -20));
    EXPECT_TRUE(becameDirty());
    f.move(from + QPointF(30, -20));
    EXPECT_TRUE(becameDirty());
    expectRange(vtkAxis::BOTTOM, -x, kHome - x);
    expectRange(vtkAxis::LEFT, -y, kHome - y);
    f.release(from + QPointF(30, -20));
    EXPECT_TRUE(becameDirty());
    f.move(from + QPointF(60, 0));
    expectRange(vtkAxis::BOTTOM, -x, kHome - x);
    expectRange(vtkAxis::RIGHT, 0, kHome); // there is no curve at these two
    expectRange(vtkAxis::TOP, 0, kHome);

    f.view->resetView();
    expectHome();
}

TEST_F(ProfileViewGestures, AClickPansNothing)
{
    f.press(pixel(300, 300));
    f.release(pixel(300, 300));
    expectHome();
}

TEST_F(ProfileViewGestures, APanGoesOnFromWhereTheLastOneEnded)
{
    const QPointF from = pixel(300, 300);
    f.drag(from, from + QPointF(12, 0));
    f.render();
    f.drag(from, from + QPointF(12, 5), Qt::LeftButton, 3);
    const double x = 24 * unitsPerPixel(0);
    const double y = 5 * unitsPerPixel(1);
    expectRange(vtkAxis::BOTTOM, -x, kHome - x);
    expectRange(vtkAxis::LEFT, y, kHome + y);
}

TEST_F(ProfileViewGestures, TheWheelZoomsAboutTheCentreWhereverTheMouseIs)
{
    f.wheel(pixel(850, 120), 1);
    EXPECT_TRUE(becameDirty());
    for (const int axis : kAxes)
        expectRange(axis, 100, 900);
    f.view->resetView();
    f.wheel(pixel(120, 850), -1);
    for (const int axis : kAxes)
        expectRange(axis, -100, 1100);
}

// Numbers end where one is next to another. The framework alone would look for ticks there for
// ever.
TEST_F(ProfileViewGestures, TheWheelZoomsAsFarAsNumbersReach)
{
    const QPointF at = pixel(500, 500);
    const auto turn = [&](int notches) {
        for (int i = 0; i < 400; ++i) {
            f.wheel(at, notches);
            if (i % 8 == 0)
                f.render();
        }
    };
    f.view->setBottomRange(1000000, 1000010);
    f.view->setLeftRange(-3, 1000);
    f.view->resetView();
    turn(1);
    for (const int axis : kAxes)
        EXPECT_LT(
            f.chart()->GetAxis(axis)->GetMaximum() - f.chart()->GetAxis(axis)->GetMinimum(), 1e-8);
    turn(-1);
    f.view->resetView();
    f.render();
    expectRange(vtkAxis::BOTTOM, 1000000, 1000010);
    EXPECT_GT(f.chart()->GetAxis(vtkAxis::BOTTOM)->GetTickPositions()->GetNumberOfTuples(), 2);
}

TEST_F(ProfileViewGestures, TheWheelZoomsTheAxesThatAreSwitchedOn)
{
    const std::pair<void (ProfileView::*)(bool), int> switches[] = {
        {&ProfileView::enabledLeftVerticalZoom, vtkAxis::LEFT},
        {&ProfileView::enableHorizontalZoom, vtkAxis::BOTTOM},
        {&ProfileView::enabledRightVerticalZoom, vtkAxis::RIGHT},
    };
    for (const auto& [enable, off] : switches) {
        SCOPED_TRACE(off);
        f.view->resetView();
        (f.view.get()->*enable)(false);
        f.wheel(pixel(500, 500), 1);
        for (const int axis : kAxes)
            expectRange(axis, axis == off ? 0 : 100, axis == off ? kHome : 900);
        (f.view.get()->*enable)(true);
    }
    f.view->resetView();
    for (const auto& [enable, off] : switches)
        (f.view.get()->*enable)(false);
    f.view->setDirty(false);
    f.wheel(pixel(500, 500), 1);
    EXPECT_TRUE(becameDirty());
    for (const int axis : {vtkAxis::LEFT, vtkAxis::BOTTOM, vtkAxis::RIGHT})
        expectRange(axis, 0, kHome);
    expectRange(vtkAxis::TOP, 100, 900); // which has no switch
}

TEST_F(ProfileViewGestures, ARightDragZoomsToItsBand)
{
    const QPointF from = pixel(600, 350);
    const QPointF to = pixel(250, 600);
    const Point a = dataAt(from);
    const Point b = dataAt(to);
    f.press(from, Qt::RightButton);
    EXPECT_TRUE(becameDirty());
    f.move(to);
    EXPECT_TRUE(becameDirty());
    expectHome();
    f.release(to, Qt::RightButton);
    EXPECT_TRUE(becameDirty());
    // All axes are alike here and the band takes the same part of each.
    for (const int axis : {vtkAxis::BOTTOM, vtkAxis::TOP})
        expectRange(axis, b.x(), a.x());
    for (const int axis : {vtkAxis::LEFT, vtkAxis::RIGHT})
        expectRange(axis, a.y(), b.y());
}

TEST_F(ProfileViewGestures, ABandWithoutHeightZoomsNothing)
{
    f.drag(pixel(250, 350), QPointF(pixel(600, 350).x(), pixel(250, 350).y()), Qt::RightButton, 2);
    expectHome();
}

TEST_F(ProfileViewGestures, ZoomingTellsShapesTheRangesAndPanningDoesNot)
{
    Told told;
    showRegion(1, 400, 500, told);
    const auto isCloseAt = [this](double x) {
        return f.view->shape(1)->closeToLine(Point(x, 1e6)); // far from all in y
    };
    f.view->resetView(); // tolerance 50 around 400 and 500
    EXPECT_TRUE(isCloseAt(549));
    f.wheel(pixel(700, 300), 1); // tolerance 40
    EXPECT_FALSE(isCloseAt(549));
    EXPECT_TRUE(isCloseAt(539));
    f.render();
    f.drag(pixel(700, 300), pixel(700, 300) + QPointF(10, 10));
    EXPECT_TRUE(isCloseAt(539));
}

TEST_F(ProfileViewGestures, TheKeyRLeavesTheAxesAndAsksForARepaint)
{
    f.wheel(pixel(500, 500), 1);
    f.move(pixel(300, 300));
    f.view->setDirty(false);
    f.key(Qt::Key_R, "r");
    EXPECT_TRUE(becameDirty());
    f.render();
    expectRange(vtkAxis::BOTTOM, 100, 900); // the view's axes never scale themselves
    expectRange(vtkAxis::LEFT, 100, 900);
}

// Tooltip and cursor ------------------------------------------------------------------------------

TEST_F(ProfileViewGestures, APointUnderTheMouseShowsItsTooltipBesideIt)
{
    vtkTooltipItem* tooltip = f.chart()->GetTooltip();
    const QPointF at = pixel(500, 700) + QPointF(2, 1);
    f.move(at);
    EXPECT_TRUE(becameDirty());
    EXPECT_TRUE(tooltip->GetVisible());
    EXPECT_EQ(std::string(tooltip->GetText()), "curve: 500,  700");
    const double fromBottom = f.widget()->height() - 1 - at.y();
    EXPECT_EQ(tooltip->GetPosition()[0], static_cast<float>(at.x() + 2));
    EXPECT_EQ(tooltip->GetPosition()[1], static_cast<float>(fromBottom - 40));

    f.move(pixel(500, 400));
    EXPECT_TRUE(becameDirty());
    EXPECT_FALSE(tooltip->GetVisible());
    f.move(pixel(520, 400));
    EXPECT_FALSE(becameDirty()) << "nothing to hide";
}

TEST_F(ProfileViewGestures, ATooltipSaysWhatFormatAndFunctionsMakeOfThePoint)
{
    f.view->setPlotFormat(1, "%l[%j] %a/%b %h");
    f.view->xCustomTooltip([](int row, double x) { return x / 8 + row; });
    f.view->yCustomTooltip([](int row, double y) { return y * 2 - row; });
    f.move(pixel(500, 700));
    EXPECT_EQ(std::string(f.chart()->GetTooltip()->GetText()), "curve[1] 63.5/1399 0x2BC");
}

TEST_F(ProfileViewGestures, APressHidesTheTooltip)
{
    f.move(pixel(500, 700));
    ASSERT_TRUE(f.chart()->GetTooltip()->GetVisible());
    f.press(pixel(500, 700));
    EXPECT_FALSE(f.chart()->GetTooltip()->GetVisible());
    f.release(pixel(500, 700));
}

TEST_F(ProfileViewGestures, TheCursorTellsWhatAPressWouldTake)
{
    Told told;
    showRegion(1, 200, 500, told);
    f.move(pixel(700, 300));
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::ArrowCursor);
    f.move(pixel(350, 350));
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::SizeAllCursor);
    f.move(pixel(200, 200)); // a handle
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::ArrowCursor);

    f.view->setCrosshairCursor(true);
    f.move(pixel(350, 350));
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::SizeAllCursor);
    for (const QPointF idle : {pixel(200, 200), pixel(700, 300)}) {
        f.move(idle);
        EXPECT_EQ(f.widget()->cursor().shape(), Qt::CrossCursor);
    }
}

// Shapes ------------------------------------------------------------------------------------------

TEST_F(ProfileViewGestures, ADragInsideARegionMovesIt)
{
    f.move(pixel(350, 350)); // the chart has seen the mouse before there was a region
    Told told;
    showRegion(1, 200, 500, told);
    const QPointF from = pixel(350, 350);
    const double x = 45 * unitsPerPixel(0);
    const double y = -24 * unitsPerPixel(1);
    f.press(from);
    EXPECT_TRUE(becameDirty());
    EXPECT_EQ(told.presses, 1);
    for (int step = 1; step <= 3; ++step) {
        f.move(from + QPointF(15, 8) * step);
        EXPECT_TRUE(becameDirty());
        EXPECT_NEAR(told.x, x * step / 3, kRounding);
        EXPECT_NEAR(told.y, y * step / 3, kRounding);
    }
    EXPECT_EQ(told.releases, 0);
    f.release(from + QPointF(45, 24));
    EXPECT_TRUE(becameDirty());
    EXPECT_EQ(told.presses, 1);
    EXPECT_EQ(told.releases, 2) << "once for each plot";
    expectHome();

    expectDrawn(1, false, 0, 200 + x, 200 + y);
    expectDrawn(1, false, 4, 500 + x, 500 + y);
    expectDrawn(1, true, 0, 200 + x, 200 + y);
    expectDrawn(1, true, 4, 500 + x, 350 + y);
    EXPECT_TRUE(told.grabbed.empty());
    f.move(from);
    EXPECT_NEAR(told.x, x, kRounding) << "released";
}

TEST_F(ProfileViewGestures, AMovedRegionIsSeenWhereItIs)
{
    Told told;
    showRegion(1, 200, 500, told, false);
    const QPointF from = pixel(350, 350);
    const QPointF side = pixel(200, 350);
    ASSERT_GT(f.pixel(side).lightness(), 60);
    f.drag(from, from + QPointF(-25, 0), Qt::LeftButton, 5);
    EXPECT_LT(f.pixel(side).lightness(), 60);
    EXPECT_GT(f.pixel(side - QPointF(25, 0)).lightness(), 60);
}

TEST_F(ProfileViewGestures, ADragOfAHandleResizesTheRegion)
{
    f.move(pixel(350, 350));
    Told told;
    showRegion(1, 200, 500, told);
    const QPointF from = pixel(500, 500); // the corner
    const double x = 20 * unitsPerPixel(0);
    const double y = 30 * unitsPerPixel(1);
    f.press(from);
    EXPECT_TRUE(becameDirty());
    for (int step = 1; step <= 2; ++step) {
        f.move(from + QPointF(10, -15) * step);
        EXPECT_TRUE(becameDirty());
        EXPECT_NEAR(told.x, x * step / 2, kRounding);
        EXPECT_NEAR(told.y, y * step / 2, kRounding);
    }
    f.release(from + QPointF(20, -30));
    EXPECT_TRUE(becameDirty());
    EXPECT_EQ(told.releases, 2);
    expectHome();

    ASSERT_EQ(told.grabbed.size(), 2u);
    EXPECT_NEAR(told.grabbed[0].x(), 500, kRounding);
    EXPECT_NEAR(told.grabbed[0].y(), 500, kRounding);
    EXPECT_NEAR(told.grabbed[1].x(), 500 + x / 2, kRounding);
    EXPECT_NEAR(told.grabbed[1].y(), 500 + y / 2, kRounding);
    expectDrawn(1, false, 0, 200, 200);
    expectDrawn(1, false, 1, 500 + x, 200);
    expectDrawn(1, false, 4, 500 + x, 500 + y);
    expectDrawn(1, true, 0, 200, 200);
    expectDrawn(1, true, 6, 500 + x, 500 + y);
}

TEST_F(ProfileViewGestures, EveryReleaseIsToldToEachPlotOfEveryShape)
{
    Told both, linesOnly, notDrawn;
    showRegion(1, 200, 300, both);
    showRegion(2, 500, 600, linesOnly, false);
    Shape hidden;
    hidden.setHasPlot(false);
    hidden.setOnMouseReleaseCallback([&] { ++notDrawn.releases; });
    f.view->addShape(hidden);
    f.view->drawShapes();
    f.render();
    int count = 0;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        f.press(pixel(700, 300), button);
        f.release(pixel(700, 300), button);
        ++count;
        EXPECT_EQ(both.releases, 2 * count);
        EXPECT_EQ(linesOnly.releases, count);
    }
    EXPECT_EQ(notDrawn.releases, 0);
    EXPECT_EQ(both.presses + linesOnly.presses, 0) << "pressed beside them";
}

TEST_F(ProfileViewGestures, OfTwoRegionsTheOneOfHigherPriorityMoves)
{
    Told low, high;
    showRegion(1, 200, 500, low);
    showRegion(2, 250, 550, high);
    f.view->shape(2)->setPriority(1);
    const QPointF from = pixel(400, 400);
    f.drag(from, from + QPointF(6, 0));
    EXPECT_EQ(low.x, 0);
    EXPECT_NEAR(high.x, 6 * unitsPerPixel(0), kRounding);
}

TEST_F(ProfileViewGestures, ARegionThatCannotBeDraggedLetsTheMousePan)
{
    Told told;
    showRegion(1, 200, 500, told);
    f.view->shape(1)->setCanDragAlongX(false);
    f.view->shape(1)->setCanDragAlongY(false);
    f.view->drawShapes();
    f.render();
    const QPointF from = pixel(350, 350);
    f.drag(from, from + QPointF(10, 0));
    const double x = 10 * unitsPerPixel(0);
    expectRange(vtkAxis::BOTTOM, -x, kHome - x);
    EXPECT_EQ(told.x, 0);
    EXPECT_EQ(told.presses, 0);
}

TEST_F(ProfileViewGestures, TheMouseMayGoOnWhenAllShapesHaveGone)
{
    Told told;
    showRegion(1, 200, 500, told);
    f.press(pixel(350, 350));
    f.move(pixel(360, 350));
    f.view->clearShape();
    f.move(pixel(370, 350));
    f.release(pixel(370, 350));
    f.move(pixel(350, 350));
    EXPECT_EQ(told.releases, 0);
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ProfileViewGestures, ARegionIsStillMovedWhenManyMoreWereAdded)
{
    Told told;
    showRegion(1, 200, 500, told);
    for (int identifier = 2; identifier < 20; ++identifier) {
        Shape more;
        more.setIdentifier(identifier);
        f.view->addShape(more);
    }
    const QPointF from = pixel(350, 350);
    f.drag(from, from + QPointF(10, 0));
    EXPECT_NEAR(told.x, 10 * unitsPerPixel(0), kRounding);
    EXPECT_EQ(told.releases, 2);
    expectDrawn(1, false, 0, 200 + told.x, 200);
}

TEST_F(ProfileViewGestures, ARemovedRegionIsToldNothingMore)
{
    Told removed, kept;
    showRegion(1, 200, 500, removed);
    showRegion(2, 600, 800, kept);
    f.view->removeShape(1);
    for (const QPointF at : {pixel(350, 350), pixel(700, 700), pixel(200, 200), pixel(800, 800)}) {
        f.move(at);
        f.drag(at, at + QPointF(10, 10), Qt::LeftButton, 2);
        f.wheel(at, 1);
        f.view->resetView();
    }
    f.render();
    EXPECT_EQ(removed.presses + removed.releases, 0);
    EXPECT_EQ(removed.x, 0);
    f.view->drawShapes();
    f.render();
    kept = {};
    const QPointF from = pixel(700, 700);
    f.drag(from, from + QPointF(-5, 0));
    EXPECT_EQ(kept.releases, 2);
}

} // namespace
