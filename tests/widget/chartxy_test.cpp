// SPDX-License-Identifier: BSD-3-Clause
#include <support/chartfixture.h>
#include <support/messagewatch.h>
#include <support/probechart.h>
#include <visualization/plotarea.h>
#include <visualization/plotbag.h>
#include <visualization/plotbar.h>
#include <visualization/plotfunctionalbag.h>
#include <visualization/plotline.h>
#include <visualization/plotpoints.h>
#include <visualization/plotstacked.h>

#include <vtkAxis.h>
#include <vtkBrush.h>
#include <vtkCallbackCommand.h>
#include <vtkChartLegend.h>
#include <vtkColorSeries.h>
#include <vtkContextClip.h>
#include <vtkContextMouseEvent.h>
#include <vtkContextScene.h>
#include <vtkContextTransform.h>
#include <vtkPen.h>
#include <vtkPlotGrid.h>
#include <vtkTooltipItem.h>

#include <array>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>

namespace ovl::test {
namespace {

constexpr int kBottomLeft[] = {vtkAxis::BOTTOM, vtkAxis::LEFT};
constexpr int kCornerAxes[4][2]
    = {{vtkAxis::BOTTOM, vtkAxis::LEFT}, {vtkAxis::BOTTOM, vtkAxis::RIGHT},
        {vtkAxis::TOP, vtkAxis::RIGHT}, {vtkAxis::TOP, vtkAxis::LEFT}};

/** A chart in a scene that nobody draws. */
class ChartXYTest : public testing::Test {
protected:
    ChartXYTest()
    {
        scene->AddItem(chart);
        scene->SetDirty(false);
    }

    vtkContextClip* clip() { return vtkContextClip::SafeDownCast(chart->GetItem(0)); }
    vtkIdType cornerCount() { return clip()->GetNumberOfItems() - 2; }
    vtkContextTransform* corner(int index)
    {
        return vtkContextTransform::SafeDownCast(clip()->GetItem(2 + index));
    }
    vtkPlot* addPlot(int plotCorner)
    {
        vtkPlot* plot = chart->AddPlot(vtkChart::LINE);
        chart->SetPlotCorner(plot, plotCorner);
        return plot;
    }
    /** Whether the scene was marked dirty since the last question. */
    bool sceneWasMarkedDirty()
    {
        const bool dirty = scene->GetDirty();
        scene->SetDirty(false);
        return dirty;
    }

