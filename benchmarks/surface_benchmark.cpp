// SPDX-License-Identifier: BSD-3-Clause
#include "spacerig.h"
#include <visualization/surfaceview.h>

#include <vtkDoubleArray.h>
#include <vtkPoints.h>

#include <vector>

using ovl::SurfaceView;

namespace {

constexpr int side = 1000;

void BM_SetPoint_ByView(benchmark::State& state) { ovl::bench::setPoint<SurfaceView>(state); }

void BM_SetPoint_ByBareStores(benchmark::State& state)
{
    const int edge = static_cast<int>(state.range(0));
    const auto count = static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge);
    std::vector<float> positions(3 * count);
    std::vector<double> values(count);
    for (auto _ : state) {
        for (std::size_t index = 0; index < count; ++index) {
            positions[3 * index] = static_cast<float>(index);
            positions[3 * index + 1] = 2.0F;
            positions[3 * index + 2] = 1.0F;
            values[index] = 3.0;
        }
        benchmark::ClobberMemory();
    }
    ovl::bench::perPoint(state, static_cast<double>(count));
}

void BM_SetPoint_ByFramework(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0) * state.range(0));
    const auto points = vtkSmartPointer<vtkPoints>::New();
    const auto values = vtkSmartPointer<vtkDoubleArray>::New();
    points->SetNumberOfPoints(count);
    values->SetNumberOfTuples(count);
    for (auto _ : state)
        for (int index = 0; index < count; ++index) {
            points->SetPoint(index, 1.0 * index, 2.0, 1.0);
            values->SetValue(index, 3.0);
        }
    ovl::bench::perPoint(state, count);
}

void BM_Frame_ByView(benchmark::State& state) { ovl::bench::frame<SurfaceView>(state); }
void BM_MoveAtRest_ByView(benchmark::State& state) { ovl::bench::moveAtRest<SurfaceView>(state); }
void BM_MoveAtRest_ByStockPicker(benchmark::State& state)
{
    ovl::bench::stockPick<SurfaceView>(state);
}
void BM_Memory_OfView(benchmark::State& state) { ovl::bench::memory<SurfaceView>(state); }

BENCHMARK(BM_Memory_OfView)->Arg(side)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_SetPoint_ByView)->Arg(side / 10)->Arg(side)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SetPoint_ByBareStores)->Arg(side / 10)->Arg(side)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SetPoint_ByFramework)->Arg(side / 10)->Arg(side)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Frame_ByView)->Arg(side)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MoveAtRest_ByView)->Arg(side)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_MoveAtRest_ByStockPicker)->Arg(side)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) { return ovl::bench::run(argc, argv); }
