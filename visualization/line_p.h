// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what a line keeps, for the classes that read many of them.
#ifndef OVL_VISUALIZATION_LINE_P_H
#define OVL_VISUALIZATION_LINE_P_H

#include "line.h"
#include "point_p.h"
#include "valuecontents.h"

namespace ovl {

struct OVL_HIDDEN Line::Private {
    Point p1;
    Point p2;

    Position start() const { return contents("Line::p1", p1.d).shown(); }
    Position end() const { return contents("Line::p2", p2.d).shown(); }
    Segment segment() const { return {start(), end()}; }
};

} // namespace ovl

#endif
