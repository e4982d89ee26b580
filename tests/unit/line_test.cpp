// SPDX-License-Identifier: BSD-3-Clause
#include <support/allocationcounter.h>
#include <visualization/line.h>

#include <vtkMath.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

using ovl::Line;
using ovl::Point;
using ovl::test::AllocationCounter;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

Line line(double x1, double y1, double x2, double y2) { return {Point(x1, y1), Point(x2, y2)}; }

Point invisible(double x, double y)
{
    Point point(x, y);
    point.setVisible(false);
    return point;
}

/** Both ways round, since it may not matter which of the two is asked. */
void expectIntersection(const Line& one, const Line& other, bool expected)
{
    EXPECT_EQ(one.intersect(other), expected);
    EXPECT_EQ(other.intersect(one), expected);
}

TEST(Line, StartsAsTwoDefaultPoints)
{
    Line line;
    for (const Point* end : {line.p1(), line.p2()}) {
        EXPECT_TRUE(*end == Point(0.0, 0.0));
        EXPECT_TRUE(end->visible() && end->canDragOnX() && end->canDragOnY());
    }
}

TEST(Line, CopiesTheEndsWithTheirFlags)
{
    Point first = invisible(1.0, 2.0);
    Point second(3.0, 4.0);
    second.allowDragOnX(false);
    Line line(first, second);
    first.setVisible(true);
    second.set(9.0, 9.0);
    EXPECT_FALSE(line.p1()->visible());
    EXPECT_FALSE(line.p2()->canDragOnX());
    EXPECT_TRUE(line.p2()->canDragOnY());
    EXPECT_TRUE(*line.p2() == Point(3.0, 4.0));
}

TEST(Line, EndsMayBeChangedThroughTheirPointers)
{
    Line segment = line(0.0, 0.0, 3.0, 4.0);
    EXPECT_EQ(segment.length(), 5.0);
    segment.p1()->set(3.0, 0.0);
    EXPECT_EQ(segment.length(), 4.0);
    segment.p2()->setY(1.0);
    EXPECT_EQ(segment.length(), 1.0);
}

TEST(Line, CopiesShareNothing)
{
    Line original = line(1.0, 2.0, 3.0, 4.0);
    Line copy(original);
    Line assigned;
    assigned = original;
    original.p1()->set(9.0, 9.0);
    EXPECT_TRUE(*copy.p1() == Point(1.0, 2.0));
    EXPECT_TRUE(*assigned.p1() == Point(1.0, 2.0));
    EXPECT_TRUE(*assigned.p2() == Point(3.0, 4.0));
}

TEST(Line, AssignmentToItselfDoesNothing)
{
    Line segment = line(1.0, 2.0, 3.0, 4.0);
    const Point* end = segment.p1();
    const Line& same = segment;
    segment = same;
    EXPECT_EQ(segment.p1(), end);
    EXPECT_TRUE(*segment.p2() == Point(3.0, 4.0));
}

TEST(Line, MovesTakeTheEndsAlong)
{
    Line source = line(1.0, 2.0, 3.0, 4.0);
    const Point* end = source.p1();
    Line built(std::move(source));
    EXPECT_EQ(built.p1(), end);
    Line assigned = line(9.0, 9.0, 9.0, 9.0);
    assigned = std::move(built);
    EXPECT_EQ(assigned.p1(), end);
    EXPECT_TRUE(*assigned.p2() == Point(3.0, 4.0));
}

TEST(Line, EqualsOnlyItself)
{
    Line segment = line(1.0, 2.0, 3.0, 4.0);
    Line copy(segment);
    EXPECT_TRUE(segment == segment);
    EXPECT_FALSE(segment == copy);
    EXPECT_FALSE(copy == segment);
}

TEST(Line, StillEqualsItselfWithInvisibleEnds)
{
    Line segment(invisible(1.0, 2.0), invisible(3.0, 4.0));
    EXPECT_TRUE(segment == segment);
}

