// SPDX-License-Identifier: BSD-3-Clause
#include <support/allocationcounter.h>
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/range.h>
#include <visualization/shape.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using ovl::Line;
using ovl::LineType;
using ovl::PlotStackPriority;
using ovl::Point;
using ovl::Range;
using ovl::Shape;
using ovl::test::AllocationCounter;

namespace {

Shape polygon(const std::vector<std::pair<double, double>>& corners)
{
    Shape shape;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto [x1, y1] = corners[i];
        const auto [x2, y2] = corners[(i + 1) % corners.size()];
        shape.addLine(Point(x1, y1), Point(x2, y2));
    }
    return shape;
}

Shape unitSquare() { return polygon({{0.0, 0.0}, {1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}}); }

/** Notes by name which callback was called, and with what. */
struct CallLog {
    std::vector<std::string> calls;
    std::vector<double> values;

    void giveTo(Shape& shape)
    {
        shape.setOnMousePressCallback([this] { calls.emplace_back("press"); });
        shape.setOnMouseReleaseCallback([this] { calls.emplace_back("release"); });
        shape.setXTranslationCallback([this](double dx) { note("x", {dx}); });
        shape.setYTranslationCallback([this](double dy) { note("y", {dy}); });
        shape.setXResizeCallback([this](const Point& p, double dx) {
            note("resizeX", {p.x(), p.y(), dx});
        });
        shape.setYResizeCallback([this](const Point& p, double dy) {
            note("resizeY", {p.x(), p.y(), dy});
        });
        shape.setInsidePolygonCallback([this](const Point& p) {
            note("inside", {p.x(), p.y()});
            return true;
        });
        shape.setShapeTooltipCallback([this](const Point& p) {
            note("tooltip", {p.x(), p.y()});
            return QString("said");
        });
    }

private:
    void note(const char* name, const std::vector<double>& seen)
    {
        calls.emplace_back(name);
        values.insert(values.end(), seen.begin(), seen.end());
    }
};

void callEverything(Shape& shape)
{
    shape.onMousePress();
    shape.onMouseRelease();
    shape.xTranslate(1.0);
    shape.yTranslate(2.0);
    shape.xResize(Point(3.0, 4.0), 5.0);
    shape.yResize(Point(6.0, 7.0), 8.0);
    EXPECT_TRUE(shape.insidePolygon(Point(9.0, 10.0)));
    EXPECT_EQ(shape.tooltips(Point(11.0, 12.0)), "said");
}

void expectEverythingCalled(const CallLog& log)
{
    EXPECT_EQ(log.calls,
        (std::vector<std::string> {
            "press", "release", "x", "y", "resizeX", "resizeY", "inside", "tooltip"}));
    EXPECT_EQ(log.values,
        (std::vector<double> {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10.0, 11.0, 12.0}));
}

/** Every attribute away from its default, and each in a way of its own. */
Shape adornedShape()
{
    Shape shape;
    shape.setColor(QColor(1, 2, 3, 4));
    shape.setHandleColor(QColor(5, 6, 7, 8));
    shape.setInteractive(true);
    shape.setHasPlot(false);
    shape.setTooltipsVisibility(false);
    shape.setHandleTooltipVisibility(false);
    shape.setCanDragAlongX(true);
    shape.setCanDragAlongY(true);
    shape.setTitle("title");
    shape.setFormat("%x");
    shape.setXAxisRange(Range(0.0, 100.0));
    shape.setYAxisRange(Range(0.0, 10.0));
    shape.setIdentifier(17);
    shape.setLineType(ovl::DashDot);
    shape.setPlotStackPriority(ovl::HighPlotStackPriority);
    shape.setHandleSize(9);
    shape.setPriority(-3);
    shape.setHandleVisibility(false);
    shape.setLegendVisible(false);
    shape.setVisible(false);
    return shape;
}

