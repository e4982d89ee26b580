// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/plotline.h>
#include <visualization/plotpoints.h>
#include <visualization/plotroster.h>
#include <visualization/point.h>
#include <visualization/shape.h>
#include <visualization/vtkcompat.h>

#include <vtkAxis.h>
#include <vtkContextMouseEvent.h>
#include <vtkContextTransform.h>
#include <vtkDoubleArray.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkPlotLine.h>
#include <vtkSmartPointer.h>
#include <vtkTable.h>
#include <vtkTransform2D.h>

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <utility>
#include <vector>

namespace ovl {
namespace {

class PlotRosterTest : public testing::Test {
protected:
    PlotRosterTest()
        : roster(transforms)
    {
        for (vtkContextTransform* corner : {empty.Get(), filled.Get()})
            transforms.push_back(corner);
        for (PlotLine* plot : {lower.Get(), upper.Get()}) {
            setPoint(plot, 3, 4);
            filled->AddItem(plot);
        }
        filled->GetTransform()->Translate(100, 50);
        filled->GetTransform()->Scale(2, 10);
    }

    void setPoint(PlotLine* plot, double x, double y) { setPoints(plot, {{x, y}, {x, y}}); }

    void setPoints(vtkPlot* plot, const std::vector<std::pair<double, double>>& points)
    {
        const vtkNew<vtkTable> table;
        const vtkNew<vtkDoubleArray> columns[2];
        for (const auto& [x, y] : points) {
            columns[0]->InsertNextValue(x);
            columns[1]->InsertNextValue(y);
        }
        columns[0]->SetName("x");
        columns[1]->SetName("y");
        for (vtkDoubleArray* column : {columns[0].Get(), columns[1].Get()})
            table->AddColumn(column);
        plot->SetXAxis(axis);
        plot->SetYAxis(axis);
        plot->SetInputData(table, 0, 1);
        plot->Modified();
        plot->Update();
    }

    static vtkContextMouseEvent at(float x, float y)
    {
        vtkContextMouseEvent mouse {};
        mouse.SetPos(vtkVector2f(x, y));
        return mouse;
    }

    const RosterPlot* topmost()
    {
        const PointProbe probe(filled, at(106, 90)); // 3, 4
        return roster.topmost(
            roster.corners().front(), probe, [](const RosterPlot&) { return true; });
    }

