// SPDX-License-Identifier: BSD-3-Clause
#include <support/chartfixture.h>
#include <support/probechart.h>
#include <visualization/plotline.h>

#include <vtkAxis.h>
#include <vtkBrush.h>
#include <vtkChartLegend.h>
#include <vtkContextClip.h>
#include <vtkContextScene.h>
#include <vtkObjectFactory.h>
#include <vtkPen.h>
#include <vtkPlot.h>
#include <vtkTextProperty.h>

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace ovl::test {
namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 300;

const QColor kBlack(0, 0, 0);
const QColor kWhite(255, 255, 255);
const QColor kGreen(0, 255, 0);
const QColor kRed(255, 0, 0);

/** Lines and letters are smoothed at their edges. */
bool isNear(const QColor& seen, const QColor& color)
{
    const auto close = [](int a, int b) { return std::abs(a - b) < 100; };
    return close(seen.red(), color.red()) && close(seen.green(), color.green())
        && close(seen.blue(), color.blue());
}

/** A chart of black axes and no grid on black: only what a test colours is seen. */
class ChartXYPaint : public testing::Test {
protected:
    ChartXYPaint()
    {
        for (int i = 0; i < 4; ++i)
            chart->GetAxis(i)->SetGridVisible(false);
    }

    vtkPlot* addRedLine(const std::vector<double>& x, const std::vector<double>& y, int corner = 0)
    {
        vtkPlot* plot = fixture.addPlot(vtkChart::LINE, x, y, corner);
        plot->SetColor(255, 0, 0, 255);
        plot->SetWidth(3);
        return plot;
    }

    void fixAxes(double minimum, double maximum)
    {
        for (int i = 0; i < 4; ++i)
            fixture.fixAxis(i, minimum, maximum);
    }

    QImage draw()
    {
        fixture.render();
        return fixture.picture();
    }

    /** Whether the colour is seen on the place, given in pixels from the bottom, or a neighbour. */
    bool shows(const QImage& image, double x, double y, const QColor& color)
    {
        const QPoint at = fixture.fromBottom(x, y).toPoint();
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx)
                if (isNear(image.pixelColor(at + QPoint(dx, dy)), color))
                    return true;
        return false;
    }

    /** The first and last row, from the bottom, on which the colour is seen; -1 for none. */
    static std::pair<int, int> rows(const QImage& image, const QColor& color)
    {
        std::pair<int, int> found(-1, -1);
        for (int row = 0; row < image.height(); ++row)
            for (int column = 0; column < image.width(); ++column)
                if (isNear(image.pixelColor(column, image.height() - 1 - row), color)) {
                    found.first = found.first < 0 ? row : found.first;
                    found.second = row;
                }
        return found;
    }

    vtkSmartPointer<ProbeChart> chart = vtkSmartPointer<ProbeChart>::New();
    ChartFixture fixture {{kWidth, kHeight}, chart};
};

// When it draws

TEST_F(ChartXYPaint, DrawsNothingWhenItIsNotVisible)
{
    addRedLine({0, 10}, {5, 5});
    chart->SetVisible(false);
    EXPECT_FALSE(chart->Paint(nullptr));
    EXPECT_EQ(chart->updates, 0);
}

TEST_F(ChartXYPaint, DrawsNothingWithoutAVisiblePlot)
{
    fixture.render();
    EXPECT_EQ(chart->paints, std::vector<bool>({false}));
    addRedLine({0, 10}, {5, 5})->SetVisible(false);
    fixture.render();
    EXPECT_EQ(chart->paints, std::vector<bool>({false, false}));
    EXPECT_EQ(chart->updates, 0);
}

TEST_F(ChartXYPaint, DrawsAxesAndTitleWithoutPlotsWhenAsked)
{
    chart->SetRenderEmpty(true);
    chart->AutoAxesOff();
    chart->SetTitle("Chart");
    chart->GetTitleProperties()->SetColor(0, 1, 0);
    chart->GetAxis(vtkAxis::LEFT)->GetPen()->SetColor(255, 0, 0);
    const QImage image = draw();
    EXPECT_EQ(chart->paints, std::vector<bool>({true}));
    EXPECT_TRUE(shows(image, chart->GetPoint1()[0], 150, kRed));
    EXPECT_GT(rows(image, kGreen).first, 0);
}

TEST_F(ChartXYPaint, UpdatesOnceAndLaysOutTwice)
{
    addRedLine({0, 10}, {5, 5});
    fixture.render();
    EXPECT_EQ(chart->paints, std::vector<bool>({true}));
    EXPECT_EQ(chart->updates, 1);
    EXPECT_EQ(chart->layouts.size(), 2U);
    EXPECT_TRUE(chart->PlotTransformValid);
}