void expectAdorned(const Shape& shape)
{
    EXPECT_EQ(shape.color(), QColor(1, 2, 3, 4));
    EXPECT_EQ(shape.handleColor(), QColor(5, 6, 7, 8));
    EXPECT_TRUE(shape.interactive());
    EXPECT_FALSE(shape.hasPlot());
    EXPECT_FALSE(shape.tooltipsVisibility());
    EXPECT_FALSE(shape.handleTooltipVisibility());
    EXPECT_TRUE(shape.canDragAlongX());
    EXPECT_TRUE(shape.canDragAlongY());
    EXPECT_EQ(shape.title(), "title");
    EXPECT_EQ(shape.format(), "%x");
    EXPECT_EQ(shape.identifier(), 17);
    EXPECT_EQ(shape.lineType(), ovl::DashDot);
    EXPECT_EQ(shape.plotStackPriority(), ovl::HighPlotStackPriority);
    EXPECT_EQ(shape.handleSize(), 9);
    EXPECT_EQ(shape.priority(), -3);
    EXPECT_FALSE(shape.handleVisible());
    EXPECT_FALSE(shape.legendVisiblity());
    EXPECT_FALSE(shape.visible());
}

/** The ranges have no getters: what they do to closeToLine() tells them. */
void expectAdornedRanges(Shape shape)
{
    shape.clear();
    shape.setTolerance(0.5);
    shape.addLine(Point(0.0, 0.0), Point(0.0, 0.0));
    EXPECT_TRUE(shape.closeToLine(Point(49.0, 900.0)));
    EXPECT_FALSE(shape.closeToLine(Point(50.0, 900.0)));
    EXPECT_TRUE(shape.closeToLine(Point(900.0, 4.0)));
    EXPECT_FALSE(shape.closeToLine(Point(900.0, 5.0)));
}

TEST(Shape, StartsWithItsDefaults)
{
    const Shape shape;
    EXPECT_EQ(shape.identifier(), -1);
    EXPECT_EQ(shape.tolerance(), 0.05000000074505806);
    EXPECT_EQ(shape.handleSize(), 2);
    EXPECT_EQ(shape.lineType(), 0);
    EXPECT_EQ(shape.priority(), 0);
    EXPECT_EQ(shape.plotStackPriority(), 1);
    EXPECT_TRUE(shape.hasPlot());
    EXPECT_TRUE(shape.tooltipsVisibility());
    EXPECT_TRUE(shape.handleTooltipVisibility());
    EXPECT_TRUE(shape.handleVisible());
    EXPECT_TRUE(shape.legendVisiblity());
    EXPECT_TRUE(shape.visible());
    EXPECT_FALSE(shape.interactive());
    EXPECT_FALSE(shape.canDragAlongX());
    EXPECT_FALSE(shape.canDragAlongY());
    EXPECT_EQ(shape.color(), QColor::fromRgbF(1.0, 1.0, 1.0, 1.0));
    EXPECT_EQ(shape.handleColor(), QColor::fromRgbF(1.0, 1.0, 1.0, 1.0));
    EXPECT_TRUE(shape.title().isEmpty());
    EXPECT_TRUE(shape.format().isEmpty());
    EXPECT_EQ(shape.numberOfLines(), 0);
    EXPECT_EQ(shape.numberOfHandles(), 0);
}

TEST(Shape, LineTypesHaveTheirValues)
{
    EXPECT_EQ(ovl::Solid, 0);
    EXPECT_EQ(ovl::Dash, 1);
    EXPECT_EQ(ovl::Dot, 2);
    EXPECT_EQ(ovl::DashDot, 3);
    EXPECT_EQ(ovl::DashDotDot, 4);
}

TEST(Shape, KeepsEveryAttribute)
{
    const Shape shape = adornedShape();
    expectAdorned(shape);
    expectAdornedRanges(shape);
}

TEST(Shape, KeepsAnyIdentifierAndAnyEnumerationValue)
{
    Shape shape;
    for (const int identifier : {-2, 0, INT_MAX, INT_MIN}) {
        shape.setIdentifier(identifier);
        EXPECT_EQ(shape.identifier(), identifier);
    }
    shape.setLineType(static_cast<LineType>(-17));
    EXPECT_EQ(shape.lineType(), -17);
    shape.setPlotStackPriority(static_cast<PlotStackPriority>(99));
    EXPECT_EQ(shape.plotStackPriority(), 99);
}

