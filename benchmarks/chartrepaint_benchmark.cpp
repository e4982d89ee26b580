// SPDX-License-Identifier: BSD-3-Clause
// Repainting a chart with many shapes, of four lines and twelve handles each. Run it once more with
// GALLIUM_NOOP=1 to leave out what the software driver takes.
#include "chartpeers.h"
#include "kerneltime.h"

namespace {

using namespace ovl::bench;

template <class Rig> void repaint(benchmark::State& state, Rig& rig)
{
    const KernelTime kernel(state);
    for (auto _ : state)
        rig.render();
}

void repaintShapes(benchmark::State& state)
{
    repaint(state, rigOf<BoxRig>(static_cast<int>(state.range(0))));
}

template <class Rig> [[maybe_unused]] void repaintBoxes(benchmark::State& state)
{
    repaint(state, rigOf<BoxesOf<Rig>>(static_cast<int>(state.range(0))));
}

/** The floor: the same window without shapes. */
void repaintNothing(benchmark::State& state) { repaint(state, rigOf<ProfileRig>()); }

void sizes(benchmark::internal::Benchmark* path)
{
    path->RangeMultiplier(10)
        ->Range(100, 10000)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
}

BENCHMARK(repaintShapes)->Name("BM_RepaintShapes/ovl")->Apply(sizes);
BENCHMARK(repaintNothing)
    ->Name("BM_RepaintShapes/floor")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK(repaintBoxes<GraphicsViewRig>)->Name("BM_RepaintShapes/qgraphicsview")->Apply(sizes);
#ifdef OVL_HAVE_QWT
BENCHMARK(repaintBoxes<QwtRig>)->Name("BM_RepaintShapes/qwt")->Apply(sizes);
#endif
#ifdef OVL_HAVE_QCUSTOMPLOT
BENCHMARK(repaintBoxes<QCustomPlotRig>)->Name("BM_RepaintShapes/qcustomplot")->Apply(sizes);
#endif

} // namespace

int main(int argc, char** argv) { return run(argc, argv); }
