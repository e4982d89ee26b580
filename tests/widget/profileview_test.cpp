// SPDX-License-Identifier: BSD-3-Clause
#include <support/messagewatch.h>
#include <support/profilefixture.h>
#include <visualization/plotpoints.h>

#include <vtkAxis.h>
#include <vtkBrush.h>
#include <vtkChartLegend.h>
#include <vtkCommand.h>
#include <vtkDoubleArray.h>
#include <vtkPen.h>
#include <vtkPlotPoints.h>
#include <vtkRenderWindow.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>
#include <vtkSmartPointer.h>
#include <vtkTable.h>
#include <vtkTextProperty.h>
#include <vtkVariant.h>

#include <QColor>
#include <QCursor>
#include <QString>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

using ovl::ChartCallbacks;
using ovl::CursorType;
using ovl::ProfileView;
using ovl::test::MessageWatch;
using ovl::test::ProfileFixture;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

void expectColor(const double* rgb, double red, double green, double blue)
{
    EXPECT_EQ(rgb[0], red);
    EXPECT_EQ(rgb[1], green);
    EXPECT_EQ(rgb[2], blue);
}

std::string label(ProfileFixture& f, int plot)
{
    f.plot(plot)->Update();
    return f.plot(plot)->GetLabel();
}

/** The extent of what the plot shows: least and greatest x, least and greatest y. */
std::vector<double> bounds(ProfileFixture& f, int plot)
{
    double found[4] = {0.0, 0.0, 0.0, 0.0};
    f.plot(plot)->Update();
    f.plot(plot)->GetBounds(found);
    return {found, found + 4};
}

/** Markers are smoothed at their edges. */
bool isRed(ProfileFixture& f, QPointF at)
{
    const QColor color = f.pixel(at);
    return color.red() > 100 && color.green() == 0 && color.blue() == 0;
}

// Construction ------------------------------------------------------------------------------------

TEST(ProfileView, StartsClean)
{
    ProfileFixture f(3);
    EXPECT_FALSE(f.view->isDirty());
    EXPECT_EQ(f.view->numberOfCols(), 3);
    EXPECT_EQ(f.view->numberOfValues(), 0);
}

TEST(ProfileView, TheHostWritesTheDirtyFlag)
{
    ProfileFixture f;
    f.view->setDirty(true);
    EXPECT_TRUE(f.view->isDirty());
    f.render(); // which does not clear it
    EXPECT_TRUE(f.view->isDirty());
    f.view->setDirty(false);
    EXPECT_FALSE(f.view->isDirty());
}

TEST(ProfileView, HoldsOnePointerAndCannotBeCopied)
{
    EXPECT_EQ(sizeof(ProfileView), sizeof(ovl::View) + sizeof(void*));
    EXPECT_FALSE(std::is_copy_constructible_v<ProfileView>);
    EXPECT_FALSE(std::is_move_constructible_v<ProfileView>);
}

TEST(ProfileView, DrawsOnBlackWithAnInteractorOfItsOwn)
{
    ovl::test::HostFixture host;
    const vtkSmartPointer<vtkRenderWindowInteractor> before = host.window()->GetInteractor();
    const ProfileView view(host.widget(), 2);
    ASSERT_NE(host.renderer(), nullptr);
    EXPECT_EQ(host.window()->GetRenderers()->GetNumberOfItems(), 1);
    expectColor(host.renderer()->GetBackground(), 0.0, 0.0, 0.0);
    EXPECT_NE(host.window()->GetInteractor(), before);
    EXPECT_FALSE(host.window()->GetInteractor()->HasObserver(vtkCommand::CharEvent));
    EXPECT_EQ(host.pixel({2.0, 2.0}), QColor(Qt::black));
    EXPECT_FALSE(host.window()->GetInteractor()->HasObserver(vtkCommand::CharEvent));
}

TEST(ProfileView, HasAPlotForEachColumnAndHidesTheFirst)
{
    ProfileFixture f(4);
    ASSERT_EQ(f.chart()->GetNumberOfPlots(), 4);
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        EXPECT_NE(dynamic_cast<ovl::PlotPoints*>(f.plot(i)), nullptr);
        EXPECT_EQ(f.plot(i)->GetVisible(), i > 0);
        EXPECT_EQ(f.view->plotVisibility(i), i > 0);
        EXPECT_EQ(f.points(i)->GetMarkerStyle(), vtkPlotPoints::SQUARE);
        EXPECT_EQ(f.points(i)->GetMarkerSize(), 2.0F);
        EXPECT_EQ(f.view->plotCorner(i), 0);
    }
}

