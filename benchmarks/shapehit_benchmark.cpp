// SPDX-License-Identifier: BSD-3-Clause
// Hit tests of shapes, which a chart makes for a shape under the mouse at every move. The size is
// in lines of one shape, or in shapes.
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/range.h>
#include <visualization/shape.h>

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

using ovl::Line;
using ovl::Point;
using ovl::Range;
using ovl::Shape;

namespace {

/** An outline of `lines` lines between random points. */
Shape outline(std::int64_t lines)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> coordinate(0.0, 1000.0);
    Shape shape;
    Point last(coordinate(random), coordinate(random));
    for (std::int64_t i = 0; i < lines; ++i) {
        const Point next(coordinate(random), coordinate(random));
        shape.addLine(last, next);
        last = next;
    }
    return shape;
}

void insidePolygon(benchmark::State& state)
{
    Shape shape = outline(state.range(0));
    const Point point(500.0, 500.0);
    for (auto _ : state)
        benchmark::DoNotOptimize(shape.insidePolygon(point));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/** The same count with the public operations of a line. */
void crossingsOfLines(benchmark::State& state)
{
    Shape shape = outline(state.range(0));
    const Point point(500.0, 500.0);
    for (auto _ : state) {
        const Line ray(Point(-1e308, point.y()), point);
        int crossings = 0;
        for (int i = 0; i < shape.numberOfLines(); ++i)
            crossings += shape.line(i)->intersect(ray);
        benchmark::DoNotOptimize(crossings);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void closeToLine(benchmark::State& state)
{
    Shape shape = outline(state.range(0));
    shape.setXAxisRange(Range(0.0, 1000.0));
    shape.setYAxisRange(Range(0.0, 1000.0));
    const Point point(-500.0, -500.0); // close to none, so that all are asked
    for (auto _ : state)
        benchmark::DoNotOptimize(shape.closeToLine(point));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/** Many boxes, a hundredth of the chart high each. */
void insideBoxes(benchmark::State& state)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> coordinate(0.0, 1000.0);
    std::vector<Shape> shapes(static_cast<std::size_t>(state.range(0)));
    for (Shape& shape : shapes) {
        const double x = coordinate(random);
        const double y = coordinate(random);
        const Point corners[] {{x, y}, {x + 10.0, y}, {x + 10.0, y + 10.0}, {x, y + 10.0}};
        for (std::size_t i = 0; i < 4; ++i)
            shape.addLine(corners[i], corners[(i + 1) % 4]);
    }
    const Point point(500.0, 500.0);
    for (auto _ : state) {
        int inside = 0;
        for (Shape& shape : shapes)
            inside += shape.insidePolygon(point);
        benchmark::DoNotOptimize(inside);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void lines(benchmark::internal::Benchmark* measurement)
{
    measurement->Arg(4)->Arg(1000)->Arg(100000);
}

BENCHMARK(insidePolygon)->Name("BM_InsidePolygon/ovl")->Apply(lines);
BENCHMARK(crossingsOfLines)->Name("BM_InsidePolygon/lines")->Apply(lines);
BENCHMARK(closeToLine)->Name("BM_CloseToLine/ovl")->Apply(lines);
BENCHMARK(insideBoxes)
    ->Name("BM_InsideBoxes/ovl")
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
