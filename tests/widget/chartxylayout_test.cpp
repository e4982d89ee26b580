// SPDX-License-Identifier: BSD-3-Clause
#include <support/chartfixture.h>
#include <support/probechart.h>

#include <vtkAxis.h>
#include <vtkChartLegend.h>
#include <vtkContext2D.h>
#include <vtkContextScene.h>
#include <vtkContextTransform.h>
#include <vtkPlotBar.h>
#include <vtkRenderWindow.h>
#include <vtkTextProperty.h>
#include <vtkTransform2D.h>

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <string>

namespace ovl::test {
namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 300;
constexpr int kCornerAxes[4][2]
    = {{vtkAxis::BOTTOM, vtkAxis::LEFT}, {vtkAxis::BOTTOM, vtkAxis::RIGHT},
        {vtkAxis::TOP, vtkAxis::RIGHT}, {vtkAxis::TOP, vtkAxis::LEFT}};

using Sides = std::array<int, 4>; ///< left, bottom, right, top

class ChartXYLayout : public testing::Test {
protected:
    ChartXYLayout()
    {
        chart->measure = [this](vtkContext2D* painter) { measure(painter); };
    }

    /** What the chart should make of the axes, measured on its own. */
    void measure(vtkContext2D* painter)
    {
        for (std::size_t i = 0; i < 4; ++i) {
            vtkAxis* axis = chart->GetAxis(static_cast<int>(i));
            const vtkRectf rect = axis->GetBoundingRect(painter);
            axisSizes[i] = static_cast<int>(i % 2 == 0 ? rect.GetWidth() : rect.GetHeight());
            legendBorders[i] = chart->GetLegendBorder(painter, static_cast<int>(i));
        }
        legendSize = chart->GetLegend()->GetBoundingRect(painter);
        float bounds[4] = {0, 0, 0, 0};
        painter->ApplyTextProp(chart->GetTitleProperties());
        painter->ComputeStringBounds(chart->GetTitle(), bounds);
        titleHeight = bounds[3];
    }

    /** The margins in a chart that fills its widget. */
    Sides margins()
    {
        return {chart->GetPoint1()[0], chart->GetPoint1()[1], kWidth - chart->GetPoint2()[0],
            kHeight - chart->GetPoint2()[1]};
    }

    std::array<float, 4> ends(int axis)
    {
        const vtkVector2f first = chart->GetAxis(axis)->GetPosition1();
        const vtkVector2f second = chart->GetAxis(axis)->GetPosition2();
        return {first.GetX(), first.GetY(), second.GetX(), second.GetY()};
    }

    /** A plot in each of the four corners, which shows all axes. */
    void fillAllCorners()
    {
        for (int corner = 0; corner < 4; ++corner)
            fixture.addPlot(vtkChart::LINE, {0, 10}, {0, 10}, corner);
    }

