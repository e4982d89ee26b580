// SPDX-License-Identifier: BSD-3-Clause
#include <support/charteventfixture.h>
#include <visualization/chartselection.h>

#include <vtkAnnotationLink.h>
#include <vtkAxis.h>
#include <vtkContextScene.h>
#include <vtkIdTypeArray.h>
#include <vtkInformation.h>
#include <vtkInformationObjectBaseKey.h>
#include <vtkNew.h>
#include <vtkPlot.h>
#include <vtkSelection.h>
#include <vtkSelectionNode.h>
#include <vtkTable.h>

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace ovl {
namespace {

using test::ChartEventFixture;
using Rows = std::vector<vtkIdType>;
using Places = std::vector<std::pair<double, double>>;

constexpr int kBand = vtkContextMouseEvent::MIDDLE_BUTTON;
constexpr int kPolygon = vtkContextMouseEvent::RIGHT_BUTTON;

/** Selects with the middle button by rubber band, with another by polygon. */
class ChartXYSelection : public testing::Test, public ChartEventFixture {
protected:
    ChartXYSelection()
        : first(addPlot(vtkChart::POINTS, {20, 60, 100, 140, 180}, {20, 20, 20, 20, 20}))
        , second(addPlot(vtkChart::POINTS, {20, 60, 100, 140, 180}, {100, 100, 100, 100, 100}))
    {
        open->Actions.Select() = kBand;
        open->Actions.SelectPolygon() = kPolygon;
        open->Actions.Zoom() = -1;
        chart->SetSelectionMode(vtkContextScene::SELECTION_DEFAULT);
        render();
    }

    bool band(double left, double bottom, double right, double top)
    {
        press(left, bottom, kBand);
        move(right, top, kBand);
        return release(right, top, kBand);
    }

    bool polygon(const Places& places)
    {
        press(places.front().first, places.front().second, kPolygon);
        for (std::size_t i = 1; i + 1 < places.size(); ++i)
            move(places[i].first, places[i].second, kPolygon);
        return release(places.back().first, places.back().second, kPolygon);
    }

    /** Leaves a box behind that polygons pass their test with. */
    void leaveABox()
    {
        press(3, 3, kBand);
        release(3, 3, kBand);
    }

    vtkSelection* linked() { return link->GetCurrentSelection(); }

    static Rows rowsOf(vtkSelectionNode* node)
    {
        auto* rows = vtkIdTypeArray::SafeDownCast(node->GetSelectionList());
        return rows ? Rows(rows->GetPointer(0), rows->GetPointer(rows->GetNumberOfTuples()))
                    : Rows {-1};
    }

    void useLink(int method)
    {
        chart->SetAnnotationLink(link);
        chart->SetSelectionMethod(method);
    }

    vtkPlot* first;
    vtkPlot* second;
    vtkNew<vtkAnnotationLink> link;
};

TEST_F(ChartXYSelection, ABandSelectsThePointsInsideIt)
{
    EXPECT_TRUE(band(50, 10, 150, 30));
    EXPECT_EQ(selected(first), (Rows {1, 2, 3}));
    EXPECT_EQ(selected(second), Rows {});
    EXPECT_FALSE(open->DrawBox);
    EXPECT_EQ(open->MouseBox, vtkRectf(150, 60, 0, 0));
    ASSERT_EQ(raised.size(), 1u);
    EXPECT_EQ(raised[0].id, static_cast<unsigned long>(vtkCommand::SelectionChangedEvent));
    EXPECT_FALSE(raised[0].hasData);
}

TEST_F(ChartXYSelection, ABandMayBeDrawnFromAnyCorner)
{
    const double ends[][4]
        = {{50, 10, 150, 30}, {150, 10, 50, 30}, {50, 30, 150, 10}, {150, 30, 50, 10}};
    for (const auto& end : ends) {
        select(first, {});
        EXPECT_TRUE(band(end[0], end[1], end[2], end[3]));
        EXPECT_EQ(selected(first), (Rows {1, 2, 3}));
    }
}

TEST_F(ChartXYSelection, ABandWithoutWidthOrHeightSelectsNothingAndSaysNothing)
{
    const Places extents = {{100, 0}, {0, 50}, {100, 0.4}, {0.4, 50}};
    for (const auto& [width, height] : extents) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        EXPECT_TRUE(band(50, 20, 50 + width, 20 + height));
        EXPECT_EQ(selected(first), Rows {-1});
        EXPECT_FALSE(open->DrawBox);
        EXPECT_EQ(open->MouseBox, vtkRectf(150, 70, 0, 0));
    }
    EXPECT_TRUE(raised.empty());
}

TEST_F(ChartXYSelection, APolygonSelectsThePointsInsideIt)
{
    leaveABox();
    EXPECT_TRUE(polygon({{50, 10}, {110, 10}, {110, 110}, {90, 110}, {90, 30}, {51, 30}}));
    EXPECT_EQ(selected(first), (Rows {1, 2}));
    EXPECT_EQ(selected(second), Rows {2});
    EXPECT_FALSE(open->DrawSelectionPolygon);
    EXPECT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 0);
    EXPECT_EQ(raised.size(), 1u);
}

