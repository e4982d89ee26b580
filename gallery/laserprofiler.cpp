// SPDX-License-Identifier: BSD-3-Clause
#include "laserprofiler.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovl::gallery {
namespace {

constexpr float kHeightNoise = 0.004F; // mm
constexpr float kSteepest = 2.5F; // mm of height over a mm across; more throws the light away
constexpr float kDarkest = 0.05F; // below, the light that comes back may not do

} // namespace

LaserProfiler::LaserProfiler(int samples)
    : line(static_cast<std::size_t>(samples))
{
    profile.heights.resize(line.size());
    profile.intensities.resize(line.size());
}

const LaserProfile& LaserProfiler::measure(double position)
{
    conveyor.lineAt(position, line);
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Spot& spot = line[i];
        if (isLost(i)) {
            profile.heights[i] = std::numeric_limits<float>::quiet_NaN();
            profile.intensities[i] = std::numeric_limits<float>::quiet_NaN();
            continue;
        }
        profile.heights[i] = spot.height + kHeightNoise * noise.bell();
        // The laser is red.
        const float back = 90.0F * spot.red * (1.0F + 0.04F * noise.bell());
        profile.intensities[i] = std::clamp(back, 0.0F, 100.0F);
    }
    return profile;
}

bool LaserProfiler::isLost(std::size_t sample)
{
    const Spot& spot = line[sample];
    if (spot.hole)
        return true;
    const float next = line[sample + 1 < line.size() ? sample + 1 : sample].height;
    if (std::abs(next - spot.height) > kSteepest * static_cast<float>(pitch()))
        return true;
    const float chance = noise.unit();
    return chance < 0.001F || (spot.red < kDarkest && chance < 0.05F)
        || (spot.gloss > 0.85F && chance < 0.015F);
}

} // namespace ovl::gallery