    vtkSmartPointer<ProbeChart> chart = vtkSmartPointer<ProbeChart>::New();
    ChartFixture fixture {{kWidth, kHeight}, chart};
    Sides axisSizes {};
    Sides legendBorders {};
    vtkRectf legendSize;
    float titleHeight = 0;
};

// Margins and axes

TEST_F(ChartXYLayout, GivesHiddenAxesTheirLeastBorder)
{
    chart->SetRenderEmpty(true);
    for (const int border : {20, 35, 0}) {
        chart->SetHiddenAxisBorder(border);
        fixture.render();
        EXPECT_EQ(margins(), Sides({border, border, border, border}));
    }
}

TEST_F(ChartXYLayout, GivesVisibleAxesTheRoomTheyNeed)
{
    fillAllCorners();
    chart->SetHiddenAxisBorder(0);
    chart->GetAxis(vtkAxis::RIGHT)->SetTitle("Right");
    fixture.render();
    for (const int size : axisSizes)
        EXPECT_GT(size, 0);
    EXPECT_EQ(margins(), axisSizes);
}

TEST_F(ChartXYLayout, GivesVisibleAxesTheLeastBorderWhenTheyNeedLess)
{
    fillAllCorners();
    chart->SetHiddenAxisBorder(90);
    fixture.render();
    EXPECT_EQ(margins(), Sides({90, 90, 90, 90}));
}

TEST_F(ChartXYLayout, MultipliesTheLeastBorderByTheTileScale)
{
    chart->SetRenderEmpty(true);
    fixture.window()->SetTileScale(2, 3);
    fixture.render();
    EXPECT_EQ(chart->GetPoint1()[0], 40);
    EXPECT_EQ(chart->GetPoint1()[1], 60);
}

TEST_F(ChartXYLayout, AddsTheTitleToTheTopMargin)
{
    fillAllCorners();
    chart->SetTitle("Chart");
    chart->GetTitleProperties()->SetFontSize(40);
    fixture.render();
    ASSERT_GT(titleHeight, 20);
    EXPECT_EQ(margins()[3],
        static_cast<int>(5.0 + static_cast<double>(titleHeight) + axisSizes[vtkAxis::TOP]));
    chart->GetAxis(vtkAxis::TOP)->SetVisible(false);
    chart->AutoAxesOff();
    fixture.render();
    EXPECT_EQ(margins()[3], static_cast<int>(5.0 + static_cast<double>(titleHeight)));
}

TEST_F(ChartXYLayout, PaysNoMarginForAnEmptyTitle)
{
    chart->SetRenderEmpty(true);
    chart->SetHiddenAxisBorder(0);
    chart->SetTitle("");
    fixture.render();
    EXPECT_EQ(titleHeight, 0);
    EXPECT_EQ(margins()[3], 0);
}

TEST_F(ChartXYLayout, AnswersWhetherAMarginChanged)
{
    chart->SetRenderEmpty(true);
    fixture.render();
    EXPECT_EQ(chart->layouts, std::vector<bool>({true, false})); // 60, 50, 20, 20 at first
    fixture.render();
    EXPECT_EQ(chart->layouts, std::vector<bool>({true, false, false, false}));
    chart->SetHiddenAxisBorder(21);
    fixture.render();
    EXPECT_EQ(chart->layouts, std::vector<bool>({true, false, false, false, true, false}));
}

TEST_F(ChartXYLayout, PutsTheAxesOnTheEdgesOfThePlotArea)
{
    fillAllCorners();
    fixture.render();
    const auto left = static_cast<float>(chart->GetPoint1()[0]);
    const auto bottom = static_cast<float>(chart->GetPoint1()[1]);
    const auto right = static_cast<float>(chart->GetPoint2()[0]);
    const auto top = static_cast<float>(chart->GetPoint2()[1]);
    using Ends = std::array<float, 4>;
    EXPECT_EQ(ends(vtkAxis::LEFT), Ends({left, bottom, left, top}));
    EXPECT_EQ(ends(vtkAxis::BOTTOM), Ends({left, bottom, right, bottom}));
    EXPECT_EQ(ends(vtkAxis::RIGHT), Ends({right, bottom, right, top}));
    EXPECT_EQ(ends(vtkAxis::TOP), Ends({left, top, right, top}));
}

TEST_F(ChartXYLayout, KeepsToItsRectangleWhenItDoesNotFillTheScene)
{
    chart->SetRenderEmpty(true);
    chart->SetLayoutStrategy(vtkChart::FILL_RECT);
    chart->SetSize(vtkRectf(50, 40, 200, 150));
    fixture.render();
    EXPECT_EQ(chart->GetPoint1()[0], 50 + 20);
    EXPECT_EQ(chart->GetPoint1()[1], 40 + 20);
    EXPECT_EQ(chart->GetPoint2()[0], 50 + 200 - 20);
    EXPECT_EQ(chart->GetPoint2()[1], 40 + 150 - 20);
}

TEST_F(ChartXYLayout, PutsTheAxesOnTheRectangleWithoutMarginsWhenAsked)
{
    fillAllCorners();
    chart->SetLayoutStrategy(vtkChart::AXES_TO_RECT);
    chart->SetSize(vtkRectf(50, 40, 200, 150));
    fixture.render();
    EXPECT_EQ(chart->layouts, std::vector<bool>({false, false}));
    EXPECT_EQ(ends(vtkAxis::LEFT), (std::array<float, 4> {50, 40, 50, 190}));
    EXPECT_EQ(ends(vtkAxis::TOP), (std::array<float, 4> {50, 190, 250, 190}));
}

// Axes through the origin

struct OriginCase {
    double minimum;
    double maximum;
    double place; ///< of the origin, from 0 (left or bottom edge) to 1
};

void PrintTo(const OriginCase& range, std::ostream* out)
{
    *out << range.minimum << " to " << range.maximum;
}

class AxesAtOrigin : public ChartXYLayout, public testing::WithParamInterface<OriginCase> { };

TEST_P(AxesAtOrigin, GoThroughTheOriginOrTheNearestEdge)
{
    const OriginCase& range = GetParam();
    fixture.addPlot(vtkChart::LINE, {range.minimum, range.maximum}, {range.minimum, range.maximum});
    fixture.fixAxis(vtkAxis::LEFT, range.minimum, range.maximum);
    fixture.fixAxis(vtkAxis::BOTTOM, range.minimum, range.maximum);
    chart->DrawAxesAtOriginOn();
    fixture.render();
    fixture.render(); // the first one still had the transform of no plot area
    EXPECT_EQ(margins(), Sides({20, 20, 20, 20}));
    const auto x = static_cast<float>(20 + range.place * (kWidth - 40));
    const auto y = static_cast<float>(20 + range.place * (kHeight - 40));
    const std::array<float, 4> bottom = ends(vtkAxis::BOTTOM);
    EXPECT_EQ(bottom[0], 20);
    EXPECT_NEAR(bottom[1], y, 1e-3);
    EXPECT_EQ(bottom[2], kWidth - 20);
    EXPECT_NEAR(bottom[3], y, 1e-3);
    const std::array<float, 4> left = ends(vtkAxis::LEFT);
    EXPECT_NEAR(left[0], x, 1e-3);
    EXPECT_EQ(left[1], 20);
    EXPECT_NEAR(left[2], x, 1e-3);
    EXPECT_EQ(left[3], kHeight - 20);
}

INSTANTIATE_TEST_SUITE_P(Ranges, AxesAtOrigin,
    testing::Values(OriginCase {-10, 10, 0.5}, OriginCase {-2, 6, 0.25}, OriginCase {5, 10, 0},
        OriginCase {-10, -5, 1}));

TEST_F(ChartXYLayout, LeavesRightAndTopAxesWhereTheyWereWhenTheOthersGoThroughTheOrigin)
{
    fillAllCorners();
    fixture.render();
    const std::array<float, 4> right = ends(vtkAxis::RIGHT);
    const std::array<float, 4> top = ends(vtkAxis::TOP);
    chart->DrawAxesAtOriginOn();
    fixture.render();
    EXPECT_EQ(ends(vtkAxis::RIGHT), right);
    EXPECT_EQ(ends(vtkAxis::TOP), top);
    EXPECT_EQ(margins()[0], 20) << "left and bottom have no margin of their own then";
    EXPECT_EQ(margins()[1], 20);
    EXPECT_EQ(margins()[2], axisSizes[vtkAxis::RIGHT]);
}

// Which axes are shown

TEST_F(ChartXYLayout, ShowsTheAxesOfCornersWithVisiblePlots)
{
    constexpr bool shown[4][4] = {{true, true, false, false}, {false, true, true, false},
        {false, false, true, true}, {true, false, false, true}}; // left, bottom, right, top
    vtkPlot* plot = fixture.addPlot(vtkChart::LINE, {0, 10}, {0, 10});
    for (int corner = 0; corner < 4; ++corner) {
        SCOPED_TRACE(corner);
        chart->SetPlotCorner(plot, corner);
        chart->Update();
        for (int axis = 0; axis < 4; ++axis)
            EXPECT_EQ(chart->GetAxis(axis)->GetVisible(), shown[corner][axis]) << axis;
    }
}

TEST_F(ChartXYLayout, HidesAllAxesWithoutAVisiblePlot)
{
    fillAllCorners();
    for (int i = 0; i < 4; ++i)
        chart->GetPlot(i)->SetVisible(i == 3);
    chart->Update();
    EXPECT_TRUE(chart->GetAxis(vtkAxis::LEFT)->GetVisible());
    EXPECT_FALSE(chart->GetAxis(vtkAxis::BOTTOM)->GetVisible());
    chart->GetPlot(3)->SetVisible(false);
    chart->Update();
    for (int axis = 0; axis < 4; ++axis)
        EXPECT_FALSE(chart->GetAxis(axis)->GetVisible());
}

TEST_F(ChartXYLayout, LeavesTheAxesToTheirOwnerWhenAutoAxesIsOff)
{
    chart->AutoAxesOff();
    chart->GetAxis(vtkAxis::TOP)->SetVisible(true);
    chart->Update();
    EXPECT_TRUE(chart->GetAxis(vtkAxis::LEFT)->GetVisible());
    EXPECT_TRUE(chart->GetAxis(vtkAxis::TOP)->GetVisible());
    EXPECT_FALSE(chart->GetAxis(vtkAxis::RIGHT)->GetVisible());
}

// Bars

class ChartXYBars : public ChartXYLayout {
protected:
    vtkPlotBar* addBar(const std::vector<double>& x)
    {
        return vtkPlotBar::SafeDownCast(fixture.addPlot(vtkChart::BAR, x, x));
    }
    vtkPlotBar* addIndexBar()
    {
        vtkPlotBar* bar = addBar({10, 30, 50});
        bar->SetUseIndexForXSeries(true);
        return bar;
    }
};

TEST_F(ChartXYBars, ShareTheStepOfAnIndex)
{
    vtkPlotBar* first = addIndexBar();
    vtkPlotBar* second = addIndexBar();
    chart->Update();
    EXPECT_EQ(first->GetWidth(), 0.4F);
    EXPECT_EQ(second->GetWidth(), 0.4F);
    EXPECT_EQ(first->GetOffset(), 0.2F);
    EXPECT_EQ(second->GetOffset(), -0.2F);
}

TEST_F(ChartXYBars, FillTheirFractionOfTheFirstStep)
{
    vtkPlotBar* bar = addBar({10, 30});
    chart->Update();
    EXPECT_EQ(bar->GetWidth(), 16.0F);
    EXPECT_EQ(bar->GetOffset(), 0.0F);
    chart->SetBarWidthFraction(0.5F);
    chart->Update();
    EXPECT_EQ(bar->GetWidth(), 10.0F);
}

TEST_F(ChartXYBars, FillTheSameOfADescendingStep)
{
    vtkPlotBar* bar = addBar({30, 10, 5});
    chart->Update();
    EXPECT_EQ(bar->GetWidth(), 16.0F);
}

TEST_F(ChartXYBars, StandSideBySideAroundTheirValue)
{
    vtkPlotBar* bars[] = {addBar({0, 30}), addBar({0, 30}), addBar({0, 30})};
    chart->Update();
    const float offsets[] = {8.0F, 0.0F, -8.0F}; // 2, 0 and -2 half widths
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(bars[i]->GetWidth(), 8.0F);
        EXPECT_EQ(bars[i]->GetOffset(), offsets[i]);
    }
}

