// SPDX-License-Identifier: BSD-3-Clause
#include "spacepeers.h"
#include "spacerig.h"
#include "spacestock.h"
#include <visualization/pointcloudview.h>

#include <vector>

namespace bench = ovl::bench;

namespace {

using CloudRig = bench::ViewRig<ovl::PointCloudView>;

/** The stores that a sample takes at least: position, value and the list of points. */
void bareStores(benchmark::State& state)
{
    const bench::Grid grid(bench::samplesOf(state));
    const auto count = static_cast<std::size_t>(grid.size());
    std::vector<double> coordinates(3 * count);
    std::vector<double> values(count);
    std::vector<long long> ids(count);
    int frame = 0;
    for (auto _ : state) {
        bench::eachSample(grid, ++frame, [&](int at, double x, double y, double z, double value) {
            const auto index = static_cast<std::size_t>(at);
            coordinates[3 * index] = y;
            coordinates[3 * index + 1] = x;
            coordinates[3 * index + 2] = z;
            values[index] = value;
            ids[index] = at;
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
    bench::addMemory<CloudRig>("Cloud", "ovl"); // first: the heap is still tidy
    bench::addMemory<bench::StockCloudRig>("Cloud", "stock");
    bench::add("CloudFill", "floor", bareStores, benchmark::kMillisecond);
    bench::addFrames<bench::EmptyRig>("Cloud", "floor");
    bench::addHover<bench::EmptyRig>("Cloud", "floor");
    bench::addAll<CloudRig>("Cloud", "ovl");
    bench::addAll<bench::StockCloudRig>("Cloud", "stock");
#ifdef OVL_HAVE_DATAVISUALIZATION
    bench::addFrames<bench::ScatterRig>("Cloud", "datavisualization");
#endif
#ifdef OVL_HAVE_PCL
    bench::addFrames<bench::PclRig>("Cloud", "pcl");
#endif
    return bench::run(argc, argv);
}