    vtkNew<vtkContextScene> scene;
    vtkSmartPointer<ProbeChart> chart = vtkSmartPointer<ProbeChart>::New();
};

std::array<unsigned char, 4> rgba(vtkPen* pen)
{
    std::array<unsigned char, 4> color {};
    pen->GetColor(color.data());
    color[3] = pen->GetOpacity();
    return color;
}

std::array<unsigned char, 4> rgba(vtkBrush* brush)
{
    std::array<unsigned char, 4> color {};
    brush->GetColor(color.data());
    color[3] = brush->GetOpacity();
    return color;
}

/** Opens the axes of a grid, which has no getters. */
struct GridAxes : vtkPlotGrid {
    static vtkAxis* x(vtkPlotGrid* grid) { return grid->*(&GridAxes::XAxis); }
    static vtkAxis* y(vtkPlotGrid* grid) { return grid->*(&GridAxes::YAxis); }
};

std::array<unsigned char, 4> seriesColor(int index, unsigned char opacity)
{
    const vtkNew<vtkColorSeries> series;
    const vtkColor3ub color = series->GetColorRepeating(index);
    return {color.GetRed(), color.GetGreen(), color.GetBlue(), opacity};
}

// Construction

TEST_F(ChartXYTest, NamesItselfAndItsBase)
{
    const auto made = vtkSmartPointer<ChartXY>::New();
    EXPECT_STREQ(made->GetClassName(), "ChartXY");
    EXPECT_EQ(made->IsA("ChartXY"), 1);
    EXPECT_EQ(made->IsA("vtkChart"), 1);
    EXPECT_EQ(made->IsA("vtkPlot"), 0);
    EXPECT_EQ(made->GetReferenceCount(), 1);
    ChartXY* another = made->NewInstance();
    EXPECT_STREQ(another->GetClassName(), "ChartXY");
    EXPECT_EQ(another->GetReferenceCount(), 1);
    another->Delete();
}

TEST_F(ChartXYTest, StartsWithFourAxesOfWhichLeftAndBottomAreVisibleAndTitled)
{
    EXPECT_EQ(chart->GetNumberOfAxes(), 4);
    const char* const titles[] = {"Y Axis", "X Axis", "", ""};
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        ASSERT_NE(chart->GetAxis(i), nullptr);
        EXPECT_EQ(chart->GetAxis(i)->GetPosition(), i);
        EXPECT_EQ(chart->GetAxis(i)->GetVisible(), i < 2);
        EXPECT_EQ(chart->GetAxis(i)->GetTitle(), titles[i]);
    }
    EXPECT_EQ(chart->GetAxis(4), nullptr);
    EXPECT_EQ(chart->GetAxis(1000), nullptr);
}

TEST_F(ChartXYTest, StartsWithoutPlotsAndWithLegendAndTooltipHidden)
{
    EXPECT_EQ(chart->GetNumberOfPlots(), 0);
    EXPECT_EQ(chart->GetPlot(0), nullptr);
    EXPECT_EQ(cornerCount(), 1);
    EXPECT_FALSE(chart->GetLegend()->GetVisible());
    EXPECT_EQ(chart->GetLegend()->GetChart(), chart);
    EXPECT_FALSE(chart->GetTooltip()->GetVisible());
}

TEST_F(ChartXYTest, PaintsClipAxesLegendAndTooltipInThisOrder)
{
    ASSERT_EQ(chart->GetNumberOfItems(), 7);
    EXPECT_NE(clip(), nullptr);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(chart->GetItem(1 + i), chart->GetAxis(i));
    EXPECT_EQ(chart->GetItem(5), chart->GetLegend());
    EXPECT_EQ(chart->GetItem(6), chart->GetTooltip());
}

TEST_F(ChartXYTest, PaintsTheGridsUnderAllPlots)
{
    ASSERT_EQ(clip()->GetNumberOfItems(), 3);
    EXPECT_NE(vtkPlotGrid::SafeDownCast(clip()->GetItem(0)), nullptr);
    EXPECT_NE(vtkPlotGrid::SafeDownCast(clip()->GetItem(1)), nullptr);
    EXPECT_NE(corner(0), nullptr);
}

TEST_F(ChartXYTest, DrawsAGridForBottomAndLeftAndOneForTopAndRight)
{
    auto* first = vtkPlotGrid::SafeDownCast(clip()->GetItem(0));
    auto* second = vtkPlotGrid::SafeDownCast(clip()->GetItem(1));
    EXPECT_EQ(GridAxes::x(first), chart->GetAxis(vtkAxis::BOTTOM));
    EXPECT_EQ(GridAxes::y(first), chart->GetAxis(vtkAxis::LEFT));
    EXPECT_EQ(GridAxes::x(second), chart->GetAxis(vtkAxis::TOP));
    EXPECT_EQ(GridAxes::y(second), chart->GetAxis(vtkAxis::RIGHT));
}

TEST_F(ChartXYTest, StartsWithoutAGestureAndWithoutValidTransforms)
{
    EXPECT_FALSE(chart->DrawBox);
    EXPECT_FALSE(chart->DrawSelectionPolygon);
    EXPECT_EQ(chart->SelectionPolygon.GetNumberOfPoints(), 0);
    EXPECT_FALSE(chart->PlotTransformValid);
}

TEST_F(ChartXYTest, BindsPanningToTheLeftButtonAndZoomingToTheRight)
{
    EXPECT_EQ(chart->GetActionToButton(vtkChart::PAN), vtkContextMouseEvent::LEFT_BUTTON);
    EXPECT_EQ(chart->GetActionToButton(vtkChart::ZOOM), vtkContextMouseEvent::RIGHT_BUTTON);
    EXPECT_EQ(chart->GetActionToButton(vtkChart::SELECT), -1);
    EXPECT_EQ(chart->GetActionToButton(vtkChart::CLICK_AND_DRAG), -1);
    for (const int kept : {vtkChart::ZOOM_AXIS, vtkChart::SELECT_POLYGON})
        EXPECT_EQ(chart->GetActionToButton(kept), -1) << "as the framework has it";
}

TEST_F(ChartXYTest, ForwardsTheRangeEventsOfEachAxis)
{
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        int events = 0;
        const vtkNew<vtkCallbackCommand> count;
        count->SetClientData(&events);
        count->SetCallback(
            [](vtkObject*, unsigned long, void* counted, void*) { ++*static_cast<int*>(counted); });
        const unsigned long tag = chart->AddObserver(vtkChart::UpdateRange, count);
        chart->GetAxis(i)->SetRange(3, 4);
        EXPECT_GT(events, 0);
        chart->RemoveObserver(tag);
    }
}

// Plots

struct PlotKindCase {
    int type;
    const char* className;
    bool colorsPen;
    bool colorsBrush;
};

