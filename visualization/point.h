// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_POINT_H
#define OVL_VISUALIZATION_POINT_H

#include "export.h"

namespace ovl {

/**
 * A position in a chart's data coordinates that knows whether it is shown and whether a drag may
 * move it.
 *
 * An invisible point keeps its coordinates, but reads as NaN, so that whatever is computed from it
 * comes out as NaN too. A moved-from point may only be assigned to or destroyed; any other use
 * stops a debug build. Each point costs one allocation.
 */
class OVL_EXPORT Point {
public:
    /** (0, 0), visible, to be dragged along both axes. */
    Point();
    /** (x, y), visible, to be dragged along both axes. */
    Point(double x, double y);

    /** A copy of the position and of the three flags. */
    Point(const Point& other);
    Point& operator=(const Point& other);

    /** Takes over the contents of `other`, which is moved-from afterwards. */
    Point(Point&& other) noexcept;
    /** A point that is moved onto itself is moved-from afterwards. */
    Point& operator=(Point&& other) noexcept;

    ~Point();

    /** The coordinate while the point is visible, else a quiet NaN. */
    double x() const;
    double y() const;

    /**
     * Compares x() and y() exactly, and not the flags. An invisible point equals no point, not even
     * itself.
     */
    bool operator==(const Point& other) const;

    /**
     * Sum or difference of x() and of y(), with the flags of this point. Both coordinates are NaN
     * when either point is invisible.
     */
    Point operator+(const Point& other) const;
    Point operator-(const Point& other) const;

    /** Unlike the two above, these work on the stored coordinates, visible or not; no flag changes.
     */
    Point& operator+=(const Point& other);
    Point& operator-=(const Point& other);

    /** Write the stored coordinates, visible or not; no flag changes. Any number is taken. */
    void set(double x, double y);
    void setX(double x);
    void setY(double y);

    /** Whether the point is shown; default true. Hiding a point does not lose its coordinates. */
    void setVisible(bool visible);
    bool visible() const;

    /** Whether a drag may move the point along x; default true. */
    void allowDragOnX(bool allowed);
    bool canDragOnX() const;

    /** Whether a drag may move the point along y; default true. */
    void allowDragOnY(bool allowed);
    bool canDragOnY() const;

    /** Takes the three flags of `other` and nothing else: its state on this point's position. */
    void shallowCopy(const Point& other);

private:
    friend class Line;
    friend class Shape;

    struct Private;
    Private* d;
};

} // namespace ovl

#endif