TEST(Line, MovedFromLinesAreEqual)
{
    Line first = line(1.0, 2.0, 3.0, 4.0);
    Line second = line(5.0, 6.0, 7.0, 8.0);
    const Line firstTaken(std::move(first));
    EXPECT_FALSE(first == second);
    const Line secondTaken(std::move(second));
    EXPECT_TRUE(first == second);
}

TEST(Line, MovedOntoItselfIsMovedFrom)
{
    Line segment = line(1.0, 2.0, 3.0, 4.0);
    Line& same = segment;
    segment = std::move(same);
    Line other;
    const Line taken(std::move(other));
    EXPECT_TRUE(segment == other);
    segment = taken;
    EXPECT_EQ(segment.length(), 0.0);
}

TEST(Line, HoldsOnePointerAndMovesWithoutThrowing)
{
    EXPECT_EQ(sizeof(Line), sizeof(void*));
    EXPECT_FALSE(std::is_polymorphic_v<Line>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Line>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Line>);
}

TEST(Line, CenterLiesHalfWayWithDefaultFlags)
{
    Point end(3.0, 8.0);
    end.allowDragOnX(false);
    end.allowDragOnY(false);
    const Point center = Line(Point(1.0, 2.0), end).center();
    EXPECT_TRUE(center == Point(2.0, 5.0));
    EXPECT_TRUE(center.visible() && center.canDragOnX() && center.canDragOnY());
}

TEST(Line, CenterOfAnInvisibleEndIsAVisiblePointAtNan)
{
    const Point center = Line(Point(1.0, 2.0), invisible(3.0, 8.0)).center();
    EXPECT_TRUE(center.visible());
    EXPECT_TRUE(std::isnan(center.x()));
    EXPECT_TRUE(std::isnan(center.y()));
}

TEST(Line, LengthIsThatOfTheHypotenuse)
{
    EXPECT_EQ(line(1.0, 1.0, 4.0, 5.0).length(), 5.0);
    EXPECT_EQ(line(4.0, 5.0, 1.0, 1.0).length(), 5.0);
    EXPECT_EQ(line(2.0, 3.0, 2.0, 3.0).length(), 0.0);
    EXPECT_EQ(line(0.0, 0.0, 3e-200, 4e-200).length(), 5e-200); // squares would underflow
    EXPECT_TRUE(std::isnan(Line(Point(), invisible(3.0, 4.0)).length()));
}