class PlotKinds : public ChartXYTest, public testing::WithParamInterface<PlotKindCase> { };

TEST_P(PlotKinds, AreMadeByTypeAndTakeTheNextColor)
{
    const PlotKindCase& kind = GetParam();
    for (int i = 0; i < 3;
         ++i) // the colour follows the number of plots, so this one gets the fourth
        chart->AddPlot(vtkChart::LINE);
    vtkPlot* plot = chart->AddPlot(kind.type);
    ASSERT_NE(plot, nullptr);
    EXPECT_STREQ(plot->GetClassName(), kind.className);
    EXPECT_NE(dynamic_cast<Plot*>(plot), nullptr);
    EXPECT_EQ(chart->GetPlot(3), plot);
    EXPECT_EQ(chart->GetPlotCorner(plot), 0);

    const vtkSmartPointer<vtkPlot> fresh = vtkSmartPointer<vtkPlot>::Take(plot->NewInstance());
    const auto expected = [&](bool colored, const std::array<unsigned char, 4>& untouched) {
        return colored ? seriesColor(3, untouched[3]) : untouched;
    };
    EXPECT_EQ(rgba(plot->GetPen()), expected(kind.colorsPen, rgba(fresh->GetPen())));
    EXPECT_EQ(rgba(plot->GetBrush()), expected(kind.colorsBrush, rgba(fresh->GetBrush())));
}

INSTANTIATE_TEST_SUITE_P(ChartXY, PlotKinds,
    testing::Values(PlotKindCase {0, "PlotLine", true, false},
        PlotKindCase {1, "PlotPoints", true, false}, PlotKindCase {2, "PlotBar", false, true},
        PlotKindCase {3, "PlotStacked", false, true}, PlotKindCase {4, "PlotBag", false, true},
        PlotKindCase {5, "PlotFunctionalBag", true, true},
        PlotKindCase {6, "PlotArea", false, true}),
    [](const auto& kind) { return std::string(kind.param.className); });

TEST_F(ChartXYTest, MakesNoPlotOfAnUnknownType)
{
    for (const int type : {7, 100, -1}) {
        EXPECT_EQ(chart->AddPlot(type), nullptr);
        EXPECT_EQ(chart->GetNumberOfPlots(), 0);
    }
    EXPECT_FALSE(sceneWasMarkedDirty());
}

TEST_F(ChartXYTest, RepeatsTheColorsOfItsSeries)
{
    for (int i = 0; i < 8; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(rgba(chart->AddPlot(vtkChart::LINE)->GetPen()), seriesColor(i, 255));
    }
    EXPECT_EQ(rgba(chart->GetPlot(7)->GetPen()), rgba(chart->GetPlot(0)->GetPen()))
        << "the series has seven colours";
}

TEST_F(ChartXYTest, OwnsThePlotsItMakes)
{
    vtkPlot* plot = chart->AddPlot(vtkChart::LINE);
    EXPECT_EQ(plot->GetReferenceCount(), 2) << "the chart's and its corner's";
}

TEST_F(ChartXYTest, SharesThePlotsItIsGiven)
{
    const auto plot = vtkSmartPointer<PlotLine>::New();
    EXPECT_EQ(chart->AddPlot(plot), 0);
    EXPECT_EQ(chart->AddPlot(vtkSmartPointer<PlotPoints>::New()), 1);
    EXPECT_EQ(plot->GetReferenceCount(), 3);
    EXPECT_EQ(chart->GetNumberOfPlots(), 2);
    chart->RemovePlot(0);
    EXPECT_EQ(plot->GetReferenceCount(), 1);
}

TEST_F(ChartXYTest, RefusesANullPlot)
{
    EXPECT_EQ(chart->AddPlot(static_cast<vtkPlot*>(nullptr)), -1);
    EXPECT_EQ(chart->GetNumberOfPlots(), 0);
}

TEST_F(ChartXYTest, RemovesAPlotByItsIndex)
{
    vtkPlot* first = addPlot(0);
    addPlot(1);
    vtkPlot* third = addPlot(0);
    EXPECT_TRUE(chart->RemovePlot(1));
    EXPECT_EQ(chart->GetNumberOfPlots(), 2);
    EXPECT_EQ(chart->GetPlot(0), first);
    EXPECT_EQ(chart->GetPlot(1), third);
    EXPECT_EQ(chart->GetPlot(2), nullptr);
    EXPECT_EQ(corner(1)->GetNumberOfItems(), 0);
    EXPECT_FALSE(chart->RemovePlot(2));
    EXPECT_EQ(chart->GetNumberOfPlots(), 2);
}

