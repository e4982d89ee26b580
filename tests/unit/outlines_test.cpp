// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/line.h>
#include <visualization/outlines.h>
#include <visualization/point.h>
#include <visualization/shape.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace ovl {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

void addBox(Shape& shape, double left, double bottom, double right, double top)
{
    const Point corners[] {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
    for (std::size_t i = 0; i < 4; ++i)
        shape.addLine(corners[i], corners[(i + 1) % 4]);
}

Shape box(double left, double bottom, double right, double top)
{
    Shape shape;
    addBox(shape, left, bottom, right, top);
    return shape;
}

void moveBox(Shape& shape, double by)
{
    for (int i = 0; i < shape.numberOfLines(); ++i)
        for (Point* end : {shape.line(i)->p1(), shape.line(i)->p2()})
            *end += Point(by, by);
}

/** Whether the register and the shape agree about the place. */
testing::AssertionResult agree(Shape& shape, double x, double y)
{
    const Point point(x, y);
    const bool inside = shape.insidePolygon(point);
    if (Outlines::isOrdinary({x, y}) && inside && !Outlines::mayContain(shape, {x, y}))
        return testing::AssertionFailure() << "left out at " << x << ", " << y;
    for (int time = 0; time < 2; ++time)
        if (Outlines::contains(shape, point) != inside)
            return testing::AssertionFailure() << inside << " at " << x << ", " << y;
    return testing::AssertionSuccess();
}

TEST(Outlines, LeaveOutWhatLiesElsewhere)
{
    const Shape shape = box(10, 20, 30, 40);
    EXPECT_TRUE(Outlines::mayContain(shape, {15, 25}));
    EXPECT_FALSE(Outlines::mayContain(shape, {15, 19.999}));
    EXPECT_FALSE(Outlines::mayContain(shape, {15, 40.001}));
    EXPECT_FALSE(Outlines::mayContain(shape, {9.999, 25}));
    EXPECT_FALSE(Outlines::mayContain(shape, {30.001, 25}));
}

TEST(Outlines, KeepToTheRayThatMeetsALevelSideAndItsTwoNeighbours)
{
    Shape shape = box(10, 20, 30, 40);
    ASSERT_TRUE(shape.insidePolygon(Point(500, 20))) << "three lines at the height of a side";
    EXPECT_TRUE(Outlines::mayContain(shape, {500, 20}));
    EXPECT_TRUE(Outlines::mayContain(shape, {500, 40}));
    Shape diamond;
    const Point corners[] {{0, 10}, {10, 0}, {20, 10.5}, {10, 20}};
    for (std::size_t i = 0; i < 4; ++i)
        diamond.addLine(corners[i], corners[(i + 1) % 4]);
    EXPECT_TRUE(Outlines::mayContain(diamond, {500, 10}));
    EXPECT_TRUE(Outlines::mayContain(diamond, {500, 10.5}));
    EXPECT_FALSE(Outlines::mayContain(diamond, {500, 10.25}));
}

TEST(Outlines, OfAnOpenFigureReachToTheRight)
{
    Shape shape;
    shape.addLine(Point(0, 0), Point(5, 10));
    ASSERT_TRUE(shape.insidePolygon(Point(500, 5)));
    EXPECT_TRUE(Outlines::mayContain(shape, {500, 5}));
    EXPECT_FALSE(Outlines::mayContain(shape, {-1, 5}));
}

TEST(Outlines, OfNoLinesContainNothing)
{
    Shape shape;
    EXPECT_FALSE(Outlines::mayContain(shape, {0, 0}));
    EXPECT_FALSE(Outlines::contains(shape, Point(0, 0)));
}

TEST(Outlines, AnswerAsTheShapeWhateverItsCoordinates)
{
    std::mt19937 random(7);
    const std::vector<std::vector<double>> kinds {{0, 1, 2, 3, 4, 5, 6, 7},
        {0.1, 0.2, 0.3, 0.7, 1.1, 1.3}, {-1e9, 1e9 + 0.1, 1e9 + 0.2, 1e9 + 0.3},
        {0, 1, 2, kNan, kInfinity, -kInfinity}, {0, 1e-320, 1e-200, 1e-150, 1},
        {0, 1e-100, -1e-100, 1e-101}, {0, 1, 1e99, 1e101, 1e200, DBL_MAX, -DBL_MAX},
        {1, 1 + DBL_EPSILON, 1 + 2 * DBL_EPSILON, 1 - DBL_EPSILON, 3},
        {0, 1e-17, 1, 1 + 1e-12, 1 + 1e-15, 1e12}};
    for (const std::vector<double>& kind : kinds) {
        SCOPED_TRACE(&kind - kinds.data());
        const auto any = [&] { return kind[random() % kind.size()]; };
        for (int round = 0; round < 400; ++round) {
            Shape shape;
            Point last(any(), any());
            const Point first = last;
            const std::size_t lines = 1 + random() % 6;
            for (std::size_t i = 0; i < lines; ++i) {
                const bool closes = i + 1 == lines && random() % 3 > 0;
                Point next = closes ? first : Point(any(), any());
                next.setVisible(random() % 16 > 0);
                shape.addLine(last, next);
                last = next;
            }
            for (int probe = 0; probe < 40; ++probe) {
                const double nudge = random() % 2 == 0 ? 0.0 : 0.5;
                ASSERT_TRUE(agree(shape, any() + nudge, any() + (random() % 2 == 0 ? nudge : 0.0)));
            }
        }
    }
}

TEST(Outlines, ASurroundingOfRandomFiguresIsAnsweredAsByTheShape)
{
    std::mt19937 random(8);
    std::uniform_real_distribution<double> coordinate(-10, 10);
    for (int round = 0; round < 2000; ++round) {
        Shape shape;
        Point first(coordinate(random), coordinate(random));
        Point last = first;
        for (int i = 0; i < 5; ++i) {
            const Point next
                = i == 4 && round % 2 ? first : Point(coordinate(random), coordinate(random));
            shape.addLine(last, next);
            last = next;
        }
        for (int i = 0; i < 5; ++i) { // level with the ends too, and right beside them
            const Point end = *shape.line(i)->p1();
            for (const double x : {end.x(), std::nextafter(end.x(), 99), coordinate(random)})
                for (const double y : {end.y(), std::nextafter(end.y(), 99), coordinate(random)})
                    ASSERT_TRUE(agree(shape, x, y)) << round;
        }
    }
}

TEST(Outlines, WithTooManyLinesToLookIntoAnswerAllTheSame)
{
    Shape shape;
    for (int i = 0; i < 70; ++i)
        addBox(shape, i, i, i + 1, i + 1);
    for (double x = -1; x < 80; x += 0.5)
        ASSERT_TRUE(agree(shape, x, 10.5)) << x;
}

/** Ways to bring a box from (0, 0, 1, 1) to where (10.5, 10.5) is inside. */
struct Change {
    const char* name;
    std::function<void(Shape&)> make;
};

class OutlinesChange : public testing::TestWithParam<Change> { };

TEST_P(OutlinesChange, IsNoticed)
{
    Shape shape = box(0, 0, 1, 1);
    ASSERT_FALSE(Outlines::mayContain(shape, {10.5, 10.5}));
    ASSERT_FALSE(Outlines::contains(shape, Point(10.5, 10.5)));
    for (int time = 0; time < 2; ++time) { // also once it has been measured anew
        const std::uint64_t before = Outlines::changes() + Outlines::moves();
        GetParam().make(shape);
        EXPECT_NE(Outlines::changes() + Outlines::moves(), before);
        ASSERT_TRUE(shape.insidePolygon(Point(10.5, 10.5)));
        EXPECT_TRUE(Outlines::mayContain(shape, {10.5, 10.5}));
        EXPECT_TRUE(Outlines::contains(shape, Point(10.5, 10.5)));
        shape.setInsidePolygonCallback(nullptr);
        shape.clear();
        addBox(shape, 0, 0, 1, 1);
        EXPECT_FALSE(Outlines::mayContain(shape, {10.5, 10.5}));
    }
}

void replaceEnds(Shape& shape, const std::function<void(Point*, double, double)>& put)
{
    for (int i = 0; i < shape.numberOfLines(); ++i)
        for (Point* end : {shape.line(i)->p1(), shape.line(i)->p2()})
            put(end, end->x() + 10, end->y() + 10);
}

const Change kChanges[] {
    {"Add", [](Shape& shape) { moveBox(shape, 10); }},
    {"Subtract",
        [](Shape& shape) {
            replaceEnds(shape, [](Point* end, double, double) { *end -= Point(-10, -10); });
        }},
    {"Set",
        [](Shape& shape) {
            replaceEnds(shape, [](Point* end, double x, double y) { end->set(x, y); });
        }},
    {"SetXAndY",
        [](Shape& shape) {
            replaceEnds(shape, [](Point* end, double x, double y) {
                end->setX(x);
                end->setY(y);
            });
        }},
    {"Assign",
        [](Shape& shape) {
            replaceEnds(shape, [](Point* end, double x, double y) {
                const Point other(x, y);
                *end = other;
            });
        }},
    {"MoveIn",
        [](Shape& shape) {
            replaceEnds(shape, [](Point* end, double x, double y) { *end = Point(x, y); });
        }},
    {"MoveOutAndIn",
        [](Shape& shape) {
            replaceEnds(shape, [](Point* end, double x, double y) {
                Point taken(std::move(*end));
                taken.set(x, y);
                *end = std::move(taken);
            });
        }},
    {"ReplaceLines",
        [](Shape& shape) {
            Shape other = box(10, 10, 11, 11);
            for (int i = 0; i < 4; ++i)
                *shape.line(i) = *other.line(i);
        }},
    {"MoveLinesIn",
        [](Shape& shape) {
            Shape other = box(10, 10, 11, 11);
            for (int i = 0; i < 4; ++i)
                *shape.line(i) = std::move(*other.line(i));
        }},
    {"SwapLines",
        [](Shape& shape) {
            Shape other = box(10, 10, 11, 11);
            for (int i = 0; i < 4; ++i)
                std::swap(*shape.line(i), *other.line(i));
        }},
    {"SwapLinesWithAWatchedShape",
        [](Shape& shape) {
            Shape other = box(10, 10, 11, 11);
            static_cast<void>(Outlines::mayContain(other, {0, 0}));
            for (int i = 0; i < 4; ++i)
                std::swap(*shape.line(i), *other.line(i));
        }},
    {"AddLines", [](Shape& shape) { addBox(shape, 10, 10, 11, 11); }},
    {"AssignTheShape",
        [](Shape& shape) {
            const Shape other = box(10, 10, 11, 11);
            shape = other;
        }},
    {"MoveAShapeIn", [](Shape& shape) { shape = box(10, 10, 11, 11); }},
    {"Callback",
        [](Shape& shape) { shape.setInsidePolygonCallback([](const Point&) { return true; }); }},
    {"CopyACallback",
        [](Shape& shape) {
            Shape other;
            other.setInsidePolygonCallback([](const Point&) { return true; });
            shape.shallowCopy(other);
        }},
    {"AddALine",
        [](Shape& shape) { // one alone
            shape.addLine(Point(5, 10), Point(5, 11));
        }},
};

INSTANTIATE_TEST_SUITE_P(Each, OutlinesChange, testing::ValuesIn(kChanges),
    [](const auto& change) { return std::string(change.param.name); });

TEST(Outlines, ShowingOrHidingAnEndIsNoticed)
{
    Shape shape = box(0, 0, 10, 10);
    ASSERT_TRUE(Outlines::contains(shape, Point(5, 5)));
    shape.line(3)->p1()->setVisible(false); // the left side
    EXPECT_FALSE(Outlines::contains(shape, Point(5, 5)));
    Point shown;
    shape.line(3)->p1()->shallowCopy(shown);
    EXPECT_TRUE(Outlines::contains(shape, Point(5, 5)));
}

TEST(Outlines, AskTheShapesOwnTestEveryTime)
{
    Shape shape;
    int asked = 0;
    shape.setInsidePolygonCallback([&](const Point&) { return ++asked % 2 == 0; });
    EXPECT_FALSE(Outlines::contains(shape, Point(1, 1)));
    EXPECT_TRUE(Outlines::contains(shape, Point(1, 1)));
    EXPECT_TRUE(Outlines::mayContain(shape, {1e9, -1e9}));
    EXPECT_EQ(asked, 2);
}

TEST(Outlines, NumberEachShapeOnce)
{
    Shape shape = box(0, 0, 1, 1);
    const OutlineNumber number = Outlines::watch(shape);
    EXPECT_NE(number, 0u);
    EXPECT_EQ(Outlines::watch(shape), number);
    Shape copy(shape);
    EXPECT_NE(Outlines::watch(copy), number);
    const std::uint64_t moves = Outlines::moves();
    shape = copy;
    EXPECT_EQ(Outlines::watch(shape), number) << "an assignment leaves the shape where it is";
    EXPECT_EQ(Outlines::moves(), moves);
    const Shape moved(std::move(shape));
    EXPECT_EQ(Outlines::watch(moved), number);
    EXPECT_EQ(Outlines::watch(shape), 0u); // NOLINT: moved-from on purpose
    EXPECT_NE(Outlines::moves(), moves);
}

TEST(Outlines, GiveANumberOnWhenItsShapeHasGone)
{
    auto shape = std::make_unique<Shape>();
    const OutlineNumber number = Outlines::watch(*shape);
    const std::uint64_t moves = Outlines::moves();
    shape.reset();
    EXPECT_NE(Outlines::moves(), moves);
    Shape next;
    EXPECT_EQ(Outlines::watch(next), number);
}

TEST(Outlines, SweepOverAllNumbersBetweenTwo)
{
    std::array<Shape, 3> shapes {box(0, 0, 1, 1), box(0, 5, 1, 6), Shape()};
    std::vector<OutlineNumber> numbers;
    for (Shape& shape : shapes) {
        numbers.push_back(Outlines::watch(shape));
        static_cast<void>(Outlines::mayContain(shape, {0, 0}));
    }
    std::vector<OutlineNumber> found;
    const auto [first, last] = std::minmax_element(numbers.begin(), numbers.end());
    Outlines::sweep(
        *first, *last, {0.5, 5.5}, [&](OutlineNumber number) { found.push_back(number); });
    EXPECT_EQ(std::count(found.begin(), found.end(), numbers[1]), 1);
    EXPECT_EQ(std::count(found.begin(), found.end(), numbers[0]), 0);
    EXPECT_EQ(std::count(found.begin(), found.end(), numbers[2]), 0);
}

TEST(Outlines, HoldOnlyForNumbersOfOrdinarySize)
{
    EXPECT_TRUE(Outlines::isOrdinary({-1e99, 1e99}));
    EXPECT_FALSE(Outlines::isOrdinary({kNan, 0}));
    EXPECT_FALSE(Outlines::isOrdinary({0, kNan}));
    EXPECT_FALSE(Outlines::isOrdinary({kInfinity, 0}));
    EXPECT_FALSE(Outlines::isOrdinary({0, -1e100}));
}

TEST(Outlines, LinesAndPointsMayOutliveTheirShape)
{
    std::vector<Line> lines;
    std::vector<Point> points;
    {
        Shape shape = box(0, 0, 1, 1);
        ASSERT_TRUE(Outlines::contains(shape, Point(0.5, 0.5)));
        lines.push_back(std::move(*shape.line(0)));
        points.push_back(std::move(*shape.line(1)->p1()));
    }
    Shape other = box(10, 10, 11, 11); // takes the number over
    ASSERT_FALSE(Outlines::mayContain(other, {0.5, 0.5}));
    const std::uint64_t changes = Outlines::changes();
    lines[0].p1()->set(5, 5);
    points[0].set(5, 5);
    lines.clear();
    points.clear();
    EXPECT_EQ(Outlines::changes(), changes) << "they belong to no shape any more";
}

TEST(Outlines, PointsOutsideOfChartsNeverComeHere)
{
    const std::uint64_t changes = Outlines::changes();
    Shape shape = box(0, 0, 1, 1);
    moveBox(shape, 3);
    Shape copy(shape);
    copy.clear();
    Shape watched = box(0, 0, 1, 1);
    ASSERT_TRUE(Outlines::contains(watched, Point(0.5, 0.5)));
    Line line(*watched.line(0));
    line.p1()->set(3, 3);
    EXPECT_EQ(Outlines::changes(), changes);
}

} // namespace
} // namespace ovl
