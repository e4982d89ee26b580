// SPDX-License-Identifier: BSD-3-Clause
// What one event of the mouse costs a chart: over long curves, and over many shapes.
#include <visualization/chartxy.h>
#include <visualization/line.h>
#include <visualization/plot.h>
#include <visualization/point.h>
#include <visualization/shape.h>

#include <vtkAxis.h>
#include <vtkContextMouseEvent.h>
#include <vtkContextScene.h>
#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkPlot.h>
#include <vtkTable.h>

#include <benchmark/benchmark.h>
#include <cmath>
#include <deque>
#include <vector>

using namespace ovl;

namespace {

constexpr int kWidth = 800; // no power of ten: there the framework changes the scale of plots
constexpr int kHeight = 800;

vtkSmartPointer<vtkTable> makeTable(const std::vector<double>& x, const std::vector<double>& y)
{
    auto table = vtkSmartPointer<vtkTable>::New();
    for (const auto& [name, values] : {std::pair("x", &x), std::pair("y", &y)}) {
        const vtkNew<vtkDoubleArray> column;
        column->SetName(name);
        for (const double value : *values)
            column->InsertNextValue(value);
        table->AddColumn(column);
    }
    return table;
}

/** A chart in a scene without a window; one unit is one pixel. */
class Rig {
public:
    Rig()
    {
        scene->AddItem(chart);
        chart->SetInteractive(true);
        chart->SetPoint1(0, 0);
        chart->SetPoint2(kWidth, kHeight);
        for (int i = 0; i < 4; ++i) {
            vtkAxis* axis = chart->GetAxis(i);
            const bool vertical = i == vtkAxis::LEFT || i == vtkAxis::RIGHT;
            axis->SetBehavior(vtkAxis::FIXED);
            axis->SetRange(0, vertical ? kHeight : kWidth);
            axis->SetPoint1(0, 0);
            axis->SetPoint2(vertical ? 0 : kWidth, vertical ? kHeight : 0);
        }
        callbacks.setDirtyCallback([this](bool) { dirty = true; });
        callbacks.setCursorCallback([this](CursorType type) { cursor = type; });
        chart->SetCallbacks(&callbacks);
    }

    ~Rig() { chart->ClearPlots(); }

    /** As after a paint. */
    void settle()
    {
        chart->Update();
        chart->MouseWheelEvent(event(1, 1, 0), 0); // sets the transforms, moves nothing
    }

    void addCurves(int count, int points)
    {
        std::vector<double> x, y;
        for (int i = 0; i < count; ++i) {
            x.clear();
            y.clear();
            for (int k = 0; k < points; ++k) {
                x.push_back(static_cast<double>(k) * kWidth / points);
                y.push_back(300 + 40 * i + 20 * std::sin(0.01 * (i + 1) * k));
            }
            addPlot(1, x, y);
        }
        settle();
    }

    void addShapes(int count)
    {
        const int perRow = static_cast<int>(std::ceil(std::sqrt(count)));
        const double pitch = 1.0 * kWidth / perRow;
        for (int i = 0; i < count; ++i)
            addShape(i % perRow * pitch, i / perRow * pitch, pitch * 0.6); // NOLINT: whole rows
        settle();
    }

    vtkContextMouseEvent event(double x, double y, int button)
    {
        const vtkVector2f position(static_cast<float>(x), static_cast<float>(y));
        vtkContextMouseEvent mouse {};
        mouse.SetButton(button);
        mouse.SetPos(position);
        mouse.SetScenePos(position);
        mouse.SetScreenPos(vtkVector2i(static_cast<int>(x), static_cast<int>(y)));
        mouse.SetLastScreenPos(last);
        last = mouse.GetScreenPos();
        return mouse;
    }

    vtkNew<vtkContextScene> scene;
    vtkNew<ChartXY> chart;
    ChartCallbacks callbacks;
    std::deque<Shape> shapes;
    bool dirty = false;
    CursorType cursor = CursorType::Default;

private:
    vtkPlot* addPlot(int type, const std::vector<double>& x, const std::vector<double>& y)
    {
        vtkPlot* plot = chart->AddPlot(type);
        plot->SetInputData(makeTable(x, y), 0, 1);
        return plot;
    }