TEST_F(ChartXYTest, RemovesAPlotByItsInstance)
{
    addPlot(0);
    vtkPlot* second = addPlot(2);
    EXPECT_TRUE(chart->RemovePlotInstance(second));
    EXPECT_EQ(chart->GetNumberOfPlots(), 1);
    const auto stranger = vtkSmartPointer<PlotLine>::New();
    EXPECT_FALSE(chart->RemovePlotInstance(stranger));
}

TEST_F(ChartXYTest, ForgetsARemovedPlotInItsSibling)
{
    vtkPlot* lines = addPlot(0);
    vtkPlot* handles = addPlot(0);
    dynamic_cast<Plot*>(lines)->sibling = handles;
    dynamic_cast<Plot*>(handles)->sibling = lines;
    chart->RemovePlotInstance(lines);
    EXPECT_EQ(dynamic_cast<Plot*>(handles)->sibling, nullptr);
    EXPECT_TRUE(chart->RemovePlotInstance(handles));
}

TEST_F(ChartXYTest, ClearsAllPlotsAndAllCornersButTheFirst)
{
    const vtkSmartPointer<vtkPlot> kept = addPlot(0);
    addPlot(3);
    ASSERT_EQ(cornerCount(), 4);
    sceneWasMarkedDirty();
    chart->PlotTransformValid = true;
    chart->ClearPlots();
    EXPECT_EQ(chart->GetNumberOfPlots(), 0);
    EXPECT_EQ(cornerCount(), 1);
    EXPECT_EQ(corner(0)->GetNumberOfItems(), 0);
    EXPECT_EQ(kept->GetReferenceCount(), 1);
    EXPECT_FALSE(chart->PlotTransformValid);
    EXPECT_TRUE(sceneWasMarkedDirty());
    EXPECT_EQ(chart->GetPlotCorner(addPlot(1)), 1) << "corners are made again";
}

TEST_F(ChartXYTest, ReleasesPlotsAndAxesWhenItDies)
{
    const vtkSmartPointer<vtkPlot> plot = addPlot(2);
    const vtkSmartPointer<vtkAxis> axis = chart->GetAxis(vtkAxis::TOP);
    scene->RemoveItem(chart);
    chart = nullptr;
    EXPECT_EQ(plot->GetReferenceCount(), 1);
    EXPECT_EQ(plot->GetParent(), nullptr);
    EXPECT_EQ(axis->GetReferenceCount(), 2) << "this one and the plot's";
    axis->SetRange(5, 6); // reaches no chart any more
}

TEST_F(ChartXYTest, AsksForNewBoundsWhenPlotsComeGoOrMove)
{
    using Step = std::pair<const char*, std::function<void()>>;
    const Step steps[] = {
        {"AddPlot(type)", [&] { chart->AddPlot(vtkChart::LINE); }},
        {"AddPlot(plot)", [&] { chart->AddPlot(vtkSmartPointer<PlotLine>::New()); }},
        {"SetPlotCorner", [&] { chart->SetPlotCorner(chart->GetPlot(0), 1); }},
        {"RemovePlot", [&] { chart->RemovePlot(0); }},
        {"ClearPlots", [&] { chart->ClearPlots(); }},
        {"RecalculateBounds", [&] { chart->RecalculateBounds(); }},
    };
    for (const auto& [name, step] : steps) {
        SCOPED_TRACE(name);
        chart->PlotTransformValid = true;
        sceneWasMarkedDirty();
        step();
        EXPECT_FALSE(chart->PlotTransformValid);
        EXPECT_EQ(sceneWasMarkedDirty(), std::string(name) != "SetPlotCorner");
    }
}

TEST(ChartXY, WorksWithoutAScene)
{
    const auto chart = vtkSmartPointer<ChartXY>::New();
    vtkPlot* plot = chart->AddPlot(vtkChart::LINE);
    chart->SetPlotCorner(plot, 2);
    chart->RecalculateBounds();
    EXPECT_TRUE(chart->RemovePlot(0));
    chart->ClearPlots();
}

// Corners

