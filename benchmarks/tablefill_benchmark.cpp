// SPDX-License-Identifier: BSD-3-Clause
// What a host pays to write and read its curves, cell by cell.
#include "chartpeers.h"

#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkTable.h>
#include <vtkVariant.h>

#include <cstddef>
#include <vector>

namespace {

using namespace ovl::bench;

int rowsOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

double sample(int row) { return 0.5 * row; }

template <class Fill> void fill(benchmark::State& state, Fill fillRows)
{
    for (auto _ : state) {
        fillRows();
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void setValue(benchmark::State& state)
{
    const int rows = rowsOf(state);
    auto& rig = rigOf<ProfileRig>(1, rows);
    fill(state, [&, rows] {
        for (int row = 0; row < rows; ++row)
            rig.view->setValue(1, row, sample(row));
    });
}

/** The framework's own way, through the table and a variant. */
void setVariant(benchmark::State& state)
{
    const int rows = rowsOf(state);
    const vtkNew<vtkTable> table;
    const vtkNew<vtkDoubleArray> column;
    column->SetName("y");
    column->SetNumberOfTuples(rows);
    table->AddColumn(column);
    fill(state, [&, rows] {
        for (int row = 0; row < rows; ++row)
            table->SetValue(row, 0, vtkVariant(sample(row)));
    });
}

/** The floor: nothing but the stores. */
void bareStores(benchmark::State& state)
{
    std::vector<double> column(static_cast<std::size_t>(state.range(0)));
    fill(state, [&, rows = rowsOf(state)] {
        double* cell = column.data();
        for (int row = 0; row < rows; ++row)
            cell[row] = sample(row);
    });
}

#ifdef OVL_HAVE_QWT
/** The curve reads the host's own vectors; told again, it looks for their bounds anew. */
void fillQwt(benchmark::State& state)
{
    Samples samples(0, rowsOf(state));
    QwtPlotCurve curve;
    fill(state, [&, rows = rowsOf(state)] {
        for (int row = 0; row < rows; ++row)
            samples.y[row] = sample(row);
        curve.setRawSamples(samples.x.constData(), samples.y.constData(), rows);
    });
}
#endif

#ifdef OVL_HAVE_QCUSTOMPLOT
void fillQCustomPlot(benchmark::State& state)
{
    Samples samples(0, rowsOf(state));
    QCustomPlot plot;
    QCPGraph* graph = plot.addGraph();
    fill(state, [&, rows = rowsOf(state)] {
        for (int row = 0; row < rows; ++row)
            samples.y[row] = sample(row);
        graph->setData(samples.x, samples.y, true);
    });
}
#endif

void value(benchmark::State& state)
{
    const int rows = rowsOf(state);
    auto& rig = rigOf<ProfileRig>(1, rows);
    double sum = 0.0;
    fill(state, [&, rows] {
        for (int row = 0; row < rows; ++row)
            sum += rig.view->value(1, row);
        benchmark::DoNotOptimize(sum);
    });
}

void sizes(benchmark::internal::Benchmark* path)
{
    path->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(setValue)->Name("BM_TableFill/ovl")->Apply(sizes);
BENCHMARK(bareStores)->Name("BM_TableFill/floor")->Apply(sizes);
BENCHMARK(setVariant)->Name("BM_TableFill/stock")->Apply(sizes);
BENCHMARK(value)->Name("BM_TableRead/ovl")->Apply(sizes);
#ifdef OVL_HAVE_QWT
BENCHMARK(fillQwt)->Name("BM_TableFill/qwt")->Apply(sizes);
#endif
#ifdef OVL_HAVE_QCUSTOMPLOT
BENCHMARK(fillQCustomPlot)->Name("BM_TableFill/qcustomplot")->Apply(sizes);
#endif

} // namespace

int main(int argc, char** argv) { return run(argc, argv); }