    vtkNew<vtkAxis> axis;
    vtkNew<vtkContextTransform> empty;
    vtkNew<vtkContextTransform> filled;
    vtkNew<PlotLine> lower;
    vtkNew<PlotLine> upper;
    std::vector<vtkContextTransform*> transforms;
    PlotRoster roster;
};

TEST_F(PlotRosterTest, ProbesFivePixelsAroundThePlaceInPlotSpace)
{
    const PointProbe probe(filled, at(120, 80));
    EXPECT_FLOAT_EQ(probe.position.GetX(), 10);
    EXPECT_FLOAT_EQ(probe.position.GetY(), 3);
    EXPECT_FLOAT_EQ(probe.tolerance.GetX(), 2.5);
    EXPECT_FLOAT_EQ(probe.tolerance.GetY(), 0.5);
    filled->GetTransform()->Scale(-1, 1);
    EXPECT_FLOAT_EQ(PointProbe(filled, at(120, 80)).tolerance.GetX(), 2.5) << "never negative";
}

TEST_F(PlotRosterTest, ListsTheCornersThatHavePlotsInTheOrderOfTheirItems)
{
    ASSERT_EQ(roster.corners().size(), 1u);
    EXPECT_EQ(roster.corners()[0].transform, filled.Get());
    ASSERT_EQ(roster.corners()[0].plots.size(), 2u);
    EXPECT_EQ(roster.corners()[0].plots[0].plot, lower.Get());
    EXPECT_EQ(roster.corners()[0].plots[0].part, static_cast<Plot*>(lower.Get()));
    EXPECT_EQ(roster.corners()[0].plots[1].plot, upper.Get());
}

/** The plots from corner to corner, each from the bottom. */
std::vector<const vtkPlot*> plotsOf(PlotRoster& roster)
{
    std::vector<const vtkPlot*> plots;
    for (const RosterCorner& corner : roster.corners())
        for (const RosterPlot& entry : corner.plots)
            plots.push_back(entry.plot);
    return plots;
}

TEST_F(PlotRosterTest, FollowsEveryChangeOfTheItems)
{
    using Plots = std::vector<const vtkPlot*>;
    ASSERT_EQ(plotsOf(roster), (Plots {lower, upper}));
    filled->Lower(1);
    EXPECT_EQ(plotsOf(roster), (Plots {upper, lower}));
    filled->Raise(0);
    EXPECT_EQ(plotsOf(roster), (Plots {lower, upper}));
    filled->StackAbove(0, 1);
    EXPECT_EQ(plotsOf(roster), (Plots {upper, lower}));
    filled->RemoveItem(lower);
    EXPECT_EQ(plotsOf(roster), (Plots {upper}));
    empty->AddItem(lower);
    EXPECT_EQ(plotsOf(roster), (Plots {lower, upper}));
    filled->AddItem(lower);
    EXPECT_EQ(plotsOf(roster), (Plots {lower, upper, lower}));
    transforms.pop_back();
    EXPECT_EQ(plotsOf(roster), (Plots {lower}));
    empty->ClearItems();
    EXPECT_EQ(plotsOf(roster), Plots());
}

TEST_F(PlotRosterTest, KeepsWhatItKnowsAsLongAsNothingChanges)
{
    const RosterPlot* entry = roster.corners().front().plots.data();
    const RosterCorner* corner = roster.corners().data();
    setPoint(upper, 30, 40);
    EXPECT_EQ(roster.corners().data(), corner);
    EXPECT_EQ(roster.corners().front().plots.data(), entry);
}

TEST_F(PlotRosterTest, IsNotMisledByANewPlotInThePlaceOfOneThatHasGone)
{
    for (int i = 0; i < 20; ++i) { // the allocator hands out the same place sooner or later
        {
            const vtkNew<PlotLine> passing;
            empty->AddItem(passing);
        }
        ASSERT_EQ(roster.corners().front().plots.size(), 1u);
        empty->ClearItems();
        const vtkNew<vtkPlotLine> foreign;
        empty->AddItem(foreign);
        ASSERT_EQ(roster.corners().size(), 1u) << "none of ours";
        empty->ClearItems();
    }
}

TEST_F(PlotRosterTest, LeavesOutWhatIsNoPlotOfOurs)
{
    const vtkNew<vtkPlotLine> foreign;
    filled->AddItem(foreign);
    EXPECT_EQ(roster.corners()[0].plots.size(), 2u);
}

TEST_F(PlotRosterTest, FindsTheTopmostPlotThatIsAccepted)
{
    const PointProbe probe(filled, at(106, 90));
    RosterCorner& corner = roster.corners().front();
    const auto accepts = [this](const RosterPlot& entry) { return entry.plot == lower.Get(); };
    EXPECT_EQ(topmost()->plot, upper.Get());
    const RosterPlot* found = roster.topmost(corner, probe, accepts);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->plot, lower.Get());
    EXPECT_EQ(found->nearest.row, 0);
    EXPECT_EQ(found->nearest.segment, -1);
    EXPECT_FLOAT_EQ(found->nearest.position.GetX(), 3);
    EXPECT_EQ(roster.topmost(corner, PointProbe(filled, at(130, 90)), accepts), nullptr);
}

TEST_F(PlotRosterTest, FindsAPointWhereItIsAfterThePlotHasBuiltItAnew)
{
    ASSERT_EQ(topmost()->plot, upper.Get());
    setPoint(upper, 300, 4);
    EXPECT_EQ(topmost()->plot, lower.Get());
    setPoint(lower, 3, 400);
    EXPECT_EQ(topmost(), nullptr);
    setPoint(lower, std::nan(""), 4);
    EXPECT_EQ(topmost(), nullptr) << "a point that is nowhere";
    setPoint(lower, 3, 4);
    EXPECT_EQ(topmost()->plot, lower.Get());
    setPoint(upper, 3, 4);
    EXPECT_EQ(topmost()->plot, upper.Get());
}

TEST_F(PlotRosterTest, FindsAPointThatHasComeFromAfar)
{
    setPoint(upper, 300, 400);
    ASSERT_EQ(topmost()->plot, lower.Get());
    setPoint(upper, 3, 4);
    EXPECT_EQ(topmost()->plot, upper.Get());
}

TEST_F(PlotRosterTest, RejectsNoPlotThatWouldAnswer)
{
    // Against the plots themselves, in steps much finer than the rounding of their coordinates.
    for (int i = -4000; i <= 4000; ++i) {
        const float pixel = 111.0F + static_cast<float>(i) * 1e-5F; // 5 beyond the point's 106
        for (const float x : {pixel, 212.0F - pixel}) {
            const PointProbe probe(filled, at(x, 90));
            vtkVector2f found;
            vtkIdType segment = -1;
            const vtkIdType row
                = compat::nearestPoint(upper, probe.position, probe.tolerance, found, segment);
            const auto all = [](const RosterPlot&) { return true; };
            const RosterPlot* plot = roster.topmost(roster.corners().front(), probe, all);
            ASSERT_EQ(plot != nullptr, row >= 0) << x;
        }
    }
}

/** Ascending points are searched by the roster itself, all others by the plot. */
TEST_F(PlotRosterTest, AnswersAsThePlotWhateverTheOrderOfItsPoints)
{
    std::mt19937 random(1);
    const auto below = [&random](int end) { return static_cast<int>(random() % unsigned(end)); };
    const vtkNew<PlotPoints> plot;
    filled->AddItem(plot);
    filled->GetTransform()->Identity();
    int found = 0;
    for (int round = 0; round < 300; ++round) {
        std::vector<std::pair<double, double>> points;
        for (int i = 0, x = 0; i < 40; ++i, x += 1 + below(3))
            points.emplace_back(x, below(30));
        if (round % 3 == 1) // two of one abscissa
            points[20].first = points[19].first;
        if (round % 3 == 2)
            points[static_cast<std::size_t>(below(40))].first = round % 2 ? std::nan("") : 11.5;
        setPoints(plot, points);
        for (int i = 0; i < 40; ++i) {
            // Five pixels aside lies the edge of what is hit: many a point comes to lie on it.
            const PointProbe probe(
                filled, at(static_cast<float>(below(90) - 5), static_cast<float>(below(40) - 5)));
            vtkVector2f position;
            vtkIdType segment = -1;
            const vtkIdType row
                = compat::nearestPoint(plot, probe.position, probe.tolerance, position, segment);
            const RosterPlot* answer = roster.topmost(roster.corners().front(), probe,
                [&plot](const RosterPlot& entry) { return entry.plot == plot.Get(); });
            ASSERT_EQ(answer ? answer->nearest.row : -1, row) << round;
            if (!answer)
                continue;
            ++found;
            EXPECT_EQ(answer->nearest.position, position);
            EXPECT_EQ(answer->nearest.segment, segment);
        }
    }
    EXPECT_GT(found, 3000);
}

TEST_F(PlotRosterTest, AsksAPlotOnceInAnEvent)
{
    {
        const PlotRoster::Event event(roster);
        ASSERT_EQ(topmost()->plot, upper.Get());
        setPoint(upper, 30, 40);
        EXPECT_EQ(topmost()->plot, upper.Get()) << "its answer is kept";
        {
            const PlotRoster::Event nested(roster);
            EXPECT_EQ(topmost()->plot, lower.Get());
            setPoint(upper, 3, 4);
        }
        EXPECT_EQ(topmost()->plot, upper.Get());
        setPoint(upper, 30, 40);
        roster.forgetAnswers();
        EXPECT_EQ(topmost()->plot, lower.Get());
    }
    setPoint(upper, 3, 4);
    EXPECT_EQ(topmost()->plot, upper.Get());
    setPoint(upper, 30, 40);
    EXPECT_EQ(topmost()->plot, lower.Get()) << "outside of events nothing is kept";
}

TEST_F(PlotRosterTest, AnswersForEachPlaceThatAnEventAsksAbout)
{
    setPoints(upper, {{3, 4}, {30, 40}});
    const PlotRoster::Event event(roster);
    const auto row = [this](float x, float y) {
        const PointProbe probe(filled, at(x, y));
        const RosterPlot* found = roster.topmost(roster.corners().front(), probe,
            [this](const RosterPlot& entry) { return entry.plot == upper.Get(); });
        return found ? found->nearest.row : -1;
    };
    EXPECT_EQ(row(106, 90), 0);
    EXPECT_EQ(row(160, 450), 1);
    EXPECT_EQ(row(106, 90), 0);
    EXPECT_EQ(row(130, 250), -1);
}

TEST_F(PlotRosterTest, FindsPointsAmongMorePlotsThanLieInOneBlock)
{
    std::vector<vtkSmartPointer<PlotLine>> many;
    for (int i = 0; i < 50; ++i) {
        many.push_back(vtkSmartPointer<PlotLine>::New());
        setPoint(many.back(), 1000.0 * i, 4);
        filled->AddItem(many.back());
    }
    const auto all = [](const RosterPlot&) { return true; };
    for (int i = 0; i < 50; ++i) {
        const PointProbe probe(filled, at(static_cast<float>(2000 * i + 100), 90));
        const RosterPlot* found = roster.topmost(roster.corners().front(), probe, all);
        ASSERT_NE(found, nullptr) << i;
        EXPECT_EQ(found->plot, many[static_cast<std::size_t>(i)].Get()) << i;
    }
}

/** The plots that the roster finds to have selected rows. */
std::vector<const vtkPlot*> selectedOf(PlotRoster& roster)
{
    std::vector<const vtkPlot*> plots;
    for (const RosterPlot* entry : roster.selected())
        plots.push_back(entry->plot);
    return plots;
}

void selectRow(vtkPlot* plot, vtkIdType row)
{
    const vtkNew<vtkIdTypeArray> rows;
    rows->InsertNextValue(row);
    plot->SetSelection(rows);
    SelectionNotes::note(); // as a chart does
}

/** Both as in a small chart, whose plots are all asked, and among many, where changes are told. */
class PlotRosterSelection : public PlotRosterTest, public testing::WithParamInterface<int> {
protected:
    PlotRosterSelection()
    {
        for (int i = 0; i < GetParam(); ++i) {
            others.push_back(vtkSmartPointer<PlotLine>::New());
            filled->AddItem(others.back());
        }
    }

