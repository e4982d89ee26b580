// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_AXISSCALE_H
#define OVL_GALLERY_AXISSCALE_H

#include "heightmap.h"

namespace ovl::gallery {

/** A home range of the profile view, which takes whole numbers only. */
struct HomeRange {
    int from = 0;
    int to = 1;
};

/** The smallest and the largest of some numbers, NaN left out; 0 to 1 when all of them are. */
Extent extentOf(const std::vector<double>& numbers);

/** The extent that holds both. */
Extent united(const Extent& one, const Extent& other);

/**
 * The power of ten by which numbers are multiplied before they go to the view, so that whole
 * numbers can frame them: 0 for most data.
 */
int exponentFor(const Extent& extent);

/** The whole numbers round an extent, with some room at both ends. */
HomeRange homeRangeFor(const Extent& extent, double room);

/**
 * What to ask for so that the view shows `wanted` along an axis.
 *
 * The view widens the bottom range in a window that is wider than high, and the left range in one
 * that is higher than wide, by a share of the other axis's extent, whatever that counts. Taking the
 * same number off in advance leaves what was wanted, or one more at an end.
 */
HomeRange beforeWidening(
    const HomeRange& wanted, const HomeRange& other, int pixels, int otherPixels);

} // namespace ovl::gallery

#endif