TEST(ProfileView, NamesColumnsByTheirNumber)
{
    ProfileFixture f(12);
    EXPECT_EQ(f.view->plotTitle(0), "plot0");
    EXPECT_EQ(f.view->plotTitle(1), "plot1");
    EXPECT_EQ(f.view->plotTitle(11), "plot11");
    f.view->drawPlots();
    EXPECT_EQ(f.table()->GetNumberOfColumns(), 12);
    EXPECT_STREQ(f.table()->GetColumnName(11), "plot11");
}

TEST(ProfileView, ShowsALegendWithoutBackground)
{
    ProfileFixture f;
    EXPECT_TRUE(f.chart()->GetShowLegend());
    EXPECT_TRUE(f.chart()->GetLegend()->GetVisible());
    EXPECT_TRUE(f.chart()->GetInteractive());
    expectColor(f.chart()->GetLegend()->GetLabelProperties()->GetColor(), 1.0, 1.0, 1.0);
    EXPECT_EQ(f.chart()->GetLegend()->GetBrush()->GetOpacity(), 0);
}

TEST(ProfileView, DressesTheAxesInWhiteWithGreyGrids)
{
    ProfileFixture f;
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        vtkAxis* axis = f.axis(i);
        expectColor(axis->GetTitleProperties()->GetColor(), 1.0, 1.0, 1.0);
        expectColor(axis->GetLabelProperties()->GetColor(), 1.0, 1.0, 1.0);
        unsigned char grid[3];
        axis->GetGridPen()->GetColor(grid);
        EXPECT_EQ(grid[0], 30);
        EXPECT_EQ(grid[1], 30);
        EXPECT_EQ(grid[2], 30);
        EXPECT_EQ(axis->GetGridPen()->GetOpacity() == 0, i == vtkAxis::RIGHT);
        EXPECT_EQ(axis->GetBehavior(), vtkAxis::FIXED);
    }
    expectColor(f.chart()->GetTitleProperties()->GetColor(), 1.0, 1.0, 1.0);
}

TEST(ProfileView, HandsItsCallbacksToTheChart)
{
    ProfileFixture f;
    ChartCallbacks* callbacks = f.chart()->GetCallbacks();
    ASSERT_NE(callbacks, nullptr);
    EXPECT_TRUE(callbacks->notifyDirty(true));
    EXPECT_TRUE(f.view->isDirty());
    EXPECT_TRUE(callbacks->notifyDirty(false));
    EXPECT_FALSE(f.view->isDirty());
}

TEST(ProfileView, ShowsTheCursorThatTheChartAsksFor)
{
    ProfileFixture f;
    ChartCallbacks* callbacks = f.chart()->GetCallbacks();
    EXPECT_TRUE(callbacks->notifyCursor(CursorType::Cross));
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::CrossCursor);
    callbacks->notifyCursor(CursorType::Move);
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::SizeAllCursor);
    callbacks->notifyCursor(CursorType::Default);
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::ArrowCursor);
    callbacks->notifyCursor(CursorType::Cross);
    callbacks->notifyCursor(static_cast<CursorType>(17));
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::ArrowCursor);
}

// Destruction -------------------------------------------------------------------------------------

TEST(ProfileView, LeavesTheWidgetWithoutItsRenderer)
{
    ProfileFixture f;
    f.render();
    vtkRenderWindow* window = f.window();
    vtkRenderWindowInteractor* interactor = window->GetInteractor();
    const vtkSmartPointer<vtkRenderer> renderer = f.renderer();
    const vtkMTimeType before = window->GetMTime();
    f.view.reset();
    EXPECT_EQ(f.window(), window);
    EXPECT_EQ(window->GetRenderers()->GetNumberOfItems(), 0);
    EXPECT_GT(window->GetMTime(), before);
    EXPECT_EQ(renderer->GetViewProps()->GetNumberOfItems(), 0);
    EXPECT_EQ(window->GetInteractor(), interactor); // not taken back
    f.render();
}

TEST(ProfileView, TheMouseMayGoOnWhenTheViewHasGone)
{
    ProfileFixture f;
    f.render();
    f.press({200.0, 150.0});
    f.view.reset();
    f.move({210.0, 150.0});
    f.release({210.0, 150.0});
    f.wheel({200.0, 150.0}, 1);
    f.key(Qt::Key_R, "r");
    f.render();
}