TEST_F(ChartXYTest, TellsAPlotsCornerFromItsAxes)
{
    const auto plot = vtkSmartPointer<PlotLine>::New();
    EXPECT_EQ(chart->GetPlotCorner(plot), 4) << "no axes";
    for (int number = 0; number < 4; ++number) {
        plot->SetXAxis(chart->GetAxis(kCornerAxes[number][0]));
        plot->SetYAxis(chart->GetAxis(kCornerAxes[number][1]));
        EXPECT_EQ(chart->GetPlotCorner(plot), number);
    }
    plot->SetXAxis(chart->GetAxis(vtkAxis::LEFT));
    EXPECT_EQ(chart->GetPlotCorner(plot), 4) << "a vertical axis as x";
    plot->SetXAxis(chart->GetAxis(vtkAxis::BOTTOM));
    plot->SetYAxis(chart->GetAxis(vtkAxis::TOP));
    EXPECT_EQ(chart->GetPlotCorner(plot), 4) << "two horizontal axes";
}

TEST_F(ChartXYTest, PutsAPlotInACornerWithItsAxes)
{
    vtkPlot* plot = addPlot(0);
    for (const int number : {1, 2, 3, 0}) {
        SCOPED_TRACE(number);
        chart->SetPlotCorner(plot, number);
        EXPECT_EQ(chart->GetPlotCorner(plot), number);
        EXPECT_EQ(plot->GetXAxis(), chart->GetAxis(kCornerAxes[number][0]));
        EXPECT_EQ(plot->GetYAxis(), chart->GetAxis(kCornerAxes[number][1]));
        for (int i = 0; i < cornerCount(); ++i)
            EXPECT_EQ(corner(i)->GetNumberOfItems(), i == number ? 1 : 0);
    }
}

TEST_F(ChartXYTest, MakesTheCornersInBetweenToo)
{
    addPlot(3);
    ASSERT_EQ(cornerCount(), 4);
    EXPECT_EQ(corner(1)->GetNumberOfItems(), 0);
    EXPECT_EQ(corner(2)->GetNumberOfItems(), 0);
    chart->SetPlotCorner(chart->GetPlot(0), 0);
    EXPECT_EQ(cornerCount(), 4) << "moving plots takes no corner away";
}

TEST_F(ChartXYTest, DoesNotPlaceAPlotThatAlreadyHasTheAxes)
{
    const auto plot = vtkSmartPointer<PlotLine>::New();
    plot->SetXAxis(chart->GetAxis(kBottomLeft[0]));
    plot->SetYAxis(chart->GetAxis(kBottomLeft[1]));
    chart->AddPlot(plot);
    EXPECT_EQ(chart->GetNumberOfPlots(), 1);
    EXPECT_EQ(corner(0)->GetNumberOfItems(), 0);
    EXPECT_EQ(chart->GetPlotIndex(plot), -1);
    EXPECT_EQ(chart->LowerPlot(plot), -1);
}

TEST_F(ChartXYTest, WarnsOfAnInvalidCornerAndLeavesThePlotWhereItWas)
{
    vtkPlot* plot = addPlot(1);
    for (const int invalid : {4, -1, 1000}) {
        SCOPED_TRACE(invalid);
        std::string warning;
        const vtkNew<vtkCallbackCommand> listen;
        listen->SetClientData(&warning);
        listen->SetCallback([](vtkObject*, unsigned long, void* heard, void* text) {
            *static_cast<std::string*>(heard) = static_cast<const char*>(text);
        });
        const unsigned long tag = chart->AddObserver(vtkCommand::WarningEvent, listen);
        chart->SetPlotCorner(plot, invalid);
        chart->RemoveObserver(tag);
        EXPECT_NE(warning.find("Invalid corner specified, should be between 0 and 3: "
                      + std::to_string(invalid) + "\n"),
            std::string::npos)
            << warning;
        EXPECT_NE(warning.find("chartxy.cpp, line "), std::string::npos) << warning;
        EXPECT_NE(warning.find("ChartXY (0x"), std::string::npos) << warning;
        EXPECT_EQ(chart->GetPlotCorner(plot), 1);
        EXPECT_EQ(corner(1)->GetNumberOfItems(), 1);
    }
}

TEST_F(ChartXYTest, WarnsOfAnInvalidCornerInTheOutputWindowWhenNobodyListens)
{
    MessageWatch::expect("Invalid corner specified, should be between 0 and 3: 4");
    chart->SetPlotCorner(addPlot(0), 4);
}

TEST_F(ChartXYTest, WarnsNobodyWhenWarningsAreOff)
{
    vtkPlot* plot = addPlot(0);
    int warnings = 0;
    const vtkNew<vtkCallbackCommand> count;
    count->SetClientData(&warnings);
    count->SetCallback(
        [](vtkObject*, unsigned long, void* counted, void*) { ++*static_cast<int*>(counted); });
    chart->AddObserver(vtkCommand::WarningEvent, count);
    vtkObject::GlobalWarningDisplayOff();
    chart->SetPlotCorner(plot, 4);
    vtkObject::GlobalWarningDisplayOn();
    EXPECT_EQ(warnings, 0);
    chart->SetPlotCorner(plot, 4);
    EXPECT_EQ(warnings, 1);
    EXPECT_EQ(chart->GetPlotCorner(plot), 0);
}

