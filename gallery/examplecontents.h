// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_EXAMPLECONTENTS_H
#define OVL_GALLERY_EXAMPLECONTENTS_H

#include "filecontents.h"

namespace ovl::gallery {

/** Computed contents for those who have no file at hand, and for the pictures in the documents. */
enum class Example {
    Terrain, // a grid of heights with valleys and a lake
    Recording, // a table of four channels
    Slice, // an image of 16 bits
};

/** The same every time; what summarise() counts is filled in. */
SharedContents exampleContents(Example example);

} // namespace ovl::gallery

#endif
