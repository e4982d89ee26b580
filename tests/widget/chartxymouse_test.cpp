// SPDX-License-Identifier: BSD-3-Clause
#include <support/charteventfixture.h>
#include <visualization/chartselection.h>
#include <visualization/line.h>
#include <visualization/point.h>

#include <vtkAnnotationLink.h>
#include <vtkAxis.h>
#include <vtkContextScene.h>
#include <vtkIdTypeArray.h>
#include <vtkPlot.h>
#include <vtkTable.h>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ovl {
namespace {

using test::ChartEventFixture;
using test::RaisedEvent;
using test::ShapePlots;
using Rows = std::vector<vtkIdType>;
using Ids = std::vector<unsigned long>;

constexpr int kLeftButton = vtkContextMouseEvent::LEFT_BUTTON;
constexpr int kMiddleButton = vtkContextMouseEvent::MIDDLE_BUTTON;
constexpr int kRightButton = vtkContextMouseEvent::RIGHT_BUTTON;
constexpr unsigned long kInteraction = vtkCommand::InteractionEvent;
constexpr unsigned long kSelection = vtkCommand::SelectionChangedEvent;
constexpr double kRounding = 1e-4; // positions come as floats

class ChartXYMouse : public testing::Test, public ChartEventFixture {
protected:
    void expectRange(int axis, double lower, double upper)
    {
        EXPECT_NEAR(minimum(axis), lower, kRounding) << "axis " << axis;
        EXPECT_NEAR(maximum(axis), upper, kRounding) << "axis " << axis;
    }

    void expectHomeRange(int axis)
    {
        const bool horizontal = axis == vtkAxis::BOTTOM || axis == vtkAxis::TOP;
        expectRange(axis, 0, horizontal ? kWidth : kHeight);
    }

    Ids raisedIds() const
    {
        Ids ids;
        for (const RaisedEvent& event : raised)
            ids.push_back(event.id);
        return ids;
    }

    /** Three points, far from one another. */
    vtkPlot* addCurve(int corner = 0)
    {
        return addPlot(vtkChart::LINE, {20, 100, 180}, {30, 120, 60}, corner);
    }

