// SPDX-License-Identifier: BSD-3-Clause
// What one move of the mouse costs, from the widget's event to the tooltip: over long curves, over
// many shapes, and while one of them is dragged. Nothing is repainted.
#include "chartpeers.h"

#include <algorithm>
#include <vector>

namespace {

using namespace ovl;
using namespace ovl::bench;

constexpr int kCurves = 10;

int sizeOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

/** Moves over the plot area, never twice the same way. */
QPointF wander(int step) { return {90.0 + step * 37 % 680, 60.0 + step * 13 % 460}; }

void hover(benchmark::State& state, QWidget& widget)
{
    int step = 0;
    for (auto _ : state)
        sendMouse(widget, QEvent::MouseMove, wander(++step), false);
}

void hoverCurves(benchmark::State& state)
{
    hover(state, rigOf<ProfileRig>(kCurves, sizeOf(state)).widget);
}

/** The floor: the point of each curve that lies nearest along x, and whether it is near. */
void searchCurves(benchmark::State& state)
{
    const int points = sizeOf(state);
    std::vector<double> x;
    std::vector<std::vector<double>> y(kCurves);
    for (int row = 0; row < points; ++row) {
        x.push_back(curveX(row, points));
        for (int curve = 0; curve < kCurves; ++curve)
            y[static_cast<std::size_t>(curve)].push_back(curveY(curve, row, points));
    }
    int step = 0;
    for (auto _ : state) {
        const QPointF at = wander(++step);
        for (const std::vector<double>& curve : y) {
            const auto found = std::lower_bound(x.begin(), x.end(), at.x());
            const auto row = std::min(found, x.end() - 1) - x.begin();
            benchmark::DoNotOptimize(std::abs(curve[static_cast<std::size_t>(row)] - at.y()) < 5.0);
        }
    }
}

void hoverShapes(benchmark::State& state) { hover(state, rigOf<BoxRig>(sizeOf(state)).widget); }

template <class Rig> [[maybe_unused]] void peerHoverCurves(benchmark::State& state)
{
    auto& rig = rigOf<Rig>(kCurves, sizeOf(state));
    int step = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(rig.curveAt(wander(++step).toPoint()));
}

template <class Rig> void peerHoverShapes(benchmark::State& state)
{
    auto& rig = rigOf<BoxesOf<Rig>>(sizeOf(state));
    int step = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(rig.boxAt(wander(++step).toPoint()));
}

void moveShape(Shape& shape, const Point& step)
{
    for (int i = 0; i < shape.numberOfLines(); ++i) {
        *shape.line(i)->p1() += step;
        *shape.line(i)->p2() += step;
    }
    for (int i = 0; i < shape.numberOfHandles(); ++i)
        *shape.handle(i) += step;
}

/** A host whose shape follows the mouse, whatever is grabbed of it. */
void followMouse(Shape& shape)
{
    Shape* moved = &shape;
    const auto alongX = [moved](double dx) { moveShape(*moved, Point(dx, 0.0)); };
    const auto alongY = [moved](double dy) { moveShape(*moved, Point(0.0, dy)); };
    shape.setXTranslationCallback(alongX);
    shape.setYTranslationCallback(alongY);
    shape.setXResizeCallback([alongX](const Point&, double dx) { alongX(dx); });
    shape.setYResizeCallback([alongY](const Point&, double dy) { alongY(dy); });
}

/** A shape among others is taken at `part` of its size from its lower left corner. */
void drag(benchmark::State& state, double part)
{
    const int count = sizeOf(state);
    auto& rig = rigOf<BoxRig>(count);
    followMouse(*rig.view->shape(count / 2));
    const auto corners = boxCorners(count / 2, count);
    const auto between = [part](double a, double b) { return a + part * (b - a); };
    const QPointF at = rig.position(
        between(corners[0].x(), corners[2].x()), between(corners[0].y(), corners[2].y()));
    sendMouse(rig.widget, QEvent::MouseButtonPress, at, true);
    int step = 0;
    for (auto _ : state)
        sendMouse(rig.widget, QEvent::MouseMove, at + QPointF(++step % 2, 0), true);
    sendMouse(rig.widget, QEvent::MouseButtonRelease, at, false);
}

void dragShape(benchmark::State& state) { drag(state, 0.5); }

void dragHandle(benchmark::State& state) { drag(state, 0.0); }

void curveSizes(benchmark::internal::Benchmark* path)
{
    path->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMicrosecond);
}

void shapeCounts(benchmark::internal::Benchmark* path)
{
    path->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(hoverCurves)->Name("BM_HoverCurves/ovl")->Apply(curveSizes);
BENCHMARK(searchCurves)->Name("BM_HoverCurves/floor")->Apply(curveSizes);
BENCHMARK(hoverShapes)->Name("BM_HoverShapes/ovl")->Apply(shapeCounts);
BENCHMARK(dragShape)->Name("BM_DragShape/ovl")->Apply(shapeCounts);
BENCHMARK(dragHandle)->Name("BM_DragHandle/ovl")->Apply(shapeCounts);
BENCHMARK(peerHoverShapes<GraphicsViewRig>)
    ->Name("BM_HoverShapes/qgraphicsview")
    ->Apply(shapeCounts);
#ifdef OVL_HAVE_QWT
BENCHMARK(peerHoverCurves<QwtRig>)->Name("BM_HoverCurves/qwt")->Apply(curveSizes);
BENCHMARK(peerHoverShapes<QwtRig>)->Name("BM_HoverShapes/qwt")->Apply(shapeCounts);
#endif
#ifdef OVL_HAVE_QCUSTOMPLOT
BENCHMARK(peerHoverCurves<QCustomPlotRig>)->Name("BM_HoverCurves/qcustomplot")->Apply(curveSizes);
BENCHMARK(peerHoverShapes<QCustomPlotRig>)->Name("BM_HoverShapes/qcustomplot")->Apply(shapeCounts);
#endif

} // namespace

int main(int argc, char** argv) { return run(argc, argv); }
