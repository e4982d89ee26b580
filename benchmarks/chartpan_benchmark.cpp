// SPDX-License-Identifier: BSD-3-Clause
// Panning curves by the mouse: the event alone, and with the repaint after it. Run it once more
// with GALLIUM_NOOP=1 to leave out what the software driver takes.
#include "chartpeers.h"
#include "kerneltime.h"

namespace {

using namespace ovl::bench;

constexpr QPointF kGrab(400, 500); // below all curves

/** Holds the button and moves the mouse to and fro, with a call of `after` for each move. */
template <class After> void pan(benchmark::State& state, QWidget& widget, After after)
{
    sendMouse(widget, QEvent::MouseButtonPress, kGrab, true);
    int step = 0;
    const KernelTime kernel(state);
    for (auto _ : state) {
        sendMouse(widget, QEvent::MouseMove, kGrab + QPointF(++step % 2, 0), true);
        after();
    }
    sendMouse(widget, QEvent::MouseButtonRelease, kGrab, false);
}

template <int curves> void panEvent(benchmark::State& state)
{
    auto& rig = rigOf<ProfileRig>(curves, static_cast<int>(state.range(0)));
    pan(state, rig.widget, [] {});
}

template <int curves> void panRepaint(benchmark::State& state)
{
    auto& rig = rigOf<ProfileRig>(curves, static_cast<int>(state.range(0)));
    pan(state, rig.widget, [&rig] { rig.render(); });
}

/** A peer's program moves the axis itself. */
template <class Rig, int curves> [[maybe_unused]] void peerRepaint(benchmark::State& state)
{
    auto& rig = rigOf<Rig>(curves, static_cast<int>(state.range(0)));
    int step = 0;
    const KernelTime kernel(state);
    for (auto _ : state) {
        rig.shift(++step % 2);
        rig.render();
    }
}

/** The floor: the same window without curves. */
void emptyRepaint(benchmark::State& state)
{
    auto& rig = rigOf<ProfileRig>();
    pan(state, rig.widget, [&rig] { rig.render(); });
}

void tenCurves(benchmark::internal::Benchmark* path)
{
    path->RangeMultiplier(10)->Range(1000, 100000)->MeasureProcessCPUTime();
}

void oneCurve(benchmark::internal::Benchmark* path)
{
    path->RangeMultiplier(10)->Range(10000, 1000000)->MeasureProcessCPUTime();
}

BENCHMARK(panEvent<10>)->Name("BM_PanEventTenCurves/ovl")->Apply(tenCurves);
BENCHMARK(panEvent<1>)->Name("BM_PanEventOneCurve/ovl")->Apply(oneCurve);
BENCHMARK(panRepaint<10>)->Name("BM_PanRepaintTenCurves/ovl")->Apply(tenCurves);
BENCHMARK(panRepaint<1>)->Name("BM_PanRepaintOneCurve/ovl")->Apply(oneCurve);
BENCHMARK(emptyRepaint)->Name("BM_PanRepaintTenCurves/floor")->MeasureProcessCPUTime();
#ifdef OVL_HAVE_QWT
BENCHMARK(peerRepaint<QwtRig, 10>)->Name("BM_PanRepaintTenCurves/qwt")->Apply(tenCurves);
BENCHMARK(peerRepaint<QwtRig, 1>)->Name("BM_PanRepaintOneCurve/qwt")->Apply(oneCurve);
#endif
#ifdef OVL_HAVE_QCUSTOMPLOT
BENCHMARK(peerRepaint<QCustomPlotRig, 10>)
    ->Name("BM_PanRepaintTenCurves/qcustomplot")
    ->Apply(tenCurves);
BENCHMARK(peerRepaint<QCustomPlotRig, 1>)
    ->Name("BM_PanRepaintOneCurve/qcustomplot")
    ->Apply(oneCurve);
#endif

} // namespace

int main(int argc, char** argv) { return run(argc, argv); }
