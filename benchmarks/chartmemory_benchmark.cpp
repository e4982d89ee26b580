// SPDX-License-Identifier: BSD-3-Clause
// The memory that a shown curve holds for each of its points, hit tests included. Run it with
// GALLIUM_NOOP=1, which leaves out what the software driver keeps.
#include "profilerig.h"
#include "residentmemory.h"

namespace {

using namespace ovl::bench;

void curve(benchmark::State& state)
{
    const int points = static_cast<int>(state.range(0));
    for (auto _ : state) {
        ProfileRig rig(1, 4);
        const double before = residentBytes();
        rig.fill(1, points);
        rig.view->drawPlots();
        rig.render();
        const int middle = points / 2;
        const QPointF onCurve = rig.position(curveX(middle, points), curveY(0, middle, points));
        sendMouse(rig.widget, QEvent::MouseMove, onCurve, false);
        state.counters["bytes_point"] = (residentBytes() - before) / points;
    }
}

BENCHMARK(curve)
    ->Name("BM_CurveMemory/ovl")
    ->RangeMultiplier(10)
    ->Range(10000, 1000000)
    ->Iterations(1);

} // namespace

int main(int argc, char** argv) { return run(argc, argv); }
