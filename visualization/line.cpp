// SPDX-License-Identifier: BSD-3-Clause
#include "line.h"

#include "line_p.h"

#include <vtkMath.h>

#include <cmath>

namespace ovl {

namespace {

Position position(const Point& point) { return {point.x(), point.y()}; }

} // namespace

Line::Line()
    : d(new Private)
{
}

Line::Line(const Point& p1, const Point& p2)
    : d(new Private {p1, p2, {}})
{
}

Line::Line(const Line& other)
    : d(copyOfContents("Line::Line", other.d))
{
}

Line::Line(Line&& other) noexcept
    : d(std::exchange(other.d, nullptr))
{
    if (d)
        d->leaveOutline();
}

Line::~Line() { delete d; }

Line& Line::operator=(const Line& other)
{
    if (this != &other)
        copyContents("Line::operator=", d, other.d);
    return *this;
}

Line& Line::operator=(Line&& other) noexcept
{
    moveContents(d, other.d);
    if (d)
        d->leaveOutline();
    return *this;
}

Point* Line::p1() { return &contents("Line::p1", d).p1; }

Point* Line::p2() { return &contents("Line::p2", d).p2; }

// Identity is what a line is compared by: its ends may be changed from outside at any time.
bool Line::operator==(const Line& other) { return d == other.d; }

Point Line::center() const
{
    const Segment line = contents("Line::center", d).segment();
    return {(line.b.x + line.a.x) * 0.5, (line.b.y + line.a.y) * 0.5};
}

double Line::length() const
{
    const Segment line = contents("Line::length", d).segment();
    return std::fabs(std::hypot(line.b.x - line.a.x, line.b.y - line.a.y));
}

double Line::distanceFromPoint(const Point& point) const
{
    const Segment line = contents("Line::distanceFromPoint", d).segment();
    const Position p = position(point);
    const double along[3] = {line.b.x - line.a.x, line.b.y - line.a.y, 0.0};
    const double toPoint[3] = {p.x - line.a.x, p.y - line.a.y, 0.0};
    const double length = vtkMath::Norm(along);
    if (length == 0.0)
        return 0.0;
    return std::fabs(vtkMath::Dot(toPoint, along)) / length;
}

bool Line::intersect(const Line& other) const
{
    return ovl::intersect(
        contents("Line::intersect", d).segment(), contents("Line::intersect", other.d).segment());
}

bool Line::intersect(const Point& point) const
{
    const Segment line = contents("Line::intersect", d).segment();
    return orientation(line.a, position(point), line.b) == Turn::None;
}

} // namespace ovl
