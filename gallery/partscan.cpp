// SPDX-License-Identifier: BSD-3-Clause
#include "partscan.h"

#include <algorithm>

namespace ovl::gallery {
namespace {

constexpr double kMicrometres = 1000; // in a millimetre
constexpr double kProfilePitch = Conveyor::kPitch / PartScan::kProfiles; // mm
constexpr int kFirstProfiles = 2; // no surface has fewer

} // namespace

PartScan::PartScan()
{
    shown.columns = kSamples;
    shown.heights.resize(static_cast<std::size_t>(kSamples) * kProfiles);
    shown.values = shown.heights;
    shown.xPitch = profiler.pitch() * kMicrometres;
    shown.yPitch = kProfilePitch * kMicrometres;
    shown.zUnit = kMicrometres;
    const QString unit = QStringLiteral("mm");
    shown.x = {0, profiler.pitch(), 2, unit};
    shown.y = {0, kProfilePitch, 2, unit};
    shown.z = {0, 1, 3, unit};
    last = shown;
    beginPart(-1); // so that a finished part is there from the start
    scanUpTo(kProfiles);
    beginPart(0);
}

void PartScan::moveTo(double position)
{
    const int wanted = Conveyor::partNumber(position);
    if (wanted != part) {
        if (wanted != part + 1) // gone back, or far on
            beginPart(wanted - 1);
        scanUpTo(kProfiles);
        beginPart(wanted);
    }
    const double along = position - part * Conveyor::kPitch;
    scanUpTo(static_cast<int>(along / kProfilePitch));
}

/** What was scanned last becomes the finished part; no memory is taken. */
void PartScan::beginPart(int number)
{
    std::swap(shown, last);
    part = number;
    shown.rows = 0;
    scanUpTo(kFirstProfiles);
}

void PartScan::scanUpTo(int profiles)
{
    const int end = std::min(profiles, kProfiles);
    for (; shown.rows < end; ++shown.rows) {
        const LaserProfile& profile
            = profiler.measure(part * Conveyor::kPitch + shown.rows * kProfilePitch);
        const std::size_t at = static_cast<std::size_t>(shown.rows) * kSamples;
        std::copy(profile.heights.begin(), profile.heights.end(),
            shown.heights.begin() + static_cast<std::ptrdiff_t>(at));
        std::copy(profile.intensities.begin(), profile.intensities.end(),
            shown.values.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

} // namespace ovl::gallery
