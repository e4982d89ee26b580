// SPDX-License-Identifier: BSD-3-Clause
// What a host pays to write its curves, cell by cell, and to draw many shapes over them.
#include <visualization/point.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>
#include <visualization/vtkcompat.h>

#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkTable.h>
#include <vtkVariant.h>

#include <QApplication>

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <vector>

using ovl::Point;
using ovl::ProfileView;
using ovl::Shape;

namespace {

constexpr int kColumns = 2;

void BM_WriteCells_BySetValue(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    ovl::compat::HostWidget widget;
    widget.show();
    ProfileView view(&widget, kColumns);
    view.setNumberOfValues(rows);
    for (auto _ : state) {
        for (int row = 0; row < rows; ++row)
            view.setValue(1, row, 0.5 * row);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_WriteCells_BySetValue)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void BM_WriteCells_ByTableAndVariant(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    const vtkNew<vtkTable> table;
    for (const char* name : {"x", "y"}) {
        const vtkNew<vtkDoubleArray> column;
        column->SetName(name);
        column->SetNumberOfTuples(rows);
        table->AddColumn(column);
    }
    for (auto _ : state) {
        for (int row = 0; row < rows; ++row)
            table->SetValue(row, 1, vtkVariant(0.5 * row));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_WriteCells_ByTableAndVariant)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

/** The floor: nothing but the stores. */
void BM_WriteCells_ByPointer(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    std::vector<double> column(static_cast<std::size_t>(rows));
    for (auto _ : state) {
        double* cell = column.data();
        for (int row = 0; row < rows; ++row)
            cell[row] = 0.5 * row;
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_WriteCells_ByPointer)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void BM_ReadCells_ByValue(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    ovl::compat::HostWidget widget;
    widget.show();
    ProfileView view(&widget, kColumns);
    view.setNumberOfValues(rows);
    for (int row = 0; row < rows; ++row)
        view.setValue(1, row, row);
    for (auto _ : state) {
        double sum = 0.0;
        for (int row = 0; row < rows; ++row)
            sum += view.value(1, row);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_ReadCells_ByValue)->Arg(1000000)->Unit(benchmark::kMicrosecond);

/** A box of four lines. */
Shape box(double x, double y)
{
    const Point corners[] {{x, y}, {x + 10.0, y}, {x + 10.0, y + 10.0}, {x, y + 10.0}};
    Shape shape;
    shape.setTitle("box");
    for (std::size_t i = 0; i < 4; ++i)
        shape.addLine(corners[i], corners[(i + 1) % 4]);
    return shape;
}

void addBoxes(ProfileView& view, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i)
        view.addShape(box(static_cast<double>(i % 100), static_cast<double>(i / 100)));
}

/** The whole way of a new set of shapes: add, draw, clear. */
void BM_Shapes_BuildAndClear(benchmark::State& state)
{
    ovl::compat::HostWidget widget;
    widget.show();
    ProfileView view(&widget, kColumns);
    for (auto _ : state) {
        addBoxes(view, state.range(0));
        view.drawShapes();
        view.clearShape();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Shapes_BuildAndClear)->Arg(100)->Arg(10000)->Unit(benchmark::kMillisecond);

/** Of shapes that have been drawn: old plots away, new ones made, all in their order. */
void BM_Shapes_DrawAgain(benchmark::State& state)
{
    ovl::compat::HostWidget widget;
    widget.show();
    ProfileView view(&widget, kColumns);
    addBoxes(view, state.range(0));
    view.drawShapes();
    for (auto _ : state)
        view.drawShapes();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Shapes_DrawAgain)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_Shapes_Redraw(benchmark::State& state)
{
    ovl::compat::HostWidget widget;
    widget.show();
    ProfileView view(&widget, kColumns);
    addBoxes(view, state.range(0));
    view.drawShapes();
    for (auto _ : state)
        view.redrawShapes();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Shapes_Redraw)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
