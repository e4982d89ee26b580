// SPDX-License-Identifier: BSD-3-Clause
#include "outlines.h"

#include "shape_p.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace ovl {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// An orientation is the sign of a difference of two products. Between these bounds no product
// overflows or is lost, and the infinite end of the test's ray decides its orientations by its
// sign.
constexpr double kMost = 1e100;
constexpr double kLeast = 1e-100;
// How far aside a point must be, as a part of the outline's width, for the sign to be certain: the
// products are off by some units of 2^-53 each.
constexpr double kSlack = 0x1p-48;

/** Of more lines the heights are not looked into: that takes longer than the test. */
constexpr std::size_t kMostLines = 64;

bool isNumber(Position place) { return !std::isnan(place.x) && !std::isnan(place.y); }

} // namespace

/** How far an outline reaches aside, between the heights of its band. */
struct Outlines::Reach {
    double left = -kInfinity;
    double right = kInfinity; ///< beyond, a point is inside only at the height of an end
    std::vector<double> heights; ///< of ends, in order, without the band's own two
    bool isKnown = false;
    bool isAnswered = false; ///< the test has been made for `place`
    bool inside = false;
    Position place {0.0, 0.0};
};

struct Outlines::Register {
    void setBand(OutlineNumber number, double bottom, double top)
    {
        bands[number / Bands::kCount].set(number % Bands::kCount, bottom, top);
    }
    void setBandEverywhere(OutlineNumber number) { setBand(number, -kInfinity, kInfinity); }
    void setBandNowhere(OutlineNumber number) { setBand(number, kInfinity, -kInfinity); }

    double bottom(OutlineNumber number) const
    {
        return bands[number / Bands::kCount].lower(number % Bands::kCount);
    }
    double top(OutlineNumber number) const
    {
        return bands[number / Bands::kCount].upper(number % Bands::kCount);
    }

    /** A number that nobody has had yet. */
    OutlineNumber addNumber()
    {
        const auto number = static_cast<OutlineNumber>(reaches.size());
        reaches.emplace_back();
        if (number % Bands::kCount == 0) {
            bands.emplace_back();
            for (OutlineNumber lane = 0; lane < Bands::kCount; ++lane)
                setBandNowhere(number + lane);
        }
        return number;
    }

    std::vector<Bands> bands;
    std::vector<Reach> reaches;
    std::vector<OutlineNumber> unused;
    std::uint64_t changes = 0;
    std::uint64_t moves = 0;
};

/** Goes round an outline and finds out how far it reaches. */
struct Outlines::Survey {
    void add(const Segment& line)
    {
        const bool hasStart = isNumber(line.a);
        const bool hasEnd = isNumber(line.b);
        if (hasStart)
            widen(line.a);
        if (hasEnd)
            widen(line.b);
        const double rise = std::fabs(line.b.y - line.a.y);
        if (hasStart && hasEnd && rise > 0.0 && rise < kLeast)
            isTrusted = false;
        if (hasStart != hasEnd)
            isClosed = false;
        if (hasStart && hasEnd && isClosed)
            heights.insert(heights.end(), {line.a.y, line.b.y});
    }

    void widen(Position end)
    {
        if (!isOrdinary(end))
            isTrusted = false;
        bottom = std::min(bottom, end.y);
        top = std::max(top, end.y);
        left = std::min(left, end.x);
        right = std::max(right, end.x);
    }

    /**
     * To the right of all lines, the ray meets those that pass through its height. Their number is
     * even at every height but those of ends, if an even number of ends lies at each of these.
     */
    bool pairHeights()
    {
        std::sort(heights.begin(), heights.end());
        std::size_t kept = 0;
        for (std::size_t i = 0; i < heights.size(); i += 2) {
            if (heights[i] != heights[i + 1])
                return false;
            if (kept == 0 || heights[kept - 1] != heights[i])
                heights[kept++] = heights[i];
        }
        heights.resize(kept);
        return true;
    }

    /** Leaves out the lowest and the highest, which are the band's. */
    std::vector<double> innerHeights() const
    {
        return heights.size() > 2 ? std::vector<double>(heights.begin() + 1, heights.end() - 1)
                                  : std::vector<double>();
    }

