// SPDX-License-Identifier: BSD-3-Clause
#include "spacepeers.h"
#include "spacerig.h"
#include "spacestock.h"
#include <visualization/surfaceview.h>

#include <algorithm>
#include <vector>

namespace bench = ovl::bench;

namespace {

using SurfaceRig = bench::ViewRig<ovl::SurfaceView>;

/** The stores that a sample takes at least: position and value. */
void bareStores(benchmark::State& state)
{
    const bench::Grid grid(bench::samplesOf(state));
    const auto count = static_cast<std::size_t>(grid.size());
    std::vector<float> positions(3 * count);
    std::vector<double> values(count);
    int frame = 0;
    for (auto _ : state) {
        bench::eachSample(grid, ++frame, [&](int at, double x, double y, double z, double value) {
            const auto index = static_cast<std::size_t>(at);
            positions[3 * index] = static_cast<float>(y);
            positions[3 * index + 1] = static_cast<float>(x);
            positions[3 * index + 2] = static_cast<float>(z);
            values[index] = value;
        });
        benchmark::ClobberMemory();
    }
    bench::perSample(state);
}

} // namespace

int main(int argc, char** argv)
{
    QSurfaceFormat::setDefaultFormat(ovl::compat::HostWidget::defaultFormat());
    const QApplication application(argc, argv);
    bench::addMemory<SurfaceRig>("Surface", "ovl"); // first: the heap is still tidy
    bench::addMemory<bench::StockSurfaceRig>("Surface", "stock");
    bench::add("SurfaceFill", "floor", bareStores, benchmark::kMillisecond);
    bench::addFrames<bench::EmptyRig>("Surface", "floor");
    bench::addHover<bench::EmptyRig>("Surface", "floor");
    bench::addAll<SurfaceRig>("Surface", "ovl");
    bench::addAll<bench::StockSurfaceRig>("Surface", "stock");
#ifdef OVL_HAVE_DATAVISUALIZATION
    constexpr int patience = 100000; // ten times as many take it eight seconds a frame
    bench::addFrames<bench::HeightsRig>(
        "Surface", "datavisualization", std::min(patience, bench::mostSamples()));
#endif
    return bench::run(argc, argv);
}