TEST(Shape, LineAndHandleSettingsAreApart)
{
    Shape shape;
    shape.setColor(Qt::red);
    EXPECT_EQ(shape.handleColor(), QColor(Qt::white));
    shape.setTooltipsVisibility(false);
    EXPECT_TRUE(shape.handleTooltipVisibility());
    shape.setCanDragAlongX(true);
    EXPECT_FALSE(shape.canDragAlongY());
}

TEST(Shape, ALineHasThreeHandles)
{
    Shape shape;
    shape.addLine(Point(0.0, 0.0), Point(2.0, 4.0));
    ASSERT_EQ(shape.numberOfLines(), 1);
    ASSERT_EQ(shape.numberOfHandles(), 3);
    EXPECT_TRUE(*shape.line(0)->p1() == Point(0.0, 0.0));
    EXPECT_TRUE(*shape.line(0)->p2() == Point(2.0, 4.0));
    EXPECT_TRUE(*shape.handle(0) == Point(0.0, 0.0));
    EXPECT_TRUE(*shape.handle(1) == Point(1.0, 2.0));
    EXPECT_TRUE(*shape.handle(2) == Point(2.0, 4.0));
}

TEST(Shape, EndHandlesTakeTheFlagsOfTheEndsAndTheCentreTheDefaults)
{
    Point first(0.0, 0.0);
    first.allowDragOnX(false);
    Point second(2.0, 4.0);
    second.allowDragOnY(false);
    Shape shape;
    shape.addLine(first, second);
    EXPECT_FALSE(shape.handle(0)->canDragOnX());
    EXPECT_TRUE(shape.handle(1)->canDragOnX() && shape.handle(1)->canDragOnY());
    EXPECT_FALSE(shape.handle(2)->canDragOnY());
}

TEST(Shape, LinesStandInTheirOrderAndShareNoCorner)
{
    Shape shape;
    shape.addLine(Point(5.0, 5.0), Point(1.0, 1.0));
    shape.addLine(Point(1.0, 1.0), Point(0.0, 0.0));
    EXPECT_EQ(shape.numberOfHandles(), 6);
    shape.line(0)->p2()->set(9.0, 9.0);
    EXPECT_TRUE(*shape.line(0)->p1() == Point(5.0, 5.0)); // no order of the ends is imposed
    EXPECT_TRUE(*shape.line(1)->p1() == Point(1.0, 1.0));
    EXPECT_TRUE(*shape.handle(2) == Point(1.0, 1.0)); // handles do not follow the lines
    EXPECT_TRUE(*shape.handle(3) == Point(1.0, 1.0));
}

TEST(Shape, MayAddALineFromItsOwnHandles)
{
    Shape shape = unitSquare();
    for (int i = 0; i < 40; ++i)
        shape.addLine(*shape.handle(i), *shape.line(i / 3)->p2());
    EXPECT_TRUE(*shape.line(5)->p1() == *shape.handle(1));
    EXPECT_EQ(shape.numberOfHandles(), 3 * 44);
}

TEST(Shape, ClearTakesLinesAndHandlesOnly)
{
    Shape shape = adornedShape();
    shape.setTolerance(0.25);
    shape.addLine(Point(), Point(1.0, 1.0));
    shape.clear();
    EXPECT_EQ(shape.numberOfLines(), 0);
    EXPECT_EQ(shape.numberOfHandles(), 0);
    EXPECT_EQ(shape.tolerance(), 0.25);
    expectAdorned(shape);
}

// Copies and moves --------------------------------------------------------------------------------

TEST(Shape, CopiesEverythingAndSharesNothing)
{
    Shape original = adornedShape();
    original.setTolerance(0.5);
    original.addLine(Point(1.0, 2.0), Point(3.0, 4.0));
    CallLog log;
    log.giveTo(original);
    Shape copy(original);
    Shape assigned;
    assigned = original;
    original.line(0)->p1()->set(9.0, 9.0);
    original.handle(0)->set(9.0, 9.0);
    original.setOnMousePressCallback(nullptr);
    original.setTitle("other");
    for (Shape* each : {&copy, &assigned}) {
        expectAdorned(*each);
        EXPECT_EQ(each->tolerance(), 0.5);
        EXPECT_TRUE(*each->line(0)->p1() == Point(1.0, 2.0));
        EXPECT_TRUE(*each->handle(0) == Point(1.0, 2.0));
        log = CallLog();
        callEverything(*each);
        expectEverythingCalled(log);
        expectAdornedRanges(*each);
    }
}