TEST(ProfileView, AWidgetMayCarryOneViewAfterAnother)
{
    ProfileFixture f;
    f.render();
    f.view.reset();
    f.view = std::make_unique<ProfileView>(f.widget(), 3);
    f.render();
    f.move({210.0, 150.0});
    EXPECT_EQ(f.view->numberOfCols(), 3);
    EXPECT_EQ(f.window()->GetRenderers()->GetNumberOfItems(), 1);
}

TEST(ProfileView, OutlivesItsWidget)
{
    ProfileFixture f;
    f.render();
    f.destroyWidget();
    f.view.reset();
}

// Data --------------------------------------------------------------------------------------------

TEST(ProfileView, CellsKeepWhatIsWritten)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0, 3.0}, {0.1, -0.0, 1e300}});
    EXPECT_EQ(f.view->numberOfValues(), 3);
    EXPECT_EQ(f.view->value(0, 2), 3.0);
    EXPECT_EQ(f.view->value(1, 0), 0.1);
    EXPECT_TRUE(std::signbit(f.view->value(1, 1)));
    EXPECT_EQ(f.view->value(1, 2), 1e300);
}

TEST(ProfileView, NanIsAValueLikeAnother)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0}, {5.0, 6.0}});
    f.view->setNanValue(1, 0);
    f.view->setValue(0, 1, kNan);
    EXPECT_TRUE(std::isnan(f.view->value(1, 0)));
    EXPECT_TRUE(std::isnan(f.view->value(0, 1)));
    EXPECT_EQ(f.view->value(1, 1), 6.0);
}

TEST(ProfileView, TheTableIsWhatTheCellsSay)
{
    ProfileFixture f(3);
    f.fill({{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}});
    f.view->drawPlots();
    for (int column = 0; column < 3; ++column) {
        EXPECT_NE(vtkDoubleArray::SafeDownCast(f.table()->GetColumn(column)), nullptr);
        for (int row = 0; row < 2; ++row)
            EXPECT_EQ(f.table()->GetValue(row, column).ToDouble(), f.view->value(column, row));
    }
    f.view->setValue(2, 1, 60.0);
    EXPECT_EQ(f.table()->GetValue(1, 2).ToDouble(), 60.0);
    f.table()->SetValue(0, 1, vtkVariant(30.0));
    EXPECT_EQ(f.view->value(1, 0), 30.0);
}

TEST(ProfileView, AWrittenCellMarksNothingModified)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    f.view->drawPlots();
    f.view->setDirty(false);
    const vtkMTimeType table = f.table()->GetMTime();
    const vtkMTimeType column = f.table()->GetColumn(1)->GetMTime();
    f.view->setValue(1, 0, 9.0);
    f.view->setNanValue(1, 1);
    EXPECT_EQ(f.table()->GetMTime(), table);
    EXPECT_EQ(f.table()->GetColumn(1)->GetMTime(), column);
    EXPECT_FALSE(f.view->isDirty());
}

TEST(ProfileView, TheNumberOfValuesMayChangeAtAnyTime)
{
    ProfileFixture f(2);
    for (const int count : {3, 100, 1, 0, 7}) {
        SCOPED_TRACE(count);
        f.view->setNumberOfValues(count);
        EXPECT_EQ(f.view->numberOfValues(), count);
        for (int row = 0; row < count; ++row) {
            f.view->setValue(0, row, row);
            f.view->setValue(1, row, 2.0 * row);
        }
        f.view->drawPlots();
        EXPECT_EQ(f.table()->GetNumberOfRows(), count);
        if (count > 0) {
            EXPECT_EQ(f.view->value(1, count - 1), 2.0 * (count - 1));
        }
    }
}

TEST(ProfileView, OutsideTheTableIsZeroAndAColumnThatIsNotThereTakesNothing)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    for (const auto& [column, row] :
        std::vector<std::pair<int, int>> {{-1, 0}, {2, 0}, {0, -1}, {0, 2}, {1, 1 << 30}, {-1, -1}})
        EXPECT_EQ(f.view->value(column, row), 0.0);
    f.view->setValue(-1, 0, 9.0);
    f.view->setValue(2, 0, 9.0);
    f.view->setNanValue(2, 5);
    EXPECT_EQ(f.view->value(0, 0), 1.0);
    EXPECT_EQ(f.view->value(1, 1), 4.0);
}