TEST_F(ChartXYSelection, APolygonOfTwoPointsSelectsNothingAndLeavesNone)
{
    leaveABox();
    EXPECT_TRUE(polygon({{50, 10}, {150, 30}}));
    EXPECT_EQ(selected(first), Rows {-1});
    EXPECT_FALSE(open->DrawSelectionPolygon);
    EXPECT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 0);
    EXPECT_TRUE(raised.empty());
}

TEST_F(ChartXYSelection, APolygonIsTestedByTheBoxFromTheLastOriginToItsRelease)
{
    leaveABox();
    EXPECT_TRUE(polygon({{50, 10}, {110, 10}, {110, 110}, {3, 60}})) << "straight above its origin";
    EXPECT_EQ(selected(first), Rows {-1});
    EXPECT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 4) << "it stays until the next press";
    EXPECT_EQ(open->MouseBox, vtkRectf(103, 53, 0, 0));
    EXPECT_TRUE(raised.empty());
    press(50, 10, kPolygon);
    EXPECT_EQ(open->SelectionPolygon.GetNumberOfPoints(), 1);

    // The release of a button that no mouse has leaves the box as it was: empty.
    open->Actions.SelectPolygon() = 16;
    press(50, 10, 16);
    move(110, 10, 16);
    move(110, 110, 16);
    EXPECT_TRUE(release(50, 110, 16));
    EXPECT_EQ(selected(first), Rows {-1});
    EXPECT_TRUE(raised.empty());
}

TEST_F(ChartXYSelection, TakesThePlotsOfEachCornerInItsOwnUnits)
{
    vtkPlot* other = addPlot(vtkChart::POINTS, {200, 600}, {20, 20}, 2);
    fixAxis(vtkAxis::TOP, 0, 1000); // five units a pixel: at 40 and 120
    render();
    band(30, 10, 130, 30);
    EXPECT_EQ(selected(other), (Rows {0, 1}));
    band(30, 10, 100, 30);
    EXPECT_EQ(selected(other), Rows {0});
    polygon({{110, 10}, {130, 10}, {130, 30}, {111, 30}});
    EXPECT_EQ(selected(other), Rows {1});
}

TEST_F(ChartXYSelection, LeavesHiddenAndUnselectablePlotsOut)
{
    first->SetVisible(false);
    second->SetSelectable(false);
    band(10, 10, 190, 110);
    EXPECT_EQ(selected(first), Rows {-1});
    EXPECT_EQ(selected(second), Rows {-1});
    EXPECT_EQ(raised.size(), 1u);
}