TEST(Shape, AssignmentToItselfDoesNothing)
{
    Shape shape = unitSquare();
    const Line* line = shape.line(0);
    const Shape& same = shape;
    shape = same;
    EXPECT_EQ(shape.line(0), line);
    EXPECT_EQ(shape.numberOfLines(), 4);
}

TEST(Shape, MovesTakeLinesAndHandlesAlong)
{
    Shape source = unitSquare();
    const Line* line = source.line(2);
    Shape built(std::move(source));
    EXPECT_EQ(built.line(2), line);
    Shape assigned = adornedShape();
    assigned = std::move(built);
    EXPECT_EQ(assigned.line(2), line);
    EXPECT_EQ(assigned.identifier(), -1);
}

TEST(Shape, MayBeAssignedToAfterAMove)
{
    Shape shape = unitSquare();
    Shape taken(std::move(shape));
    shape = taken;
    EXPECT_EQ(shape.numberOfLines(), 4);
    Shape& same = shape;
    shape = std::move(same); // leaves it moved-from
    shape = std::move(taken);
    EXPECT_EQ(shape.numberOfLines(), 4);
}

TEST(Shape, HoldsOnePointerAndMovesWithoutThrowing)
{
    EXPECT_EQ(sizeof(Shape), sizeof(void*));
    EXPECT_FALSE(std::is_polymorphic_v<Shape>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Shape>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Shape>);
}

TEST(Shape, ShallowCopyTakesTheAttributes)
{
    Shape shape;
    shape.shallowCopy(adornedShape());
    expectAdorned(shape);
    expectAdornedRanges(shape);
}

TEST(Shape, ShallowCopyTakesTheCallbacks)
{
    CallLog log;
    Shape source;
    log.giveTo(source);
    Shape shape;
    shape.shallowCopy(source);
    source.setXTranslationCallback(nullptr);
    callEverything(shape);
    expectEverythingCalled(log);
}

TEST(Shape, ShallowCopyEmptiesCallbacksThatTheOtherDoesNotHave)
{
    CallLog log;
    Shape shape;
    log.giveTo(shape);
    shape.shallowCopy(Shape());
    shape.onMousePress();
    shape.xTranslate(1.0);
    EXPECT_TRUE(log.calls.empty());
    EXPECT_FALSE(shape.insidePolygon(Point(9.0, 10.0)));
}

TEST(Shape, ShallowCopyLeavesGeometryAndTolerance)
{
    Shape source = adornedShape();
    source.setTolerance(0.75);
    source.addLine(Point(), Point());
    Shape shape = unitSquare();
    shape.setTolerance(0.25);
    shape.shallowCopy(source);
    EXPECT_EQ(shape.numberOfLines(), 4);
    EXPECT_EQ(shape.numberOfHandles(), 12);
    EXPECT_EQ(shape.tolerance(), 0.25);
    EXPECT_TRUE(*shape.line(1)->p1() == Point(1.0, 0.0));
}

TEST(Shape, ShallowCopyOfItselfChangesNothing)
{
    Shape shape = adornedShape();
    CallLog log;
    log.giveTo(shape);
    shape.shallowCopy(shape);
    expectAdorned(shape);
    callEverything(shape);
    expectEverythingCalled(log);
}

// Callbacks ---------------------------------------------------------------------------------------

TEST(Shape, CallsItsCallbacksWithWhatItIsGiven)
{
    Shape shape;
    CallLog log;
    log.giveTo(shape);
    callEverything(shape);
    expectEverythingCalled(log);
}

TEST(Shape, WithoutCallbacksNothingHappens)
{
    Shape shape = unitSquare();
    shape.onMousePress();
    shape.onMouseRelease();
    shape.xTranslate(1.0);
    shape.yTranslate(1.0);
    shape.xResize(Point(), 1.0);
    shape.yResize(Point(), 1.0);
    EXPECT_TRUE(*shape.line(1)->p1() == Point(1.0, 0.0)); // it never moves itself
    EXPECT_TRUE(*shape.handle(0) == Point(0.0, 0.0));
}

