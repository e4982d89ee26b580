// SPDX-License-Identifier: BSD-3-Clause
#include <support/chartfixture.h>
#include <visualization/plotcorner.h>
#include <visualization/plotline.h>
#include <visualization/plotpoints.h>

#include <vtkAxis.h>
#include <vtkIdTypeArray.h>
#include <vtkObjectFactory.h>
#include <vtkPen.h>

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace ovl::test {
namespace {

constexpr int kShapes = 6;

/** Plots that a corner does not know, and so lets paint themselves. */
class LoneLine : public PlotLine {
public:
    vtkTypeMacro(LoneLine, PlotLine)
    static LoneLine* New();
};
vtkStandardNewMacro(LoneLine);

class LonePoints : public PlotPoints {
public:
    vtkTypeMacro(LonePoints, PlotPoints)
    static LonePoints* New();
};
vtkStandardNewMacro(LonePoints);

/** A chart of overlapping boxes in many colours: first all lines, then all handles. */
template <class Line, class Markers> class Boxes {
public:
    Boxes()
    {
        for (int axis = 0; axis < 4; ++axis)
            fixture.fixAxis(axis, 0, 100);
        for (int i = 0; i < kShapes; ++i)
            lines.push_back(addLines(i));
        for (int i = 0; i < kShapes; ++i)
            markers.push_back(addMarkers(i));
    }

    QImage picture()
    {
        fixture.render();
        return fixture.picture();
    }

    ChartFixture fixture {{200, 200}};
    std::vector<vtkSmartPointer<Line>> lines;
    std::vector<vtkSmartPointer<Markers>> markers;

private:
    vtkSmartPointer<Line> addLines(int i)
    {
        const double low = 5.3 + 11.7 * i;
        const double high = low + 30.4;
        auto plot = add<Line>(i, {low, high, high, high, high, low, low, low},
            {low, low, low, high, high, high + 7, high, low});
        plot->SetPolyLine(false);
        plot->SetMarkerStyle(vtkPlotPoints::NONE);
        return plot;
    }

    vtkSmartPointer<Markers> addMarkers(int i)
    {
        const double low = 5.3 + 11.7 * i;
        auto plot = add<Markers>(
            i, {low, low + 15.1, low + 30.4, low + 0.2}, {low, low + 15.1, low + 30.4, low + 0.2});
        plot->SetMarkerStyle(vtkPlotPoints::SQUARE);
        plot->SetMarkerSize(7.0F);
        return plot;
    }

    template <class Type>
    vtkSmartPointer<Type> add(int i, const std::vector<double>& x, const std::vector<double>& y)
    {
        auto plot = vtkSmartPointer<Type>::New();
        plot->SetInputData(makeTable({x, y}), 0, 1);
        plot->SetColor(static_cast<unsigned char>(40 * i + 15),
            static_cast<unsigned char>(255 - 40 * i), static_cast<unsigned char>(90 * i % 256),
            255);
        fixture.chart->AddPlot(plot);
        return plot;
    }
};

using Together = Boxes<PlotLine, PlotPoints>;
using Alone = Boxes<LoneLine, LonePoints>;

/** A change to boxes of either kind. */
struct Change {
    const char* name;
    std::function<void(Together&)> together;
    std::function<void(Alone&)> alone;
};

template <class Function> Change change(const char* name, Function function)
{
    return {name, function, function};
}

std::vector<Change> changes()
{
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const auto setCell = [](vtkPlot* plot, int column, double value) {
        plot->GetInput()->SetValue(1, column, vtkVariant(value));
        plot->GetInput()->Modified();
    };
    return {
        change("none", [](auto&) {}),
        change("a point moved", [=](auto& boxes) { setCell(boxes.lines[2], 1, 80.0); }),
        change("a handle moved", [=](auto& boxes) { setCell(boxes.markers[2], 0, 80.0); }),
        change("not a number", [=](auto& boxes) { setCell(boxes.lines[2], 1, kNan); }),
        change("a handle not a number", [=](auto& boxes) { setCell(boxes.markers[1], 1, kNan); }),
        change("an end without a beginning",
            [](auto& boxes) {
                boxes.lines[2]->GetInput()->RemoveRow(7);
                boxes.lines[2]->GetInput()->Modified();
            }),
        change("hidden", [](auto& boxes) { boxes.lines[1]->SetVisible(false); }),
        change("coloured", [](auto& boxes) { boxes.lines[3]->SetColor(255, 0, 0, 255); }),
        change("translucent",
            [](auto& boxes) {
                for (auto& plot : boxes.markers)
                    plot->GetPen()->SetOpacity(100);
                for (auto& plot : boxes.lines)
                    plot->GetPen()->SetOpacity(100);
            }),
        change("transparent", [](auto& boxes) { boxes.lines[0]->GetPen()->SetOpacity(0); }),
        change("wide", [](auto& boxes) { boxes.lines[4]->SetWidth(6); }),
        change("dashed",
            [](auto& boxes) {
                for (auto& plot : boxes.lines)
                    plot->GetPen()->SetLineType(vtkPen::DASH_LINE);
            }),
        change("one dotted",
            [](auto& boxes) { boxes.lines[2]->GetPen()->SetLineType(vtkPen::DOT_LINE); }),
        change(
            "no pen", [](auto& boxes) { boxes.lines[2]->GetPen()->SetLineType(vtkPen::NO_PEN); }),
        change("joined", [](auto& boxes) { boxes.lines[2]->SetPolyLine(true); }),
        change("lines with markers",
            [](auto& boxes) { boxes.lines[2]->SetMarkerStyle(vtkPlotPoints::CIRCLE); }),
        change("other markers",
            [](auto& boxes) {
                boxes.markers[0]->SetMarkerStyle(vtkPlotPoints::CIRCLE);
                boxes.markers[2]->SetMarkerStyle(vtkPlotPoints::PLUS);
                boxes.markers[3]->SetMarkerStyle(vtkPlotPoints::PLUS);
            }),
        change("bigger markers", [](auto& boxes) { boxes.markers[3]->SetMarkerSize(12.0F); }),
        change("markers by the pen's width",
            [](auto& boxes) { boxes.markers[3]->SetMarkerSize(-1.0F); }),
        change("selected",
            [](auto& boxes) {
                const vtkNew<vtkIdTypeArray> rows;
                rows->InsertNextValue(1);
                boxes.markers[2]->SetSelection(rows);
            }),
        change("zoomed", [](auto& boxes) { boxes.fixture.fixAxis(vtkAxis::BOTTOM, 20, 60); }),
        change("in another corner",
            [](auto& boxes) { boxes.fixture.chart->SetPlotCorner(boxes.lines[2], 2); }),
        change("lowered", [](auto& boxes) { boxes.fixture.chart->LowerPlot(boxes.markers[5]); }),
        change("removed",
            [](auto& boxes) { boxes.fixture.chart->RemovePlotInstance(boxes.markers[0]); }),
    };
}

class PlotCornerPaint : public testing::TestWithParam<std::size_t> { };

/** What was painted together before must look as if each plot had just painted itself. */
TEST_P(PlotCornerPaint, ShowsAChangeAsPlotsThatPaintThemselvesDo)
{
    const Change made = changes()[GetParam()];
    SCOPED_TRACE(made.name);
    Together together;
    const QImage before = together.picture();
    made.together(together);
    Alone alone;
    made.alone(alone);
    const QImage after = together.picture();
    EXPECT_EQ(after, alone.picture());
    EXPECT_EQ(after == before, std::string(made.name) == "none");
}

INSTANTIATE_TEST_SUITE_P(
    Changes, PlotCornerPaint, testing::Range<std::size_t>(0, changes().size()));

TEST(PlotCorner, IsTheFrameworksTransformToWhoeverAsks)
{
    const vtkNew<PlotCorner> corner;
    EXPECT_TRUE(corner->IsA("vtkContextTransform"));
}

} // namespace
} // namespace ovl::test