    /** As after a press that picked nothing. */
    void pressOnNothing() { press(5, 5); }
};

TEST_F(ChartXYMouse, IsHitStrictlyInsideThePlotAreaOfAnInteractiveChart)
{
    render();
    const std::pair<double, double> inside[] = {{1, 1}, {199, 149}, {100, 70}};
    const std::pair<double, double> outside[]
        = {{0, 70}, {200, 70}, {100, 0}, {100, 150}, {-5, 70}, {205, 70}, {100, -5}, {100, 155}};
    for (const auto& [x, y] : inside)
        EXPECT_TRUE(chart->Hit(event(x, y))) << x << ", " << y;
    for (const auto& [x, y] : outside)
        EXPECT_FALSE(chart->Hit(event(x, y))) << x << ", " << y;
    chart->SetInteractive(false);
    EXPECT_FALSE(chart->Hit(event(100, 70)));
}

TEST_F(ChartXYMouse, HidesTheTooltipWhenTheMouseLeaves)
{
    render();
    chart->GetTooltip()->SetVisible(true);
    EXPECT_TRUE(chart->MouseEnterEvent(event(100, 70)));
    EXPECT_TRUE(open->DrawNearestPoint);
    EXPECT_EQ(dirty, 0);
    EXPECT_TRUE(chart->MouseLeaveEvent(event(250, 70)));
    EXPECT_FALSE(open->DrawNearestPoint);
    EXPECT_FALSE(tooltipShown());
    EXPECT_EQ(dirty, 1);
}

TEST_F(ChartXYMouse, RecalculatesItsBoundsAtTheKeyR)
{
    addCurve();
    for (const char code : {'r', 'R'}) {
        render();
        ASSERT_TRUE(open->PlotTransformValid);
        dirty = 0;
        EXPECT_TRUE(key(code));
        EXPECT_FALSE(open->PlotTransformValid);
        EXPECT_EQ(dirty, 1);
    }
    render();
    dirty = 0;
    EXPECT_TRUE(key('x'));
    EXPECT_TRUE(open->PlotTransformValid);
    EXPECT_EQ(dirty, 1) << "any key asks for a repaint";
}

TEST_F(ChartXYMouse, AnswersAPressByItsButton)
{
    addCurve();
    render();
    open->ActionsClick.Select() = kMiddleButton;
    EXPECT_TRUE(press(5, 5, kLeftButton)) << "pan";
    EXPECT_TRUE(press(5, 5, kRightButton)) << "zoom";
    EXPECT_TRUE(press(5, 5, kMiddleButton)) << "click select alone";
    EXPECT_FALSE(press(5, 5, 8)) << "nothing";
    EXPECT_FALSE(press(5, 5, 0)) << "nothing";
    for (const int action : {vtkChart::ZOOM_AXIS, vtkChart::SELECT, vtkChart::SELECT_POLYGON,
             vtkChart::CLICK_AND_DRAG}) {
        open->Actions[action] = 16;
        EXPECT_TRUE(press(5, 5, 16)) << "action " << action;
        open->Actions[action] = -1;
    }
    open->ActionsClick.Select() = -1;
    open->ActionsClick.Notify() = 16;
    EXPECT_TRUE(press(5, 5, 16)) << "click notify alone";
}

TEST_F(ChartXYMouse, EveryPressHidesTheTooltipAndAsksForARepaint)
{
    render();
    for (const int button : {kLeftButton, kRightButton, 8}) {
        chart->GetTooltip()->SetVisible(true);
        dirty = 0;
        open->MouseDown = false;
        press(30, 40, button);
        EXPECT_FALSE(tooltipShown());
        EXPECT_EQ(dirty, 1);
        EXPECT_TRUE(open->MouseDown);
        EXPECT_EQ(open->LastScenePos, vtkVector2f(130, 90));
    }
    release(30, 40, 8);
    EXPECT_FALSE(open->MouseDown);
}

TEST_F(ChartXYMouse, APressOnAPointSelectsItAndRaisesTheSelectionEventTwice)
{
    vtkPlot* curve = addCurve();
    vtkPlot* other = addPlot(vtkChart::POINTS, {60}, {60});
    curve->SetLabel("curve");
    select(curve, {0, 2});
    select(other, {0});
    render();
    EXPECT_TRUE(press(102, 117));

    ASSERT_EQ(raisedIds(), (Ids {kSelection, kSelection}));
    ASSERT_TRUE(raised[0].hasData);
    EXPECT_EQ(raised[0].series, "curve");
    EXPECT_FLOAT_EQ(raised[0].x, 100);
    EXPECT_FLOAT_EQ(raised[0].y, 120);
    EXPECT_EQ(raised[0].screenX, 202);
    EXPECT_EQ(raised[0].screenY, 167);
    EXPECT_EQ(raised[0].index, 1);
    EXPECT_FALSE(raised[1].hasData);
    EXPECT_EQ(selected(curve), (Rows {1}));
    EXPECT_EQ(selected(other), Rows {}) << "emptied";
}

TEST_F(ChartXYMouse, APressOnAPointGivesEveryPlotAnEmptySelectionThatCanHaveOne)
{
    addCurve();
    vtkPlot* empty = addPlot(vtkChart::LINE, {20, 60}, {130, 130});
    vtkPlot* fixed = addPlot(vtkChart::LINE, {20, 60}, {140, 140});
    vtkPlot* chosen = addPlot(vtkChart::LINE, {20, 60}, {145, 145});
    select(empty, {});
    select(fixed, {});
    select(chosen, {1});
    fixed->SetSelectable(false);
    render();
    const vtkMTimeType times[] = {empty->GetMTime(), fixed->GetMTime(), chosen->GetMTime()};
    press(100, 120);
    for (vtkPlot* plot : {empty, fixed, chosen})
        EXPECT_EQ(selected(plot), Rows {});
    EXPECT_GT(empty->GetMTime(), times[0]);
    EXPECT_EQ(fixed->GetMTime(), times[1]) << "nobody can give it another selection";
    EXPECT_GT(chosen->GetMTime(), times[2]);
}

TEST_F(ChartXYMouse, ADragOfAPointEndsWithNothingSelected)
{
    vtkPlot* curve = addCurve();
    render();
    press(100, 120);
    raised.clear();
    move(110, 125, kLeftButton);
    EXPECT_TRUE(raised.empty()) << "no pan";
    expectHomeRange(vtkAxis::BOTTOM);
    EXPECT_TRUE(release(110, 125));
    ASSERT_EQ(raisedIds(), Ids {kSelection});
    EXPECT_FALSE(raised[0].hasData);
    EXPECT_EQ(selected(curve), Rows {});

    press(5, 5);
    move(15, 5, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -10, 190);
}

TEST_F(ChartXYMouse, StartsTheRubberBandAtThePress)
{
    render();
    open->Actions.Select() = kMiddleButton;
    for (const int button : {kRightButton, kMiddleButton}) {
        SCOPED_TRACE(button);
        open->DrawBox = false;
        open->MouseBox.Set(1, 2, 3, 4);
        press(30, 40, button);
        EXPECT_TRUE(open->DrawBox);
        EXPECT_EQ(open->MouseBox, vtkRectf(130, 90, 0, 0));
        dirty = 0;
        move(50, 35, button);
        EXPECT_EQ(open->MouseBox, vtkRectf(130, 90, 20, -5));
        EXPECT_EQ(dirty, 1);
    }
    open->Actions.ZoomAxis() = 16;
    for (const int button : {kLeftButton, 16}) {
        SCOPED_TRACE(button);
        open->DrawBox = true;
        press(30, 40, button);
        EXPECT_FALSE(open->DrawBox);
        EXPECT_EQ(open->MouseBox, vtkRectf(130, 90, 0, 0));
    }
}

TEST_F(ChartXYMouse, AButtonBoundTwiceDoesTheFirstAction)
{
    addCurve();
    render();
    open->Actions.Zoom() = kLeftButton;
    open->Actions.ZoomAxis() = kLeftButton;
    press(5, 5);
    EXPECT_FALSE(open->DrawBox);
    move(15, 10, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -10, 190);
    expectRange(vtkAxis::LEFT, -5, 145);
}

TEST_F(ChartXYMouse, TellsTheCursorAtEveryMoveWhateverTheButton)
{
    Shape shape;
    addRectangle(shape, 50, 50, 90, 90);
    show(&shape);
    render();
    for (const int button : {0, kRightButton, 8, kLeftButton}) {
        SCOPED_TRACE(button);
        press(5, 5, button);
        cursors.clear();
        chart->SetCrosshairCursor(false);
        move(5, 5, button);
        chart->SetCrosshairCursor(true);
        move(5, 5, button);
        move(60, 80, button);
        EXPECT_EQ(cursors,
            (std::vector<CursorType> {CursorType::Default, CursorType::Cross, CursorType::Move}));
    }
}

TEST_F(ChartXYMouse, ShowsTheIdleCursorOnAHandle)
{
    Shape shape;
    addRectangle(shape, 50, 50, 90, 90);
    const ShapePlots plots = show(&shape);
    render();
    move(52, 51);
    EXPECT_EQ(cursors.back(), CursorType::Default);
    chart->SetCrosshairCursor(true);
    move(52, 51);
    EXPECT_EQ(cursors.back(), CursorType::Cross);
    plots.handles->SetInteractive(false);
    move(52, 51);
    EXPECT_EQ(cursors.back(), CursorType::Move) << "a handle that cannot be grabbed";
}

TEST_F(ChartXYMouse, PansTheAxesOfTheOnlyCorner)
{
    addCurve();
    render();
    pressOnNothing();
    dirty = 0;
    EXPECT_TRUE(move(25, -5, kLeftButton));
    expectRange(vtkAxis::BOTTOM, -20, 180);
    expectRange(vtkAxis::LEFT, 10, 160);
    expectHomeRange(vtkAxis::RIGHT);
    expectHomeRange(vtkAxis::TOP);
    EXPECT_EQ(dirty, 1);
    ASSERT_EQ(raisedIds(), Ids {kInteraction});
    EXPECT_FALSE(raised[0].hasData);
}

TEST_F(ChartXYMouse, PansOnWithoutARepaint)
{
    addCurve();
    render();
    pressOnNothing();
    move(15, 10, kLeftButton);
    move(25, 15, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -20, 180);
    expectRange(vtkAxis::LEFT, -10, 140);
    EXPECT_EQ(raised.size(), 2u);
}

TEST_F(ChartXYMouse, PansTheRightAxisTooWithTwoCorners)
{
    addCurve();
    addCurve(1);
    fixAxis(vtkAxis::RIGHT, 0, 300); // two units a pixel
    render();
    pressOnNothing();
    move(25, 15, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -20, 180);
    expectRange(vtkAxis::LEFT, -10, 140);
    expectRange(vtkAxis::RIGHT, -20, 280);
    expectHomeRange(vtkAxis::TOP);
}

TEST_F(ChartXYMouse, PansTopAndRightAxisByTheThirdCornerWithThreeOrFour)
{
    for (const int lastCorner : {2, 3}) {
        SCOPED_TRACE(lastCorner);
        ChartEventFixture f;
        for (const int corner : {0, 2, lastCorner})
            f.addPlot(vtkChart::LINE, {20, 100}, {30, 120}, corner);
        f.fixAxis(vtkAxis::RIGHT, 0, 300);
        f.fixAxis(vtkAxis::TOP, 0, 600);
        f.render();
        f.press(5, 5);
        f.move(25, 15, kLeftButton);
        EXPECT_NEAR(f.minimum(vtkAxis::BOTTOM), -20, kRounding);
        EXPECT_NEAR(f.minimum(vtkAxis::LEFT), -10, kRounding);
        EXPECT_NEAR(f.minimum(vtkAxis::RIGHT), -20, kRounding);
        EXPECT_NEAR(f.maximum(vtkAxis::RIGHT), 280, kRounding);
        EXPECT_NEAR(f.minimum(vtkAxis::TOP), -60, kRounding);
        EXPECT_NEAR(f.maximum(vtkAxis::TOP), 540, kRounding);
    }
}

TEST_F(ChartXYMouse, StopsThePanAtALimitOnThatAxisOnly)
{
    addCurve();
    chart->GetAxis(vtkAxis::BOTTOM)->SetMinimumLimit(-8);
    chart->GetAxis(vtkAxis::LEFT)->SetMaximumLimit(170);
    render();
    pressOnNothing();
    move(25, -5, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -8, 192);
    expectRange(vtkAxis::LEFT, 10, 160);
    move(25, -25, kLeftButton);
    expectRange(vtkAxis::LEFT, 20, 170);
    move(35, -20, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -8, 192);
    expectRange(vtkAxis::LEFT, 15, 165);
}

TEST_F(ChartXYMouse, PansAnInvertedAxisWithTheMouse)
{
    addCurve();
    fixAxis(vtkAxis::BOTTOM, 200, 0);
    render();
    press(5, 5);
    move(25, 5, kLeftButton);
    expectRange(vtkAxis::BOTTOM, 220, 20);
}

TEST_F(ChartXYMouse, PansWhereTheAxesAreFarFromZero)
{
    fixAxis(vtkAxis::BOTTOM, 10000, 10010); // shifted in the plots, which are of single precision
    addPlot(vtkChart::LINE, {10001, 10009}, {30, 120});
    render();
    press(5, 5);
    move(25, 5, kLeftButton); // 20 pixels of 0.05
    EXPECT_NEAR(minimum(vtkAxis::BOTTOM), 9999, 1e-6);
    EXPECT_NEAR(maximum(vtkAxis::BOTTOM), 10009, 1e-6);
}

TEST_F(ChartXYMouse, APanThatComesOverAPointDoesNothingForThatEvent)
{
    addCurve();
    render();
    press(5, 5);
    move(100, 118, kLeftButton);
    expectHomeRange(vtkAxis::BOTTOM);
    EXPECT_TRUE(raised.empty());
    move(110, 118, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -10, 190);
}

/** The extent of the x or y range that a shape has been told, found by where it ends to be close.
 */
double toldExtent(Shape& shape, bool alongX)
{
    shape.setTolerance(1.0);
    double extent = 0;
    for (double step = 4096; step > 1e-6; step /= 2) {
        const double next = extent + step;
        if (shape.closeToLine(alongX ? Point(next, 1e9) : Point(1e9, next)))
            extent = next;
    }
    return extent;
}

class ChartXYMouseRanges : public ChartXYMouse {
protected:
    ChartXYMouseRanges()
    {
        shape.addLine(Point(0, 0), Point(120, 120));
        show(&shape);
        fixAxis(vtkAxis::TOP, 0, 400);
        fixAxis(vtkAxis::RIGHT, 0, 600);
        render();
    }