TEST(Shape, TooltipIsEmptyWithoutACallback) { EXPECT_EQ(Shape().tooltips(Point()), QString()); }

TEST(Shape, ALaterCallbackReplacesTheEarlier)
{
    Shape shape;
    int first = 0;
    int second = 0;
    shape.setOnMousePressCallback([&] { ++first; });
    shape.setOnMousePressCallback([&] { ++second; });
    shape.onMousePress();
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
    shape.setOnMousePressCallback(nullptr);
    shape.onMousePress();
    EXPECT_EQ(second, 1);
}

/** Gives `shape` callbacks that each make `change` to it and look whether they are still there. */
template <class Change> void changeWhenCalled(Shape& shape, int& outlived, Change change)
{
    const auto look = [&shape, &outlived, change, token = std::make_shared<int>(0)] {
        int& count = outlived;
        const std::weak_ptr<int> present = token;
        change(shape);
        count += present.expired() ? 0 : 1;
    };
    shape.setOnMousePressCallback(look);
    shape.setOnMouseReleaseCallback(look);
    shape.setXTranslationCallback([look](double) { look(); });
    shape.setYTranslationCallback([look](double) { look(); });
    shape.setXResizeCallback([look](const Point&, double) { look(); });
    shape.setYResizeCallback([look](const Point&, double) { look(); });
    shape.setShapeTooltipCallback([look](const Point&) {
        look();
        return QString();
    });
}

TEST(Shape, ACallbackMayReplaceItsShape)
{
    const auto call = [](auto operation) {
        int outlived = 0;
        Shape shape;
        changeWhenCalled(shape, outlived, [](Shape& changed) { changed = Shape(unitSquare()); });
        operation(shape);
        EXPECT_EQ(shape.numberOfLines(), 4);
        return outlived;
    };
    EXPECT_EQ(call([](Shape& shape) { shape.onMousePress(); }), 1);
    EXPECT_EQ(call([](Shape& shape) { shape.onMouseRelease(); }), 1);
    EXPECT_EQ(call([](Shape& shape) { shape.xTranslate(1.0); }), 1);
    EXPECT_EQ(call([](Shape& shape) { shape.yTranslate(1.0); }), 1);
    EXPECT_EQ(call([](Shape& shape) { shape.xResize(Point(), 1.0); }), 1);
    EXPECT_EQ(call([](Shape& shape) { shape.yResize(Point(), 1.0); }), 1);
    EXPECT_EQ(call([](Shape& shape) { shape.tooltips(Point()); }), 1);
}

TEST(Shape, ACallbackMayTakeItselfAway)
{
    Shape shape;
    bool outlived = false;
    shape.setOnMousePressCallback([&shape, &outlived, token = std::make_shared<int>(0)] {
        bool& answer = outlived;
        const std::weak_ptr<int> present = token;
        shape.setOnMousePressCallback(nullptr);
        answer = !present.expired();
    });
    shape.onMousePress();
    EXPECT_TRUE(outlived);
    outlived = false;
    shape.onMousePress();
    EXPECT_FALSE(outlived);
}

TEST(Shape, AnInsideCallbackReplacesTheTestAltogether)
{
    Shape shape = unitSquare();
    bool answer = true;
    shape.setInsidePolygonCallback([&](const Point&) { return answer; });
    EXPECT_TRUE(shape.insidePolygon(Point(500.0, 500.0)));
    answer = false;
    EXPECT_FALSE(shape.insidePolygon(Point(0.5, 0.5)));
    shape.setInsidePolygonCallback(nullptr);
    EXPECT_TRUE(shape.insidePolygon(Point(0.5, 0.5)));
}

// closeToLine -------------------------------------------------------------------------------------

Shape diagonal()
{
    Shape shape;
    shape.setXAxisRange(Range(0.0, 100.0));
    shape.setYAxisRange(Range(0.0, 100.0));
    shape.addLine(Point(10.0, 10.0), Point(90.0, 90.0));
    return shape;
}

TEST(Shape, IsCloseWithinABandAroundTheFirstEndAlongEitherAxis)
{
    Shape shape = diagonal();
    EXPECT_TRUE(shape.closeToLine(Point(14.0, 500.0)));
    EXPECT_TRUE(shape.closeToLine(Point(500.0, 6.0)));
    EXPECT_TRUE(shape.closeToLine(Point(10.0, 10.0)));
    EXPECT_FALSE(shape.closeToLine(Point(90.0, 90.0))); // the second end
    EXPECT_FALSE(shape.closeToLine(Point(50.0, 50.0))); // on the line itself
}