    std::vector<vtkSmartPointer<PlotLine>> others;
};

TEST_P(PlotRosterSelection, ListsThePlotsThatHaveSelectedRows)
{
    using Plots = std::vector<const vtkPlot*>;
    EXPECT_EQ(selectedOf(roster), Plots());
    selectRow(upper, 1);
    EXPECT_EQ(selectedOf(roster), (Plots {upper}));
    EXPECT_EQ(selectedOf(roster), (Plots {upper})) << "and once more";
    selectRow(lower, 0);
    EXPECT_EQ(selectedOf(roster), (Plots {lower, upper})) << "in their order";
    const vtkNew<vtkIdTypeArray> none;
    lower->SetSelection(none);
    SelectionNotes::note();
    EXPECT_EQ(selectedOf(roster), (Plots {upper})) << "an empty selection is none";
    upper->SetSelection(nullptr);
    SelectionNotes::note();
    EXPECT_EQ(selectedOf(roster), Plots());
    lower->SelectPoints(vtkVector2f(0, 0), vtkVector2f(10, 10));
    SelectionNotes::note();
    EXPECT_EQ(selectedOf(roster), (Plots {lower}));
    filled->RemoveItem(lower);
    EXPECT_EQ(selectedOf(roster), Plots());
}

INSTANTIATE_TEST_SUITE_P(AmongFewAndMany, PlotRosterSelection, testing::Values(1, 1000));

TEST_F(PlotRosterTest, NoticesASelectionThatChangesBehindItsPlotsBack)
{
    const vtkNew<vtkIdTypeArray> rows;
    upper->SetSelection(rows);
    ASSERT_TRUE(selectedOf(roster).empty());
    rows->InsertNextValue(0);
    EXPECT_EQ(selectedOf(roster), (std::vector<const vtkPlot*> {upper}));
}

TEST_F(PlotRosterTest, AmongManyPlotsLooksForTheirPointsOnlyWhenItIsTold)
{
    std::vector<vtkSmartPointer<PlotLine>> crowd;
    for (int i = 0; i < 300; ++i) {
        crowd.push_back(vtkSmartPointer<PlotLine>::New());
        setPoint(crowd.back(), 30, 40);
        filled->AddItem(crowd.back());
    }
    ASSERT_EQ(topmost()->plot, upper.Get());
    setPoint(crowd.back(), 3, 4);
    EXPECT_EQ(topmost()->plot, upper.Get());
    roster.pointsChanged();
    EXPECT_EQ(topmost()->plot, crowd.back().GetPointer());
}

Shape boxAround(double x, double y)
{
    Shape box;
    box.addLine({x - 1, y - 1}, {x + 1, y - 1});
    box.addLine({x + 1, y - 1}, {x + 1, y + 1});
    box.addLine({x + 1, y + 1}, {x - 1, y + 1});
    box.addLine({x - 1, y + 1}, {x - 1, y - 1});
    return box;
}

class PlotRosterShapes : public PlotRosterTest {
protected:
    PlotRosterShapes()
    {
        lower->shape = &low;
        upper->shape = &high;
    }

