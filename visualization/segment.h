// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: the geometry of lines on plain coordinates. A hit test visits
// every line of every shape at each mouse move, so nothing in here allocates.
#ifndef OVL_VISUALIZATION_SEGMENT_H
#define OVL_VISUALIZATION_SEGMENT_H

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace ovl {

/** What can be read of a point: both coordinates are NaN while it is invisible. */
struct Position {
    double x;
    double y;
};

enum class Turn { None, Left, Right };

struct Segment {
    Position a;
    Position b;
};

/** Where the way from a over b to c turns. Exact, without tolerance; a NaN counts as right. */
inline Turn orientation(Position a, Position b, Position c)
{
    const double turn = (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
    if (turn == 0.0)
        return Turn::None;
    return turn > 0.0 ? Turn::Left : Turn::Right;
}

/** Whether `q` lies in the box that `p` and `r` span, its edges included. */
inline bool onSegment(Position p, Position q, Position r)
{
    return q.x >= std::min(p.x, r.x) && q.x <= std::max(p.x, r.x) && q.y >= std::min(p.y, r.y)
        && q.y <= std::max(p.y, r.y);
}

/** Whether the two share a point, be it only an end. */
inline bool intersect(const Segment& one, const Segment& other)
{
    const Turn o1 = orientation(one.a, one.b, other.a);
    const Turn o2 = orientation(one.a, one.b, other.b);
    const Turn o3 = orientation(other.a, other.b, one.a);
    const Turn o4 = orientation(other.a, other.b, one.b);
    if (o1 != o2 && o3 != o4)
        return true;
    return (o1 == Turn::None && onSegment(one.a, other.a, one.b))
        || (o2 == Turn::None && onSegment(one.a, other.b, one.b))
        || (o3 == Turn::None && onSegment(other.a, one.a, other.b))
        || (o4 == Turn::None && onSegment(other.a, one.b, other.b));
}

/** Whether all of the segment lies above, or all of it below, the height `y`. */
inline bool passesBy(const Segment& line, double y)
{
    return (line.a.y > y && line.b.y > y) || (line.a.y < y && line.b.y < y);
}

/** Whether differences of such abscissas stay finite. */
inline bool isTame(double x) { return std::fabs(x) < DBL_MAX / 4; }

/** Whether `line` intersects the ray that runs from `point` towards negative x. */
inline bool meetsRay(const Segment& line, Position point)
{
    // The ray is horizontal, so that a line on one side of it turns the same way at both ends and
    // cannot meet it. Only an infinite difference of abscissas would come out otherwise.
    if (passesBy(line, point.y) && isTame(line.a.x) && isTame(line.b.x) && isTame(point.x))
        return false;
    return intersect(line, Segment {{-DBL_MAX, point.y}, point});
}

} // namespace ovl

#endif