TEST_F(ChartXYBars, KeepTheirDefaultWidthWithoutAStep)
{
    vtkPlotBar* bar = addBar({10});
    chart->Update();
    EXPECT_EQ(bar->GetWidth(), 0.1F);
    EXPECT_EQ(bar->GetOffset(), 0.0F);
}

TEST_F(ChartXYBars, KeepTheirDefaultWidthWithoutInput)
{
    auto* bar = vtkPlotBar::SafeDownCast(chart->AddPlot(vtkChart::BAR));
    bar->SetWidth(3);
    chart->Update();
    EXPECT_EQ(bar->GetWidth(), 0.1F);
}

TEST_F(ChartXYBars, DoNotCountWhenHiddenAndTakeTheStepOfTheFirstVisible)
{
    vtkPlotBar* hidden = addBar({0, 1000});
    vtkPlotBar* first = addBar({0, 30});
    vtkPlotBar* second = addBar({0, 7});
    hidden->SetVisible(false);
    hidden->SetWidth(5);
    hidden->SetOffset(6);
    fixture.addPlot(vtkChart::LINE, {0, 50}, {0, 50});
    chart->Update();
    EXPECT_EQ(first->GetWidth(), 12.0F);
    EXPECT_EQ(second->GetWidth(), 12.0F);
    EXPECT_EQ(first->GetOffset(), 6.0F);
    EXPECT_EQ(second->GetOffset(), -6.0F);
    EXPECT_EQ(hidden->GetWidth(), 5.0F);
    EXPECT_EQ(hidden->GetOffset(), 6.0F);
}