TEST(Shape, ADistanceEqualToTheToleranceIsNotClose)
{
    Shape shape = diagonal();
    shape.setTolerance(0.125); // 12.5 on both axes, exactly
    EXPECT_FALSE(shape.closeToLine(Point(22.5, 500.0)));
    EXPECT_TRUE(shape.closeToLine(Point(std::nextafter(22.5, 0.0), 500.0)));
    EXPECT_FALSE(shape.closeToLine(Point(500.0, -2.5)));
    EXPECT_TRUE(shape.closeToLine(Point(500.0, -2.4999)));
}

TEST(Shape, TheDefaultToleranceIsTheWidenedFloat)
{
    Shape shape;
    shape.setXAxisRange(Range(0.0, 100.0));
    shape.addLine(Point(0.0, 0.0), Point(90.0, 90.0));
    EXPECT_FALSE(shape.closeToLine(Point(5.000000074505806, 500.0)));
    EXPECT_TRUE(shape.closeToLine(Point(std::nextafter(5.000000074505806, 0.0), 500.0)));
}

TEST(Shape, EveryLineIsAskedForCloseness)
{
    Shape shape = diagonal();
    EXPECT_FALSE(shape.closeToLine(Point(70.0, 30.0)));
    shape.addLine(Point(71.0, 500.0), Point(0.0, 0.0));
    EXPECT_TRUE(shape.closeToLine(Point(70.0, 30.0)));
}

TEST(Shape, IsCloseToNothingWithoutLinesOrWithoutRanges)
{
    Shape shape;
    shape.setXAxisRange(Range(0.0, 100.0));
    shape.setYAxisRange(Range(0.0, 100.0));
    EXPECT_FALSE(shape.closeToLine(Point(0.0, 0.0)));
    Shape unranged = unitSquare();
    for (const double at : {0.0, 1.0, -1e300})
        EXPECT_FALSE(unranged.closeToLine(Point(at, at)));
}

TEST(Shape, IsCloseToNoInvisiblePointAndWithNoInvisibleEnd)
{
    Shape shape = diagonal();
    Point point(10.0, 10.0);
    point.setVisible(false);
    EXPECT_FALSE(shape.closeToLine(point));
    shape.line(0)->p1()->setVisible(false);
    EXPECT_FALSE(shape.closeToLine(Point(10.0, 10.0)));
}

// insidePolygon -----------------------------------------------------------------------------------

TEST(Shape, HoldsThePointsInsideItsOutline)
{
    Shape shape = unitSquare();
    EXPECT_TRUE(shape.insidePolygon(Point(0.5, 0.5)));
    EXPECT_FALSE(shape.insidePolygon(Point(2.0, 0.5)));
    EXPECT_FALSE(shape.insidePolygon(Point(-1.0, 0.5)));
    EXPECT_FALSE(shape.insidePolygon(Point(0.5, 2.0)));
    EXPECT_FALSE(shape.insidePolygon(Point(0.5, -1.0)));
}

TEST(Shape, HoldsNothingWithoutLines) { EXPECT_FALSE(Shape().insidePolygon(Point(0.0, 0.0))); }

TEST(Shape, CountsTheCrossingsOfAnOpenOutline)
{
    Shape shape;
    shape.addLine(Point(0.0, 0.0), Point(0.0, 10.0));
    EXPECT_TRUE(shape.insidePolygon(Point(5.0, 5.0))); // one line to its left
    EXPECT_TRUE(shape.insidePolygon(Point(1e300, 5.0)));
    EXPECT_FALSE(shape.insidePolygon(Point(-5.0, 5.0)));
    shape.addLine(Point(1.0, 0.0), Point(1.0, 10.0));
    EXPECT_FALSE(shape.insidePolygon(Point(5.0, 5.0)));
    EXPECT_TRUE(shape.insidePolygon(Point(0.5, 5.0)));
}

