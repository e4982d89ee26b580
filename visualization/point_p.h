// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what a point keeps, for the classes that read many of them.
#ifndef OVL_VISUALIZATION_POINT_P_H
#define OVL_VISUALIZATION_POINT_P_H

#include "outlines.h"
#include "point.h"
#include "segment.h"

#include <limits>

namespace ovl {

struct OVL_HIDDEN Point::Private {
    double x = 0.0;
    double y = 0.0;
    bool visible = true;
    bool dragX = true;
    bool dragY = true;
    OutlineMark outline; // fills what would be padding

    Position shown() const
    {
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        return visible ? Position {x, y} : Position {nan, nan};
    }

    void moveTo(double newX, double newY)
    {
        x = newX;
        y = newY;
        outline.changed();
    }
};

} // namespace ovl

#endif