// Bounds

class ChartXYBounds : public ChartXYLayout {
protected:
    /** The bounds that the plots put on an axis, read back from its limits. */
    std::pair<double, double> limits(int axis)
    {
        return {chart->GetAxis(axis)->GetMinimumLimit(), chart->GetAxis(axis)->GetMaximumLimit()};
    }
    using Limits = std::pair<double, double>;
};

TEST_F(ChartXYBounds, GoFromEachCornerToItsTwoAxes)
{
    for (int corner = 0; corner < 4; ++corner) {
        SCOPED_TRACE(corner);
        chart->ClearPlots();
        for (int axis = 0; axis < 4; ++axis)
            fixture.fixAxis(axis, 1, 1.5);
        fixture.addPlot(vtkChart::LINE, {1, 2}, {-3, 4}, corner);
        chart->ForceAxesToBoundsOn();
        fixture.render();
        for (int axis = 0; axis < 4; ++axis) {
            const bool x = axis == kCornerAxes[corner][0];
            const bool y = axis == kCornerAxes[corner][1];
            EXPECT_EQ(limits(axis), x ? Limits(1, 2) : y ? Limits(-3, 4) : Limits(0, 0)) << axis;
        }
    }
}

TEST_F(ChartXYBounds, AreWidenedByEveryVisiblePlot)
{
    for (int axis = 0; axis < 4; ++axis)
        fixture.fixAxis(axis, 1, 2);
    fixture.addPlot(vtkChart::LINE, {1, 2}, {-3, 4}, 0);
    fixture.addPlot(vtkChart::LINE, {-1, 1.5}, {0, 1}, 0);
    fixture.addPlot(vtkChart::LINE, {1.5, 9}, {20, 30}, 1); // bottom axis shared
    fixture.addPlot(vtkChart::LINE, {-100, 100}, {-100, 100}, 0)->SetVisible(false);
    chart->ForceAxesToBoundsOn();
    fixture.render();
    EXPECT_EQ(limits(vtkAxis::LEFT), Limits(-3, 4));
    EXPECT_EQ(limits(vtkAxis::BOTTOM), Limits(-1, 9));
    EXPECT_EQ(limits(vtkAxis::RIGHT), Limits(20, 30));
    EXPECT_EQ(limits(vtkAxis::TOP), Limits(0, 0));
}