TEST(Shape, CountsASharedCornerOnceForEachLine)
{
    Shape diamond = polygon({{0.0, 0.0}, {2.0, -2.0}, {4.0, 0.0}, {2.0, 2.0}});
    EXPECT_FALSE(diamond.insidePolygon(Point(2.0, 0.0))); // through the left corner: two
    EXPECT_TRUE(diamond.insidePolygon(Point(2.0, 0.5)));
    EXPECT_FALSE(diamond.insidePolygon(Point(5.0, 0.0))); // two corners: four
}

TEST(Shape, CountsALineThatLiesOnTheRay)
{
    Shape square = unitSquare();
    EXPECT_FALSE(square.insidePolygon(Point(0.5, 0.0))); // the lower and the left side
    EXPECT_TRUE(square.insidePolygon(Point(2.0, 0.0))); // the right side too
    EXPECT_TRUE(square.insidePolygon(Point(2.0, 1.0)));
}

TEST(Shape, CountsALineThatThePointLiesOn)
{
    Shape square = unitSquare();
    EXPECT_TRUE(square.insidePolygon(Point(0.0, 0.5)));
    EXPECT_FALSE(square.insidePolygon(Point(1.0, 0.5)));
}

TEST(Shape, FollowsItsPointsAsTheyAreMoved)
{
    Shape shape = unitSquare();
    EXPECT_FALSE(shape.insidePolygon(Point(10.5, 0.5)));
    for (int i = 0; i < shape.numberOfLines(); ++i) {
        *shape.line(i)->p1() += Point(10.0, 0.0);
        shape.line(i)->p2()->setX(shape.line(i)->p2()->x() + 10.0);
    }
    EXPECT_TRUE(shape.insidePolygon(Point(10.5, 0.5)));
    EXPECT_FALSE(shape.insidePolygon(Point(0.5, 0.5)));
}

TEST(Shape, HoldsNoInvisiblePoint)
{
    Point point(0.5, 0.5);
    point.setVisible(false);
    EXPECT_FALSE(unitSquare().insidePolygon(point));
}

/** The crossings counted line by line with the ray as a line of its own. */
bool stepwiseInside(const Shape& shape, const Point& point)
{
    const Line ray(Point(-DBL_MAX, point.y()), point);
    int crossings = 0;
    for (int i = 0; i < shape.numberOfLines(); ++i)
        crossings += shape.line(i)->intersect(ray);
    return crossings % 2 == 1;
}

template <class Coordinate> void compareWithTheSteps(Coordinate coordinate, int shapes)
{
    int inside = 0;
    for (int i = 0; i < shapes; ++i) {
        Shape shape;
        for (int line = 0; line < 5; ++line)
            shape.addLine({coordinate(), coordinate()}, {coordinate(), coordinate()});
        for (int at = 0; at < 20; ++at) {
            const Point point(coordinate(), coordinate());
            const bool expected = stepwiseInside(shape, point);
            inside += expected;
            ASSERT_EQ(shape.insidePolygon(point), expected) << "shape " << i << ", point " << at;
        }
    }
    EXPECT_GT(inside, shapes); // of twenty times as many
    EXPECT_LT(inside, 19 * shapes);
}

TEST(Shape, CountsAsTheStepsDoOnAGridFullOfTies)
{
    std::mt19937 random(7);
    compareWithTheSteps([&] { return double(int(random() % 7) - 3); }, 5000);
}

TEST(Shape, CountsAsTheStepsDoForAnyNumber)
{
    std::mt19937 random(8);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    compareWithTheSteps([&] { return coordinate(random); }, 5000);
}

TEST(Shape, CountsAsTheStepsDoForAwkwardNumbers)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::vector<double> awkward {0.0, -0.0, 1.0, -1.0, 0.5, 5e-324, 1e-300, 1e200, -1e200,
        -1e300, DBL_MAX, -DBL_MAX, DBL_MAX / 4, infinity, -infinity,
        std::numeric_limits<double>::quiet_NaN()};
    std::mt19937 random(9);
    compareWithTheSteps([&] { return awkward[random() % awkward.size()]; }, 20000);
}