    ~ChartXYMouseRanges() override { chart->ClearPlots(); }

    void expectTold(double x, double y)
    {
        EXPECT_NEAR(toldExtent(shape, true), x, 1e-3);
        EXPECT_NEAR(toldExtent(shape, false), y, 1e-3);
    }

    Shape shape;
};

TEST_F(ChartXYMouseRanges, APanTellsShapesNothing)
{
    press(5, 140);
    move(15, 140, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -10, 190);
    expectTold(0, 0);
}

TEST_F(ChartXYMouseRanges, TheWheelTellsShapesTheBottomAndTheLeftRange)
{
    wheel(1);
    expectTold(160, 120);
}

TEST_F(ChartXYMouseRanges, TheAxisZoomTellsShapesTheBottomAndTheTopRange)
{
    open->Actions.ZoomAxis() = kMiddleButton;
    press(50, 50, kMiddleButton);
    move(150, 50, kMiddleButton);
    expectTold(160, 320);
}

TEST_F(ChartXYMouseRanges, TheRubberBandTellsShapesTheTopAndTheRightRange)
{
    press(50, 50, kRightButton);
    move(100, 80, kRightButton);
    release(100, 80, kRightButton);
    expectTold(100, 120);
}

TEST_F(ChartXYMouse, TheWheelZoomsEachAxisAboutItsCentre)
{
    addCurve();
    fixAxis(vtkAxis::BOTTOM, 0, 100);
    fixAxis(vtkAxis::LEFT, -50, 50);
    fixAxis(vtkAxis::RIGHT, 100, 0);
    fixAxis(vtkAxis::TOP, 10, 30);
    render();
    chart->GetTooltip()->SetVisible(true);
    EXPECT_TRUE(wheel(1));
    expectRange(vtkAxis::BOTTOM, 10, 90);
    expectRange(vtkAxis::LEFT, -40, 40);
    expectRange(vtkAxis::RIGHT, 110, -10);
    expectRange(vtkAxis::TOP, 12, 28);
    EXPECT_FALSE(tooltipShown());
    EXPECT_EQ(dirty, 1);
    ASSERT_EQ(raisedIds(), Ids {kInteraction});
    EXPECT_FALSE(raised[0].hasData);
}

TEST_F(ChartXYMouse, TheWheelUsesItsCountWithItsSign)
{
    fixAxis(vtkAxis::BOTTOM, 0, 100);
    render();
    EXPECT_TRUE(wheel(-1));
    expectRange(vtkAxis::BOTTOM, -10, 110);
    fixAxis(vtkAxis::BOTTOM, 0, 100);
    EXPECT_TRUE(wheel(3));
    expectRange(vtkAxis::BOTTOM, 30, 70);
}

TEST_F(ChartXYMouse, TheWheelAsksTheSwitchOfEachAxis)
{
    render();
    for (int enabled = 0; enabled < 4; ++enabled) {
        SCOPED_TRACE(enabled);
        for (int axis = 0; axis < 4; ++axis) {
            fixAxis(axis, 0, 100);
            chart->GetAxisZoomEnabled()[axis] = axis == enabled;
        }
        EXPECT_TRUE(wheel(1));
        for (int axis = 0; axis < 4; ++axis)
            EXPECT_NEAR(minimum(axis), axis == enabled ? 10 : 0, kRounding) << axis;
    }
}

TEST_F(ChartXYMouseRanges, TheWheelWithAllAxesOffStillTellsEverybody)
{
    for (int axis = 0; axis < 4; ++axis)
        chart->GetAxisZoomEnabled()[axis] = false;
    EXPECT_TRUE(wheel(1));
    expectHomeRange(vtkAxis::BOTTOM);
    EXPECT_EQ(raisedIds(), Ids {kInteraction});
    expectTold(200, 150);
}

TEST_F(ChartXYMouse, AWheelThatIsOffOnlyHidesTheTooltip)
{
    render();
    chart->ZoomWithMouseWheelOff();
    chart->GetTooltip()->SetVisible(true);
    EXPECT_FALSE(wheel(1));
    EXPECT_FALSE(tooltipShown());
    EXPECT_EQ(dirty, 1);
    expectHomeRange(vtkAxis::BOTTOM);
    EXPECT_TRUE(raised.empty());
}

TEST_F(ChartXYMouse, TheRubberBandZoomsAllFourAxes)
{
    addCurve();
    addCurve(2);
    fixAxis(vtkAxis::TOP, 0, 400);
    fixAxis(vtkAxis::RIGHT, 150, 0);
    render();
    press(50, 80, kRightButton);
    move(150, 20, kRightButton);
    EXPECT_TRUE(release(150, 20, kRightButton));
    expectRange(vtkAxis::BOTTOM, 50, 150);
    expectRange(vtkAxis::LEFT, 20, 80);
    expectRange(vtkAxis::TOP, 100, 300);
    expectRange(vtkAxis::RIGHT, 130, 70); // inverted before and after
    EXPECT_FALSE(open->DrawBox);
    EXPECT_EQ(open->MouseBox, vtkRectf(150, 130, 0, 0));
    ASSERT_EQ(raisedIds(), Ids {kInteraction});
    EXPECT_FALSE(raised[0].hasData);
}

TEST_F(ChartXYMouse, TheRubberBandZoomsALogAxisByItsExponents)
{
    addPlot(vtkChart::LINE, {1, 10, 100}, {30, 120, 60});
    chart->GetAxis(vtkAxis::BOTTOM)->SetLogScale(true);
    chart->GetAxis(vtkAxis::BOTTOM)->SetUnscaledRange(1, 10000);
    render();
    ASSERT_TRUE(chart->GetAxis(vtkAxis::BOTTOM)->GetLogScaleActive());
    expectRange(vtkAxis::BOTTOM, 0, 4);
    press(50, 80, kRightButton);
    release(150, 20, kRightButton);
    expectRange(vtkAxis::BOTTOM, 1, 3);
}

TEST_F(ChartXYMouse, ARubberBandWithoutWidthOrHeightOnlyVanishes)
{
    addCurve();
    render();
    const std::pair<double, double> extents[] = {{0.4, 50}, {50, 0.4}, {0.4, 0.4}, {0, 0}};
    for (const auto& [width, height] : extents) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        press(30, 20, kRightButton);
        move(30 + width, 20 + height, kRightButton);
        EXPECT_TRUE(release(30 + width, 20 + height, kRightButton));
        EXPECT_FALSE(open->DrawBox);
        EXPECT_EQ(open->MouseBox, vtkRectf(130, 70, 0, 0));
        expectHomeRange(vtkAxis::BOTTOM);
        expectHomeRange(vtkAxis::LEFT);
    }
    EXPECT_TRUE(raised.empty());
}

