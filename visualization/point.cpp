// SPDX-License-Identifier: BSD-3-Clause
#include "point.h"

#include "point_p.h"
#include "valuecontents.h"

namespace ovl {

Point::Point()
    : d(new Private)
{
}

Point::Point(double x, double y)
    : d(new Private)
{
    d->x = x;
    d->y = y;
}

Point::Point(const Point& other)
    : d(copyOfContents("Point::Point", other.d))
{
}

Point::Point(Point&& other) noexcept
    : d(std::exchange(other.d, nullptr))
{
    if (d)
        d->outline.leave();
}

Point::~Point() { delete d; }

Point& Point::operator=(const Point& other)
{
    if (this != &other)
        copyContents("Point::operator=", d, other.d);
    return *this;
}

Point& Point::operator=(Point&& other) noexcept
{
    moveContents(d, other.d);
    if (d)
        d->outline.leave();
    return *this;
}

double Point::x() const
{
    const Private& point = contents("Point::x", d);
    return point.shown().x;
}

double Point::y() const
{
    const Private& point = contents("Point::y", d);
    return point.shown().y;
}

bool Point::operator==(const Point& other) const { return x() == other.x() && y() == other.y(); }

Point Point::operator+(const Point& other) const
{
    Point sum(x() + other.x(), y() + other.y());
    sum.shallowCopy(*this);
    return sum;
}

Point Point::operator-(const Point& other) const
{
    Point difference(x() - other.x(), y() - other.y());
    difference.shallowCopy(*this);
    return difference;
}

Point& Point::operator+=(const Point& other)
{
    Private& point = contents("Point::operator+=", d);
    const Private& step = contents("Point::operator+=", other.d);
    point.moveTo(point.x + step.x, point.y + step.y);
    return *this;
}

Point& Point::operator-=(const Point& other)
{
    Private& point = contents("Point::operator-=", d);
    const Private& step = contents("Point::operator-=", other.d);
    point.moveTo(point.x - step.x, point.y - step.y);
    return *this;
}

void Point::set(double x, double y) { contents("Point::set", d).moveTo(x, y); }

void Point::setX(double x)
{
    Private& point = contents("Point::setX", d);
    point.moveTo(x, point.y);
}

void Point::setY(double y)
{
    Private& point = contents("Point::setY", d);
    point.moveTo(point.x, y);
}

void Point::setVisible(bool visible)
{
    Private& point = contents("Point::setVisible", d);
    point.visible = visible;
    point.outline.changed();
}

bool Point::visible() const { return contents("Point::visible", d).visible; }

void Point::allowDragOnX(bool allowed) { contents("Point::allowDragOnX", d).dragX = allowed; }

bool Point::canDragOnX() const { return contents("Point::canDragOnX", d).dragX; }

void Point::allowDragOnY(bool allowed) { contents("Point::allowDragOnY", d).dragY = allowed; }

bool Point::canDragOnY() const { return contents("Point::canDragOnY", d).dragY; }

void Point::shallowCopy(const Point& other)
{
    Private& point = contents("Point::shallowCopy", d);
    const Private& state = contents("Point::shallowCopy", other.d);
    point.visible = state.visible;
    point.dragX = state.dragX;
    point.dragY = state.dragY;
    point.outline.changed();
}

} // namespace ovl