TEST_F(ChartXYTest, CountsAPlotsIndexWithinItsCorner)
{
    addPlot(0);
    vtkPlot* first = addPlot(1);
    vtkPlot* second = addPlot(1);
    EXPECT_EQ(chart->GetPlotIndex(first), 0);
    EXPECT_EQ(chart->GetPlotIndex(second), 1);
    EXPECT_EQ(chart->GetPlotIndex(vtkSmartPointer<PlotLine>::New()), -1);
}

TEST_F(ChartXYTest, LowersAPlotUnderAllOthersOfItsCorner)
{
    vtkPlot* first = addPlot(1);
    addPlot(1);
    vtkPlot* third = addPlot(1);
    EXPECT_EQ(chart->LowerPlot(third), 0);
    EXPECT_EQ(corner(1)->GetItem(0), third);
    EXPECT_EQ(corner(1)->GetItem(1), first);
    EXPECT_EQ(chart->GetPlot(2), third) << "the public index stays";
    EXPECT_EQ(chart->LowerPlot(vtkSmartPointer<PlotLine>::New()), -1);
}

TEST_F(ChartXYTest, StacksAbovePlotsWhoseIndexEqualsTheirCornersNumber)
{
    vtkPlot* a = addPlot(1);
    vtkPlot* b = addPlot(1);
    vtkPlot* c = addPlot(1);
    EXPECT_EQ(chart->StackPlotAbove(a, c), 0) << "c has index 2, not 1";
    EXPECT_EQ(chart->StackPlotAbove(c, a), 2) << "a has index 0, not 1";
    EXPECT_EQ(corner(1)->GetItem(0), a);
    EXPECT_EQ(chart->StackPlotAbove(a, b), 1) << "b has index 1";
    EXPECT_EQ(corner(1)->GetItem(0), b);
    EXPECT_EQ(corner(1)->GetItem(1), a);
    EXPECT_EQ(corner(1)->GetItem(2), c);
}

TEST_F(ChartXYTest, StacksAboveTheFirstPlotOfCornerZero)
{
    vtkPlot* a = addPlot(0);
    addPlot(0);
    vtkPlot* c = addPlot(0);
    EXPECT_EQ(chart->StackPlotAbove(c, a), 1);
    EXPECT_EQ(corner(0)->GetItem(1), c);
}

TEST_F(ChartXYTest, StacksNothingThatIsInNoCorner)
{
    vtkPlot* a = addPlot(0);
    const auto stranger = vtkSmartPointer<PlotLine>::New();
    EXPECT_EQ(chart->StackPlotAbove(stranger, a), -1);
    EXPECT_EQ(chart->StackPlotAbove(a, stranger), 0);
    EXPECT_EQ(chart->StackPlotUnder(stranger, a), -1);
    EXPECT_EQ(chart->StackPlotUnder(a, stranger), 0);
}

TEST_F(ChartXYTest, StacksNothingAboveAnIndexThatItsCornerDoesNotHave)
{
    vtkPlot* alone = addPlot(0);
    addPlot(1);
    vtkPlot* secondOfCornerOne = addPlot(1);
    // Its index equals its corner's number, but corner 0 has no item of that index.
    EXPECT_EQ(chart->StackPlotAbove(alone, secondOfCornerOne), 0);
    EXPECT_EQ(corner(0)->GetItem(0), alone);
}

TEST_F(ChartXYTest, StacksUnderPlotsOfTheSameCornerOnly)
{
    vtkPlot* a = addPlot(1);
    vtkPlot* b = addPlot(1);
    vtkPlot* c = addPlot(1);
    vtkPlot* elsewhere = addPlot(0);
    EXPECT_EQ(chart->StackPlotUnder(c, elsewhere), 2);
    EXPECT_EQ(corner(1)->GetItem(2), c);
    EXPECT_EQ(chart->StackPlotUnder(c, b), 1);
    EXPECT_EQ(corner(1)->GetItem(0), a);
    EXPECT_EQ(corner(1)->GetItem(1), c);
    EXPECT_EQ(corner(1)->GetItem(2), b);
}

// Legend, tooltip, properties

TEST_F(ChartXYTest, ShowsAndHidesTheLegend)
{
    chart->SetShowLegend(true);
    EXPECT_TRUE(chart->GetShowLegend());
    EXPECT_TRUE(chart->GetLegend()->GetVisible());
    chart->SetShowLegend(false);
    EXPECT_FALSE(chart->GetShowLegend());
    EXPECT_FALSE(chart->GetLegend()->GetVisible());
}