TEST_F(ChartXYMouse, ARubberBandOfHalfAPixelZooms)
{
    addCurve();
    render();
    press(30, 20, kRightButton);
    release(30.5, 70, kRightButton);
    expectRange(vtkAxis::BOTTOM, 30, 30.5);
    expectRange(vtkAxis::LEFT, 20, 70);
}

TEST_F(ChartXYMouse, ARubberBandThatEndsOnAPointIsNeitherAppliedNorTakenAway)
{
    addCurve();
    render();
    press(50, 80, kRightButton);
    move(100, 120, kRightButton);
    EXPECT_TRUE(release(100, 120, kRightButton));
    expectHomeRange(vtkAxis::BOTTOM);
    EXPECT_TRUE(open->DrawBox);
    EXPECT_EQ(raisedIds(), Ids {kSelection});
}

TEST_F(ChartXYMouse, TheAxisZoomFollowsTheMouse)
{
    addCurve();
    open->Actions.ZoomAxis() = kMiddleButton;
    fixAxis(vtkAxis::RIGHT, 100, 0);
    for (int axis = 0; axis < 4; ++axis)
        chart->GetAxisZoomEnabled()[axis] = false; // the wheel's switches only
    render();
    press(50, 50, kMiddleButton);
    dirty = 0;
    move(150, 30, kMiddleButton); // 100 to the right, 20 down
    expectRange(vtkAxis::BOTTOM, 20, 180);
    expectRange(vtkAxis::TOP, 20, 180);
    expectRange(vtkAxis::LEFT, -3, 153);
    expectRange(vtkAxis::RIGHT, 98, 2);
    EXPECT_EQ(dirty, 0) << "not asked for here";
    move(150, 30, kMiddleButton);
    expectRange(vtkAxis::BOTTOM, 20, 180);
    EXPECT_TRUE(release(150, 30, kMiddleButton));
    EXPECT_TRUE(raised.empty());
}

TEST_F(ChartXYMouse, APolygonGrowsByPointsMoreThanTenUnitsApart)
{
    render();
    open->Actions.SelectPolygon() = kMiddleButton;
    press(50, 50, kMiddleButton);
    EXPECT_TRUE(open->DrawSelectionPolygon);
    ASSERT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 1);
    move(60, 50, kMiddleButton);
    EXPECT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 1) << "10 is not more than 10";
    move(60.5, 50, kMiddleButton);
    move(57, 57, kMiddleButton);
    move(66, 58, kMiddleButton);
    ASSERT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 2);
    EXPECT_EQ(open->SelectionPolygon.GetPoint(0), vtkVector2f(150, 100));
    EXPECT_EQ(open->SelectionPolygon.GetPoint(1), vtkVector2f(160.5F, 100));
    press(20, 20, kMiddleButton);
    ASSERT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 1);
    EXPECT_EQ(open->SelectionPolygon.GetPoint(0), vtkVector2f(120, 70));
}

TEST_F(ChartXYMouse, APolygonMoveWithoutAPressDoesNothing)
{
    render();
    open->Actions.SelectPolygon() = kMiddleButton;
    EXPECT_TRUE(move(60, 50, kMiddleButton));
    EXPECT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 0);
}

