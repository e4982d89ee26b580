// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_DISPLAYRANGE_H
#define OVL_GALLERY_DISPLAYRANGE_H

#include "image.h"

namespace ovl::gallery {

/** Settings with which something sensible is seen of an image. */
struct DisplayRange {
    int shift = 0; // bits, so that `brightest` still fits in 8
    int darkest = 0; // all but a thousandth of the samples lie from here ...
    int brightest = 255; // ... to here; above `darkest`
};

DisplayRange displayRangeOf(const Image& image);

} // namespace ovl::gallery

#endif
