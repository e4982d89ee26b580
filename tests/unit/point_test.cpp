// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/point.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

using ovl::Point;

namespace {

std::uint64_t bits(double value)
{
    std::uint64_t pattern = 0;
    std::memcpy(&pattern, &value, sizeof pattern);
    return pattern;
}

constexpr std::uint64_t kQuietNan = 0x7FF8000000000000;

Point invisible(double x, double y)
{
    Point point(x, y);
    point.setVisible(false);
    return point;
}

/** Three flags that differ from the default in a way of their own for each `pattern`. */
Point flagged(double x, double y, int pattern)
{
    Point point(x, y);
    point.setVisible(pattern & 1);
    point.allowDragOnX(pattern & 2);
    point.allowDragOnY(pattern & 4);
    return point;
}

void expectFlags(const Point& point, int pattern)
{
    EXPECT_EQ(point.visible(), bool(pattern & 1));
    EXPECT_EQ(point.canDragOnX(), bool(pattern & 2));
    EXPECT_EQ(point.canDragOnY(), bool(pattern & 4));
}

void expectStored(Point point, double x, double y)
{
    point.setVisible(true);
    EXPECT_EQ(point.x(), x);
    EXPECT_EQ(point.y(), y);
}

TEST(Point, StandsAtTheOriginWithAllFlagsSet)
{
    const Point point;
    EXPECT_EQ(bits(point.x()), bits(0.0));
    EXPECT_EQ(bits(point.y()), bits(0.0));
    expectFlags(point, 7);
}

TEST(Point, TakesItsPositionWithAllFlagsSet)
{
    const Point point(1.5, -2.5);
    EXPECT_EQ(point.x(), 1.5);
    EXPECT_EQ(point.y(), -2.5);
    expectFlags(point, 7);
}

TEST(Point, ReadsAsQuietNanWhileInvisible)
{
    const Point point = invisible(3.0, 4.0);
    EXPECT_EQ(bits(point.x()), kQuietNan);
    EXPECT_EQ(bits(point.y()), kQuietNan);
}

TEST(Point, KeepsItsCoordinatesWhileInvisible)
{
    Point point = invisible(3.0, -0.0);
    point.setVisible(true);
    EXPECT_EQ(bits(point.x()), bits(3.0));
    EXPECT_EQ(bits(point.y()), bits(-0.0));
}

TEST(Point, SettersWriteTheStoredCoordinatesAndNoFlag)
{
    for (int pattern = 0; pattern < 8; ++pattern) {
        SCOPED_TRACE(pattern);
        Point point = flagged(0.0, 0.0, pattern);
        point.set(1.0, 2.0);
        expectStored(point, 1.0, 2.0);
        point.setX(5.0);
        expectStored(point, 5.0, 2.0);
        point.setY(6.0);
        expectStored(point, 5.0, 6.0);
        expectFlags(point, pattern);
    }
}

TEST(Point, FlagsAreIndependent)
{
    for (int pattern = 0; pattern < 8; ++pattern) {
        SCOPED_TRACE(pattern);
        expectFlags(flagged(0.0, 0.0, pattern), pattern);
    }
}

TEST(Point, CopiesCarryEverythingAndShareNothing)
{
    Point original = flagged(1.0, 2.0, 4);
    const Point copy(original);
    Point assigned;
    assigned = original;
    original.set(7.0, 8.0);
    original.setVisible(true);
    for (const Point* each : {&copy, static_cast<const Point*>(&assigned)}) {
        expectFlags(*each, 4);
        expectStored(*each, 1.0, 2.0);
    }
}

TEST(Point, AssignmentToItselfDoesNothing)
{
    Point point = flagged(1.0, 2.0, 2);
    const Point& same = point;
    point = same;
    expectFlags(point, 2);
    expectStored(point, 1.0, 2.0);
}

TEST(Point, MovesCarryEverything)
{
    Point source = flagged(1.0, 2.0, 6);
    Point built(std::move(source));
    expectFlags(built, 6);
    expectStored(built, 1.0, 2.0);
    Point assigned(9.0, 9.0);
    assigned = std::move(built);
    expectFlags(assigned, 6);
    expectStored(assigned, 1.0, 2.0);
}

TEST(Point, MayBeAssignedToAfterAMove)
{
    Point point(1.0, 2.0);
    const Point taken(std::move(point));
    point = taken;
    EXPECT_TRUE(point == taken);
    Point other(std::move(point));
    point = std::move(other);
    EXPECT_TRUE(point == taken);
}

TEST(Point, MayBeAssignedToAfterAMoveOntoItself)
{
    Point point(1.0, 2.0);
    Point& same = point;
    point = std::move(same);
    point = Point(3.0, 4.0);
    EXPECT_EQ(point.x(), 3.0);
}

TEST(Point, MovesDoNotThrow)
{
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Point>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Point>);
}

TEST(Point, HoldsOnePointerAndHasNoVirtualOperation)
{
    EXPECT_EQ(sizeof(Point), sizeof(void*));
    EXPECT_FALSE(std::is_polymorphic_v<Point>);
}

TEST(Point, ComparesExactly)
{
    EXPECT_TRUE(Point(0.1, 0.2) == Point(0.1, 0.2));
    EXPECT_FALSE(Point(0.1, 0.2) == Point(std::nextafter(0.1, 1.0), 0.2));
    EXPECT_FALSE(Point(0.1, 0.2) == Point(0.1, std::nextafter(0.2, 1.0)));
    EXPECT_TRUE(Point(0.0, 0.0) == Point(-0.0, -0.0));
}