TEST_F(ChartXYBounds, AreNotWidenedByPlotsWithoutPoints)
{
    for (int axis = 0; axis < 4; ++axis)
        fixture.fixAxis(axis, 1, 2);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    fixture.addPlot(vtkChart::LINE, {5, 6}, {7, 8});
    chart->AddPlot(vtkChart::LINE);
    chart->AddPlot(vtkChart::POINTS);
    fixture.addPlot(vtkChart::POINTS, {-50, 50}, {nan, nan});
    chart->ForceAxesToBoundsOn();
    fixture.render();
    EXPECT_EQ(limits(vtkAxis::BOTTOM), Limits(5, 6));
    EXPECT_EQ(limits(vtkAxis::LEFT), Limits(7, 8));
}

TEST_F(ChartXYBounds, StartAnewForEachPlotThatOnlyWidens)
{
    for (int axis = 0; axis < 4; ++axis)
        fixture.fixAxis(axis, 1, 2);
    fixture.addPlot(vtkChart::LINE, {-50, 50}, {-50, 50}, 2);
    fixture.addPlot(vtkChart::STACKED, {5, 6}, {7, 8}, 0);
    chart->ForceAxesToBoundsOn();
    fixture.render();
    EXPECT_EQ(limits(vtkAxis::BOTTOM), Limits(5, 6)) << "nothing of the plot before";
    EXPECT_EQ(limits(vtkAxis::TOP), Limits(-50, 50));
}

TEST_F(ChartXYBounds, AreTheRangeOfAxesThatScaleThemselves)
{
    fixture.addPlot(vtkChart::LINE, {0, 10}, {-20, 20});
    fixture.addPlot(vtkChart::LINE, {0, 10}, {-20, 20}, 2);
    fixture.fixAxis(vtkAxis::RIGHT, 1, 2);
    fixture.render();
    EXPECT_LE(chart->GetAxis(vtkAxis::BOTTOM)->GetMinimum(), 0);
    EXPECT_GE(chart->GetAxis(vtkAxis::BOTTOM)->GetMaximum(), 10);
    EXPECT_LT(chart->GetAxis(vtkAxis::BOTTOM)->GetMaximum(), 15);
    EXPECT_LE(chart->GetAxis(vtkAxis::LEFT)->GetMinimum(), -20);
    EXPECT_GE(chart->GetAxis(vtkAxis::LEFT)->GetMaximum(), 20);
    EXPECT_EQ(chart->GetAxis(vtkAxis::RIGHT)->GetMinimum(), 1) << "a fixed axis keeps its range";
    EXPECT_EQ(chart->GetAxis(vtkAxis::RIGHT)->GetMaximum(), 2);
    EXPECT_GE(chart->GetAxis(vtkAxis::TOP)->GetMaximum(), 10);
}

TEST_F(ChartXYBounds, OfHiddenPlotsLeaveAxesAsTheyWere)
{
    chart->GetAxis(vtkAxis::LEFT)->SetRange(3, 4);
    chart->GetAxis(vtkAxis::BOTTOM)->SetRange(5, 6);
    fixture.addPlot(vtkChart::LINE, {0, 10}, {-20, 20})->SetVisible(false);
    chart->SetRenderEmpty(true);
    fixture.render();
    EXPECT_TRUE(chart->PlotTransformValid);
    EXPECT_EQ(chart->GetAxis(vtkAxis::LEFT)->GetMinimum(), 3);
    EXPECT_EQ(chart->GetAxis(vtkAxis::LEFT)->GetMaximum(), 4);
    EXPECT_EQ(chart->GetAxis(vtkAxis::BOTTOM)->GetMinimum(), 5);
    EXPECT_EQ(chart->GetAxis(vtkAxis::BOTTOM)->GetMaximum(), 6);
}

TEST_F(ChartXYBounds, AreOnlyTakenAnewWhenAsked)
{
    vtkPlot* plot = fixture.addPlot(vtkChart::LINE, {0, 10}, {0, 10});
    fixture.render();
    const double before = chart->GetAxis(vtkAxis::BOTTOM)->GetMaximum();
    plot->SetInputData(makeTable({{0, 100}, {0, 10}}), 0, 1);
    fixture.render();
    EXPECT_EQ(chart->GetAxis(vtkAxis::BOTTOM)->GetMaximum(), before);
    chart->RecalculateBounds();
    fixture.render();
    EXPECT_GE(chart->GetAxis(vtkAxis::BOTTOM)->GetMaximum(), 100);
}

struct LogCase {
    double dataMinimum, dataMaximum;
    double minimum, maximum;
};

void PrintTo(const LogCase& data, std::ostream* out)
{
    *out << data.dataMinimum << " to " << data.dataMaximum;
}

class LogBounds : public ChartXYBounds, public testing::WithParamInterface<LogCase> { };