TEST_F(ChartXYPaint, AsksNoneOfTheCallbacks)
{
    ChartCallbacks callbacks;
    int calls = 0;
    callbacks.setDirtyCallback([&](bool) { ++calls; });
    callbacks.setCursorCallback([&](CursorType) { ++calls; });
    callbacks.setCustomXCallback([&](int, double x) { return ++calls, x; });
    callbacks.setCustomYCallback([&](int, double y) { return ++calls, y; });
    chart->SetCallbacks(&callbacks);
    addRedLine({0, 10}, {5, 5});
    chart->DrawBox = true;
    fixture.render();
    chart->RecalculateBounds();
    fixture.render();
    EXPECT_EQ(calls, 0);
}

/** Counts how often its cache is brought up to date. */
class CountingPlot : public PlotLine {
public:
    static CountingPlot* New();
    void UpdateCache() override { ++cacheUpdates; }

    int cacheUpdates = 0;
};
vtkStandardNewMacro(CountingPlot);

TEST_F(ChartXYPaint, BringsThePlotsCachesUpToDateEachTime)
{
    addRedLine({0, 10}, {5, 5});
    const auto plot = vtkSmartPointer<CountingPlot>::New();
    plot->SetVisible(false);
    chart->AddPlot(plot);
    fixture.render();
    fixture.render();
    EXPECT_EQ(plot->cacheUpdates, 2) << "hidden plots too";
}

// Size

TEST_F(ChartXYPaint, FillsTheSceneAndFollowsItsSize)
{
    fixAxes(0, 10);
    addRedLine({0, 10}, {5, 5});
    fixture.render();
    chart->Modified(); // no axis is younger, which would hide the resize
    EXPECT_EQ(chart->GetGeometry()[0], kWidth);
    EXPECT_EQ(chart->GetGeometry()[1], kHeight);
    fixture.resize({320, kHeight}); // leaves margins and left axis as they are
    fixture.render();
    EXPECT_EQ(chart->GetGeometry()[0], 320);
    EXPECT_EQ(chart->GetPoint2()[0], 300);
    EXPECT_NEAR(fixture.position(10, 5).x(), 300, 1e-3) << "the transform followed";
    fixture.resize({320, 240});
    fixture.render();
    EXPECT_EQ(chart->GetGeometry()[1], 240);
    EXPECT_EQ(chart->GetPoint2()[1], 220);
}

TEST_F(ChartXYPaint, DrawsInAWindowSmallerThanItsMargins)
{
    fixAxes(0, 10);
    addRedLine({0, 10}, {5, 5});
    chart->SetHiddenAxisBorder(300);
    fixture.render();
    EXPECT_EQ(chart->paints, std::vector<bool>({true}));
    EXPECT_EQ(fixture.clip()->GetWidth(), 0);
    EXPECT_EQ(fixture.clip()->GetHeight(), 0);
}

TEST_F(ChartXYPaint, ClipsToThePlotArea)
{
    addRedLine({0, 10}, {5, 5});
    fixture.render();
    EXPECT_EQ(fixture.clip()->GetX(), chart->GetPoint1()[0]);
    EXPECT_EQ(fixture.clip()->GetY(), chart->GetPoint1()[1]);
    EXPECT_EQ(fixture.clip()->GetWidth(), chart->GetPoint2()[0] - chart->GetPoint1()[0]);
    EXPECT_EQ(fixture.clip()->GetHeight(), chart->GetPoint2()[1] - chart->GetPoint1()[1]);
}

// Plots

TEST_F(ChartXYPaint, DrawsACurveWhereItsCornersTransformSays)
{
    for (int corner = 0; corner < 4; ++corner) {
        SCOPED_TRACE(corner);
        chart->ClearPlots();
        fixAxes(0, 10);
        fixture.fixAxis(vtkAxis::RIGHT, 0, 20);
        addRedLine({0, 10}, {2, 8}, corner);
        const QImage image = draw();
        for (const double x : {1.0, 4.0, 7.5}) {
            const QPoint at = fixture.position(x, 2 + 0.6 * x, corner).toPoint();
            EXPECT_EQ(image.pixelColor(at), kRed) << x;
            EXPECT_EQ(image.pixelColor(at + QPoint(0, 12)), kBlack) << x;
        }
    }
}

