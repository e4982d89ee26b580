// SPDX-License-Identifier: BSD-3-Clause
#include <support/charteventfixture.h>
#include <support/chartfixture.h>
#include <visualization/plot.h>

#include <vtkContextTransform.h>
#include <vtkPlot.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

using ovl::Plot;
using ovl::test::ChartEventFixture;
using ovl::test::ChartFixture;

namespace {

/** A chart with six plots, the last two of them in corner 2. */
class ChartXYStack : public testing::Test {
protected:
    ChartXYStack()
    {
        for (int i = 0; i < 6; ++i)
            plots.push_back(f.addPlot(0, {0.0, 1.0}, {0.0, 1.0}, i < 4 ? 0 : 2));
    }

    /** The plots of a corner by their number, from the bottom. */
    std::vector<int> order(int corner)
    {
        std::vector<int> numbers;
        for (vtkIdType i = 0; i < f.corner(corner)->GetNumberOfItems(); ++i)
            for (int number = 0; number < 6; ++number)
                if (f.corner(corner)->GetItem(i) == plots[static_cast<std::size_t>(number)])
                    numbers.push_back(number);
        return numbers;
    }

    ChartFixture f;
    std::vector<vtkPlot*> plots;
};

TEST_F(ChartXYStack, LowersEachInTurnSoThatTheLastIsLowest)
{
    f.chart->LowerPlots({plots[1], plots[3]});
    EXPECT_EQ(order(0), (std::vector<int> {3, 1, 0, 2}));
    EXPECT_EQ(order(2), (std::vector<int> {4, 5}));
    for (vtkPlot* plot : {plots[2], plots[0]})
        f.chart->LowerPlot(plot);
    EXPECT_EQ(order(0), (std::vector<int> {0, 2, 3, 1}));
}

TEST_F(ChartXYStack, LowersInEveryCornerAndPassesOverNull)
{
    f.chart->LowerPlots({plots[2], nullptr, plots[5]});
    EXPECT_EQ(order(0), (std::vector<int> {2, 0, 1, 3}));
    EXPECT_EQ(order(2), (std::vector<int> {5, 4}));
    f.chart->LowerPlots({});
    EXPECT_EQ(order(0), (std::vector<int> {2, 0, 1, 3}));
}

TEST_F(ChartXYStack, LoweredPlotsKeepTheirPlaceInTheChart)
{
    f.chart->LowerPlots({plots[1], plots[3]});
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(f.chart->GetPlot(i), plots[static_cast<std::size_t>(i)]);
    EXPECT_EQ(plots[3]->GetParent(), f.corner(0));
    EXPECT_EQ(plots[3]->GetScene(), f.chart->GetScene());
    EXPECT_EQ(f.chart->GetPlotCorner(plots[3]), 0);
    f.render();
}

TEST_F(ChartXYStack, RemovesSeveralAndKeepsTheOrderOfTheOthers)
{
    f.chart->RemovePlots({plots[3], nullptr, plots[0], plots[4]});
    ASSERT_EQ(f.chart->GetNumberOfPlots(), 3);
    EXPECT_EQ(f.chart->GetPlot(0), plots[1]);
    EXPECT_EQ(f.chart->GetPlot(1), plots[2]);
    EXPECT_EQ(f.chart->GetPlot(2), plots[5]);
    EXPECT_EQ(order(0), (std::vector<int> {1, 2}));
    EXPECT_EQ(order(2), (std::vector<int> {5}));
    f.render();
}

TEST_F(ChartXYStack, ARemovedPlotIsReleased)
{
    const vtkSmartPointer<vtkPlot> kept = plots[1];
    const int before = kept->GetReferenceCount();
    f.chart->RemovePlots({plots[1]});
    EXPECT_EQ(kept->GetReferenceCount(), before - 2); // the chart's and the corner's
    EXPECT_EQ(kept->GetParent(), nullptr);
    EXPECT_EQ(kept->GetScene(), nullptr);
    f.chart->RemovePlots({plots[1]}); // a stranger by now
    EXPECT_EQ(f.chart->GetNumberOfPlots(), 5);
}

TEST_F(ChartXYStack, ForgetsTheSiblingsOfThoseThatGo)
{
    Plot* kept = dynamic_cast<Plot*>(plots[0]);
    Plot* other = dynamic_cast<Plot*>(plots[1]);
    kept->sibling = plots[2];
    other->sibling = plots[5];
    f.chart->RemovePlots({plots[2]});
    EXPECT_EQ(kept->sibling, nullptr);
    EXPECT_EQ(other->sibling, plots[5]);
}

// Events after a change. Under AddressSanitizer they also tell of plots that have gone.

/** A chart whose plots all have a point at (100, 75). */
class ChartXYStackEvents : public testing::Test, public ChartEventFixture {
protected:
    vtkPlot* add(const char* label, int corner = 0)
    {
        vtkPlot* plot = addPlot(vtkChart::POINTS, {100.0}, {75.0}, corner);
        plot->SetLabel(label);
        plot->SetTooltipLabelFormat("%l");
        return plot;
    }

    /** What the mouse finds there: the label of the topmost plot. */
    std::string found()
    {
        render();
        move(100, 75);
        return tooltipShown() ? tooltip() : "nothing";
    }
};

TEST_F(ChartXYStackEvents, FindWhatHasComeGoneOrMoved)
{
    EXPECT_EQ(found(), "nothing");
    vtkPlot* a = add("a");
    EXPECT_EQ(found(), "a");
    vtkPlot* b = add("b");
    vtkPlot* c = add("c");
    EXPECT_EQ(found(), "c");
    chart->StackPlotUnder(c, a); // c a b
    EXPECT_EQ(found(), "b");
    chart->LowerPlot(b); // b c a
    EXPECT_EQ(found(), "a");
    chart->StackPlotAbove(a, b); // b a c
    EXPECT_EQ(found(), "c");
    chart->LowerPlots({c}); // c b a
    EXPECT_EQ(found(), "a");
    chart->SetPlotCorner(a, 1); // c b, and a behind them
    EXPECT_EQ(found(), "b");
    chart->RemovePlotInstance(b);
    EXPECT_EQ(found(), "c");
    chart->RemovePlots({c});
    EXPECT_EQ(found(), "a");
    chart->ClearPlots();
    EXPECT_EQ(found(), "nothing");
    add("d");
    EXPECT_EQ(found(), "d");
}

TEST_F(ChartXYStackEvents, SurviveWhatIsDoneBehindTheChartsBack)
{
    vtkPlot* a = add("a");
    vtkPlot* b = add("b");
    EXPECT_EQ(found(), "b");
    corner(0)->Lower(1);
    EXPECT_EQ(found(), "a");
    corner(0)->RemoveItem(a);
    EXPECT_EQ(found(), "b");
    corner(0)->AddItem(a);
    EXPECT_EQ(found(), "a");
    corner(0)->RemoveItem(b);
    EXPECT_TRUE(chart->RemovePlotInstance(b));
    EXPECT_EQ(found(), "a");
    chart->AddPlot(a); // a second time
    EXPECT_TRUE(chart->RemovePlot(0));
    EXPECT_EQ(found(), "nothing") << "its axes tell that it is in the corner already";
    EXPECT_TRUE(chart->RemovePlot(0));
    EXPECT_EQ(found(), "nothing");
}

} // namespace