/** Which side of a convex outline, going round it to the left, a point lies on; exact. */
bool insideConvex(const std::vector<std::pair<double, double>>& corners, double x, double y)
{
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto [x1, y1] = corners[i];
        const auto [x2, y2] = corners[(i + 1) % corners.size()];
        if ((x2 - x1) * (y - y1) - (y2 - y1) * (x - x1) <= 0.0)
            return false;
    }
    return true;
}

TEST(Shape, AgreesWithTheSidesOfAConvexOutline)
{
    const std::vector<std::pair<double, double>> corners {
        {0.0, 1.0}, {20.0, -13.0}, {41.0, 3.0}, {37.0, 30.0}, {11.0, 39.0}};
    Shape shape = polygon(corners);
    for (int x = -5; x <= 45; ++x)
        for (int y = -20; y <= 45; ++y) {
            const double height = y + 0.37; // meets no side at a whole x
            ASSERT_EQ(shape.insidePolygon(Point(x, height)), insideConvex(corners, x, height))
                << x << ", " << height;
        }
}

TEST(Shape, HitTestsAllocateNothing)
{
    Shape shape = diagonal();
    for (int i = 0; i < 100; ++i)
        shape.addLine(Point(i, 0.0), Point(0.0, 100.0));
    const Point point(300.0, 50.0);
    const AllocationCounter allocations;
    const bool inside = shape.insidePolygon(point);
    const bool close = shape.closeToLine(point);
    EXPECT_EQ(allocations.count(), 0u);
    EXPECT_TRUE(inside);
    EXPECT_FALSE(close);
}

// Bad input ---------------------------------------------------------------------------------------

#ifndef NDEBUG
TEST(ShapeDeathTest, AnIndexOutOfRangeIsNamed)
{
    const Shape shape = unitSquare();
    EXPECT_DEATH(static_cast<void>(shape.line(4)), "Shape::line.* 4");
    EXPECT_DEATH(static_cast<void>(shape.line(-1)), "Shape::line.* -1");
    EXPECT_DEATH(static_cast<void>(shape.handle(12)), "Shape::handle.* 12");
    EXPECT_DEATH(static_cast<void>(shape.handle(-1)), "Shape::handle.* -1");
}

TEST(ShapeDeathTest, AMovedFromShapeMayNotBeUsed)
{
    Shape shape = unitSquare();
    const Shape taken(std::move(shape));
    EXPECT_DEATH(shape.addLine(Point(), Point()), "Shape::addLine");
    EXPECT_DEATH(shape.clear(), "Shape::clear");
    EXPECT_DEATH(static_cast<void>(shape.line(0)), "Shape::line");
    EXPECT_DEATH(static_cast<void>(shape.handle(0)), "Shape::handle");
    EXPECT_DEATH(static_cast<void>(shape.numberOfLines()), "Shape::numberOfLines");
    EXPECT_DEATH(static_cast<void>(shape.closeToLine(Point())), "Shape::closeToLine");
    EXPECT_DEATH(static_cast<void>(shape.insidePolygon(Point())), "Shape::insidePolygon");
    EXPECT_DEATH(static_cast<void>(shape.tooltips(Point())), "Shape::tooltips");
    EXPECT_DEATH(shape.xTranslate(1.0), "Shape::xTranslate");
    EXPECT_DEATH(shape.shallowCopy(taken), "Shape::shallowCopy");
    EXPECT_DEATH(static_cast<void>(shape.title()), "Shape::title");
    EXPECT_DEATH(shape.setVisible(true), "Shape::setVisible");
    EXPECT_DEATH(Shape copy(shape), "Shape::Shape");
    EXPECT_DEATH(Shape().operator=(shape), "Shape::operator=");
}

TEST(ShapeDeathTest, AShapeMovedOntoItselfIsMovedFrom)
{
    Shape shape = unitSquare();
    Shape& same = shape;
    shape = std::move(same);
    EXPECT_DEATH(static_cast<void>(shape.numberOfLines()), "Shape::numberOfLines");
}
#else
TEST(Shape, AnIndexOutOfRangeGivesNull)
{
    const Shape shape = unitSquare();
    EXPECT_EQ(shape.line(4), nullptr);
    EXPECT_EQ(shape.line(-1), nullptr);
    EXPECT_EQ(shape.handle(12), nullptr);
    EXPECT_EQ(shape.handle(-1), nullptr);
}
#endif

} // namespace