TEST(Line, DistanceFromPointIsHowFarAlongTheLineItProjects)
{
    const Line segment = line(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(segment.distanceFromPoint(Point(3.0, 700.0)), 3.0);
    EXPECT_EQ(segment.distanceFromPoint(Point(0.0, 700.0)), 0.0); // level with the first end
    EXPECT_EQ(segment.distanceFromPoint(Point(25.0, 1.0)), 25.0); // beyond the second
    EXPECT_EQ(segment.distanceFromPoint(Point(-4.0, 1.0)), 4.0); // before the first
    EXPECT_EQ(line(1.0, 1.0, 4.0, 5.0).distanceFromPoint(Point(4.0, 5.0)), 5.0);
    EXPECT_EQ(line(1.0, 1.0, 4.0, 5.0).distanceFromPoint(Point(2.0, 1.0)), 3.0 / 5.0);
}

TEST(Line, DistanceFromAnyPointIsZeroForALineOfNoLength)
{
    const Line segment = line(2.0, 3.0, 2.0, 3.0);
    EXPECT_EQ(segment.distanceFromPoint(Point(50.0, 60.0)), 0.0);
    EXPECT_EQ(segment.distanceFromPoint(invisible(50.0, 60.0)), 0.0);
}

TEST(Line, DistanceIsZeroWhenTheSquaredLengthUnderflows)
{
    EXPECT_EQ(line(0.0, 0.0, 1e-200, 0.0).distanceFromPoint(Point(5.0, 5.0)), 0.0);
}

TEST(Line, DistanceIsNanWithAnInvisiblePoint)
{
    EXPECT_TRUE(std::isnan(line(0.0, 0.0, 1.0, 0.0).distanceFromPoint(invisible(1.0, 1.0))));
    EXPECT_TRUE(std::isnan(Line(invisible(0.0, 0.0), Point(1.0, 0.0)).distanceFromPoint(Point())));
    EXPECT_TRUE(std::isnan(Line(Point(), invisible(1.0, 0.0)).distanceFromPoint(Point())));
}

TEST(Line, CrossingSegmentsIntersect)
{
    expectIntersection(line(0.0, 0.0, 4.0, 4.0), line(0.0, 4.0, 4.0, 0.0), true);
    expectIntersection(line(0.0, 0.0, 4.0, 4.0), line(5.0, 0.0, 9.0, -3.0), false);
}

TEST(Line, SegmentsThatOnlyTouchIntersect)
{
    expectIntersection(line(0.0, 0.0, 4.0, 4.0), line(4.0, 4.0, 8.0, 0.0), true);
    expectIntersection(line(0.0, 0.0, 4.0, 0.0), line(2.0, 0.0, 2.0, 5.0), true);
    expectIntersection(
        line(0.0, 0.0, 4.0, 0.0), line(2.0, std::nextafter(0.0, 1.0), 2.0, 5.0), false);
}

TEST(Line, CollinearSegmentsIntersectIfTheyOverlap)
{
    expectIntersection(line(0.0, 0.0, 4.0, 4.0), line(2.0, 2.0, 6.0, 6.0), true);
    expectIntersection(line(0.0, 0.0, 4.0, 4.0), line(1.0, 1.0, 2.0, 2.0), true);
    expectIntersection(line(0.0, 0.0, 4.0, 4.0), line(4.0, 4.0, 6.0, 6.0), true);
    expectIntersection(line(0.0, 0.0, 4.0, 4.0), line(5.0, 5.0, 6.0, 6.0), false);
}

TEST(Line, ParallelSegmentsDoNotIntersect)
{
    expectIntersection(line(0.0, 0.0, 4.0, 4.0), line(0.0, 1.0, 4.0, 5.0), false);
}

TEST(Line, OfNoLengthIntersectsWhatItLiesOn)
{
    expectIntersection(line(2.0, 2.0, 2.0, 2.0), line(0.0, 0.0, 4.0, 4.0), true);
    expectIntersection(line(2.0, 2.0, 2.0, 2.0), line(2.0, 2.0, 2.0, 2.0), true);
    expectIntersection(line(2.0, 2.0, 2.0, 2.0), line(0.0, 0.0, 4.0, 5.0), false);
    expectIntersection(line(2.0, 2.0, 2.0, 2.0), line(3.0, 3.0, 3.0, 3.0), false);
}

TEST(Line, WithAnInvisibleEndIntersectsASegmentThatHoldsTheOther)
{
    const Line halfHidden(invisible(0.0, 0.0), Point(2.0, 0.0));
    expectIntersection(halfHidden, line(0.0, 0.0, 4.0, 0.0), true);
    expectIntersection(halfHidden, line(1.0, -1.0, 1.0, 1.0), false); // would cross if shown
    expectIntersection(
        Line(invisible(0.0, 0.0), invisible(2.0, 0.0)), line(0.0, 0.0, 4.0, 0.0), false);
}

TEST(Line, PassesThroughEveryPointOnItsInfiniteExtension)
{
    const Line segment = line(1.0, 1.0, 3.0, 2.0);
    EXPECT_TRUE(segment.intersect(Point(1.0, 1.0)));
    EXPECT_TRUE(segment.intersect(Point(2.0, 1.5)));
    EXPECT_TRUE(segment.intersect(Point(301.0, 151.0)));
    EXPECT_TRUE(segment.intersect(Point(-1.0, 0.0)));
    EXPECT_FALSE(segment.intersect(Point(2.0, std::nextafter(1.5, 2.0))));
}

TEST(Line, PassesThroughEveryVisiblePointWhenItHasNoLength)
{
    const Line segment = line(2.0, 3.0, 2.0, 3.0);
    EXPECT_TRUE(segment.intersect(Point(2.0, 3.0)));
    EXPECT_TRUE(segment.intersect(Point(-70.0, 1e30)));
    EXPECT_FALSE(segment.intersect(invisible(2.0, 3.0)));
    EXPECT_FALSE(Line(invisible(2.0, 3.0), Point(2.0, 3.0)).intersect(Point(2.0, 3.0)));
    EXPECT_FALSE(Line(Point(2.0, 3.0), invisible(2.0, 3.0)).intersect(Point(2.0, 3.0)));
}

// Against exact arithmetic ------------------------------------------------------------------------

struct Whole {
    long long x;
    long long y;
};

Whole operator-(Whole a, Whole b) { return {a.x - b.x, a.y - b.y}; }

long long cross(Whole a, Whole b) { return a.x * b.y - a.y * b.x; }

long long dot(Whole a, Whole b) { return a.x * b.x + a.y * b.y; }

bool holds(Whole a, Whole b, Whole p) { return cross(b - a, p - a) == 0 && dot(p - a, p - b) <= 0; }

/** Whether numerator / denominator lies from 0 to 1. */
bool isFraction(long long numerator, long long denominator)
{
    return denominator > 0 ? numerator >= 0 && numerator <= denominator
                           : numerator <= 0 && numerator >= denominator;
}

/** Solves for the crossing point in rational numbers; parallel segments meet in an end if at all.
 */
bool shareAPoint(Whole a, Whole b, Whole c, Whole d)
{
    const long long denominator = cross(b - a, d - c);
    if (denominator == 0)
        return holds(a, b, c) || holds(a, b, d) || holds(c, d, a) || holds(c, d, b);
    return isFraction(cross(c - a, d - c), denominator)
        && isFraction(cross(c - a, b - a), denominator);
}

Point at(Whole place) { return {double(place.x), double(place.y)}; }

/** Compares `cases` random segments and points of whole coordinates up to `extent`. */
void compareWithExactArithmetic(int extent, int cases)
{
    std::mt19937 random(20211);
    std::uniform_int_distribution<int> coordinate(-extent, extent);
    const auto place = [&] { return Whole {coordinate(random), coordinate(random)}; };
    int met = 0;
    for (int i = 0; i < cases; ++i) {
        const Whole a = place(), b = place(), c = place(), d = place();
        const bool expected = shareAPoint(a, b, c, d);
        met += expected;
        const Line one(at(a), at(b));
        ASSERT_EQ(one.intersect(Line(at(c), at(d))), expected) << "case " << i;
        ASSERT_EQ(one.intersect(at(c)), cross(b - a, c - a) == 0) << "case " << i;
    }
    EXPECT_GT(met, cases / 10); // both answers were put to the test
    EXPECT_LT(met, cases * 9 / 10);
}

TEST(Line, AgreesWithExactArithmeticOnASmallGridFullOfTies)
{
    compareWithExactArithmetic(3, 60000);
}

TEST(Line, AgreesWithExactArithmeticAsFarAsDoublesAreExact)
{
    compareWithExactArithmetic(1 << 24, 60000);
}

// Against the same steps made with points and vectors ---------------------------------------------

int turn(const Point& a, const Point& b, const Point& c)
{
    const double u[3] = {b.x() - a.x(), b.y() - a.y(), 0.0};
    const double v[3] = {c.x() - b.x(), c.y() - b.y(), 0.0};
    double w[3];
    vtkMath::Cross(u, v, w);
    return w[2] == 0.0 ? 0 : w[2] > 0.0 ? 1 : 2;
}

bool between(const Point& p, const Point& q, const Point& r)
{
    return std::fmin(p.x(), r.x()) <= q.x() && q.x() <= std::fmax(p.x(), r.x())
        && std::fmin(p.y(), r.y()) <= q.y() && q.y() <= std::fmax(p.y(), r.y());
}

bool stepwiseIntersection(const Point& a, const Point& b, const Point& c, const Point& d)
{
    const int o1 = turn(a, b, c), o2 = turn(a, b, d), o3 = turn(c, d, a), o4 = turn(c, d, b);
    if (o1 != o2 && o3 != o4)
        return true;
    if (o1 == 0 && between(a, c, b))
        return true;
    if (o2 == 0 && between(a, d, b))
        return true;
    if (o3 == 0 && between(c, a, d))
        return true;
    return o4 == 0 && between(c, b, d);
}

double stepwiseDistance(const Point& p1, const Point& p2, const Point& point)
{
    const Point a = p2 - p1;
    const Point b = point - p1;
    const double along[3] = {a.x(), a.y(), 0.0};
    const double toPoint[3] = {b.x(), b.y(), 0.0};
    if (vtkMath::Norm(along) == 0.0)
        return 0.0;
    return std::fabs(vtkMath::Dot(toPoint, along)) / vtkMath::Norm(along);
}

/** Points that are awkward in every way: signed zeros, the ends of the number line, hidden. */
class AwkwardPoints {
public:
    Point next()
    {
        Point point(coordinate(), coordinate());
        point.setVisible(random() % 8 != 0);
        return point;
    }

private:
    double coordinate()
    {
        static const std::vector<double> special {0.0, -0.0, 1.0, -1.0, 0.1, 0.2, 0.3, 1e-300,
            5e-324, 1e200, -1e200, DBL_MAX, -DBL_MAX, kInfinity, -kInfinity, kNan};
        return special[random() % special.size()];
    }

    std::mt19937 random {404};
};

TEST(Line, GivesWhatTheStepsGiveForAwkwardNumbers)
{
    AwkwardPoints points;
    for (int i = 0; i < 200000; ++i) {
        const Point a = points.next(), b = points.next(), c = points.next(), d = points.next();
        const Line one(a, b);
        ASSERT_EQ(one.intersect(Line(c, d)), stepwiseIntersection(a, b, c, d)) << "case " << i;
        ASSERT_EQ(one.intersect(c), turn(a, c, b) == 0) << "case " << i;
        const double distance = one.distanceFromPoint(c);
        const double expected = stepwiseDistance(a, b, c);
        ASSERT_TRUE(distance == expected || (std::isnan(distance) && std::isnan(expected)))
            << "case " << i << ": " << distance << " for " << expected;
    }
}

TEST(Line, TestsAllocateNothing)
{
    const Line one = line(0.0, 0.0, 4.0, 4.0);
    const Line other = line(0.0, 4.0, 4.0, 0.0);
    const Point point(1.0, 2.0);
    const AllocationCounter allocations;
    const bool crosses = one.intersect(other);
    const bool holdsPoint = one.intersect(point);
    const double distance = one.distanceFromPoint(point);
    const double length = one.length();
    EXPECT_EQ(allocations.count(), 0u);
    EXPECT_TRUE(crosses && !holdsPoint && distance > 0.0 && length > 0.0);
}

TEST(Line, CostsThreeAllocations)
{
    const AllocationCounter allocations;
    const Line line;
    EXPECT_EQ(allocations.count(), 3u);
}

#ifndef NDEBUG
TEST(LineDeathTest, AMovedFromLineMayNotBeUsed)
{
    Line segment = line(1.0, 2.0, 3.0, 4.0);
    const Line taken(std::move(segment));
    EXPECT_DEATH(static_cast<void>(segment.p1()), "Line::p1");
    EXPECT_DEATH(static_cast<void>(segment.p2()), "Line::p2");
    EXPECT_DEATH(static_cast<void>(segment.center()), "Line::center");
    EXPECT_DEATH(static_cast<void>(segment.length()), "Line::length");
    EXPECT_DEATH(static_cast<void>(segment.distanceFromPoint(Point())), "Line::distanceFromPoint");
    EXPECT_DEATH(static_cast<void>(segment.intersect(taken)), "Line::intersect");
    EXPECT_DEATH(static_cast<void>(taken.intersect(segment)), "Line::intersect");
    EXPECT_DEATH(static_cast<void>(segment.intersect(Point())), "Line::intersect");
    EXPECT_DEATH(Line copy(segment), "Line::Line");
    EXPECT_DEATH(Line().operator=(segment), "Line::operator=");
}
#endif

} // namespace