TEST(ProfileView, OnlyDrawPlotsAndResetViewMarkItDirty)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    f.view->setPlotTitle(1, "y");
    f.view->setPlotFormat(1, "%x");
    f.view->setPlotVisibily(1, true);
    f.view->setColor(1, Qt::red);
    f.view->setPlotCorner(1, 2);
    f.view->xCustomTooltip(nullptr);
    EXPECT_FALSE(f.view->isDirty());
    f.view->drawPlots();
    EXPECT_TRUE(f.view->isDirty());
    f.view->setDirty(false);
    f.view->resetView();
    EXPECT_TRUE(f.view->isDirty());
}

TEST(ProfileView, DrawPlotsBindsEveryPlotToTheXColumnAndItsOwn)
{
    ProfileFixture f(3);
    f.fill({{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}});
    EXPECT_EQ(f.table(), nullptr);
    f.view->setPlotVisibily(0, true); // a hidden plot looks at nothing
    f.view->drawPlots();
    EXPECT_EQ(bounds(f, 0), (std::vector<double> {1.0, 2.0, 1.0, 2.0}));
    EXPECT_EQ(bounds(f, 1), (std::vector<double> {1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(bounds(f, 2), (std::vector<double> {1.0, 2.0, 5.0, 6.0}));
}

TEST(ProfileView, DrawPlotsMarksEveryPlotModified)
{
    ProfileFixture f(3);
    f.fill({{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}});
    f.view->drawPlots();
    const vtkMTimeType before = f.plot(2)->GetMTime();
    f.view->drawPlots();
    for (int i = 0; i < 3; ++i)
        EXPECT_GT(f.plot(i)->GetMTime(), before);
}

TEST(ProfileView, DrawPlotsDoesNotRescale)
{
    ProfileFixture f(2);
    f.view->setBottomRange(0, 10);
    f.view->resetView();
    const double maximum = f.axis(vtkAxis::BOTTOM)->GetMaximum();
    f.fill({{1000.0, 2000.0}, {3.0, 4.0}});
    f.view->drawPlots();
    f.render();
    f.render();
    EXPECT_EQ(f.axis(vtkAxis::BOTTOM)->GetMaximum(), maximum);
}

TEST(ProfileView, ValuesAppearAtTheRepaintAfterDrawPlots)
{
    ProfileFixture f(2);
    f.view->setBottomRange(0, 10);
    f.view->setLeftRange(0, 10);
    f.view->resetView();
    f.view->setColor(1, Qt::red);
    f.fill({{3.3, 6.6}, {3.3, 3.3}});
    f.render();
    EXPECT_FALSE(isRed(f, f.position(3.3, 3.3)));
    f.view->drawPlots();
    EXPECT_TRUE(isRed(f, f.position(3.3, 3.3)));
    EXPECT_TRUE(isRed(f, f.position(6.6, 3.3)));
    EXPECT_FALSE(isRed(f, f.position(5.1, 3.3))); // markers, no joined line
}

TEST(ProfileView, TheXColumnShownIsTheDiagonal)
{
    ProfileFixture f(2);
    f.view->setBottomRange(0, 10);
    f.view->setLeftRange(0, 10);
    f.view->resetView();
    f.view->setColor(0, Qt::red);
    f.fill({{2.2, 7.7}, {1.0, 1.0}});
    f.view->drawPlots();
    f.render();
    EXPECT_FALSE(isRed(f, f.position(2.2, 2.2)));
    f.view->setPlotVisibily(0, true);
    EXPECT_TRUE(f.view->plotVisibility(0));
    EXPECT_TRUE(isRed(f, f.position(2.2, 2.2)));
    EXPECT_TRUE(isRed(f, f.position(7.7, 7.7)));
}

TEST(ProfileView, WithTheXColumnAloneNothingIsDrawn)
{
    ProfileFixture f(1);
    f.view->resetView();
    f.view->setColor(0, Qt::red);
    f.fill({{333.0, 444.0}});
    f.view->drawPlots();
    f.render();
    EXPECT_FALSE(f.view->plotVisibility(0));
    EXPECT_FALSE(isRed(f, f.position(333.0, 333.0)));
}

// Curves ------------------------------------------------------------------------------------------

TEST(ProfileView, ATitleIsTheNameOfItsColumn)
{
    ProfileFixture f(3);
    f.fill({{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}});
    f.view->setPlotTitle(1, "gauge");
    EXPECT_EQ(f.view->plotTitle(1), "gauge");
    EXPECT_EQ(f.view->plotTitle(2), "plot2");
    f.view->drawPlots();
    EXPECT_EQ(label(f, 1), "gauge");
    EXPECT_STREQ(f.table()->GetColumnName(1), "gauge");
}

TEST(ProfileView, ANewTitleHidesItsColumnFromThePlotUntilDrawPlots)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    f.view->drawPlots();
    f.view->setPlotTitle(1, "gauge");
    MessageWatch::expect("No Y column is set (index 1).");
    EXPECT_EQ(label(f, 1), ""); // there is no array of the name that it was given
    f.view->drawPlots();
    EXPECT_EQ(label(f, 1), "gauge");
}

TEST(ProfileView, OfTwoColumnsWithOneTitleBothCurvesShowTheFirst)
{
    ProfileFixture f(3);
    f.fill({{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}});
    f.view->setPlotTitle(2, "plot1");
    f.view->drawPlots();
    EXPECT_EQ(bounds(f, 2), (std::vector<double> {1.0, 2.0, 3.0, 4.0}));
}

TEST(ProfileView, OnlyAsciiComesBackInATitle)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    f.view->setPlotTitle(1, QString("a") + QChar(0x3B1) + QChar(0x4E2D));
    EXPECT_EQ(f.view->plotTitle(1), "a??");
    f.view->setPlotTitle(1, QString(QChar(0xE9))); // in Latin-1, but not read back as such
    EXPECT_NE(f.view->plotTitle(1), QString(QChar(0xE9)));
    f.view->drawPlots();
    EXPECT_STREQ(f.table()->GetColumnName(1), "\xE9");
    f.view->setPlotTitle(1, QString());
    EXPECT_EQ(f.view->plotTitle(1), QString());
}

TEST(ProfileView, AFormatIsHandedToThePlotUnread)
{
    ProfileFixture f(2);
    EXPECT_TRUE(f.view->plotFormat(1).isEmpty());
    const QString format = QString("%x %q %") + QChar(0x3B1);
    f.view->setPlotFormat(1, format);
    EXPECT_EQ(f.view->plotFormat(1), format);
    EXPECT_EQ(f.plot(1)->GetTooltipLabelFormat(), format.toStdString());
    EXPECT_TRUE(f.view->plotFormat(0).isEmpty());
}

TEST(ProfileView, ACurveMayBeHidden)
{
    ProfileFixture f(3);
    f.view->setPlotVisibily(1, false);
    EXPECT_FALSE(f.view->plotVisibility(1));
    EXPECT_FALSE(f.plot(1)->GetVisible());
    EXPECT_TRUE(f.view->plotVisibility(2));
}

TEST(ProfileView, ACurveMayMoveToAnotherCorner)
{
    ProfileFixture f(2);
    for (const int corner : {1, 2, 3, 0}) {
        f.view->setPlotCorner(1, corner);
        EXPECT_EQ(f.view->plotCorner(1), corner);
        EXPECT_EQ(f.view->plotCorner(0), 0);
    }
    MessageWatch::expect("Invalid corner specified");
    f.view->setPlotCorner(1, 4);
    EXPECT_EQ(f.view->plotCorner(1), 0);
}

TEST(ProfileView, AColourIsSetWithoutItsAlpha)
{
    ProfileFixture f(2);
    f.view->setColor(1, QColor(51, 102, 255, 7));
    unsigned char rgb[3];
    f.plot(1)->GetPen()->GetColor(rgb);
    EXPECT_EQ(rgb[0], 51);
    EXPECT_EQ(rgb[1], 102);
    EXPECT_EQ(rgb[2], 255);
    EXPECT_EQ(f.plot(1)->GetPen()->GetOpacity(), 255);
}

TEST(ProfileView, AColourReadsBackAsBlackOrTheLeastBlue)
{
    ProfileFixture f(2);
    f.view->setColor(1, QColor(51, 102, 255));
    EXPECT_EQ(f.view->color(1), QColor("#000001"));
    f.view->setColor(1, QColor(255, 255, 254));
    EXPECT_EQ(f.view->color(1), QColor(Qt::black));
    f.view->setColor(1, Qt::red);
    EXPECT_EQ(f.view->color(1), QColor(Qt::black));
    EXPECT_EQ(f.view->color(1).alpha(), 255);
}

TEST(ProfileView, CurvesStartInTheColoursOfTheSeries)
{
    ProfileFixture f(2);
    unsigned char first[3];
    unsigned char second[3];
    f.plot(0)->GetPen()->GetColor(first);
    f.plot(1)->GetPen()->GetColor(second);
    EXPECT_EQ(QColor(first[0], first[1], first[2]), QColor(Qt::black));
    EXPECT_NE(QColor(second[0], second[1], second[2]), QColor(Qt::black));
}

TEST(ProfileView, CustomTooltipFunctionsReachTheChart)
{
    ProfileFixture f(2);
    ChartCallbacks* callbacks = f.chart()->GetCallbacks();
    double value = 5.0;
    EXPECT_FALSE(callbacks->customX(3, value));
    f.view->xCustomTooltip([](int row, double x) { return 10.0 * row + x; });
    f.view->yCustomTooltip([](int row, double y) { return 100.0 * row + y; });
    EXPECT_TRUE(callbacks->customX(3, value));
    EXPECT_EQ(value, 35.0);
    EXPECT_TRUE(callbacks->customY(2, value));
    EXPECT_EQ(value, 235.0);
    f.view->xCustomTooltip({});
    EXPECT_FALSE(callbacks->customX(3, value));
    EXPECT_EQ(value, 235.0);
    EXPECT_TRUE(callbacks->customY(0, value));
}

// Bad input ---------------------------------------------------------------------------------------

#ifndef NDEBUG
TEST(ProfileViewDeathTest, AnIndexOutOfRangeIsNamed)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    EXPECT_DEATH(f.view->setValue(1, 2, 9.0), "ProfileView::setValue.* 2");
    EXPECT_DEATH(f.view->setValue(0, -1, 9.0), "ProfileView::setValue.* -1");
    EXPECT_DEATH(f.view->setNumberOfValues(-3), "ProfileView::setNumberOfValues.* -3");
    EXPECT_DEATH(static_cast<void>(f.view->plotTitle(2)), "ProfileView::plotTitle.* 2");
    EXPECT_DEATH(f.view->setPlotTitle(-1, "x"), "ProfileView::setPlotTitle.* -1");
    EXPECT_DEATH(static_cast<void>(f.view->plotFormat(2)), "ProfileView::plotFormat.* 2");
    EXPECT_DEATH(f.view->setPlotFormat(2, "x"), "ProfileView::setPlotFormat.* 2");
    EXPECT_DEATH(static_cast<void>(f.view->plotVisibility(2)), "ProfileView::plotVisibility.* 2");
    EXPECT_DEATH(f.view->setPlotVisibily(2, true), "ProfileView::setPlotVisibily.* 2");
    EXPECT_DEATH(static_cast<void>(f.view->plotCorner(2)), "ProfileView::plotCorner.* 2");
    EXPECT_DEATH(f.view->setPlotCorner(2, 0), "ProfileView::setPlotCorner.* 2");
    EXPECT_DEATH(static_cast<void>(f.view->color(2)), "ProfileView::color.* 2");
    EXPECT_DEATH(f.view->setColor(2, Qt::red), "ProfileView::setColor.* 2");
}

