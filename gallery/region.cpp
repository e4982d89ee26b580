// SPDX-License-Identifier: BSD-3-Clause
#include "region.h"

#include <algorithm>
#include <cmath>

namespace ovl::gallery {
namespace {

/** Moves the nearer of two sides if `at` lies nearer to it than to the middle between them. */
void resize(double& low, double& high, double at, double distance)
{
    const double share = (at - low) / (high - low);
    if (share < 0.25)
        low += distance;
    else if (share > 0.75)
        high += distance;
}

enum class End { First, Middle, Second };

End endAt(const Segment& segment, const Place& at)
{
    const double along = segment.second.x - segment.first.x;
    const double up = segment.second.y - segment.first.y;
    const double square = along * along + up * up;
    const double share = square > 0
        ? ((at.x - segment.first.x) * along + (at.y - segment.first.y) * up) / square
        : 0;
    return share < 0.25 ? End::First : share > 0.75 ? End::Second : End::Middle;
}

} // namespace

void Box::moveX(double distance)
{
    left += distance;
    right += distance;
}

void Box::moveY(double distance)
{
    bottom += distance;
    top += distance;
}

void Box::resizeX(double at, double distance) { resize(left, right, at, distance); }

void Box::resizeY(double at, double distance) { resize(bottom, top, at, distance); }

std::array<Edge, 4> Box::edges() const
{
    const Place lowerLeft {left, bottom};
    const Place lowerRight {right, bottom};
    const Place upperRight {right, top};
    const Place upperLeft {left, top};
    return {{{lowerLeft, lowerRight}, {lowerRight, upperRight}, {upperRight, upperLeft},
        {upperLeft, lowerLeft}}};
}

void Box::putInOrder()
{
    if (left > right)
        std::swap(left, right);
    if (bottom > top)
        std::swap(bottom, top);
}

void Segment::moveX(double distance)
{
    first.x += distance;
    second.x += distance;
}

void Segment::moveY(double distance)
{
    first.y += distance;
    second.y += distance;
}

void Segment::resizeX(const Place& at, double distance)
{
    const End end = endAt(*this, at);
    first.x += end != End::Second ? distance : 0;
    second.x += end != End::First ? distance : 0;
}

void Segment::resizeY(const Place& at, double distance)
{
    const End end = endAt(*this, at);
    first.y += end != End::Second ? distance : 0;
    second.y += end != End::First ? distance : 0;
}

double Segment::length() const { return std::hypot(second.x - first.x, second.y - first.y); }

bool Segment::passes(const Place& place, double xReach, double yReach) const
{
    // In units of the reaches, so that the two axes weigh the same.
    const double along = (second.x - first.x) / xReach;
    const double up = (second.y - first.y) / yReach;
    const double x = (place.x - first.x) / xReach;
    const double y = (place.y - first.y) / yReach;
    const double square = along * along + up * up;
    const double share = square > 0 ? std::clamp((x * along + y * up) / square, 0.0, 1.0) : 0;
    return std::hypot(x - share * along, y - share * up) <= 1;
}

Statistics statisticsIn(const Box& box, const std::vector<double>& x, const std::vector<double>& y)
{
    Statistics result;
    double squares = 0; // of the distances from the running mean
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (!(x[i] >= box.left && x[i] <= box.right && y[i] >= box.bottom && y[i] <= box.top))
            continue; // also for a NaN
        ++result.count;
        const double distance = y[i] - result.mean;
        result.mean += distance / result.count;
        squares += distance * (y[i] - result.mean);
    }
    if (result.count > 1)
        result.deviation = std::sqrt(squares / (result.count - 1));
    return result;
}

} // namespace ovl::gallery
