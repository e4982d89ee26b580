// SPDX-License-Identifier: BSD-3-Clause
#include "framemeter.h"

#include <algorithm>

namespace ovl::gallery {
namespace {

constexpr std::int64_t kStill = 2000; // ms without a frame
constexpr double kWeight = 0.15; // of the newest interval
constexpr double kShortest = 0.5; // ms; two frames within the clock's resolution

} // namespace

void FrameMeter::addFrame(std::int64_t now)
{
    const std::int64_t since = now - last;
    if (!seen || since >= kStill) {
        interval = 0; // a new run
    } else {
        const double measured = std::max(static_cast<double>(since), kShortest);
        interval = interval > 0 ? interval + kWeight * (measured - interval) : measured;
    }
    seen = true;
    last = now;
}

double FrameMeter::rate(std::int64_t now) const
{
    const std::int64_t since = now - last;
    if (!seen || interval <= 0 || since >= kStill)
        return 0;
    // A pause that is already longer than the usual interval counts at once.
    return 1000.0 / std::max(interval, static_cast<double>(since));
}

} // namespace ovl::gallery