TEST_F(ChartXYPaint, DrawsNothingOfACurveBesideThePlotArea)
{
    fixAxes(0, 10);
    chart->SetHiddenAxisBorder(60);
    addRedLine({-10, 20}, {5, 5});
    const QImage image = draw();
    const int y = fixture.position(5, 5).toPoint().y();
    EXPECT_EQ(image.pixelColor(chart->GetPoint2()[0] - 5, y), kRed);
    EXPECT_EQ(image.pixelColor(chart->GetPoint2()[0] + 5, y), kBlack);
    EXPECT_EQ(image.pixelColor(kWidth - 2, y), kBlack);
}

TEST_F(ChartXYPaint, DrawsACurveOfAShiftedRangeRightTheFirstTime)
{
    vtkPlot* plot = addRedLine({10000, 10010}, {10002, 10008});
    for (const double origin : {10000.0, 0.0, 10000.0}) {
        SCOPED_TRACE(origin);
        fixAxes(origin, origin + 10);
        plot->SetInputData(makeTable({{origin, origin + 10}, {origin + 2, origin + 8}}), 0, 1);
        const QImage image = draw();
        EXPECT_EQ(chart->GetAxis(vtkAxis::BOTTOM)->GetShift(), -origin);
        EXPECT_TRUE(shows(image, (chart->GetPoint1()[0] + chart->GetPoint2()[0]) / 2.0,
            (chart->GetPoint1()[1] + chart->GetPoint2()[1]) / 2.0, kRed));
    }
}

TEST_F(ChartXYPaint, DrawsLaterCornersOverEarlierOnes)
{
    fixAxes(0, 10);
    addRedLine({0, 10}, {5, 5}, 2);
    vtkPlot* green = addRedLine({0, 10}, {5, 5}, 0);
    green->SetColor(0, 255, 0, 255);
    const QImage image = draw();
    EXPECT_EQ(image.pixelColor(fixture.position(5, 5).toPoint()), kRed)
        << "although its plot was added first";
}

TEST_F(ChartXYPaint, DrawsTheLastPlotOfACornerOnTop)
{
    fixAxes(0, 10);
    addRedLine({0, 10}, {5, 5});
    vtkPlot* green = addRedLine({0, 10}, {5, 5});
    green->SetColor(0, 255, 0, 255);
    EXPECT_EQ(draw().pixelColor(fixture.position(5, 5).toPoint()), kGreen);
    chart->LowerPlot(green);
    EXPECT_EQ(draw().pixelColor(fixture.position(5, 5).toPoint()), kRed);
}

// Background

TEST_F(ChartXYPaint, PaintsItsBackgroundFromThePlotAreaOverTheMarginsBeyond)
{
    fixAxes(0, 10);
    addRedLine({0, 10}, {5, 5});
    chart->GetBackgroundBrush()->SetColor(0, 0, 255);
    chart->GetBackgroundBrush()->SetOpacity(255);
    const QImage image = draw();
    const QColor blue(0, 0, 255);
    const int* from = chart->GetPoint1();
    EXPECT_EQ(image.pixelColor(fixture.fromBottom(from[0] + 3, from[1] + 3).toPoint()), blue);
    EXPECT_EQ(image.pixelColor(fixture.fromBottom(kWidth - 2, from[1] + 3).toPoint()), blue)
        << "the rectangle has the whole chart's size";
    EXPECT_EQ(image.pixelColor(fixture.fromBottom(from[0] + 3, kHeight - 2).toPoint()), blue);
    EXPECT_EQ(image.pixelColor(fixture.fromBottom(2, 150).toPoint()), kBlack);
    EXPECT_EQ(image.pixelColor(fixture.fromBottom(200, 2).toPoint()), kBlack);
}

TEST_F(ChartXYPaint, NeedsNoBackground)
{
    addRedLine({0, 10}, {5, 5});
    chart->SetBackgroundBrush(nullptr);
    fixture.render();
    EXPECT_EQ(chart->paints, std::vector<bool>({true}));
}

// Rubber band and polygon

struct BandCase {
    const char* name;
    float x, y, width, height;
};

class RubberBand : public ChartXYPaint, public testing::WithParamInterface<BandCase> { };

TEST_P(RubberBand, IsAWhiteFrameBetweenItsCorners)
{
    const BandCase& band = GetParam();
    fixAxes(0, 10);
    addRedLine({0, 10}, {-5, -5});
    chart->MouseBox = vtkRectf(band.x, band.y, band.width, band.height);
    chart->DrawBox = true;
    const QImage image = draw();
    for (const auto& [x, y] : {std::pair(150, 100), std::pair(250, 100), std::pair(200, 80),
             std::pair(200, 120)}) // middles of the four sides
        EXPECT_TRUE(shows(image, x, y, kWhite)) << x << ", " << y;
    EXPECT_FALSE(shows(image, 200, 100, kWhite)) << "nothing inside";
    chart->DrawBox = false;
    EXPECT_FALSE(shows(draw(), 150, 100, kWhite));
}

