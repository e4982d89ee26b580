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
    OutlineMark outline;

    Position start() const { return contents("Line::p1", p1.d).shown(); }
    Position end() const { return contents("Line::p2", p2.d).shown(); }
    Segment segment() const { return {start(), end()}; }

    /** Whether no end has been moved away. */
    bool isWhole() const { return p1.d && p2.d; }
    void joinOutline(OutlineNumber number)
    {
        for (OutlineMark* mark : {&outline, &p1.d->outline, &p2.d->outline})
            mark->join(number);
    }
    /** To be called when the record goes over to another line. */
    void leaveOutline()
    {
        if (!outline.isPart())
            return;
        outline.leave();
        for (const Point* end : {&p1, &p2})
            if (end->d)
                end->d->outline.leave();
    }
};

} // namespace ovl

#endif