TEST_F(ChartXYTest, TakesAnotherTooltip)
{
    const vtkSmartPointer<vtkTooltipItem> first = chart->GetTooltip();
    const auto second = vtkSmartPointer<vtkTooltipItem>::New();
    chart->SetTooltip(second);
    EXPECT_EQ(chart->GetTooltip(), second);
    EXPECT_EQ(chart->GetItemIndex(first), -1);
    EXPECT_EQ(chart->GetItemIndex(second), 6);
    chart->SetTooltip(second);
    EXPECT_EQ(chart->GetNumberOfItems(), 7) << "the present one is not added again";
    chart->SetTooltip(nullptr);
    EXPECT_EQ(chart->GetTooltip(), nullptr);
    EXPECT_EQ(chart->GetNumberOfItems(), 6);
    chart->SetTooltip(first);
    EXPECT_EQ(chart->GetNumberOfItems(), 7);
}

/** Stores, marks modified when the value differs, and touches neither scene nor transforms. */
template <class Set, class Get, class Value>
void expectPlainProperty(
    ProbeChart* chart, const Set& set, const Get& get, Value first, Value other)
{
    EXPECT_EQ(get(), first);
    vtkMTimeType before = chart->GetMTime();
    set(first);
    EXPECT_EQ(chart->GetMTime(), before) << "the same value changes nothing";
    chart->PlotTransformValid = true;
    chart->GetScene()->SetDirty(false);
    for (const Value value : {other, first}) {
        before = chart->GetMTime();
        set(value);
        EXPECT_EQ(get(), value);
        EXPECT_GT(chart->GetMTime(), before);
    }
    EXPECT_TRUE(chart->PlotTransformValid);
    EXPECT_FALSE(chart->GetScene()->GetDirty());
}

