// SPDX-License-Identifier: BSD-3-Clause
// What a host pays to bring many shapes into a view, of four lines and twelve handles each.
#include "chartpeers.h"

#include <memory>

namespace {

using namespace ovl::bench;

int countOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

/** The whole way of a new set of shapes, in place of another: add, draw, clear. */
void build(benchmark::State& state)
{
    ProfileRig rig;
    const auto round = [&] {
        rig.addBoxes(countOf(state));
        rig.view->drawShapes();
        rig.view->clearShape();
    };
    round();
    for (auto _ : state)
        round();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/** The same into a view that has had no shapes yet. */
void buildFirst(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto rig = std::make_unique<ProfileRig>();
        state.ResumeTiming();
        rig->addBoxes(countOf(state));
        rig->view->drawShapes();
        rig->view->clearShape();
        state.PauseTiming();
        rig.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Rig> void peerBuild(benchmark::State& state)
{
    auto& rig = rigOf<Rig>();
    for (auto _ : state) {
        rig.addBoxes(countOf(state));
        rig.clear();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/** The floor: the shapes by themselves. */
void bareShapes(benchmark::State& state)
{
    const int count = countOf(state);
    for (auto _ : state)
        for (int i = 0; i < count; ++i)
            benchmark::DoNotOptimize(makeBox(i, count));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/** Of shapes that are in the view: old plots away, new ones made, all in their order. */
void drawAgain(benchmark::State& state)
{
    auto& rig = rigOf<BoxRig>(countOf(state));
    for (auto _ : state)
        rig.view->drawShapes();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void redraw(benchmark::State& state)
{
    auto& rig = rigOf<BoxRig>(countOf(state));
    for (auto _ : state)
        rig.view->redrawShapes();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark* path)
{
    path->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(build)->Name("BM_ShapeBuild/ovl")->Apply(sizes);
BENCHMARK(buildFirst)->Name("BM_ShapeBuildFirst/ovl")->Apply(sizes);
BENCHMARK(bareShapes)->Name("BM_ShapeBuild/floor")->Apply(sizes);
BENCHMARK(drawAgain)->Name("BM_ShapeDrawAgain/ovl")->Apply(sizes);
BENCHMARK(redraw)->Name("BM_ShapeRedraw/ovl")->Apply(sizes);
BENCHMARK(peerBuild<GraphicsViewRig>)->Name("BM_ShapeBuild/qgraphicsview")->Apply(sizes);
#ifdef OVL_HAVE_QWT
BENCHMARK(peerBuild<QwtRig>)->Name("BM_ShapeBuild/qwt")->Apply(sizes);
#endif
#ifdef OVL_HAVE_QCUSTOMPLOT
BENCHMARK(peerBuild<QCustomPlotRig>)->Name("BM_ShapeBuild/qcustomplot")->Apply(sizes);
#endif

} // namespace

int main(int argc, char** argv) { return run(argc, argv); }