    double bottom = kInfinity;
    double top = -kInfinity;
    double left = kInfinity;
    double right = -kInfinity;
    std::vector<double> heights;
    bool isTrusted = true;
    bool isClosed = true;
};

/** Never destroyed: a shape that outlives all else, as one in static storage may, still comes. */
Outlines::Register& Outlines::all()
{
    static Register* const theOnly = [] {
        auto* made = new Register;
        made->addNumber(); // 0, which means none
        return made;
    }();
    return *theOnly;
}

const Outlines::Bands* Outlines::bands() { return all().bands.data(); }

std::uint64_t Outlines::changes() { return all().changes; }

std::uint64_t Outlines::moves() { return all().moves; }

bool Outlines::isOrdinary(Position place)
{
    return std::fabs(place.x) < kMost && std::fabs(place.y) < kMost;
}

OutlineNumber Outlines::watch(const Shape& shape)
{
    if (!shape.d)
        return 0;
    OutlineNumber& number = shape.d->outline.number;
    if (number != 0)
        return number;
    Register& known = all();
    if (known.unused.empty()) {
        known.unused.push_back(known.addNumber());
        known.unused.reserve(known.reaches.capacity()); // giving a number back must not fail
    }
    number = known.unused.back();
    known.unused.pop_back();
    known.setBandEverywhere(number);
    return number;
}

void Outlines::release(OutlineNumber number)
{
    Register& known = all();
    known.setBandNowhere(number);
    known.reaches[number] = {};
    known.unused.push_back(number);
    ++known.changes;
    ++known.moves;
}

void Outlines::noteMove() { ++all().moves; }

void Outlines::changed(OutlineNumber number)
{
    Register& known = all();
    Reach& reach = known.reaches[number];
    if (!reach.isKnown) // so that it reaches everywhere already
        return;
    reach.isKnown = false;
    reach.isAnswered = false;
    known.setBandEverywhere(number);
    ++known.changes;
}

void Outlines::measure(const Shape& shape, OutlineNumber number)
{
    Survey survey;
    survey.isTrusted = !shape.d->insidePolygonCallback;
    survey.isClosed = shape.d->lines.size() <= kMostLines;
    const bool isWhole = !survey.isTrusted
        || shape.d->visitLines([&](const Segment& line) { survey.add(line); }, number);
    Reach& reach = all().reaches[number];
    reach.isKnown = isWhole; // a line or an end that was moved away would be replaced in silence
    reach.left = -kInfinity;
    reach.right = kInfinity;
    reach.heights.clear();
    if (!isWhole || !survey.isTrusted)
        return;
    const double slack = std::max((survey.right - survey.left) * kSlack, kLeast);
    all().setBand(number, survey.bottom, survey.top);
    reach.left = survey.left - slack;
    if (survey.isClosed && survey.pairHeights()) {
        reach.right = survey.right + slack;
        reach.heights = survey.innerHeights();
    }
}

bool Outlines::mayContain(const Shape& shape, Position place)
{
    const OutlineNumber number = watch(shape);
    if (number == 0)
        return true;
    const Register& known = all();
    const Reach& reach = known.reaches[number];
    if (!reach.isKnown)
        measure(shape, number);
    const double bottom = known.bottom(number);
    const double top = known.top(number);
    if (!(bottom <= place.y && place.y <= top && reach.left <= place.x))
        return false;
    return place.x <= reach.right || place.y == bottom || place.y == top
        || std::binary_search(reach.heights.begin(), reach.heights.end(), place.y);
}

bool Outlines::contains(Shape& shape, const Point& point)
{
    const OutlineNumber number = watch(shape);
    if (number == 0 || shape.d->insidePolygonCallback)
        return shape.insidePolygon(point);
    const Position place {point.x(), point.y()};
    Reach& reach = all().reaches[number];
    if (!reach.isKnown)
        measure(shape, number);
    const bool isSame = reach.isAnswered && reach.place.x == place.x && reach.place.y == place.y;
    if (!isSame) {
        reach.inside = shape.insidePolygon(point);
        reach.isAnswered = reach.isKnown;
        reach.place = place;
    }
    return reach.inside;
}

} // namespace ovl