    void addShape(double x, double y, double size)
    {
        Shape& shape = shapes.emplace_back();
        const Point corners[] = {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
        std::vector<double> lineX, lineY, handleX, handleY;
        for (int i = 0; i < 4; ++i) {
            shape.addLine(corners[i], corners[(i + 1) % 4]);
            for (const Point* end : {shape.line(i)->p1(), shape.line(i)->p2()}) {
                lineX.push_back(end->x());
                lineY.push_back(end->y());
            }
        }
        for (int i = 0; i < shape.numberOfHandles(); ++i) {
            handleX.push_back(shape.handle(i)->x());
            handleY.push_back(shape.handle(i)->y());
        }
        const auto moveBy = [&shape](double dx, double dy) {
            const Point step(dx, dy);
            for (int i = 0; i < shape.numberOfLines(); ++i) {
                *shape.line(i)->p1() += step;
                *shape.line(i)->p2() += step;
            }
            for (int i = 0; i < shape.numberOfHandles(); ++i)
                *shape.handle(i) += step;
        };
        shape.setXTranslationCallback([moveBy](double dx) { moveBy(dx, 0); });
        shape.setYTranslationCallback([moveBy](double dy) { moveBy(0, dy); });
        shape.setXResizeCallback([moveBy](const Point&, double dx) { moveBy(dx, 0); });
        shape.setYResizeCallback([moveBy](const Point&, double dy) { moveBy(0, dy); });
        vtkPlot* handles = addPlot(1, handleX, handleY);
        vtkPlot* lines = addPlot(0, lineX, lineY);
        for (vtkPlot* plot : {handles, lines}) {
            auto* part = dynamic_cast<Plot*>(plot);
            part->shape = &shape;
            part->sibling = plot == lines ? handles : lines;
            part->isHandle = plot == handles;
            part->canDragX = part->canDragY = true;
        }
    }

    vtkVector2i last {0, 0};
};

/** Moves over the whole plot area, never twice the same way. */
void BM_Hover_OverCurves(benchmark::State& state)
{
    Rig rig;
    rig.addCurves(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    int i = 0;
    for (auto _ : state) {
        ++i;
        rig.chart->MouseMoveEvent(rig.event(1 + i * 37 % 798, 250 + i * 13 % 500, 0));
    }
}
BENCHMARK(BM_Hover_OverCurves)->Args({10, 1000})->Args({10, 100000})->Unit(benchmark::kMicrosecond);

void BM_Hover_OverShapes(benchmark::State& state)
{
    Rig rig;
    rig.addShapes(static_cast<int>(state.range(0)));
    int i = 0;
    for (auto _ : state) {
        ++i;
        rig.chart->MouseMoveEvent(rig.event(1 + i * 37 % 798, 1 + i * 13 % 798, 0));
    }
}
BENCHMARK(BM_Hover_OverShapes)->Arg(10)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

void BM_Pan_OverCurves(benchmark::State& state)
{
    Rig rig;
    rig.addCurves(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    rig.chart->MouseButtonPressEvent(rig.event(5, 5, 1));
    int i = 0;
    for (auto _ : state)
        rig.chart->MouseMoveEvent(rig.event(5 + (++i % 2), 5, 1));
}
BENCHMARK(BM_Pan_OverCurves)->Args({10, 100000})->Unit(benchmark::kMicrosecond);

/** A shape among others is taken at `offset` from its lower left corner and moved to and fro. */
void drag(benchmark::State& state, double offset)
{
    Rig rig;
    const int count = static_cast<int>(state.range(0));
    rig.addShapes(count);
    const Point corner = *rig.shapes[static_cast<std::size_t>(count / 2)].line(0)->p1();
    const double x = corner.x() + offset;
    const double y = corner.y() + offset;
    rig.chart->MouseButtonPressEvent(rig.event(x, y, 1));
    int i = 0;
    for (auto _ : state)
        rig.chart->MouseMoveEvent(rig.event(x + (++i % 2), y, 1));
    rig.chart->MouseButtonReleaseEvent(rig.event(x, y, 1));
}

void BM_Drag_OfAShape(benchmark::State& state) { drag(state, kWidth * 0.3 / 100); }

void BM_Drag_OfAHandle(benchmark::State& state) { drag(state, 0); }

BENCHMARK(BM_Drag_OfAShape)->Arg(10)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Drag_OfAHandle)->Arg(10)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