TEST_P(LogBounds, AreMadePositive)
{
    const LogCase& bounds = GetParam();
    // A range round 0 keeps the axis linear, although it asks for a log scale.
    fixture.fixAxis(vtkAxis::LEFT, -1, 1e6);
    fixture.fixAxis(vtkAxis::BOTTOM, -1, 1);
    chart->GetAxis(vtkAxis::LEFT)->SetLogScale(true);
    ASSERT_FALSE(chart->GetAxis(vtkAxis::LEFT)->GetLogScaleActive());
    fixture.addPlot(vtkChart::LINE, {-5, 5}, {bounds.dataMinimum, bounds.dataMaximum});
    chart->AdjustLowerBoundForLogPlotOn();
    chart->ForceAxesToBoundsOn();
    fixture.render();
    // The limits have made the range positive and thus turned the axis to its log scale.
    EXPECT_DOUBLE_EQ(chart->GetAxis(vtkAxis::LEFT)->GetUnscaledMinimumLimit(), bounds.minimum);
    EXPECT_DOUBLE_EQ(chart->GetAxis(vtkAxis::LEFT)->GetUnscaledMaximumLimit(), bounds.maximum);
    EXPECT_EQ(limits(vtkAxis::BOTTOM), Limits(-5, 5)) << "not asked for a log scale";
}

INSTANTIATE_TEST_SUITE_P(Data, LogBounds,
    testing::Values(LogCase {0, 100, 0.01, 100}, LogCase {-5, 20000, 1, 20000},
        LogCase {-5, -1, 0.0001, 1}, LogCase {0, 10000, 1, 10000}, LogCase {2, 100, 2, 100}));

// Transforms

TEST_F(ChartXYLayout, MapsEachCornersAxesOntoThePlotArea)
{
    fillAllCorners();
    fixture.fixAxis(vtkAxis::LEFT, -1, 1);
    fixture.fixAxis(vtkAxis::BOTTOM, 0, 10);
    fixture.fixAxis(vtkAxis::RIGHT, 5, 25);
    fixture.fixAxis(vtkAxis::TOP, -8, -4);
    fixture.render();
    for (int corner = 0; corner < 4; ++corner) {
        SCOPED_TRACE(corner);
        vtkAxis* x = chart->GetAxis(kCornerAxes[corner][0]);
        vtkAxis* y = chart->GetAxis(kCornerAxes[corner][1]);
        const double data[4] = {x->GetMinimum(), y->GetMinimum(), x->GetMaximum(), y->GetMaximum()};
        double mapped[4] = {0, 0, 0, 0};
        fixture.corner(corner)->GetTransform()->TransformPoints(data, mapped, 2);
        EXPECT_NEAR(mapped[0], chart->GetPoint1()[0], 1e-3);
        EXPECT_NEAR(mapped[1], chart->GetPoint1()[1], 1e-3);
        EXPECT_NEAR(mapped[2], chart->GetPoint2()[0], 1e-3);
        EXPECT_NEAR(mapped[3], chart->GetPoint2()[1], 1e-3);
    }
}

TEST_F(ChartXYLayout, LeavesTheTransformOfAnEmptyCornerAlone)
{
    fixture.addPlot(vtkChart::LINE, {0, 10}, {0, 10}, 3);
    fixture.corner(1)->Translate(7, 9);
    fixture.render();
    float place[2] = {0, 0};
    fixture.corner(1)->GetTransform()->TransformPoints(place, place, 1);
    EXPECT_EQ(place[0], 7);
    EXPECT_EQ(place[1], 9);
}

TEST_F(ChartXYLayout, GivesThePlotsTheShiftAndScaleOfTheirAxes)
{
    vtkPlot* plot = fixture.addPlot(vtkChart::LINE, {10000, 10010}, {0, 1e-6});
    fixture.fixAxis(vtkAxis::BOTTOM, 10000, 10010);
    fixture.fixAxis(vtkAxis::LEFT, 0, 1e-6);
    fixture.render();
    vtkAxis* x = chart->GetAxis(vtkAxis::BOTTOM);
    vtkAxis* y = chart->GetAxis(vtkAxis::LEFT);
    EXPECT_EQ(x->GetShift(), -10000);
    const vtkRectd given = plot->GetShiftScale();
    EXPECT_EQ(given.GetX(), x->GetShift());
    EXPECT_EQ(given.GetY(), y->GetShift());
    EXPECT_EQ(given.GetWidth(), x->GetScalingFactor());
    EXPECT_EQ(given.GetHeight(), y->GetScalingFactor());
}

TEST_F(ChartXYLayout, TouchesNoPlotWhenOnlyRangesChange)
{
    vtkPlot* plot = fixture.addPlot(vtkChart::LINE, {0, 10}, {0, 10});
    fixture.fixAxis(vtkAxis::LEFT, 0, 10);
    fixture.fixAxis(vtkAxis::BOTTOM, 0, 10);
    fixture.render();
    const vtkMTimeType plotTime = plot->GetMTime();
    const vtkMTimeType tableTime = plot->GetInput()->GetMTime();
    fixture.fixAxis(vtkAxis::LEFT, 1, 11);
    fixture.fixAxis(vtkAxis::BOTTOM, 2, 12);
    fixture.render();
    const QPointF origin = fixture.position(2, 1);
    EXPECT_NEAR(origin.x(), chart->GetPoint1()[0], 1e-3) << "the transform followed";
    EXPECT_NEAR(origin.y(), kHeight - 1 - chart->GetPoint1()[1], 1e-3);
    EXPECT_EQ(plot->GetMTime(), plotTime) << "points are sorted again after this";
    EXPECT_EQ(plot->GetInput()->GetMTime(), tableTime);
}