TEST(Point, ComparesNoDragFlags) { EXPECT_TRUE(flagged(1.0, 2.0, 1) == flagged(1.0, 2.0, 7)); }

TEST(Point, EqualsNothingWhileInvisible)
{
    const Point point = invisible(1.0, 2.0);
    EXPECT_FALSE(point == point);
    EXPECT_FALSE(point == Point(1.0, 2.0));
    EXPECT_FALSE(Point(1.0, 2.0) == point);
}

TEST(Point, SumAndDifferenceTakeTheFlagsOfTheLeftOperand)
{
    for (int left = 0; left < 8; ++left)
        for (int right = 0; right < 8; ++right) {
            SCOPED_TRACE(left * 8 + right);
            expectFlags(flagged(1.0, 2.0, left) + flagged(3.0, 4.0, right), left);
            expectFlags(flagged(1.0, 2.0, left) - flagged(3.0, 4.0, right), left);
        }
}

TEST(Point, SumAndDifferenceOfVisiblePoints)
{
    EXPECT_TRUE(Point(1.0, 2.0) + Point(10.0, 20.0) == Point(11.0, 22.0));
    EXPECT_TRUE(Point(1.0, 2.0) - Point(10.0, 20.0) == Point(-9.0, -18.0));
}

TEST(Point, SumAndDifferenceAreNanWhenEitherOperandIsInvisible)
{
    const Point hidden = invisible(1.0, 2.0);
    const Point shown(3.0, 4.0);
    for (Point result : {hidden + shown, shown + hidden, hidden - shown, shown - hidden}) {
        result.setVisible(true); // the stored coordinates are NaN, not just the shown ones
        EXPECT_TRUE(std::isnan(result.x()));
        EXPECT_TRUE(std::isnan(result.y()));
    }
    EXPECT_TRUE((shown + hidden).visible());
    EXPECT_FALSE((hidden + shown).visible());
}

TEST(Point, AddingInPlaceWorksOnTheStoredCoordinates)
{
    for (int left = 0; left < 8; ++left)
        for (int right = 0; right < 8; ++right) {
            SCOPED_TRACE(left * 8 + right);
            Point point = flagged(1.0, 2.0, left);
            EXPECT_EQ(&(point += flagged(10.0, 20.0, right)), &point);
            expectStored(point, 11.0, 22.0);
            EXPECT_EQ(&(point -= flagged(3.0, 4.0, right)), &point);
            expectStored(point, 8.0, 18.0);
            expectFlags(point, left);
        }
}

TEST(Point, MayBeAddedToItself)
{
    Point point(1.0, 2.0);
    point += point;
    expectStored(point, 2.0, 4.0);
    point -= point;
    expectStored(point, 0.0, 0.0);
}

TEST(Point, ShallowCopyTakesTheFlagsAndNoCoordinates)
{
    for (int pattern = 0; pattern < 8; ++pattern) {
        SCOPED_TRACE(pattern);
        Point point = flagged(3.0, 4.0, 7 - pattern);
        point.shallowCopy(flagged(1.0, 2.0, pattern));
        expectFlags(point, pattern);
        expectStored(point, 3.0, 4.0);
    }
}

#ifndef NDEBUG
TEST(PointDeathTest, AMovedFromPointMayNotBeUsed)
{
    Point point(1.0, 2.0);
    const Point taken(std::move(point));
    EXPECT_DEATH(static_cast<void>(point.x()), "Point::x");
    EXPECT_DEATH(static_cast<void>(point.y()), "Point::y");
    EXPECT_DEATH(static_cast<void>(point == taken), "Point::x");
    EXPECT_DEATH(static_cast<void>(taken + point), "Point::[xy]");
    EXPECT_DEATH(static_cast<void>(taken - point), "Point::[xy]");
    EXPECT_DEATH(point += taken, "Point::operator\\+=");
    EXPECT_DEATH(point -= taken, "Point::operator-=");
    EXPECT_DEATH(point.set(1.0, 2.0), "Point::set");
    EXPECT_DEATH(point.setX(1.0), "Point::setX");
    EXPECT_DEATH(point.setY(1.0), "Point::setY");
    EXPECT_DEATH(point.setVisible(true), "Point::setVisible");
    EXPECT_DEATH(static_cast<void>(point.visible()), "Point::visible");
    EXPECT_DEATH(point.allowDragOnX(true), "Point::allowDragOnX");
    EXPECT_DEATH(static_cast<void>(point.canDragOnX()), "Point::canDragOnX");
    EXPECT_DEATH(point.allowDragOnY(true), "Point::allowDragOnY");
    EXPECT_DEATH(static_cast<void>(point.canDragOnY()), "Point::canDragOnY");
    EXPECT_DEATH(point.shallowCopy(taken), "Point::shallowCopy");
    EXPECT_DEATH(Point copy(point), "Point::Point");
    EXPECT_DEATH(Point().operator=(point), "Point::operator=");
}

TEST(PointDeathTest, APointMovedOntoItselfIsMovedFrom)
{
    Point point(1.0, 2.0);
    Point& same = point;
    point = std::move(same);
    EXPECT_DEATH(static_cast<void>(point.x()), "Point::x");
}
#else
TEST(Point, ACopyOfAMovedFromPointIsMovedFromToo)
{
    Point point(1.0, 2.0);
    const Point taken(std::move(point));
    Point copy(point);
    copy = point;
    copy = taken;
    EXPECT_TRUE(copy == taken);
}
#endif

} // namespace
