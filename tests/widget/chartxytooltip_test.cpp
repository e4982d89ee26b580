// SPDX-License-Identifier: BSD-3-Clause
#include <support/charteventfixture.h>
#include <support/messagewatch.h>
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/vtkcompat.h>

#include <vtkAnnotationLink.h>
#include <vtkAxis.h>
#include <vtkContextTransform.h>
#include <vtkIdTypeArray.h>
#include <vtkMatrix3x3.h>
#include <vtkNew.h>
#include <vtkPlot.h>
#include <vtkSelection.h>
#include <vtkSelectionNode.h>
#include <vtkStringArray.h>
#include <vtkTable.h>
#include <vtkTransform2D.h>

#include <QString>

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace ovl {
namespace {

using test::ChartEventFixture;
using test::MessageWatch;
using test::ShapePlots;
using Rows = std::vector<vtkIdType>;

constexpr int kSelection = vtkCommand::SelectionChangedEvent;
constexpr int kInteraction = vtkCommand::InteractionEvent;

class ChartXYTooltip : public testing::Test, public ChartEventFixture {
protected:
    ChartXYTooltip()
        : plot(addPlot(vtkChart::LINE, {20, 100, 180}, {30, 120, 60}))
    {
        plot->SetLabel("A");
        render();
    }

    ~ChartXYTooltip() override { chart->ClearPlots(); }

    std::string label(double x, double y, vtkIdType index = 0)
    {
        return open->BuildTooltipLabel(plot, vtkVector2d(x, y), index, -1);
    }

    std::string labelIn(const std::string& format, double x, double y, vtkIdType index = 0)
    {
        plot->SetTooltipLabelFormat(format);
        return label(x, y, index);
    }

    vtkPlot* plot;
};

TEST_F(ChartXYTooltip, WritesLabelAndPositionByDefault)
{
    EXPECT_EQ(open->TooltipDefaultLabelFormat, "%l: %x,  %y");
    EXPECT_EQ(label(1.5, 2), "A: 1.5,  2");
}

TEST_F(ChartXYTooltip, TakesThePlotsOwnFormatWhenThereIsOne)
{
    EXPECT_EQ(labelIn("(%x|%y) of %l", 1.5, 2), "(1.5|2) of A");
    EXPECT_EQ(labelIn("", 1.5, 2), "A: 1.5,  2");
    EXPECT_EQ(labelIn("plain", 1.5, 2), "plain");
}

TEST_F(ChartXYTooltip, WritesEachCode)
{
    const vtkNew<vtkStringArray> labels;
    labels->InsertNextValue("zero");
    labels->InsertNextValue("one");
    plot->SetIndexedLabels(labels);
    struct Case {
        const char* format;
        vtkIdType index;
        const char* text;
    };
    const Case cases[] = {
        {"%x", 1, "1.5"},
        {"%y", 1, "300.7"},
        {"%h", 1, "0x12C"},
        {"%i", 1, "one"},
        {"<%i>", 2, "<>"},
        {"<%i>", -1, "<>"},
        {"%j", 7, "7"},
        {"%l", 1, "A"},
        {"%q", 1, "%q"},
        {"end %", 1, "end "},
        {"%x%y%%l", 1, "1.5300.7%%l"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.format);
        EXPECT_EQ(labelIn(c.format, 1.5, 300.7, c.index), c.text);
    }
    plot->SetIndexedLabels(nullptr);
    EXPECT_EQ(labelIn("<%i>", 1.5, 2, 0), "<>");
}

TEST_F(ChartXYTooltip, AsksTheHooksForCustomNumbers)
{
    EXPECT_EQ(labelIn("%a|%b|%x", 1.5, 2), "||1.5") << "hooks that are empty";
    std::vector<std::pair<int, double>> asked;
    callbacks.setCustomXCallback([&](int index, double x) {
        asked.emplace_back(index, x);
        return x * 10;
    });
    callbacks.setCustomYCallback([&](int index, double y) {
        asked.emplace_back(index, y);
        return y - 0.5;
    });
    EXPECT_EQ(labelIn("%a|%b|%x|%y", 1.5, 2, 4), "15|1.5|1.5|2");
    EXPECT_EQ(asked, (std::vector<std::pair<int, double>> {{4, 1.5}, {4, 2.0}}));
    chart->SetCallbacks(nullptr);
    EXPECT_EQ(labelIn("%a|%b|%x", 1.5, 2), "||1.5") << "no hooks at all";
}

TEST_F(ChartXYTooltip, WritesNumbersAsThePlotsPrecisionAndNotationSay)
{
    plot->SetTooltipPrecision(3);
    EXPECT_EQ(labelIn("%x", 1234.5678, 0), "1.23e+03");
    plot->SetTooltipNotation(1);
    EXPECT_EQ(labelIn("%x", 1234.5678, 0), "1.235e+03");
    plot->SetTooltipNotation(2);
    EXPECT_EQ(labelIn("%x %y %j", 1234.5678, 0, 5), "1234.568 0.000 5.000");
}

TEST_F(ChartXYTooltip, RaisesTenToThePowerOnALogAxis)
{
    vtkAxis* bottom = chart->GetAxis(vtkAxis::BOTTOM);
    bottom->SetLogScale(true);
    bottom->SetUnscaledRange(1, 1000);
    render();
    ASSERT_TRUE(bottom->GetLogScaleActive());
    callbacks.setCustomXCallback([](int, double x) { return x + 1; });
    EXPECT_EQ(labelIn("%x", 2, 2), "100");
    EXPECT_EQ(labelIn("%y", 2, 2), "2");
    EXPECT_EQ(labelIn("%a", 2, 2), "1000");
    EXPECT_EQ(labelIn("%j", 2, 2, 3), "1000") << "the index goes by the x axis too";
    EXPECT_EQ(labelIn("%h", 2, 2), "0x2");
}

TEST_F(ChartXYTooltip, ShowsThePointUnderTheMouseBesideIt)
{
    move(101, 118);
    EXPECT_TRUE(tooltipShown());
    EXPECT_EQ(tooltip(), "A: 100,  120");
    EXPECT_EQ(chart->GetTooltip()->GetPositionVector(), vtkVector2f(203, 128));
    EXPECT_EQ(dirty, 1);
}

TEST_F(ChartXYTooltip, FindsPointsWithinFivePixels)
{
    EXPECT_TRUE(open->HitInteractivePlot(event(104, 116)));
    EXPECT_TRUE(open->HitInteractivePlot(event(96, 124)));
    EXPECT_FALSE(open->HitInteractivePlot(event(106, 120)));
    EXPECT_FALSE(open->HitInteractivePlot(event(100, 126)));
    fixAxis(vtkAxis::BOTTOM, 0, 400); // two units a pixel
    chart->RecalculateBounds();
    render();
    EXPECT_TRUE(open->HitInteractivePlot(event(54, 120)));
    EXPECT_FALSE(open->HitInteractivePlot(event(56, 120)));
    EXPECT_FALSE(open->HitInteractivePlot(event(50, 126)));
}

TEST_F(ChartXYTooltip, FindsNothingOnOrBeyondTheEdgeOfThePlotArea)
{
    vtkPlot* edge = addPlot(vtkChart::POINTS, {0, 200, 100, 100}, {70, 70, 0, 150});
    render();
    EXPECT_TRUE(open->HitInteractivePlot(event(1, 70)));
    const std::pair<double, double> outside[]
        = {{0, 70}, {200, 70}, {100, 0}, {100, 150}, {-2, 70}};
    for (const auto& [x, y] : outside) {
        EXPECT_FALSE(open->HitInteractivePlot(event(x, y))) << x << ", " << y;
        EXPECT_FALSE(open->LocatePointInPlots(event(x, y), -1)) << x << ", " << y;
        part(edge)->isHandle = true;
        EXPECT_FALSE(open->HitHandlePlot(event(x, y))) << x << ", " << y;
    }
}

TEST_F(ChartXYTooltip, HidesItselfAndAsksForOneRepaintWhenThePointIsLeft)
{
    move(100, 120);
    dirty = 0;
    move(150, 20);
    EXPECT_FALSE(tooltipShown());
    EXPECT_EQ(tooltip(), "");
    EXPECT_EQ(dirty, 1);
    move(151, 20);
    EXPECT_EQ(dirty, 1) << "there is nothing to hide any more";
    EXPECT_EQ(chart->GetTooltip()->GetPositionVector(), vtkVector2f(253, 30));
}

TEST_F(ChartXYTooltip, WantsATooltipItemToDoAnything)
{
    chart->SetTooltip(nullptr);
    EXPECT_TRUE(move(100, 120));
    EXPECT_EQ(dirty, 0);
    EXPECT_TRUE(open->LocatePointInPlots(event(100, 120), -1));
    open->SetTooltipInfo(event(100, 120), vtkVector2d(1, 2), 0, plot, -1);
}

TEST_F(ChartXYTooltip, SkipsHiddenPlots)
{
    plot->SetVisible(false);
    EXPECT_FALSE(open->HitInteractivePlot(event(100, 120)));
    EXPECT_FALSE(open->LocatePointInPlots(event(100, 120), kSelection));
    move(100, 120);
    EXPECT_FALSE(tooltipShown());
    EXPECT_TRUE(raised.empty());
}

TEST_F(ChartXYTooltip, PrefersThePlotOnTopAndTheLowerCorner)
{
    vtkPlot* top = addPlot(vtkChart::POINTS, {100}, {120});
    top->SetLabel("top");
    vtkPlot* otherCorner = addPlot(vtkChart::POINTS, {100}, {120}, 2);
    otherCorner->SetLabel("corner");
    render();
    move(100, 120);
    EXPECT_EQ(tooltip(), "top: 100,  120");
    chart->LowerPlot(top);
    move(100, 120);
    EXPECT_EQ(tooltip(), "A: 100,  120");
    chart->RemovePlotInstance(top);
    plot->SetVisible(false);
    move(100, 120);
    EXPECT_EQ(tooltip(), "corner: 100,  120");
}

TEST_F(ChartXYTooltip, FindsAPlotThatWasAddedBetweenTwoEvents)
{
    move(60, 60);
    EXPECT_FALSE(tooltipShown());
    addPlot(vtkChart::POINTS, {60}, {60})->SetLabel("new");
    render();
    move(60, 60);
    EXPECT_EQ(tooltip(), "new: 60,  60");
}

TEST_F(ChartXYTooltip, FindsNoPlotThatWasRemovedWithOthersBetweenTwoEvents)
{
    vtkPlot* other = addPlot(vtkChart::POINTS, {60}, {60});
    render();
    move(60, 60);
    EXPECT_TRUE(tooltipShown());
    chart->RemovePlots({other, plot});
    for (const double place : {60.0, 100.0}) {
        move(place, place == 60.0 ? 60.0 : 120.0);
        EXPECT_FALSE(tooltipShown());
    }
}

TEST_F(ChartXYTooltip, PrefersThePlotThatIsOnTopSinceOthersWereLowered)
{
    addPlot(vtkChart::POINTS, {100}, {120})->SetLabel("top");
    vtkPlot* top = chart->GetPlot(1);
    render();
    move(100, 120);
    EXPECT_EQ(tooltip(), "top: 100,  120");
    chart->LowerPlots({top});
    move(100, 120);
    EXPECT_EQ(tooltip(), "A: 100,  120");
}

TEST_F(ChartXYTooltip, APlotThatTakesNoEventsShowsItsTooltipWhereNoOtherHasAPoint)
{
    vtkPlot* mute = addPlot(vtkChart::POINTS, {100, 50}, {120, 50});
    mute->SetLabel("mute");
    mute->SetInteractive(false);
    render();
    move(100, 120);
    EXPECT_EQ(tooltip(), "A: 100,  120") << "though the other lies on top";
    EXPECT_TRUE(open->LocatePointInPlots(event(50, 50), kSelection));
    EXPECT_EQ(tooltip(), "mute: 50,  50");
    EXPECT_TRUE(raised.empty());
    EXPECT_EQ(selected(mute), Rows {-1});
    EXPECT_FALSE(open->HitInteractivePlot(event(50, 50)));
    part(mute)->tooltipVisible = false;
    EXPECT_FALSE(open->LocatePointInPlots(event(50, 50), kSelection));
}

TEST_F(ChartXYTooltip, ALowerCornersMutePlotComesBeforeAnInteractiveOneOfTheNextCorner)
{
    vtkPlot* later = addPlot(vtkChart::POINTS, {100}, {120}, 1);
    later->SetLabel("later");
    plot->SetInteractive(false);
    render();
    EXPECT_TRUE(open->LocatePointInPlots(event(100, 120), kSelection));
    EXPECT_EQ(tooltip(), "A: 100,  120");
    EXPECT_TRUE(raised.empty());
    EXPECT_TRUE(open->HitInteractivePlot(event(100, 120))) << "which looks at the later one only";
}

TEST_F(ChartXYTooltip, APlotWithoutATooltipIsFoundAllTheSame)
{
    part(plot)->tooltipVisible = false;
    chart->GetTooltip()->SetText("before");
    EXPECT_TRUE(open->LocatePointInPlots(event(100, 120), kInteraction));
    EXPECT_EQ(tooltip(), "before");
    ASSERT_EQ(raised.size(), 1u);
    EXPECT_EQ(raised[0].index, 1);
    move(100, 120);
    EXPECT_TRUE(tooltipShown()) << "a point was found, though it says nothing";
    EXPECT_EQ(tooltip(), "");
}

TEST_F(ChartXYTooltip, RaisesTheEventItIsAskedForAndSelectsForOneOfThem)
{
    const vtkNew<vtkAnnotationLink> link;
    chart->SetAnnotationLink(link);
    const unsigned int nodes = link->GetCurrentSelection()->GetNumberOfNodes();
    EXPECT_TRUE(open->LocatePointInPlots(event(100, 120), -1));
    EXPECT_TRUE(raised.empty());
    EXPECT_TRUE(open->LocatePointInPlots(event(100, 120), kInteraction));
    ASSERT_EQ(raised.size(), 1u);
    EXPECT_EQ(selected(plot), Rows {-1});
    EXPECT_EQ(link->GetCurrentSelection()->GetNumberOfNodes(), nodes);

    EXPECT_TRUE(open->LocatePointInPlots(event(100, 120), kSelection));
    ASSERT_EQ(raised.size(), 2u);
    EXPECT_EQ(raised[1].series, "A");
    EXPECT_EQ(selected(plot), Rows {1});
    ASSERT_EQ(link->GetCurrentSelection()->GetNumberOfNodes(), nodes + 1);
    const vtkAbstractArray* rows = plot->GetSelection();
    EXPECT_TRUE(link->GetCurrentSelection()->GetNode(nodes)->GetSelectionList() == rows);
}

TEST_F(ChartXYTooltip, GivesDataUnitsWherePlotsAreShiftedAndScaled)
{
    // Far from zero the framework shifts plots, small or large ranges it scales.
    struct Case {
        double lower, upper, value;
        bool forAll;
    };
    const Case cases[] = {
        {10000, 10010, 10005.25, true},
        // Bars and areas answer in single precision, and bars take their width for unscaled.
        {1e7, 1e7 + 10, 1e7 + 2.5, false},
        {0, 1e-9, 5e-10, true},
        {0, 1e12, 5e11, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value);
        const double step = (c.upper - c.lower) / 16;
        const std::vector<double> x = {c.value - step, c.value, c.value + step};
        for (const int type : {vtkChart::LINE, vtkChart::POINTS, vtkChart::BAR, vtkChart::AREA}) {
            SCOPED_TRACE(type);
            if (type >= vtkChart::BAR && !c.forAll)
                continue;
            fixAxis(vtkAxis::BOTTOM, c.lower, c.upper);
            vtkPlot* far = addPlot(type, x, {75, 75, 75});
            if (type == vtkChart::AREA) {
                far->SetInputData(test::makeTable({x, {75, 75, 75}, {20, 20, 20}}), 0, 1);
                far->SetInputArray(2, "y1");
            }
            far->SetTooltipPrecision(12);
            far->SetTooltipLabelFormat("%x");
            render();
            const double pixel = (c.value - c.lower) / (c.upper - c.lower) * kWidth;
            EXPECT_TRUE(open->LocatePointInPlots(event(pixel, 74), -1));
            EXPECT_NEAR(std::stod(tooltip()) / step, c.value / step, 1e-6);
            chart->RemovePlotInstance(far);
        }
    }
}

TEST_F(ChartXYTooltip, FindsBars)
{
    vtkPlot* bars = addPlot(vtkChart::BAR, {40, 60, 80}, {50, 90, 40});
    bars->SetLabel("bars");
    render();
    move(60, 88);
    EXPECT_EQ(tooltip(), "bars: 60,  90");
}

class ChartXYTooltipShapes : public ChartXYTooltip {
protected:
    ChartXYTooltipShapes()
    {
        addRectangle(first, 40, 40, 80, 80);
        addRectangle(second, 60, 60, 110, 110);
        for (Shape* shape : {&first, &second}) {
            const int number = shape == &first ? 1 : 2;
            shape->setOnMousePressCallback([this, number] { pressed.push_back(number); });
            shape->setShapeTooltipCallback([this, number](const Point& at) {
                asked.push_back(number);
                position = {at.x(), at.y()};
                return texts[number];
            });
        }
        firstPlots = show(&first);
        secondPlots = show(&second);
        render();
    }

    ~ChartXYTooltipShapes() override { chart->ClearPlots(); }

    Shape first;
    Shape second;
    ShapePlots firstPlots;
    ShapePlots secondPlots;
    std::vector<int> pressed;
    std::vector<int> asked;
    std::pair<double, double> position;
    QString texts[3] = {"", "first", "second"};
};

TEST_F(ChartXYTooltipShapes, KnowsWhenTheMouseIsInADraggableShape)
{
    EXPECT_TRUE(open->HoverDraggableShape(event(50, 50)));
    EXPECT_TRUE(open->HoverDraggableShape(event(100, 100)));
    EXPECT_FALSE(open->HoverDraggableShape(event(120, 120)));
    EXPECT_FALSE(open->HoverDraggableShape(event(41, 41))) << "on a handle";
    for (Plot* both : {firstPlots.linesPart, firstPlots.handlesPart})
        both->canDragX = false;
    EXPECT_TRUE(open->HoverDraggableShape(event(50, 50))) << "along y still";
    firstPlots.linesPart->canDragY = false;
    EXPECT_TRUE(open->HoverDraggableShape(event(50, 50))) << "by its handle plot";
    firstPlots.handlesPart->canDragY = false;
    EXPECT_FALSE(open->HoverDraggableShape(event(50, 50)));
}

TEST_F(ChartXYTooltipShapes, FindsHandlesAmongHandlePlotsOnly)
{
    EXPECT_TRUE(open->HitHandlePlot(event(42, 42)));
    EXPECT_TRUE(open->HitHandlePlot(event(60, 40))) << "the centre of a line";
    EXPECT_FALSE(open->HitHandlePlot(event(50, 50)));
    EXPECT_FALSE(open->HitHandlePlot(event(100, 120))) << "a point of a curve";
    firstPlots.handles->SetVisible(false);
    EXPECT_FALSE(open->HitHandlePlot(event(42, 42)));
    firstPlots.handles->SetVisible(true);
    firstPlots.handles->SetInteractive(false);
    EXPECT_FALSE(open->HitHandlePlot(event(42, 42)));
}

TEST_F(ChartXYTooltipShapes, AsksEachCandidateWhereverItsPlotsAre)
{
    int calls = 0;
    first.setInsidePolygonCallback([&](const Point& at) {
        ++calls;
        position = {at.x(), at.y()};
        return true;
    });
    EXPECT_TRUE(open->HoverDraggableShape(event(150, 20)));
    EXPECT_EQ(calls, 2) << "once for each of its plots";
    EXPECT_NEAR(position.first, 150, 1e-9);
    EXPECT_NEAR(position.second, 20, 1e-9);
    chart->SetPlotCorner(firstPlots.lines, 2);
    chart->SetPlotCorner(firstPlots.handles, 2);
    fixAxis(vtkAxis::TOP, 0, 4000);
    render();
    EXPECT_TRUE(open->HoverDraggableShape(event(150, 20)));
    EXPECT_NEAR(position.first, 150, 1e-9) << "in the units of corner 0 all the same";
}

TEST_F(ChartXYTooltipShapes, SeesTheShapesPointsAsTheyAreNow)
{
    EXPECT_FALSE(open->HoverDraggableShape(event(20, 50)));
    for (int i = 0; i < 4; ++i)
        for (Point* end : {first.line(i)->p1(), first.line(i)->p2()})
            end->setX(end->x() == 40 ? 10 : end->x());
    EXPECT_TRUE(open->HoverDraggableShape(event(20, 50)));
    first.clear();
    EXPECT_FALSE(open->HoverDraggableShape(event(20, 50)));
    addRectangle(first, 5, 5, 35, 35);
    EXPECT_TRUE(open->HoverDraggableShape(event(20, 20)));
    first = second;
    EXPECT_FALSE(open->HoverDraggableShape(event(20, 20)));
    firstPlots.linesPart->shape = nullptr;
    firstPlots.handlesPart->shape = nullptr;
    secondPlots.linesPart->shape = nullptr;
    secondPlots.handlesPart->shape = nullptr;
    EXPECT_FALSE(open->HoverDraggableShape(event(100, 100)));
}

TEST_F(ChartXYTooltipShapes, AMoveWithinAMoveDoesNotMakeTheOuterOneForgetShapes)
{
    // As a host does that lets further events come while it answers one.
    int calls = 0;
    first.setInsidePolygonCallback([&](const Point&) {
        if (++calls == 1)
            move(5, 5);
        return false;
    });
    EXPECT_TRUE(move(100, 100));
    EXPECT_EQ(cursors, (std::vector<CursorType> {CursorType::Default, CursorType::Move}));
    EXPECT_EQ(tooltip(), "second");
    EXPECT_TRUE(tooltipShown());
}

TEST_F(ChartXYTooltipShapes, TellsEveryShapeThatBeatsThoseBeforeItOfAPress)
{
    struct Case {
        int firstPriority, secondPriority;
        std::vector<int> told;
    };
    const Case cases[] = {
        {1, 5, {1, 2}},
        {5, 1, {1}},
        {3, 3, {1}},
        {INT_MIN, 0, {2}}, // nothing is below the bar
        {INT_MIN, INT_MIN, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.firstPriority << ", " << c.secondPriority);
        first.setPriority(c.firstPriority);
        second.setPriority(c.secondPriority);
        pressed.clear();
        open->PressShapes(event(70, 70));
        EXPECT_EQ(pressed, c.told);
    }
    pressed.clear();
    open->PressShapes(event(150, 20));
    EXPECT_TRUE(pressed.empty());
}

TEST_F(ChartXYTooltipShapes, TellsAShapeOfAPressAlsoByItsHandlePlotAlone)
{
    firstPlots.linesPart->canDragX = firstPlots.linesPart->canDragY = false;
    open->PressShapes(event(50, 50));
    EXPECT_EQ(pressed, std::vector<int> {1});
    EXPECT_FALSE(open->PickShapeForDrag(event(50, 50))) << "which picks by lines only";
}

TEST_F(ChartXYTooltipShapes, PicksTheShapeOfHighestPriority)
{
    for (const bool secondWins : {true, false}) {
        SCOPED_TRACE(secondWins);
        first.setPriority(secondWins ? 1 : 5);
        second.setPriority(secondWins ? 5 : 1);
        EXPECT_TRUE(open->PickShapeForDrag(event(70, 70)));
        EXPECT_EQ(firstPlots.linesPart->dragTarget, !secondWins);
        EXPECT_EQ(secondPlots.linesPart->dragTarget, secondWins);
        EXPECT_FALSE(firstPlots.handlesPart->dragTarget);
        EXPECT_FALSE(secondPlots.handlesPart->dragTarget);
    }
    first.setPriority(1);
    EXPECT_TRUE(open->PickShapeForDrag(event(70, 70)));
    EXPECT_TRUE(firstPlots.linesPart->dragTarget) << "the lower item of equals";
    EXPECT_FALSE(open->PickShapeForDrag(event(150, 20)));
    EXPECT_FALSE(firstPlots.linesPart->dragTarget) << "cleared";
}

TEST_F(ChartXYTooltipShapes, PicksOneShapeInEachCorner)
{
    chart->SetPlotCorner(secondPlots.lines, 1);
    chart->SetPlotCorner(secondPlots.handles, 1);
    render();
    EXPECT_TRUE(open->PickShapeForDrag(event(70, 70)));
    EXPECT_TRUE(firstPlots.linesPart->dragTarget);
    EXPECT_TRUE(secondPlots.linesPart->dragTarget);
    pressed.clear();
    second.setPriority(-3);
    open->PressShapes(event(70, 70));
    EXPECT_EQ(pressed, (std::vector<int> {1, 2})) << "each corner starts anew";
    EXPECT_FALSE(secondPlots.linesPart->dragTarget);
}

TEST_F(ChartXYTooltipShapes, ShowsTheTextOfTheShapeOfHighestPriority)
{
    EXPECT_EQ(open->ShapeTooltip(event(50, 50)), "first");
    EXPECT_EQ(open->ShapeTooltip(event(70, 70)), "first") << "the lower item of equals";
    second.setPriority(1);
    EXPECT_EQ(open->ShapeTooltip(event(70, 70)), "second");
    texts[2] = "";
    EXPECT_EQ(open->ShapeTooltip(event(70, 70)), "first") << "an empty text does not win";
    first.setPriority(5);
    second.setPriority(9);
    texts[1] = "";
    texts[2] = "second";
    EXPECT_EQ(open->ShapeTooltip(event(70, 70)), "second");
    EXPECT_EQ(open->ShapeTooltip(event(150, 20)), "");
    asked.clear();
    firstPlots.linesPart->canDragX = firstPlots.linesPart->canDragY = false;
    EXPECT_EQ(open->ShapeTooltip(event(50, 50)), "") << "not for one that cannot be dragged";
    EXPECT_TRUE(asked.empty());
}

TEST_F(ChartXYTooltipShapes, ALaterCornersTextReplacesAnEarlierOnes)
{
    first.setPriority(100);
    chart->SetPlotCorner(secondPlots.lines, 1);
    render();
    EXPECT_EQ(open->ShapeTooltip(event(70, 70)), "second");
    texts[2] = "";
    EXPECT_EQ(open->ShapeTooltip(event(70, 70)), "first");
}

TEST_F(ChartXYTooltipShapes, AsksAShapeForItsTextOnceAndTellsItThePosition)
{
    move(50, 50);
    EXPECT_TRUE(tooltipShown());
    EXPECT_EQ(tooltip(), "first");
    EXPECT_EQ(asked, std::vector<int> {1});
    EXPECT_NEAR(position.first, 50, 1e-9);
    EXPECT_NEAR(position.second, 50, 1e-9);
    EXPECT_EQ(dirty, 1);
    EXPECT_EQ(chart->GetTooltip()->GetPositionVector(), vtkVector2f(152, 60));
    texts[1] = "";
    move(50, 51);
    EXPECT_FALSE(tooltipShown());
}

TEST_F(ChartXYTooltipShapes, APointUnderTheMouseReplacesTheShapesText)
{
    vtkPlot* point = addPlot(vtkChart::POINTS, {50}, {52});
    point->SetLabel("point");
    render();
    move(50, 52);
    EXPECT_EQ(tooltip(), "point: 50,  52");
    part(point)->tooltipVisible = false;
    move(50, 52);
    EXPECT_EQ(tooltip(), "first") << "a point without a tooltip leaves it";
}

TEST_F(ChartXYTooltipShapes, CannotBeStoppedByAShapeWithoutLines)
{
    first.clear();
    EXPECT_FALSE(open->HoverDraggableShape(event(50, 50)));
    EXPECT_EQ(open->ShapeTooltip(event(50, 50)), "");
}

/** What is to be answered about a place, by asking each plot and shape of the chart in turn. */
class EachInTurn {
public:
    EachInTurn(ChartEventFixture& fixture, const vtkContextMouseEvent& event)
        : chart(fixture)
        , mouse(event)
        , position(shapePosition())
    {
    }

    bool hitsInteractivePlot() const
    {
        return first(isVisible, [](vtkPlot* plot) { return plot->GetInteractive(); }).plot;
    }

    bool hitsHandlePlot() const
    {
        const auto counts = [](vtkPlot* plot) { return isVisible(plot) && plot->GetInteractive(); };
        return first(counts, [](vtkPlot* plot) { return part(plot)->isHandle; }).plot;
    }

    bool hoversDraggableShape() const
    {
        bool inside = false;
        for (int i = 0; i < chart.cornerCount(); ++i)
            for (vtkPlot* plot : plotsOf(i))
                inside = inside || (isCandidate(plot) && contains(plot));
        return inside && !hitsHandlePlot();
    }

    /** Of the shapes that a press tells, the numbers. */
    std::vector<int> told() const
    {
        std::vector<int> numbers;
        climb(isCandidate, [&](vtkPlot* plot) {
            numbers.push_back(part(plot)->shape->identifier());
            return true;
        });
        return numbers;
    }

    std::set<vtkPlot*> picked() const
    {
        std::map<vtkObject*, vtkPlot*> winners; // of each corner
        climb(isLineCandidate, [&](vtkPlot* plot) {
            winners[plot->GetParent()] = plot;
            return true;
        });
        std::set<vtkPlot*> plots;
        for (const auto& [corner, plot] : winners)
            plots.insert(plot);
        return plots;
    }

    std::string shapeTooltip() const
    {
        std::string text;
        climb(isLineCandidate, [&](vtkPlot* plot) {
            const std::string own = part(plot)->shape->tooltips(position).toStdString();
            text = own.empty() ? text : own;
            return !own.empty();
        });
        return text;
    }

    struct Found {
        vtkPlot* plot = nullptr;
        vtkIdType row = -1;
        vtkVector2f place {0, 0};
        bool isInteractive = false;
    };

    Found located() const
    {
        const auto takesEvents
            = [](vtkPlot* plot) { return isVisible(plot) && plot->GetInteractive(); };
        const auto showsTooltip
            = [](vtkPlot* plot) { return isVisible(plot) && part(plot)->tooltipVisible; };
        for (int i = 0; isInside() && i < chart.cornerCount(); ++i) {
            for (const bool interactive : {true, false}) {
                Found found = interactive ? firstOf(i, takesEvents, isVisible)
                                          : firstOf(i, showsTooltip, isVisible);
                found.isInteractive = interactive;
                if (found.plot)
                    return found;
            }
        }
        return {};
    }

private:
    static Plot* part(vtkPlot* plot) { return ChartEventFixture::part(plot); }
    static bool isVisible(vtkPlot* plot) { return plot->GetVisible(); }
    static bool isCandidate(vtkPlot* plot)
    {
        return part(plot)->shape && (part(plot)->canDragX || part(plot)->canDragY);
    }
    static bool isLineCandidate(vtkPlot* plot)
    {
        return isCandidate(plot) && !part(plot)->isHandle;
    }

    bool isInside() const
    {
        const vtkVector2i at = mouse.GetScreenPos();
        return at.GetX() > ChartEventFixture::kLeft && at.GetY() > ChartEventFixture::kBottom
            && at.GetX() < ChartEventFixture::kLeft + ChartEventFixture::kWidth
            && at.GetY() < ChartEventFixture::kBottom + ChartEventFixture::kHeight;
    }

    Point shapePosition() const
    {
        const double screen[2] = {double(mouse.GetScreenPos()[0]), double(mouse.GetScreenPos()[1])};
        double place[2];
        chart.corner(0)->GetTransform()->InverseTransformPoints(screen, place, 1);
        return {place[0], place[1]};
    }

    std::vector<vtkPlot*> plotsOf(int corner) const
    {
        std::vector<vtkPlot*> plots;
        for (vtkIdType i = 0; i < chart.corner(corner)->GetNumberOfItems(); ++i)
            plots.push_back(vtkPlot::SafeDownCast(chart.corner(corner)->GetItem(i)));
        return plots;
    }

    /** Asks by the lines, as nothing else is kept of a shape without a test of its own. */
    bool contains(vtkPlot* plot) const { return part(plot)->shape->insidePolygon(position); }

    template <class Candidate, class Take> void climb(Candidate isOne, Take take) const
    {
        for (int i = 0; i < chart.cornerCount(); ++i) {
            int best = INT_MIN;
            for (vtkPlot* plot : plotsOf(i))
                if (isOne(plot) && contains(plot) && part(plot)->shape->priority() > best
                    && take(plot))
                    best = part(plot)->shape->priority();
        }
    }

    template <class Counts, class Ends> Found firstOf(int corner, Counts counts, Ends ends) const
    {
        vtkTransform2D* transform = chart.corner(corner)->GetTransform();
        vtkVector2f probe;
        transform->InverseTransformPoints(mouse.GetPos().GetData(), probe.GetData(), 1);
        const auto reach = [transform](int i) {
            return static_cast<float>(std::fabs(5.0 / transform->GetMatrix()->GetElement(i, i)));
        };
        const std::vector<vtkPlot*> plots = plotsOf(corner);
        for (auto plot = plots.rbegin(); plot != plots.rend(); ++plot) {
            Found found {*plot, -1, {0, 0}};
            vtkIdType segment = -1;
            if (counts(*plot))
                found.row = compat::nearestPoint(
                    *plot, probe, vtkVector2f(reach(0), reach(1)), found.place, segment);
            if (found.row >= 0 && ends(*plot))
                return found;
        }
        return {};
    }

    template <class Counts, class Ends> Found first(Counts counts, Ends ends) const
    {
        for (int i = 0; isInside() && i < chart.cornerCount(); ++i)
            if (const Found found = firstOf(i, counts, ends); found.plot)
                return found;
        return {};
    }

    ChartEventFixture& chart;
    const vtkContextMouseEvent& mouse;
    const Point position;
};

/** A chart of so many shapes, which changes in many ways between the questions. */
class ChartXYTooltipRandom : public testing::TestWithParam<int>, public ChartEventFixture {
protected:
    ChartXYTooltipRandom()
    {
        for (int i = 0; i < GetParam(); ++i)
            shapes.push_back(std::make_unique<Shape>());
        for (int i = 0; i < GetParam(); ++i) {
            *shapes[index(i)] = makeShape();
            show(i);
        }
        addPlot(vtkChart::LINE, {20, 100, 180}, {30, 120, 60});
        addPlot(vtkChart::BAR, {20, 60, 100}, {40, 80, 60});
        render();
    }

    ~ChartXYTooltipRandom() override { chart->ClearPlots(); }

    static std::size_t index(int i) { return static_cast<std::size_t>(i); }
    int pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    double place(int size) { return pick(2 * size + 40) / 2.0 - 10; }

    Shape makeShape()
    {
        Shape shape;
        const double x = place(kWidth), y = place(kHeight);
        addRectangle(shape, x, y, x + pick(60), y + pick(60));
        if (pick(5) == 0)
            shape.addLine(Point(place(kWidth), y), Point(x, place(kHeight)));
        shape.setIdentifier(++number);
        shape.setPriority(pick(4) - 1);
        const QString text = pick(4) == 0 ? QString() : QString::number(number);
        shape.setShapeTooltipCallback([text](const Point&) { return text; });
        shape.setOnMousePressCallback([this, told = number] { pressed.push_back(told); });
        return shape;
    }

    void show(int i)
    {
        if (shapes[index(i)]->numberOfLines() == 0)
            *shapes[index(i)] = makeShape(); // a plot without points complains when it is painted
        const ShapePlots plots = ChartEventFixture::show(shapes[index(i)].get());
        for (vtkPlot* both : {plots.lines, plots.handles})
            both->SetLabel("p" + std::to_string(++number));
    }

    Shape& anyShape() { return *shapes[index(pick(GetParam()))]; }
    vtkPlot* anyPlot() { return chart->GetPlot(pick(static_cast<int>(chart->GetNumberOfPlots()))); }

    void changeShape()
    {
        Shape& shape = anyShape();
        Line* line = shape.numberOfLines() > 0 ? shape.line(pick(shape.numberOfLines())) : nullptr;
        switch (pick(line ? 12 : 5)) {
        case 0:
            shape = makeShape();
            break;
        case 1:
            shape = Shape(makeShape());
            break;
        case 2:
            std::swap(shape, anyShape());
            break;
        case 3:
            shape.setInsidePolygonCallback([limit = place(kWidth)](const Point& at) {
                return at.x() > limit && at.x() < limit + 3;
            });
            break;
        case 4:
            shape.addLine(Point(place(kWidth), 20), Point(20, place(kHeight)));
            break;
        case 5:
            shape.clear();
            break;
        case 6:
            line->p1()->setX(place(kWidth));
            break;
        case 7:
            *line->p2() += Point(pick(20), -pick(20));
            break;
        case 8:
            line->p1()->setVisible(!line->p1()->visible());
            break;
        case 9:
            *line = Line(Point(place(kWidth), 30), Point(30, place(kHeight)));
            break;
        case 10:
            std::swap(*line, *shape.line(pick(shape.numberOfLines())));
            break;
        default:
            shape.setInsidePolygonCallback(nullptr);
            break;
        }
    }

    void changePlot()
    {
        vtkPlot* plot = anyPlot();
        switch (pick(10)) {
        case 0:
            plot->SetVisible(!plot->GetVisible());
            break;
        case 1:
            plot->SetInteractive(!plot->GetInteractive());
            break;
        case 2:
            part(plot)->tooltipVisible = !part(plot)->tooltipVisible;
            break;
        case 3:
            part(plot)->canDragX = part(plot)->canDragY = pick(3) > 0;
            break;
        case 4:
            part(plot)->shape = pick(3) > 0 ? &anyShape() : nullptr;
            break;
        case 5:
            chart->SetPlotCorner(plot, pick(4));
            break;
        case 6:
            chart->LowerPlot(plot);
            break;
        case 7:
            chart->StackPlotUnder(plot, anyPlot());
            break;
        case 8:
            chart->RemovePlotInstance(plot);
            show(pick(GetParam()));
            break;
        default:
            if (plot->GetInput()->GetNumberOfRows() > 0)
                plot->GetInput()->SetValue(0, pick(2), vtkVariant(place(kHeight)));
            plot->Modified();
            break;
        }
    }

    void changeView()
    {
        const int axis = pick(4);
        const bool horizontal = axis == vtkAxis::BOTTOM || axis == vtkAxis::TOP;
        switch (pick(7)) {
        case 0:
            wheel(pick(3) - 1);
            break;
        case 1:
            fixAxis(axis, 0, horizontal ? kWidth : kHeight);
            break;
        case 2:
            fixAxis(axis, horizontal ? kWidth : kHeight, 0);
            break;
        case 3:
            fixAxis(axis, 10000, 10100);
            break;
        case 4:
            press(5, 5);
            move(5 + pick(30), 5 + pick(30), vtkContextMouseEvent::LEFT_BUTTON);
            release(5, 5);
            break;
        case 5:
            fixAxis(axis, 5, 5);
            break;
        default:
            fixAxis(axis, -20, 30);
            break;
        }
        render();
    }

    void expectAsEachInTurn(const vtkContextMouseEvent& mouse)
    {
        const EachInTurn each(*this, mouse);
        EXPECT_EQ(open->HitInteractivePlot(mouse), each.hitsInteractivePlot());
        EXPECT_EQ(open->HitHandlePlot(mouse), each.hitsHandlePlot());
        EXPECT_EQ(open->HoverDraggableShape(mouse), each.hoversDraggableShape());
        EXPECT_EQ(open->ShapeTooltip(mouse), each.shapeTooltip());
        pressed.clear();
        open->PressShapes(mouse);
        EXPECT_EQ(pressed, each.told());
        const std::set<vtkPlot*> picked = each.picked();
        EXPECT_EQ(open->PickShapeForDrag(mouse), !picked.empty());
        EXPECT_EQ(targets(), picked);
        expectLocated(mouse, each.located());
        cursors.clear();
        chart->MouseMoveEvent(mouse);
        const CursorType shown
            = each.hoversDraggableShape() ? CursorType::Move : CursorType::Default;
        EXPECT_EQ(cursors, std::vector<CursorType> {shown});
    }

    void expectLocated(const vtkContextMouseEvent& mouse, const EachInTurn::Found& found)
    {
        raised.clear();
        EXPECT_EQ(open->LocatePointInPlots(mouse, kInteraction), found.plot != nullptr);
        ASSERT_EQ(raised.size(), found.isInteractive ? 1u : 0u);
        if (found.isInteractive) {
            EXPECT_EQ(raised[0].series, std::string(found.plot->GetLabel()));
            EXPECT_EQ(raised[0].index, found.row);
            EXPECT_EQ(raised[0].x, found.place.GetX());
            EXPECT_EQ(raised[0].y, found.place.GetY());
        }
    }

    std::set<vtkPlot*> targets()
    {
        std::set<vtkPlot*> plots;
        for (vtkIdType i = 0; i < chart->GetNumberOfPlots(); ++i)
            if (part(chart->GetPlot(i))->dragTarget)
                plots.insert(chart->GetPlot(i));
        return plots;
    }

    std::minstd_rand random {20211};
    int number = 0;
    std::vector<std::unique_ptr<Shape>> shapes;
    std::vector<int> pressed;
};

TEST_P(ChartXYTooltipRandom, AnswersAsIfItAskedEachPlotAndShapeInTurn)
{
    MessageWatch::allow("vtkMath::Jacobi"); // where an axis has no range
    for (int step = 0; step < 150 && !HasFailure(); ++step) {
        SCOPED_TRACE(step);
        for (int changes = pick(5); changes > 0; --changes)
            pick(2) == 0 ? changeShape() : changePlot();
        if (pick(20) == 0)
            changeView();
        for (int place = 0; place < 3; ++place)
            expectAsEachInTurn(event(pick(2 * kWidth + 20) / 2.0 - 5, pick(2 * kHeight) / 2.0));
    }
}

INSTANTIATE_TEST_SUITE_P(AmongFewAndMany, ChartXYTooltipRandom, testing::Values(3, 20, 200));

} // namespace
} // namespace ovl