INSTANTIATE_TEST_SUITE_P(Drags, RubberBand,
    testing::Values(BandCase {"RightAndUp", 150, 80, 100, 40},
        BandCase {"LeftAndUp", 250, 80, -100, 40}, BandCase {"LeftAndDown", 250, 120, -100, -40}),
    [](const auto& drag) { return std::string(drag.param.name); });

class SelectionPolygonPaint : public ChartXYPaint {
protected:
    QImage drawPolygon(const std::vector<std::pair<float, float>>& points)
    {
        chart->SelectionPolygon.Clear();
        for (const auto& [x, y] : points)
            chart->SelectionPolygon.AddPoint(x, y);
        chart->DrawSelectionPolygon = true;
        fixAxes(0, 10);
        addRedLine({0, 10}, {-5, -5});
        return draw();
    }
};

TEST_F(SelectionPolygonPaint, JoinsThreePointsAndClosesItself)
{
    const QImage image = drawPolygon({{100, 100}, {200, 100}, {200, 200}});
    EXPECT_TRUE(shows(image, 150, 100, kGreen));
    EXPECT_TRUE(shows(image, 200, 150, kGreen));
    EXPECT_TRUE(shows(image, 150, 150, kGreen)) << "the closing line";
    EXPECT_FALSE(shows(image, 180, 130, kGreen)) << "nothing inside";
}

TEST_F(SelectionPolygonPaint, JoinsTwoPointsByOneLine)
{
    const QImage image = drawPolygon({{100, 100}, {200, 100}});
    EXPECT_TRUE(shows(image, 150, 100, kGreen));
    const auto [first, last] = rows(image, kGreen);
    EXPECT_GE(first, 98);
    EXPECT_LE(last, 102);
}

TEST_F(SelectionPolygonPaint, ShowsNothingOfOnePoint)
{
    EXPECT_EQ(rows(drawPolygon({{100, 100}}), kGreen), std::pair(-1, -1));
}

TEST_F(SelectionPolygonPaint, IsNotClippedToThePlotArea)
{
    chart->SetHiddenAxisBorder(80);
    EXPECT_TRUE(shows(drawPolygon({{10, 30}, {390, 30}}), 20, 30, kGreen));
}

TEST_F(SelectionPolygonPaint, IsDrawnOnlyWhileItGrows)
{
    drawPolygon({{100, 100}, {200, 100}});
    chart->DrawSelectionPolygon = false;
    EXPECT_EQ(rows(draw(), kGreen), std::pair(-1, -1));
}

// Title

class TitlePaint : public ChartXYPaint {
protected:
    TitlePaint()
    {
        chart->SetTitle("Chart");
        chart->GetTitleProperties()->SetColor(0, 1, 0);
        chart->GetTitleProperties()->SetFontSize(24);
        chart->AutoAxesOff();
        fixAxes(0, 10);
        addRedLine({0, 10}, {5, 5});
        chart->measure = [this](vtkContext2D* painter) {
            const vtkRectf rect = chart->GetAxis(vtkAxis::TOP)->GetBoundingRect(painter);
            topAxisHeight = static_cast<int>(rect.GetHeight());
        };
    }

    /** The title's lowest row over the plot area. */
    int height(const QImage& image)
    {
        const int row = rows(image, kGreen).first;
        EXPECT_GE(row, 0) << "no title";
        return row - chart->GetPoint2()[1];
    }

    int topAxisHeight = 0;
};

TEST_F(TitlePaint, StandsDirectlyAboveThePlotAreaWhenTheTopAxisIsHidden)
{
    chart->GetAxis(vtkAxis::TOP)->SetVisible(false);
    const int over = height(draw());
    EXPECT_GE(over, -2);
    EXPECT_LE(over, 10);
}

TEST_F(TitlePaint, StandsAboveAVisibleTopAxis)
{
    chart->GetAxis(vtkAxis::TOP)->SetVisible(false);
    const int withoutAxis = height(draw());
    chart->GetAxis(vtkAxis::TOP)->SetVisible(true);
    const int withAxis = height(draw());
    ASSERT_GT(topAxisHeight, 5);
    EXPECT_EQ(withAxis - withoutAxis, topAxisHeight);
}

TEST_F(TitlePaint, IsNotMissedWhenEmpty)
{
    chart->SetTitle("");
    EXPECT_EQ(rows(draw(), kGreen), std::pair(-1, -1));
    EXPECT_EQ(chart->paints, std::vector<bool>({true}));
}

} // namespace
} // namespace ovl::test