#define EXPECT_PLAIN_PROPERTY(name, first, other)                                                  \
    {                                                                                              \
        SCOPED_TRACE(#name);                                                                       \
        expectPlainProperty(                                                                       \
            chart, [&](auto value) { chart->Set##name(value); },                                   \
            [&] { return chart->Get##name(); }, first, other);                                     \
    }

#define EXPECT_BOOLEAN_PROPERTY(name, first)                                                       \
    EXPECT_PLAIN_PROPERTY(name, first, !(first))                                                   \
    chart->name##On();                                                                             \
    EXPECT_TRUE(chart->Get##name()) << #name;                                                      \
    chart->name##Off();                                                                            \
    EXPECT_FALSE(chart->Get##name()) << #name;

TEST_F(ChartXYTest, StoresItsProperties)
{
    EXPECT_BOOLEAN_PROPERTY(DrawAxesAtOrigin, false)
    EXPECT_BOOLEAN_PROPERTY(AutoAxes, true)
    EXPECT_PLAIN_PROPERTY(HiddenAxisBorder, 20, 30)
    EXPECT_BOOLEAN_PROPERTY(ForceAxesToBounds, false)
    EXPECT_PLAIN_PROPERTY(BarWidthFraction, 0.8F, 0.5F)
    EXPECT_BOOLEAN_PROPERTY(ZoomWithMouseWheel, true)
    EXPECT_BOOLEAN_PROPERTY(AdjustLowerBoundForLogPlot, false)
    EXPECT_BOOLEAN_PROPERTY(DragPointAlongX, true)
    EXPECT_BOOLEAN_PROPERTY(DragPointAlongY, true)
    EXPECT_PLAIN_PROPERTY(CrosshairCursor, false, true)
    ChartCallbacks callbacks;
    EXPECT_PLAIN_PROPERTY(Callbacks, static_cast<ChartCallbacks*>(nullptr), &callbacks)
}

TEST_F(ChartXYTest, HandsOutItsWheelFlagsToBeWritten)
{
    const vtkMTimeType before = chart->GetMTime();
    bool flags[4] = {false, false, false, false};
    chart->GetAxisZoomEnabled(flags);
    EXPECT_TRUE(flags[0] && flags[1] && flags[2] && flags[3]);
    chart->GetAxisZoomEnabled()[vtkAxis::BOTTOM] = false;
    chart->GetAxisZoomEnabled()[vtkAxis::TOP] = false;
    chart->GetAxisZoomEnabled(flags);
    EXPECT_TRUE(flags[0]);
    EXPECT_FALSE(flags[1]);
    EXPECT_TRUE(flags[2]);
    EXPECT_FALSE(flags[3]);
    bool left = false;
    bool bottom = true;
    bool right = false;
    bool top = true;
    chart->GetAxisZoomEnabled(left, bottom, right, top);
    EXPECT_TRUE(left);
    EXPECT_FALSE(bottom);
    EXPECT_TRUE(right);
    EXPECT_FALSE(top);
    EXPECT_EQ(chart->GetMTime(), before);
}

TEST_F(ChartXYTest, PrintsAxesPlotsAndTheWheelFlag)
{
    addPlot(0);
    addPlot(0);
    std::ostringstream text;
    chart->PrintSelf(text, vtkIndent(2));

    std::ostringstream expected;
    chart->vtkChart::PrintSelf(expected, vtkIndent(2));
    expected << "  Axes: \n";
    for (int i = 0; i < 4; ++i)
        chart->GetAxis(i)->PrintSelf(expected, vtkIndent(4));
    expected << "  Number of plots: 2\n  Plot 0:\n";
    chart->GetPlot(0)->PrintSelf(expected, vtkIndent(4));
    expected << "  Plot 1:\n";
    chart->GetPlot(1)->PrintSelf(expected, vtkIndent(4));
    expected << "  ZoomWithMouseWheel: 1\n";
    EXPECT_EQ(text.str(), expected.str());
}

// What is under the mouse

/** A picture of a chart with an interactive plot, for events made by hand. */
class PickedItem : public testing::Test {
protected:
    PickedItem()
    {
        plot = fixture.addPlot(vtkChart::POINTS, {0, 5, 10}, {0, 5, 10});
        plot->SetInteractive(true);
        fixture.chart->SetShowLegend(true);
        fixture.fixAxis(vtkAxis::LEFT, 0, 10);
        fixture.fixAxis(vtkAxis::BOTTOM, 0, 10);
        fixture.render();
        fixture.render();
    }

    vtkAbstractContextItem* picked(QPointF at)
    {
        const auto x = static_cast<int>(at.x());
        const int y = fixture.widget()->height() - 1 - static_cast<int>(at.y());
        const vtkVector2f position(static_cast<float>(x), static_cast<float>(y));
        vtkContextMouseEvent event;
        event.SetInteractor(nullptr);
        event.SetButton(vtkContextMouseEvent::NO_BUTTON);
        event.SetPos(position);
        event.SetScenePos(position);
        event.SetScreenPos(vtkVector2i(x, y));
        event.SetLastPos(position);
        event.SetLastScenePos(position);
        event.SetLastScreenPos(vtkVector2i(x, y));
        return chart->GetPickedItem(event);
    }

    vtkSmartPointer<ProbeChart> chart = vtkSmartPointer<ProbeChart>::New();
    ChartFixture fixture {{400, 300}, chart};
    vtkPlot* plot = nullptr;
};

TEST_F(PickedItem, IsTheChartOverAPointOfAnInteractivePlot)
{
    chart->hit = true;
    EXPECT_EQ(picked(fixture.position(5, 5)), chart);
}

TEST_F(PickedItem, IsNothingOverAnAxis)
{
    EXPECT_EQ(picked(fixture.fromBottom(chart->GetPoint1()[0] - 10, 150)), nullptr);
    EXPECT_EQ(picked(fixture.fromBottom(200, chart->GetPoint1()[1] - 10)), nullptr);
}

TEST_F(PickedItem, IsNothingWhereTheChartIsNotHit)
{
    EXPECT_EQ(picked(fixture.position(5, 5)), nullptr);
}

TEST_F(PickedItem, IsTheLegendOverTheLegend)
{
    chart->hit = true;
    const float* corner = chart->GetLegend()->GetPoint();
    EXPECT_EQ(picked(fixture.fromBottom(corner[0] + 5, corner[1] + 5)), chart->GetLegend());
}

// Broken preconditions

TEST_F(ChartXYTest, GuardsAgainstNegativeIndices)
{
    addPlot(0);
#ifndef NDEBUG
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(chart->GetPlot(-1), "ChartXY::GetPlot.*broken by -1");
    EXPECT_DEATH(chart->RemovePlot(-2), "ChartXY::RemovePlot.*broken by -2");
    EXPECT_DEATH(chart->GetAxis(-3), "ChartXY::GetAxis.*broken by -3");
#else
    EXPECT_EQ(chart->GetPlot(-1), nullptr);
    EXPECT_FALSE(chart->RemovePlot(-2));
    EXPECT_EQ(chart->GetAxis(-3), nullptr);
#endif
}

} // namespace
} // namespace ovl::test
