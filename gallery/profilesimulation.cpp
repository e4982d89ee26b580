// SPDX-License-Identifier: BSD-3-Clause
#include "profilesimulation.h"

#include <algorithm>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr int kReach = 7; // samples to each side that are averaged

} // namespace

ProfileSimulation::ProfileSimulation(LaserProfiler& profiler)
    : laser(profiler)
{
    curves.titles = QStringList {QStringLiteral("Across the belt"), QStringLiteral("Height"),
        QStringLiteral("Smoothed"), QStringLiteral("Intensity")};
    curves.columns.assign(
        ColumnCount, std::vector<double>(static_cast<std::size_t>(laser.samples())));
    for (std::size_t i = 0; i < curves.rows(); ++i)
        curves.columns[X][i] = static_cast<double>(i) * laser.pitch();
    moveTo(0);
}

void ProfileSimulation::advance(double millimetres) { moveTo(belt + millimetres); }

void ProfileSimulation::moveTo(double position)
{
    belt = position;
    const LaserProfile& profile = laser.measure(belt);
    std::copy(profile.heights.begin(), profile.heights.end(), curves.columns[Height].begin());
    std::copy(
        profile.intensities.begin(), profile.intensities.end(), curves.columns[Intensity].begin());
    smooth();
}

/** A running mean that stays a gap where the height is one. */
void ProfileSimulation::smooth()
{
    const std::vector<double>& heights = curves.columns[Height];
    const int count = static_cast<int>(heights.size());
    for (int i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        double sum = 0;
        int found = 0;
        for (int j = std::max(0, i - kReach); j <= std::min(count - 1, i + kReach); ++j) {
            const double height = heights[static_cast<std::size_t>(j)];
            sum += std::isnan(height) ? 0 : height;
            found += std::isnan(height) ? 0 : 1;
        }
        curves.columns[Smoothed][at] = std::isnan(heights[at]) ? heights[at] : sum / found;
    }
}

} // namespace ovl::gallery
