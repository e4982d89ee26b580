// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_CURSORTYPE_H
#define OVL_VISUALIZATION_CURSORTYPE_H

namespace ovl {

/** The mouse cursor that a chart asks its view for. */
enum class CursorType {
    Default = 0, ///< nothing special under the mouse
    Cross = 1, ///< the same, in a chart with a crosshair cursor
    Move = 2, ///< inside a shape that can be dragged, and on none of its handles
};

} // namespace ovl

#endif