    /** The plots whose shapes are met at (3, 4); `change` is made at the first. */
    template <class Change> std::vector<const Plot*> met(Change change)
    {
        std::vector<const Plot*> parts;
        roster.visitShapes(0, Point(3, 4), [&](const Plot& part) {
            parts.push_back(&part);
            if (parts.size() == 1)
                change();
        });
        return parts;
    }

    using Parts = std::vector<const Plot*>;
    Shape low = boxAround(3, 4);
    Shape high = boxAround(30, 40);
};

TEST_F(PlotRosterShapes, AreMetWhereTheyMayContainThePlace)
{
    EXPECT_EQ(met([] {}), (Parts {lower}));
    high = boxAround(3, 4);
    EXPECT_EQ(met([] {}), (Parts {lower, upper}));
}

TEST_F(PlotRosterShapes, ThatAreChangedOnTheWayAreMetAsTheyAreThen)
{
    EXPECT_EQ(met([this] { high = boxAround(3, 4); }), (Parts {lower, upper}));
    EXPECT_EQ(met([this] { upper->shape = nullptr; }), (Parts {lower}));
}

TEST_F(PlotRosterShapes, ThatWereMovedAwayAreMetAnywhere)
{
    const Shape taken = std::move(high); // its outline cannot be known
    EXPECT_EQ(met([] {}), (Parts {lower, upper}));
}

} // namespace
} // namespace ovl