TEST_F(ChartXYSelection, RowsAreOneSelectionForAllPlots)
{
    useLink(vtkChart::SELECTION_ROWS);
    band(50, 10, 110, 30);
    ASSERT_EQ(linked()->GetNumberOfNodes(), 1u);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), (Rows {1, 2}));
    band(10, 10, 70, 110);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), (Rows {0, 1})) << "each row once";
    chart->Update();
    EXPECT_EQ(selected(first), (Rows {0, 1}));
    EXPECT_EQ(first->GetSelection(), second->GetSelection());
}

TEST_F(ChartXYSelection, RowsCombineWithThoseOfTheVeryFirstPlotByTheModifiers)
{
    useLink(vtkChart::SELECTION_ROWS);
    struct Case {
        bool shift, control, alt;
        Rows rows;
    };
    const Case cases[] = {
        {false, false, false, {2, 3}},
        {false, true, false, {1, 2, 3, 4}},
        {true, false, false, {1, 4}},
        {true, true, false, {1, 2, 4}},
        {false, false, true, {2, 3}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.shift << c.control << c.alt);
        select(first, {1, 3, 4});
        select(second, {0});
        setModifiers(c.shift, c.control, c.alt);
        band(90, 10, 150, 30);
        ASSERT_EQ(linked()->GetNumberOfNodes(), 1u);
        EXPECT_EQ(rowsOf(linked()->GetNode(0)), c.rows);
    }
}

TEST_F(ChartXYSelection, TakesTheModeOfTheChartWithoutModifiers)
{
    useLink(vtkChart::SELECTION_ROWS);
    chart->SetSelectionMode(vtkContextScene::SELECTION_ADDITION);
    select(first, {0});
    band(90, 10, 150, 30);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), (Rows {0, 2, 3}));
}

TEST_F(ChartXYSelection, RowsCombineWithNoneWhereTheFirstPlotIsLeftOut)
{
    useLink(vtkChart::SELECTION_ROWS);
    select(first, {1, 3});
    select(second, {0, 4});
    first->SetVisible(false);
    setModifiers(false, true);
    band(90, 90, 150, 110);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), (Rows {2, 3}));
}

TEST_F(ChartXYSelection, WithoutALinkRowsReachNoOtherPlot)
{
    setModifiers(false, true);
    select(first, {0});
    band(90, 10, 150, 30);
    EXPECT_EQ(selected(first), (Rows {2, 3})) << "replaced: only the link carries the sum back";
    chart->Update();
    EXPECT_EQ(selected(second), Rows {});
}

TEST_F(ChartXYSelection, PlotsHaveEachASelectionOfTheirOwn)
{
    useLink(vtkChart::SELECTION_PLOTS);
    const unsigned int present = linked()->GetNumberOfNodes();
    setModifiers(false, true);
    select(first, {0, 2});
    band(90, 10, 150, 110);
    EXPECT_EQ(selected(first), (Rows {0, 2, 3}));
    EXPECT_EQ(selected(second), (Rows {2, 3})) << "not with the rows of the plot before";
    ASSERT_EQ(linked()->GetNumberOfNodes(), present + 2);
    for (const auto& [index, plot] : {std::pair(present, first), std::pair(present + 1, second)}) {
        vtkSelectionNode* node = linked()->GetNode(index);
        EXPECT_EQ(node->GetProperties()->Get(vtkSelectionNode::PROP()), plot);
        EXPECT_EQ(node->GetProperties()->Get(vtkSelectionNode::SOURCE()), plot->GetInput());
        EXPECT_EQ(rowsOf(node), selected(plot));
    }
    band(10, 10, 30, 110);
    EXPECT_EQ(linked()->GetNumberOfNodes(), present + 2) << "the same nodes again";
    EXPECT_EQ(selected(first), (Rows {0, 2, 3}));
    EXPECT_EQ(selected(second), (Rows {0, 2, 3}));
    setModifiers(true, true);
    band(10, 10, 70, 30);
    EXPECT_EQ(selected(first), (Rows {1, 2, 3}));
    EXPECT_EQ(selected(second), (Rows {0, 2, 3})) << "toggled with nothing";
    setModifiers(true, false);
    band(50, 90, 110, 110);
    EXPECT_EQ(selected(second), (Rows {0, 3}));
}