TEST_F(ChartXYLayout, OnlyTheLeftAxisAsksForNewTransforms)
{
    fixture.addPlot(vtkChart::LINE, {0, 10}, {0, 10});
    fixture.fixAxis(vtkAxis::LEFT, 0, 10);
    fixture.fixAxis(vtkAxis::BOTTOM, 0, 10);
    fixture.render();
    fixture.render();
    chart->Modified(); // younger than any axis
    const double before = fixture.position(5, 5).x();
    fixture.fixAxis(vtkAxis::BOTTOM, 5, 15);
    fixture.render();
    EXPECT_EQ(fixture.position(5, 5).x(), before) << "another axis is not looked at";
    chart->GetAxis(vtkAxis::LEFT)->Modified();
    fixture.render();
    EXPECT_NEAR(fixture.position(5, 5).x(), chart->GetPoint1()[0], 1e-3);
}

TEST_F(ChartXYLayout, NewBoundsMarkTheChartModified)
{
    fixture.addPlot(vtkChart::LINE, {0, 10}, {0, 10});
    fixture.render();
    fixture.render();
    const vtkMTimeType before = chart->GetMTime();
    fixture.render();
    EXPECT_EQ(chart->GetMTime(), before) << "a paint alone does not";
    chart->RecalculateBounds();
    EXPECT_EQ(chart->GetMTime(), before);
    fixture.render();
    EXPECT_GT(chart->GetMTime(), before);
}

// Legend

class ChartXYLegend : public ChartXYLayout {
protected:
    ChartXYLegend()
    {
        fillAllCorners();
        chart->SetShowLegend(true);
    }

    void align(bool isInline, int horizontal, int vertical)
    {
        legend->SetInline(isInline);
        legend->SetHorizontalAlignment(horizontal);
        legend->SetVerticalAlignment(vertical);
    }

    vtkChartLegend* legend = chart->GetLegend();
};

TEST_F(ChartXYLegend, PaysForTheSideItStandsBeside)
{
    using L = vtkChartLegend;
    struct {
        int horizontal, vertical, payingSide;
    } const cases[] = {
        {L::LEFT, L::TOP, vtkAxis::LEFT},
        {L::LEFT, L::CENTER, vtkAxis::LEFT},
        {L::LEFT, L::BOTTOM, vtkAxis::LEFT},
        {L::RIGHT, L::TOP, vtkAxis::RIGHT},
        {L::RIGHT, L::CENTER, vtkAxis::RIGHT},
        {L::RIGHT, L::BOTTOM, vtkAxis::RIGHT},
        {L::CENTER, L::TOP, vtkAxis::TOP},
        {L::CENTER, L::BOTTOM, vtkAxis::BOTTOM},
        {L::CENTER, L::CENTER, -1},
        {L::CUSTOM, L::TOP, vtkAxis::TOP},
        {L::CUSTOM, L::CUSTOM, -1},
    };
    for (const auto& place : cases) {
        SCOPED_TRACE(std::to_string(place.horizontal) + ", " + std::to_string(place.vertical));
        align(false, place.horizontal, place.vertical);
        fixture.render();
        for (int side = 0; side < 4; ++side) {
            const auto size
                = static_cast<int>(side % 2 == 0 ? legendSize.GetWidth() : legendSize.GetHeight());
            const int expected = side == place.payingSide ? size + 10 : 0;
            const auto index = static_cast<std::size_t>(side);
            EXPECT_EQ(legendBorders[index], expected) << side;
            EXPECT_EQ(margins()[index], std::max(axisSizes[index] + expected, 20)) << side;
        }
    }
}

TEST_F(ChartXYLegend, PaysNothingWhenItIsInlineOrHidden)
{
    align(true, vtkChartLegend::LEFT, vtkChartLegend::TOP);
    fixture.render();
    EXPECT_EQ(legendBorders, Sides({0, 0, 0, 0}));
    align(false, vtkChartLegend::LEFT, vtkChartLegend::TOP);
    chart->SetShowLegend(false);
    fixture.render();
    EXPECT_EQ(legendBorders, Sides({0, 0, 0, 0}));
}

TEST_F(ChartXYLegend, PaysMarginsMultipliedByTheTileScale)
{
    fixture.window()->SetTileScale(2, 3);
    align(false, vtkChartLegend::LEFT, vtkChartLegend::TOP);
    fixture.render();
    EXPECT_EQ(legendBorders[vtkAxis::LEFT], static_cast<int>(legendSize.GetWidth()) + 20);
    align(false, vtkChartLegend::CENTER, vtkChartLegend::TOP);
    fixture.render();
    EXPECT_EQ(legendBorders[vtkAxis::TOP], static_cast<int>(legendSize.GetHeight()) + 30);
}