TEST_F(ChartXYMouse, AClickIsAnsweredByWhatItsButtonIsBoundTo)
{
    addCurve();
    render();
    struct Case {
        short action, notify, select;
        bool answer;
    };
    const Case cases[] = {{vtkChart::PAN, 16, -1, true}, {vtkChart::PAN, -1, 16, true},
        {vtkChart::PAN, -1, -1, false}, {vtkChart::SELECT, 16, -1, true},
        {vtkChart::SELECT, -1, -1, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        open->Actions.Pan() = open->Actions.Select() = -1;
        open->Actions[c.action] = kMiddleButton;
        open->ActionsClick.Notify() = c.notify == 16 ? kMiddleButton : -1;
        open->ActionsClick.Select() = c.select == 16 ? kMiddleButton : -1;
        press(5, 5, kMiddleButton);
        open->DrawBox = true;
        EXPECT_EQ(release(5.4, 5.4, kMiddleButton), c.answer);
        EXPECT_FALSE(open->DrawBox);
        EXPECT_EQ(open->MouseBox, vtkRectf(105, 55, 0, 0));
        EXPECT_TRUE(raised.empty()) << "there is no point under the mouse";
    }
}

TEST_F(ChartXYMouse, AClickAsksForTheTooltipOfAPlotThatTakesNoEvents)
{
    // On a point of one that does, the release would end a drag.
    vtkPlot* curve = addCurve();
    curve->SetLabel("curve");
    curve->SetInteractive(false);
    render();
    press(100, 120);
    EXPECT_TRUE(release(100, 120));
    EXPECT_EQ(tooltip(), "curve: 100,  120");
    EXPECT_TRUE(raised.empty());
    EXPECT_EQ(selected(curve), Rows {-1});
}

TEST_F(ChartXYMouse, AReleaseOnAPointEndsADragWhateverItsButton)
{
    vtkPlot* curve = addCurve();
    render();
    for (const int button : {1, 2, 3, 4}) {
        SCOPED_TRACE(button);
        select(curve, {1});
        raised.clear();
        EXPECT_TRUE(release(100, 120, button));
        EXPECT_EQ(raisedIds(), Ids {kSelection});
        EXPECT_EQ(selected(curve), Rows {});
    }
    select(curve, {1});
    EXPECT_FALSE(release(100, 120, 5));
    EXPECT_FALSE(release(100, 120, 0));
    EXPECT_EQ(selected(curve), Rows {1});
}

TEST_F(ChartXYMouse, AnswersAReleaseByItsButton)
{
    addCurve();
    render();
    pressOnNothing();
    EXPECT_FALSE(release(50, 50, kLeftButton)) << "the end of a pan";
    EXPECT_FALSE(release(50, 50, kMiddleButton)) << "bound to nothing";
    open->Actions.ZoomAxis() = 16;
    EXPECT_TRUE(release(50, 50, 16));
    open->Actions.ZoomAxis() = -1;
    open->Actions.ClickAndDrag() = 16;
    EXPECT_TRUE(release(50, 50, 16));
    EXPECT_EQ(raisedIds(), Ids {kSelection});
}

class ChartXYMouseShape : public ChartXYMouse {
protected:
    ChartXYMouseShape()
    {
        addRectangle(shape, 50, 50, 90, 90);
        moveAlong(shape);
        shape.setOnMousePressCallback([this] { ++pressed; });
        shape.setOnMouseReleaseCallback([this] { ++released; });
        plots = show(&shape);
        render();
    }

    ~ChartXYMouseShape() override { chart->ClearPlots(); }

    Shape shape;
    ShapePlots plots;
    int pressed = 0;
    int released = 0;
};

TEST_F(ChartXYMouseShape, ADragInsideAShapeMovesIt)
{
    press(60, 80);
    EXPECT_TRUE(plots.linesPart->dragTarget);
    EXPECT_FALSE(plots.handlesPart->dragTarget);
    EXPECT_EQ(pressed, 1);
    dirty = 0;
    move(67, 77, kLeftButton);
    EXPECT_EQ(dirty, 1);
    expectHomeRange(vtkAxis::BOTTOM);
    EXPECT_TRUE(raised.empty());
    const double left = 57, right = 97, bottom = 47, top = 87;
    const double lineX[] = {left, right, right, right, right, left, left, left};
    const double lineY[] = {bottom, bottom, bottom, top, top, top, top, bottom};
    for (int row = 0; row < 8; ++row) {
        EXPECT_NEAR(plots.lineValue(0, row), lineX[row], kRounding) << row;
        EXPECT_NEAR(plots.lineValue(1, row), lineY[row], kRounding) << row;
    }
    EXPECT_NEAR(plots.handleValue(0, 0), left, kRounding);
    EXPECT_NEAR(plots.handleValue(0, 1), (left + right) / 2, kRounding);
    EXPECT_NEAR(plots.handleValue(1, 4), (top + bottom) / 2, kRounding);

    move(70, 77, kLeftButton);
    EXPECT_NEAR(plots.lineValue(0, 0), 60, kRounding);
    EXPECT_TRUE(release(70, 77));
    EXPECT_FALSE(plots.linesPart->dragTarget);
    EXPECT_EQ(released, 2) << "told once for each plot";
    EXPECT_EQ(raisedIds(), Ids {kSelection});

    press(5, 5);
    move(15, 5, kLeftButton);
    expectRange(vtkAxis::BOTTOM, -10, 190);
}

TEST_F(ChartXYMouseShape, ADragMakesEveryPlotTakeOverItsTable)
{
    vtkPlot* curve = addCurve();
    render();
    press(60, 80);
    const vtkMTimeType handles = plots.handles->GetMTime();
    const vtkMTimeType lines = plots.lines->GetInput()->GetMTime();
    curve->GetInput()->SetValue(0, 1, 77.0);
    render();
    EXPECT_TRUE(open->HitInteractivePlot(event(20, 30))) << "nobody has told the curve";
    move(67, 77, kLeftButton);
    EXPECT_GT(plots.lines->GetInput()->GetMTime(), lines);
    EXPECT_GT(plots.handles->GetMTime(), handles);
    render();
    EXPECT_FALSE(open->HitInteractivePlot(event(20, 30)));
    EXPECT_TRUE(open->HitInteractivePlot(event(20, 77)));
}

TEST_F(ChartXYMouse, AShapeDragMovesOnlyWhereItIsAllowed)
{
    struct Case {
        bool chartX, chartY, plotX, plotY, interactive;
        double dx, dy;
    };
    const Case cases[] = {
        {true, true, true, true, true, 7, -3},
        {false, true, true, true, true, 0, -3},
        {true, false, true, true, true, 7, 0},
        {true, true, false, true, true, 0, -3},
        {true, true, true, false, true, 7, 0},
        {true, true, true, true, false, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        Shape figure;
        addRectangle(figure, 50, 50, 90, 90);
        moveAlong(figure);
        const ShapePlots shown = show(&figure, c.plotX, c.plotY);
        shown.lines->SetInteractive(c.interactive);
        chart->SetDragPointAlongX(c.chartX);
        chart->SetDragPointAlongY(c.chartY);
        render();
        press(60, 80);
        move(67, 77, kLeftButton);
        EXPECT_NEAR(shown.lineValue(0, 0), 50 + c.dx, kRounding);
        EXPECT_NEAR(shown.lineValue(1, 0), 50 + c.dy, kRounding);
        expectHomeRange(vtkAxis::BOTTOM);
        release(67, 77);
        chart->ClearPlots();
    }
}

TEST_F(ChartXYMouseShape, AHandlePlotCanBeTheOneThatIsDragged)
{
    press(60, 80);
    plots.linesPart->dragTarget = false;
    plots.handlesPart->dragTarget = true;
    move(67, 77, kLeftButton);
    EXPECT_NEAR(plots.handleValue(0, 0), 57, kRounding);
    EXPECT_NEAR(plots.handleValue(1, 0), 47, kRounding);
    EXPECT_NEAR(plots.lineValue(0, 0), 57, kRounding);
    EXPECT_NEAR(plots.lineValue(1, 0), 47, kRounding);
}

TEST_F(ChartXYMouse, AShapeWithoutCallbacksStaysWhereItIs)
{
    Shape still;
    addRectangle(still, 120, 50, 160, 90);
    const ShapePlots plots = show(&still);
    render();
    press(130, 80);
    move(137, 77, kLeftButton);
    EXPECT_DOUBLE_EQ(plots.lineValue(0, 0), 120);
    expectHomeRange(vtkAxis::BOTTOM);
    EXPECT_TRUE(release(137, 77));
    chart->ClearPlots();
}

TEST_F(ChartXYMouseShape, AShapeMayGrowOrShrinkWhileItIsDragged)
{
    shape.setXTranslationCallback([this](double) {
        shape.clear();
        shape.addLine(Point(1, 2), Point(3, 4));
    });
    shape.setYTranslationCallback([this](double) {
        for (int i = 0; i < 10; ++i)
            shape.addLine(Point(1, 2), Point(3, 4));
    });
    press(60, 80);
    move(67, 77, kLeftButton);
    EXPECT_DOUBLE_EQ(plots.lineValue(0, 0), 1);
    EXPECT_DOUBLE_EQ(plots.lineValue(0, 2), 90) << "no point of the shape is there any more";
    EXPECT_DOUBLE_EQ(plots.lineValue(1, 7), 4);
}

TEST_F(ChartXYMouseShape, ADragOfAHandleResizesTheShape)
{
    std::vector<std::vector<double>> calls;
    const auto moveRightCorner = [this](double dx, double dy) {
        const Point step(dx, dy);
        *shape.line(0)->p2() += step;
        *shape.handle(2) += step;
    };
    shape.setXResizeCallback([&](const Point& grabbed, double dx) {
        calls.push_back({grabbed.x(), grabbed.y(), dx});
        moveRightCorner(dx, 0);
    });
    shape.setYResizeCallback([&](const Point& grabbed, double dy) {
        calls.push_back({grabbed.x(), grabbed.y(), dy});
        moveRightCorner(0, dy);
    });
    vtkPlot* curve = addCurve();
    render();
    press(91, 51);
    EXPECT_EQ(raisedIds(), (Ids {kSelection, kSelection}));
    ASSERT_EQ(selected(plots.handles).size(), 1u);
    select(plots.handles, {2}); // of the two handles that lie there
    const vtkMTimeType lines = plots.lines->GetMTime();
    const vtkMTimeType table = plots.handles->GetInput()->GetMTime();
    const vtkMTimeType selection = plots.handles->GetSelection()->GetMTime();
    const vtkMTimeType bystander = curve->GetInput()->GetMTime();
    move(95, 49, kLeftButton);

    // The handle as it was before each motion: along x first, then along y.
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_DOUBLE_EQ(calls[0][0], 90);
    EXPECT_DOUBLE_EQ(calls[0][1], 50);
    EXPECT_NEAR(calls[0][2], 4, kRounding);
    EXPECT_NEAR(calls[1][0], 94, kRounding);
    EXPECT_DOUBLE_EQ(calls[1][1], 50);
    EXPECT_NEAR(calls[1][2], -2, kRounding);
    EXPECT_NEAR(plots.handleValue(0, 2), 94, kRounding);
    EXPECT_NEAR(plots.handleValue(1, 2), 48, kRounding);
    EXPECT_NEAR(plots.lineValue(0, 1), 94, kRounding);
    EXPECT_NEAR(plots.lineValue(1, 1), 48, kRounding);
    EXPECT_DOUBLE_EQ(plots.lineValue(0, 0), 50);
    EXPECT_GT(plots.lines->GetMTime(), lines);
    EXPECT_GT(plots.handles->GetInput()->GetMTime(), table);
    EXPECT_GT(plots.handles->GetSelection()->GetMTime(), selection);
    EXPECT_EQ(curve->GetInput()->GetMTime(), bystander) << "it has nothing selected";

    EXPECT_TRUE(release(95, 49));
    EXPECT_EQ(selected(plots.handles), Rows {});
    EXPECT_EQ(released, 2);
}

TEST_F(ChartXYMouseShape, ADragOfAHandleResizesOnlyWhereItIsAllowed)
{
    int x = 0;
    int y = 0;
    shape.setXResizeCallback([&](const Point&, double) { ++x; });
    shape.setYResizeCallback([&](const Point&, double) { ++y; });
    const auto drag = [&] {
        x = y = 0;
        press(91, 51);
        move(95, 49, kLeftButton);
        release(95, 49);
        return std::pair(x, y);
    };
    EXPECT_EQ(drag(), std::pair(1, 1));
    chart->DragPointAlongXOff();
    EXPECT_EQ(drag(), std::pair(0, 1));
    chart->DragPointAlongXOn();
    chart->DragPointAlongYOff();
    EXPECT_EQ(drag(), std::pair(1, 0));
    chart->DragPointAlongYOn();
    plots.handlesPart->canDragX = false;
    EXPECT_EQ(drag(), std::pair(0, 1));
    plots.handlesPart->canDragX = true;
    plots.handlesPart->isHandle = false;
    EXPECT_EQ(drag(), std::pair(0, 0));
    plots.handlesPart->isHandle = true;
    plots.handles->SetInteractive(false);
    plots.lines->SetInteractive(false);
    EXPECT_EQ(drag(), std::pair(0, 0)) << "no point can be grabbed";
}

TEST_F(ChartXYMouseShape, ADragAmongManyPlotsKnowsOfEveryChangeOfASelection)
{
    constexpr int kSelectButton = 16; // of a mouse with more buttons
    for (int i = 0; i < 300; ++i)
        addPlot(vtkChart::LINE, {1, 2}, {1, 2})->SetVisible(false);
    vtkPlot* curve = addCurve();
    part(curve)->canDragX = true;
    open->Actions.ClickAndDrag() = kMiddleButton;
    open->Actions.Select() = kSelectButton;
    render();
    const auto drags = [&] { // by nothing, in a chart at the scene's origin
        press(60, 80);
        const vtkMTimeType before = curve->GetInput()->GetMTime();
        move(150, 100, kMiddleButton);
        press(5, 5);
        return curve->GetInput()->GetMTime() > before;
    };
    EXPECT_FALSE(drags());
    press(5, 5, kSelectButton);
    release(195, 145, kSelectButton);
    EXPECT_TRUE(drags()) << "the band";
    chart->SetSelectionMethod(vtkChart::SELECTION_PLOTS);
    EXPECT_FALSE(drags()) << "the other method";

    const vtkNew<vtkAnnotationLink> link;
    const vtkNew<vtkIdTypeArray> rows;
    rows->InsertNextValue(0);
    MakeSelection(link, rows, curve);
    chart->SetAnnotationLink(link);
    render();
    EXPECT_TRUE(drags()) << "the link";
    chart->SetAnnotationLink(nullptr);
    rows->SetValue(0, 7);
    render();
    EXPECT_FALSE(drags()) << "the paint, of a row that is not there";

    press(20, 30, kMiddleButton);
    EXPECT_TRUE(drags()) << "the press";
    release(150, 20);
    EXPECT_FALSE(drags()) << "the release";
}

TEST_F(ChartXYMouseShape, ASelectionBeyondTheHandlesResizesNothing)
{
    int calls = 0;
    shape.setXResizeCallback([&](const Point&, double) { ++calls; });
    press(91, 51);
    for (const vtkIdType row : {vtkIdType {12}, vtkIdType {-1}, vtkIdType {1} << 40}) {
        select(plots.handles, {row});
        move(95, 49, kLeftButton);
    }
    EXPECT_EQ(calls, 0);
}

TEST_F(ChartXYMouseShape, ADragOfAHandleStandsAReleaseWithinIt)
{
    int along = 0;
    shape.setXResizeCallback([&](const Point&, double) { release(95, 49); });
    shape.setYResizeCallback([&](const Point&, double) { ++along; });
    press(91, 51);
    EXPECT_TRUE(move(95, 49, kLeftButton));
    EXPECT_EQ(along, 0) << "nothing is selected any more";
    EXPECT_EQ(selected(plots.handles), Rows {});
}

TEST_F(ChartXYMouseShape, ADragStandsGesturesWithinIt)
{
    Shape other;
    addRectangle(other, 55, 55, 85, 85);
    const ShapePlots otherPlots = show(&other, true, true, 1); // so that both corners have a target
    render();
    int moves = 0;
    int otherMoves = 0;
    shape.setXTranslationCallback([&](double) {
        if (++moves > 1)
            return;
        release(67, 77);
        press(60, 80);
        move(61, 80, kLeftButton);
        release(61, 80);
    });
    other.setXTranslationCallback([&](double) { ++otherMoves; });
    press(60, 80);
    ASSERT_TRUE(otherPlots.linesPart->dragTarget);
    EXPECT_TRUE(move(67, 77, kLeftButton));
    EXPECT_EQ(moves, 2);
    EXPECT_EQ(otherMoves, 1) << "by the inner drag, which ended the outer one";
    chart->ClearPlots();
}

TEST_F(ChartXYMouseShape, AReleaseStandsThatAShapeIsReplacedAndTheMouseMoves)
{
    Shape other;
    addRectangle(other, 120, 20, 150, 60);
    const ShapePlots otherPlots = show(&other, true, true, 1);
    int otherReleased = 0;
    other.setOnMouseReleaseCallback([&] { ++otherReleased; });
    render();
    move(60, 80); // so that the chart has looked at both shapes
    const auto replaced = std::make_shared<bool>(false);
    shape.setOnMouseReleaseCallback([this, replaced] {
        if (std::exchange(*replaced, true))
            return;
        Shape empty;
        std::swap(shape, empty);
        move(5, 5);
        std::swap(shape, empty);
    });
    EXPECT_FALSE(release(5, 5, kMiddleButton));
    EXPECT_EQ(otherReleased, 2);
    EXPECT_TRUE(otherPlots.linesPart->shape);
    chart->ClearPlots();
}

TEST_F(ChartXYMouseShape, AnyReleaseTellsEveryShapeOfEveryCorner)
{
    Shape top;
    int topReleased = 0;
    top.setOnMouseReleaseCallback([&] { ++topReleased; });
    addRectangle(top, 120, 50, 160, 90);
    const ShapePlots topPlots = show(&top, false, false, 2);
    render();
    topPlots.linesPart->dragTarget = true;
    for (const int button : {kLeftButton, kMiddleButton, kRightButton, 8})
        release(5, 5, button);
    EXPECT_EQ(released, 8);
    EXPECT_EQ(topReleased, 8);
    EXPECT_FALSE(topPlots.linesPart->dragTarget);
    chart->ClearPlots();
}

TEST_F(ChartXYMouseShape, NoPlotIsADragTargetWhenTheFirstShapeIsToldOfTheRelease)
{
    Shape other;
    addRectangle(other, 120, 50, 160, 90);
    const ShapePlots otherPlots = show(&other);
    otherPlots.linesPart->dragTarget = true;
    bool left = true;
    shape.setOnMouseReleaseCallback([&] { left = otherPlots.linesPart->dragTarget; });
    release(5, 5);
    EXPECT_FALSE(left);
    chart->ClearPlots();
}

TEST_F(ChartXYMouse, TheColumnDragMeasuresTheChartsPlaceInItsScene)
{
    vtkPlot* curve = addCurve();
    part(curve)->canDragX = part(curve)->canDragY = true;
    open->Actions.ClickAndDrag() = kMiddleButton;
    render();
    press(100, 120, kMiddleButton);
    ASSERT_EQ(raisedIds(), (Ids {kSelection, kSelection}));
    EXPECT_EQ(selected(curve), Rows {1});

    const vtkMTimeType before = curve->GetInput()->GetMTime();
    move(150, 100, kMiddleButton);
    EXPECT_DOUBLE_EQ(curve->GetInput()->GetValue(0, 0).ToDouble(), 20) << "no motion of the mouse";
    EXPECT_GT(curve->GetInput()->GetMTime(), before);

    // As in a scene of 400 x 300 that begins 40 to the right and 30 above the chart's origin.
    vtkContextMouseEvent mouse = event(150, 100, kMiddleButton);
    mouse.SetScenePos(vtkVector2f(mouse.GetPos().GetX() - 40, mouse.GetPos().GetY() - 30));
    chart->MouseMoveEvent(mouse);
    for (vtkIdType row = 0; row < 3; ++row) {
        const double x[] = {20, 100, 180};
        const double y[] = {30, 120, 60};
        EXPECT_NEAR(curve->GetInput()->GetValue(row, 0).ToDouble(), x[row] + 20, kRounding);
        EXPECT_NEAR(curve->GetInput()->GetValue(row, 1).ToDouble(), y[row] + 15, kRounding);
    }
}

TEST_F(ChartXYMouse, TheColumnDragNeedsAPointADirectionAndASelection)
{
    vtkPlot* curve = addCurve();
    part(curve)->canDragX = part(curve)->canDragY = true;
    open->Actions.ClickAndDrag() = kMiddleButton;
    render();
    const auto drag = [&] {
        vtkContextMouseEvent mouse = event(150, 100, kMiddleButton);
        mouse.SetScenePos(vtkVector2f(0, 0));
        const vtkMTimeType before = curve->GetInput()->GetMTime();
        chart->MouseMoveEvent(mouse);
        return curve->GetInput()->GetMTime() > before;
    };
    select(curve, {0});
    EXPECT_FALSE(drag()) << "no press on a point";
    press(100, 120, kMiddleButton);
    EXPECT_TRUE(drag());
    chart->DragPointAlongXOff();
    const double x = curve->GetInput()->GetValue(0, 0).ToDouble();
    EXPECT_TRUE(drag());
    EXPECT_DOUBLE_EQ(curve->GetInput()->GetValue(0, 0).ToDouble(), x) << "only along y";
    chart->DragPointAlongYOff();
    EXPECT_FALSE(drag());
    chart->DragPointAlongYOn();
    select(curve, {});
    EXPECT_FALSE(drag()) << "nothing selected";
}

TEST_F(ChartXYMouse, TheDragsLeaveBarsOut)
{
    vtkPlot* bars = addPlot(vtkChart::BAR, {20, 60, 100}, {40, 80, 60});
    part(bars)->canDragX = part(bars)->canDragY = true;
    open->Actions.ClickAndDrag() = kMiddleButton;
    render();
    press(100, 40, kMiddleButton);
    select(bars, {0});
    const vtkMTimeType before = bars->GetInput()->GetMTime();
    vtkContextMouseEvent mouse = event(150, 100, kMiddleButton);
    mouse.SetScenePos(vtkVector2f(0, 0));
    chart->MouseMoveEvent(mouse);
    press(100, 40);
    select(bars, {0});
    move(110, 40, kLeftButton);
    EXPECT_EQ(bars->GetInput()->GetMTime(), before);
    EXPECT_DOUBLE_EQ(bars->GetInput()->GetValue(0, 0).ToDouble(), 20);
}

TEST_F(ChartXYMouseShape, MarksTheSceneDirtyWhenItHasChangedThePicture)
{
    vtkContextScene* scene = chart->GetScene();
    const auto expectDirty = [scene](bool expected, const char* what) {
        EXPECT_EQ(scene->GetDirty(), expected) << what;
        scene->SetDirty(false);
    };
    open->Actions.ZoomAxis() = 8;
    open->Actions.SelectPolygon() = 16;
    open->Actions.Select() = 32;
    open->Actions.ClickAndDrag() = kMiddleButton;
    part(plots.lines)->tooltipVisible = false;
    scene->SetDirty(false);

    move(150, 20);
    expectDirty(true, "hover");
    press(150, 20);
    expectDirty(false, "press of pan");
    release(150, 20);
    expectDirty(false, "click");
    press(150, 20);
    move(151, 20, kLeftButton);
    expectDirty(true, "pan");
    press(60, 75);
    move(61, 75, kLeftButton);
    expectDirty(true, "drag of a shape");
    release(61, 75);
    expectDirty(false, "end of a drag");
    render();
    press(51, 50);
    scene->SetDirty(false);
    move(52, 50, kLeftButton);
    expectDirty(true, "drag of a handle");
    select(plots.handles, {});
    select(plots.lines, {});
    move(53, 50, kLeftButton);
    expectDirty(false, "drag of a point without a selection");
    select(plots.handles, {0});
    move(54, 50, kMiddleButton);
    expectDirty(true, "drag of columns");
    release(54, 50);

    press(150, 20, kRightButton);
    expectDirty(false, "press of zoom");
    move(170, 30, kRightButton);
    expectDirty(true, "rubber band");
    release(170, 30, kRightButton);
    expectDirty(true, "zoom");
    press(150, 20, kRightButton);
    release(150, 20, kRightButton);
    expectDirty(false, "flat band");
    move(150, 20, 8);
    expectDirty(true, "axis zoom without a motion");
    move(150, 20, 16);
    expectDirty(false, "polygon that was not begun");
    press(150, 20, 16);
    move(151, 20, 16);
    expectDirty(true, "polygon that did not grow");
    release(151, 20, 16);
    expectDirty(true, "end of a polygon of two points");
    press(150, 20, 32);
    release(150, 60, 32);
    expectDirty(true, "flat band of a selection");
    wheel(1);
    expectDirty(true, "wheel");
    chart->ZoomWithMouseWheelOff();
    wheel(1);
    expectDirty(false, "wheel that is off");
    key('r');
    expectDirty(true, "key r");
    key('x');
    expectDirty(false, "any other key");
    chart->MouseEnterEvent(event(150, 20));
    chart->MouseLeaveEvent(event(150, 20));
    expectDirty(false, "leave");
    chart->SetTooltip(nullptr);
    scene->SetDirty(false);
    move(150, 20);
    expectDirty(true, "hover without a tooltip");
}

TEST_F(ChartXYMouse, StandsEveryEventBeforeTheFirstPaintAndWithoutHooks)
{
    addPlot(vtkChart::LINE, {1, 2}, {3, 4});
    chart->SetTooltip(nullptr);
    open->Actions.Select() = kMiddleButton;
    open->Actions.ZoomAxis() = 16;
    open->Actions.SelectPolygon() = 32;
    open->Actions.ClickAndDrag() = 64;
    ChartCallbacks empty;
    for (ChartCallbacks* hooks : {static_cast<ChartCallbacks*>(nullptr), &empty}) {
        chart->SetCallbacks(hooks);
        for (const int button : {0, 1, 2, 4, 8, 16, 32, 64}) {
            release(10, 10, button);
            move(20, 20, button);
            press(30, 30, button);
            move(50, 50, button);
            move(90, 20, button);
            release(90, 20, button);
        }
        EXPECT_TRUE(chart->MouseEnterEvent(event(1, 1)));
        EXPECT_TRUE(chart->MouseLeaveEvent(event(1, 1)));
        EXPECT_TRUE(wheel(1));
        EXPECT_TRUE(key('r'));
    }
}

TEST_F(ChartXYMouse, StandsDragsOverPlotsThatHaveNoTableOrNoSelection)
{
    for (int type = vtkChart::LINE; type <= vtkChart::AREA; ++type) {
        vtkPlot* plot = chart->AddPlot(type);
        part(plot)->canDragX = part(plot)->canDragY = true;
        if (type % 2 == 0)
            select(plot, {0});
    }
    Shape shape;
    addRectangle(shape, 50, 50, 90, 90);
    moveAlong(shape);
    vtkPlot* lines = chart->AddPlot(vtkChart::LINE);
    vtkPlot* handles = chart->AddPlot(vtkChart::POINTS);
    part(lines)->sibling = handles;
    part(handles)->isHandle = true;
    for (vtkPlot* plot : {lines, handles}) {
        part(plot)->shape = &shape;
        part(plot)->canDragX = part(plot)->canDragY = true;
    }
    open->Actions.ClickAndDrag() = kMiddleButton;
    press(60, 80); // nothing has been painted: a unit is a pixel from the window's corner
    press(60 - kLeft, 80 - kBottom);
    EXPECT_TRUE(part(lines)->dragTarget);
    move(70 - kLeft, 85 - kBottom, kLeftButton);
    EXPECT_NEAR(shape.line(0)->p1()->x(), 60, kRounding);
    release(70 - kLeft, 85 - kBottom);
    press(70 - kLeft, 85 - kBottom, kMiddleButton);
    select(handles, {0});
    move(75 - kLeft, 85 - kBottom, kMiddleButton);
    EXPECT_TRUE(release(75 - kLeft, 85 - kBottom, kMiddleButton));
    chart->ClearPlots();
}

TEST_F(ChartXYMouse, StandsMovesAndReleasesOfAButtonThatWasPressedElsewhere)
{
    addCurve();
    render();
    move(25, 15, kRightButton);
    EXPECT_EQ(open->MouseBox, vtkRectf(0, 0, 125, 65));
    EXPECT_FALSE(open->DrawBox);
    move(30, 15, kLeftButton); // a pan without a press
    expectRange(vtkAxis::BOTTOM, -5, 195);
    EXPECT_FALSE(release(30, 15));
}

TEST_F(ChartXYMouseShape, FollowsNoPlotThatWasRemovedBetweenTwoEvents)
{
    press(60, 80);
    chart->RemovePlotInstance(plots.handles);
    move(67, 77, kLeftButton);
    EXPECT_NEAR(plots.lineValue(0, 0), 57, kRounding);
    chart->RemovePlotInstance(plots.lines);
    move(70, 77, kLeftButton);
    release(70, 77);
    plots = show(&shape);
    press(70, 77);
    chart->ClearPlots();
    move(75, 77, kLeftButton);
    release(75, 77);
    EXPECT_TRUE(move(75, 77));
}

} // namespace
} // namespace ovl
