// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: where the outlines of the shapes in charts are.
#ifndef OVL_VISUALIZATION_OUTLINES_H
#define OVL_VISUALIZATION_OUTLINES_H

#include "intervallanes.h"
#include "segment.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace ovl {

class Point;
class Shape;

/** Of an outline that is watched; 0 for none. */
using OutlineNumber = std::uint32_t;

/**
 * Tells which of many shapes can have a point inside, without asking each of them.
 *
 * Every mouse event of a chart asks about one point. The outlines of the shapes in charts are
 * numbered, and how far each reaches lies side by side here, to be gone through in one sweep. Only
 * the few that remain are asked, and those answer exactly what Shape::insidePolygon() does.
 *
 * A shape's lines and their ends carry its number, and whatever can change the answer tells the
 * number: such an outline reaches everywhere until it has been measured anew. An outline is
 * measured only if the reach can be trusted to the last bit; any other reaches everywhere, as does
 * a shape with a test of its own. Belongs on the GUI thread; points and lines that are in no chart
 * never come here.
 */
class Outlines {
public:
    Outlines() = delete;

    /** The number of the shape's outline, which stays with the shape; 0 for a moved-from shape. */
    static OutlineNumber watch(const Shape& shape);
    /** What Shape::insidePolygon() answers; the built-in test is not repeated for the same point.
     */
    static bool contains(Shape& shape, const Point& point);

    /** Whether reaches hold for such a point; else every shape must be asked. */
    static bool isOrdinary(Position place);
    /**
     * Calls `visit` with each number from `first` to `last` whose outline may contain `place`,
     * which must be ordinary. The numbers of others come along.
     */
    template <class Visit>
    static void sweep(OutlineNumber first, OutlineNumber last, Position place, Visit visit);
    /** False only when the outline does not contain `place`. Measures it if need be. */
    static bool mayContain(const Shape& shape, Position place);

    /** Another number than before whenever an answer may have changed for another reason. */
    static std::uint64_t changes();
    /** Another number than before whenever a number has been given up or gone to another shape. */
    static std::uint64_t moves();

    /** The outline reaches everywhere until it is measured anew. */
    static void changed(OutlineNumber number);
    static void release(OutlineNumber number);
    static void noteMove();

private:
    /** Between which heights a point can be inside, for so many outlines. */
    using Bands = IntervalLanes<double>;

    struct Reach;
    struct Survey;
    struct Register;

    static Register& all();
    static const Bands* bands();
    static void measure(const Shape& shape, OutlineNumber number);
};

/** In a point's or line's record: the outline that it is a part of. A copy is part of none. */
class OutlineMark {
public:
    OutlineMark() = default;
    OutlineMark(const OutlineMark&) noexcept { }
    OutlineMark& operator=(const OutlineMark&) = delete;
    ~OutlineMark() { changed(); }

    void join(OutlineNumber outline) { number = outline; }
    bool isPart() const { return number != 0; }
    void changed() const
    {
        if (number != 0)
            Outlines::changed(number);
    }
    void leave()
    {
        changed();
        number = 0;
    }

private:
    OutlineNumber number = 0;
};

/** In a shape's record: its own outline's number. A copy has none. */
class OutlineOwner {
public:
    OutlineOwner() = default;
    OutlineOwner(const OutlineOwner&) noexcept { }
    OutlineOwner& operator=(const OutlineOwner&) = delete;
    ~OutlineOwner()
    {
        if (number != 0)
            Outlines::release(number);
    }

    void changed() const
    {
        if (number != 0)
            Outlines::changed(number);
    }
    /** The record has gone over to another shape. */
    void moved() const
    {
        if (number != 0)
            Outlines::noteMove();
    }
    /** The record takes the place of another one in the same shape. */
    void replace(OutlineOwner& other)
    {
        number = other.number;
        other.number = 0;
        changed();
    }

private:
    friend class Outlines;

    OutlineNumber number = 0; // given when a chart looks at the shape first
};

template <class Visit>
void Outlines::sweep(OutlineNumber first, OutlineNumber last, Position place, Visit visit)
{
    if (last < first)
        return;
    const Bands* known = bands();
    for (std::size_t block = first / Bands::kCount; block <= last / Bands::kCount; ++block) {
        if (!known[block].anyMeets(place.y, place.y))
            continue;
        const std::size_t begin = block * Bands::kCount;
        const std::size_t end = std::min<std::size_t>(begin + Bands::kCount - 1, last);
        for (std::size_t number = std::max<std::size_t>(begin, first); number <= end; ++number)
            if (known[block].meets(number - begin, place.y, place.y))
                visit(static_cast<OutlineNumber>(number));
    }
}

} // namespace ovl

#endif