TEST_F(ChartXYSelection, PlotsTakeTheirOwnSelectionFromTheLink)
{
    useLink(vtkChart::SELECTION_PLOTS);
    vtkPlot* gone = addPlot(vtkChart::POINTS, {1}, {1});
    const vtkNew<vtkSelection> selection;
    for (vtkPlot* plot : {second, gone}) {
        const vtkNew<vtkSelectionNode> node;
        const vtkNew<vtkIdTypeArray> rows;
        rows->InsertNextValue(4);
        node->SetSelectionList(rows);
        node->GetProperties()->Set(vtkSelectionNode::PROP(), plot);
        selection->AddNode(node);
    }
    const vtkNew<vtkSelectionNode> ownerless;
    selection->AddNode(ownerless);
    link->SetCurrentSelection(selection);
    chart->RemovePlotInstance(gone);
    select(first, {0});
    chart->Update();
    EXPECT_EQ(selected(second), Rows {4});
    EXPECT_EQ(selected(first), Rows {0}) << "no node is its";
}

TEST_F(ChartXYSelection, RowsOfALinkWithoutANodeAreNone)
{
    useLink(vtkChart::SELECTION_ROWS);
    const vtkNew<vtkSelection> nothing;
    link->SetCurrentSelection(nothing);
    select(first, {1});
    chart->Update();
    EXPECT_EQ(selected(first), Rows {-1});
}

class ChartXYSelectionColumns : public ChartXYSelection {
protected:
    ChartXYSelectionColumns()
    {
        chart->ClearPlots();
        const std::vector<double> x = {20, 60, 100, 140};
        table = test::makeTable({x, {20, 20, 20, 20}, {60, 60, 60, 60}, {100, 100, 100, 100}});
        const int corners[] = {0, 1, 2};
        for (const int corner : corners) {
            vtkPlot* plot = chart->AddPlot(vtkChart::POINTS);
            chart->SetPlotCorner(plot, corner);
            columns.push_back(plot);
        }
        // Against the order of the columns.
        columns[0]->SetInputData(table, 0, 3);
        columns[1]->SetInputData(table, 0, 2);
        columns[2]->SetInputData(table, 0, 1);
        useLink(vtkChart::SELECTION_COLUMNS);
        render();
    }

    vtkSmartPointer<vtkTable> table;
    std::vector<vtkPlot*> columns;
    const Rows everyRow = {0, 1, 2, 3};
};

TEST_F(ChartXYSelectionColumns, AnyPointSelectsItsWholeColumn)
{
    band(10, 90, 30, 110);
    ASSERT_EQ(linked()->GetNumberOfNodes(), 1u);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), Rows {3});
    EXPECT_EQ(selected(columns[0]), everyRow);
    EXPECT_EQ(raised.size(), 1u);
}

TEST_F(ChartXYSelectionColumns, SortsTheColumnsOfDifferentCorners)
{
    band(10, 10, 30, 110);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), (Rows {1, 2, 3}));
    setModifiers(true, false);
    band(10, 10, 30, 70);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), Rows {3});
    setModifiers(true, true);
    band(10, 50, 30, 110);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), Rows {2});
    setModifiers(false, true);
    band(10, 10, 30, 30);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), (Rows {1, 2}));
    setModifiers(false, false);
    band(10, 120, 30, 140);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), Rows {}) << "nothing there";
}