TEST(ProfileViewDeathTest, AViewNeedsAColumn)
{
    ovl::test::HostFixture host;
    EXPECT_DEATH(ProfileView(host.widget(), 0), "ProfileView::ProfileView.* 0");
    EXPECT_DEATH(ProfileView(host.widget(), -2), "ProfileView::ProfileView.* -2");
}
#else
TEST(ProfileView, AnIndexOutOfRangeIsIgnored)
{
    ProfileFixture f(2);
    f.fill({{1.0, 2.0}, {3.0, 4.0}});
    f.view->setValue(1, 2, 9.0);
    f.view->setValue(0, -1, 9.0);
    EXPECT_EQ(f.view->plotTitle(2), QString());
    f.view->setPlotTitle(-1, "x");
    EXPECT_EQ(f.view->plotFormat(2), QString());
    f.view->setPlotFormat(2, "x");
    EXPECT_FALSE(f.view->plotVisibility(2));
    f.view->setPlotVisibily(2, true);
    EXPECT_EQ(f.view->plotCorner(2), 0);
    f.view->setPlotCorner(2, 1);
    EXPECT_EQ(f.view->color(2), QColor(Qt::black));
    f.view->setColor(2, Qt::red);
    f.view->setNumberOfValues(-3);
    EXPECT_EQ(f.view->value(0, 0), 0.0);
}
#endif

} // namespace
