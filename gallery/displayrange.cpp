// SPDX-License-Identifier: BSD-3-Clause
#include "displayrange.h"

#include <vector>

namespace ovl::gallery {
namespace {

using Histogram = std::vector<std::size_t>;

/** The value below which less than `share` samples lie. */
int percentile(const Histogram& histogram, std::size_t share)
{
    std::size_t seen = 0;
    for (std::size_t value = 0; value < histogram.size(); ++value) {
        seen += histogram[value];
        if (seen > share)
            return static_cast<int>(value);
    }
    return static_cast<int>(histogram.size() - 1);
}

} // namespace

DisplayRange displayRangeOf(const Image& image)
{
    const std::size_t count = image.samples();
    Histogram histogram(65536);
    for (std::size_t i = 0; i < count; ++i)
        ++histogram[static_cast<std::size_t>(image.sample(i))];
    DisplayRange range;
    if (count == 0)
        return range;
    const std::size_t outliers = count / 1000;
    range.darkest = percentile(histogram, outliers);
    range.brightest = percentile(histogram, count - 1 - outliers);
    if (range.brightest <= range.darkest)
        range.brightest = range.darkest + 1;
    while (range.brightest >> range.shift > 255)
        ++range.shift;
    return range;
}

} // namespace ovl::gallery
