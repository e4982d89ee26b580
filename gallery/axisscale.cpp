// SPDX-License-Identifier: BSD-3-Clause
#include "axisscale.h"

#include <algorithm>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr double kSmallestSpan = 4; // fewer whole numbers frame too coarsely
constexpr double kLargestNumber = 1e8; // well within what an int holds
constexpr double kLargestExponent = 300;

} // namespace

Extent extentOf(const std::vector<double>& numbers)
{
    Extent extent {HUGE_VAL, -HUGE_VAL};
    for (const double number : numbers) { // a NaN loses every comparison
        extent.smallest = number < extent.smallest ? number : extent.smallest;
        extent.largest = number > extent.largest ? number : extent.largest;
    }
    return extent.smallest > extent.largest ? Extent {0, 1} : extent;
}

Extent united(const Extent& one, const Extent& other)
{
    return {std::min(one.smallest, other.smallest), std::max(one.largest, other.largest)};
}

int exponentFor(const Extent& extent)
{
    const double span = extent.largest - extent.smallest;
    const double greatest = std::max(std::abs(extent.smallest), std::abs(extent.largest));
    double exponent = 0; // of the least numbers it is infinite, before it is bounded
    if (span > 0 && span < kSmallestSpan)
        exponent = std::ceil(std::log10(10 * kSmallestSpan / span));
    exponent = std::min(exponent, kLargestExponent);
    if (greatest > 0) // rather a coarse frame than numbers that do not fit
        exponent = std::min(exponent, std::floor(std::log10(kLargestNumber / greatest)));
    return static_cast<int>(std::max(exponent, -kLargestExponent));
}

HomeRange homeRangeFor(const Extent& extent, double room)
{
    const double margin = room * (extent.largest - extent.smallest);
    HomeRange range {static_cast<int>(std::floor(extent.smallest - margin)),
        static_cast<int>(std::ceil(extent.largest + margin))};
    if (range.from == range.to)
        ++range.to;
    return range;
}

HomeRange beforeWidening(
    const HomeRange& wanted, const HomeRange& other, int pixels, int otherPixels)
{
    if (pixels <= otherPixels || pixels < 1)
        return wanted;
    const double extent = std::abs(static_cast<double>(other.to) - other.from);
    const double share = 1.0 - static_cast<double>(otherPixels) / pixels;
    const auto added = static_cast<int>(std::floor(extent * share * 0.5));
    return {wanted.from + added, wanted.to - added};
}

} // namespace ovl::gallery