TEST_F(ChartXYSelectionColumns, GivesEveryRowToThePlotsOfTheLinkedColumns)
{
    band(10, 10, 30, 70);
    for (vtkPlot* plot : columns)
        select(plot, {2});
    chart->Update();
    EXPECT_EQ(selected(columns[0]), Rows {-1}) << "its column is not selected";
    EXPECT_EQ(selected(columns[1]), everyRow);
    EXPECT_EQ(selected(columns[2]), everyRow);
    vtkIdTypeArray* present = columns[1]->GetSelection();
    chart->Update();
    EXPECT_EQ(columns[1]->GetSelection(), present) << "as many rows as the column has";
}

TEST_F(ChartXYSelectionColumns, OnlyTheFirstPlotOfAColumnIsSelectedByTheLink)
{
    vtkPlot* again = chart->AddPlot(vtkChart::POINTS);
    again->SetInputData(table, 0, 3);
    vtkPlot* without = chart->AddPlot(vtkChart::POINTS); // no table at all
    render();
    band(10, 90, 30, 110);
    EXPECT_EQ(rowsOf(linked()->GetNode(0)), (Rows {3, 3})) << "once for each plot";
    chart->Update();
    EXPECT_EQ(selected(columns[0]), everyRow);
    EXPECT_EQ(selected(again), Rows {-1});
    EXPECT_EQ(selected(without), Rows {-1});
}

TEST_F(ChartXYSelection, SwitchingToPlotsTakesEverySelectionAway)
{
    select(first, {1});
    select(second, {2});
    chart->SetSelectionMethod(vtkChart::SELECTION_COLUMNS);
    EXPECT_EQ(selected(first), Rows {1});
    chart->SetSelectionMethod(vtkChart::SELECTION_PLOTS);
    EXPECT_EQ(chart->GetSelectionMethod(), vtkChart::SELECTION_PLOTS);
    EXPECT_EQ(selected(first), Rows {-1});
    EXPECT_EQ(selected(second), Rows {-1});
    select(first, {1});
    chart->SetSelectionMethod(vtkChart::SELECTION_PLOTS);
    EXPECT_EQ(selected(first), Rows {1}) << "it is the method already";
    chart->SetSelectionMethod(vtkChart::SELECTION_ROWS);
    EXPECT_EQ(selected(first), Rows {1});
}

TEST_F(ChartXYSelection, AClickSelectsOnePointWhateverMethodAndModifiers)
{
    useLink(vtkChart::SELECTION_PLOTS);
    setModifiers(false, true);
    select(first, {1, 2});
    press(20, 20);
    EXPECT_EQ(selected(first), Rows {0});
}

TEST_F(ChartXYSelection, StandsPlotsWithoutTableAndColumnsWithoutName)
{
    chart->AddPlot(vtkChart::LINE);
    chart->AddPlot(vtkChart::BAR);
    for (const int method : {0, 1, 2, 7}) {
        useLink(method);
        EXPECT_TRUE(band(10, 10, 190, 110));
        chart->Update();
    }
    first->GetInput()->GetColumn(1)->SetName(nullptr);
    useLink(vtkChart::SELECTION_COLUMNS);
    EXPECT_TRUE(band(10, 10, 190, 110));
}

// A table may lose rows while one of them is selected, as when the mouse holds a point.
TEST_F(ChartXYSelection, RowsThatThePlotHasLostAreNotPaintedSelected)
{
    select(first, {1, 3, 4});
    first->SetInputData(test::makeTable({{20, 60, 100}, {20, 20, 20}}), 0, 1);
    render();
    EXPECT_EQ(selected(first), (Rows {1}));
}

TEST_F(ChartXYSelection, ASharedSelectionStaysWholeForTheOtherPlots)
{
    useLink(0);
    const vtkNew<vtkIdTypeArray> rows;
    for (const vtkIdType row : {1, 4})
        rows->InsertNextValue(row);
    MakeSelection(link, rows, nullptr);
    first->SetInputData(test::makeTable({{20, 60, 100}, {20, 20, 20}}), 0, 1);
    render();
    EXPECT_EQ(selected(first), (Rows {1}));
    EXPECT_EQ(selected(second), (Rows {1, 4}));
}

} // namespace
} // namespace ovl
