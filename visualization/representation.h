// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_REPRESENTATION_H
#define OVL_VISUALIZATION_REPRESENTATION_H

namespace ovl {

/** How a surface is drawn. Any other number means Surface. */
enum class Representation : int {
    Surface = 0, ///< filled quadrilaterals
    Points = 1, ///< the samples only
    Wireframe = 2, ///< the edges of the quadrilaterals
};

} // namespace ovl

#endif