TEST_F(ChartXYLegend, StandsInThePlotAreaWhenInline)
{
    fixture.render();
    const int* from = chart->GetPoint1();
    const int* to = chart->GetPoint2();
    using L = vtkChartLegend;
    const std::pair<int, double> columns[] = {{L::LEFT, from[0]},
        {L::CENTER, (from[0] + to[0]) / 2.0 - 30}, {L::RIGHT, to[0] - 60}, {L::TOP, to[0] - 60}};
    const std::pair<int, double> rows[] = {{L::TOP, to[1] - 41},
        {L::CENTER, (from[1] + to[1]) / 2.0 - 20.5}, {L::BOTTOM, from[1]}, {L::LEFT, from[1]}};
    for (const auto& [horizontal, x] : columns) {
        for (const auto& [vertical, y] : rows) {
            SCOPED_TRACE(std::to_string(horizontal) + ", " + std::to_string(vertical));
            align(true, horizontal, vertical);
            legend->SetPoint(1, 2);
            chart->SetLegendPosition(vtkRectf(0, 0, 60, 41));
            EXPECT_FLOAT_EQ(legend->GetPoint()[0], static_cast<float>(x));
            EXPECT_FLOAT_EQ(legend->GetPoint()[1], static_cast<float>(y));
        }
    }
}

TEST_F(ChartXYLegend, StandsInTheMarginsWhenOutside)
{
    align(false, vtkChartLegend::RIGHT, vtkChartLegend::TOP);
    fixture.render();
    const int* from = chart->GetPoint1();
    const int* to = chart->GetPoint2();
    using L = vtkChartLegend;
    const double left = 5; // the margins reach to the widget's edges
    const double right = kWidth - 60 - 5;
    const double middleX = (from[0] + to[0]) / 2.0 - 30;
    const double middleY = (from[1] + to[1]) / 2.0 - 20.5;
    struct {
        int horizontal, vertical;
        double x, y;
    } const cases[] = {
        {L::LEFT, L::TOP, left, to[1] - 41.0}, {L::LEFT, L::CENTER, left, middleY},
        {L::LEFT, L::BOTTOM, left, double(from[1])}, {L::RIGHT, L::TOP, right, to[1] - 41.0},
        {L::RIGHT, L::CENTER, right, middleY}, {L::RIGHT, L::BOTTOM, right, double(from[1])},
        {L::CENTER, L::TOP, middleX, kHeight - 41.0 - 5}, {L::CENTER, L::CENTER, middleX, middleY},
        {L::CENTER, L::BOTTOM, middleX, 5},
        {L::TOP, L::TOP, 0, to[1] - 41.0}, // no column of its own
        {L::LEFT, L::LEFT, left, 0}, // no row of its own
    };
    for (const auto& place : cases) {
        SCOPED_TRACE(std::to_string(place.horizontal) + ", " + std::to_string(place.vertical));
        align(false, place.horizontal, place.vertical);
        legend->SetPoint(1, 2);
        chart->SetLegendPosition(vtkRectf(0, 0, 60, 41));
        EXPECT_FLOAT_EQ(legend->GetPoint()[0], static_cast<float>(place.x));
        EXPECT_FLOAT_EQ(legend->GetPoint()[1], static_cast<float>(place.y));
    }
}

TEST_F(ChartXYLegend, StaysWhereItsOwnerPutsIt)
{
    fixture.render();
    for (const bool isInline : {true, false}) {
        for (const auto& [horizontal, vertical] :
            {std::pair(vtkChartLegend::CUSTOM, vtkChartLegend::TOP),
                std::pair(vtkChartLegend::LEFT, vtkChartLegend::CUSTOM)}) {
            align(isInline, horizontal, vertical);
            legend->SetPoint(11, 12);
            chart->SetLegendPosition(vtkRectf(0, 0, 60, 40));
            EXPECT_EQ(legend->GetPoint()[0], 11);
            EXPECT_EQ(legend->GetPoint()[1], 12);
        }
    }
}

TEST_F(ChartXYLegend, IsPlacedByEachPaint)
{
    align(true, vtkChartLegend::LEFT, vtkChartLegend::BOTTOM);
    fixture.render();
    EXPECT_EQ(legend->GetPoint()[0], static_cast<float>(chart->GetPoint1()[0]));
    EXPECT_EQ(legend->GetPoint()[1], static_cast<float>(chart->GetPoint1()[1]));
}

TEST_F(ChartXYLegend, KeepsItsMeasureWhenItIsNotMoved)
{
    fixture.render();
    const vtkMTimeType before = legend->GetMTime();
    fixture.render();
    EXPECT_EQ(legend->GetMTime(), before);
}

} // namespace
} // namespace ovl::test
