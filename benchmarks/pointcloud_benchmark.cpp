// SPDX-License-Identifier: BSD-3-Clause
#include "spacerig.h"
#include <visualization/pointcloudview.h>

#include <vtkCellArray.h>
#include <vtkDoubleArray.h>

#include <vector>

using ovl::PointCloudView;

namespace {

constexpr int side = 1000;

void BM_SetPoint_ByView(benchmark::State& state) { ovl::bench::setPoint<PointCloudView>(state); }

void BM_SetPoint_ByBareStores(benchmark::State& state)
{
    const int edge = static_cast<int>(state.range(0));
    const auto count = static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge);
    std::vector<double> coordinates(3 * count);
    std::vector<double> values(count);
    std::vector<long long> ids(count);
    for (auto _ : state) {
        for (std::size_t index = 0; index < count; ++index) {
            coordinates[3 * index] = static_cast<double>(index);
            coordinates[3 * index + 1] = 2.0;
            coordinates[3 * index + 2] = 1.0;
            values[index] = 3.0;
            ids[index] = static_cast<long long>(index);
        }
        benchmark::ClobberMemory();
    }
    ovl::bench::perPoint(state, static_cast<double>(count));
}

void BM_SetPoint_ByFramework(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0) * state.range(0));
    const auto coordinates = vtkSmartPointer<vtkDoubleArray>::New();
    const auto values = vtkSmartPointer<vtkDoubleArray>::New();
    const auto cells = vtkSmartPointer<vtkCellArray>::New();
    coordinates->SetNumberOfComponents(3);
    coordinates->SetNumberOfTuples(count);
    values->SetNumberOfTuples(count);
    for (auto _ : state) {
        cells->Reset();
        cells->InsertNextCell(count);
        for (int index = 0; index < count; ++index) {
            const double position[3] = {1.0 * index, 2.0, 1.0};
            coordinates->SetTuple(index, position);
            values->SetTuple1(index, 3.0);
            cells->InsertCellPoint(index);
        }
    }
    ovl::bench::perPoint(state, count);
}

void BM_Frame_ByView(benchmark::State& state) { ovl::bench::frame<PointCloudView>(state); }
void BM_MoveAtRest_ByView(benchmark::State& state)
{
    ovl::bench::moveAtRest<PointCloudView>(state);
}
void BM_MoveAtRest_ByStockPicker(benchmark::State& state)
{
    ovl::bench::stockPick<PointCloudView>(state);
}
void BM_Memory_OfView(benchmark::State& state) { ovl::bench::memory<PointCloudView>(state); }

BENCHMARK(BM_Memory_OfView)->Arg(side)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_SetPoint_ByView)->Arg(side / 10)->Arg(side)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SetPoint_ByBareStores)->Arg(side / 10)->Arg(side)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SetPoint_ByFramework)->Arg(side / 10)->Arg(side)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Frame_ByView)->Arg(side)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MoveAtRest_ByView)->Arg(side)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_MoveAtRest_ByStockPicker)->Arg(side)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) { return ovl::bench::run(argc, argv); }
