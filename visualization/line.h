// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_LINE_H
#define OVL_VISUALIZATION_LINE_H

#include "point.h"

namespace ovl {

/**
 * A segment between two points of its own, with the tests that shapes need.
 *
 * All tests are exact, without tolerance, and read the ends as Point::x() and Point::y() give them:
 * an invisible end is NaN. A moved-from line may only be compared, assigned to or destroyed; any
 * other use stops a debug build. A line costs three allocations; none of its tests makes any.
 */
class OVL_EXPORT Line {
public:
    /** From (0, 0) to (0, 0). */
    Line();
    /** Between copies of the two points, their flags included. */
    Line(const Point& p1, const Point& p2);

    /** A deep copy, with ends of its own. */
    Line(const Line& other);
    Line& operator=(const Line& other);

    /** Takes over the ends of `other`, which is moved-from afterwards. */
    Line(Line&& other) noexcept;
    /** A line that is moved onto itself is moved-from afterwards. */
    Line& operator=(Line&& other) noexcept;

    ~Line();

    /** The ends themselves, to be changed at will; good until the line is assigned to, moved from
     * or destroyed. */
    Point* p1();
    Point* p2();

    /** Whether both are the same object, or both moved-from. A copy does not equal its original. */
    bool operator==(const Line& other);

    /** Half way between the ends, with default flags. */
    Point center() const;

    /** The distance between the ends, never negative. */
    double length() const;

    /**
     * How far along the line `point` projects, counted from p1() and never negative: not the
     * distance to the line. A point level with p1() gives 0, however far aside it lies; so does any
     * point for a line of no length.
     */
    double distanceFromPoint(const Point& point) const;

    /** Whether the two segments share a point; touching ends suffice. */
    bool intersect(const Line& other) const;
    /**
     * Whether `point` lies on the infinite line through both ends; it need not lie between them.
     * Every visible point lies on a line of no length; none lies on a line with an invisible end.
     */
    bool intersect(const Point& point) const;

private:
    friend class Shape;

    struct Private;
    Private* d;
};

} // namespace ovl

#endif
