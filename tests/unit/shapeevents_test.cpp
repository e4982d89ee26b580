// SPDX-License-Identifier: BSD-3-Clause
// Events of a chart over random shapes, against loops that ask every plot and every shape.
#include <visualization/chartxy.h>
#include <visualization/line.h>
#include <visualization/plot.h>
#include <visualization/plotroster.h>
#include <visualization/point.h>
#include <visualization/shape.h>
#include <visualization/vtkcompat.h>

#include <vtkAxis.h>
#include <vtkContextMouseEvent.h>
#include <vtkContextScene.h>
#include <vtkContextTransform.h>
#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkPlot.h>
#include <vtkTable.h>
#include <vtkTransform2D.h>

#include <QString>

#include <climits>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace ovl {
namespace {

constexpr int kEdge = 300; // pixels, and units where an axis has not been changed

class AskedChart : public ChartXY {
public:
    static AskedChart* New();
    using ChartXY::HitInteractivePlot;
    using ChartXY::HoverDraggableShape;
    using ChartXY::PickShapeForDrag;
    using ChartXY::PressShapes;
    using ChartXY::ShapeTooltip;
};
vtkStandardNewMacro(AskedChart);

vtkSmartPointer<vtkTable> tableOf(const std::vector<Point>& points)
{
    auto table = vtkSmartPointer<vtkTable>::New();
    for (const char* name : {"x", "y"}) {
        const vtkNew<vtkDoubleArray> column;
        column->SetName(name);
        for (const Point& point : points)
            column->InsertNextValue(*name == 'x' ? point.x() : point.y());
        table->AddColumn(column);
    }
    return table;
}

/** A chart without a window and its shapes, and loops over all of them. */
class World {
public:
    explicit World(unsigned int seed)
        : random(seed)
    {
        scene->AddItem(chart);
        chart->SetInteractive(true);
        chart->SetPoint1(0, 0);
        chart->SetPoint2(kEdge, kEdge);
        for (int i = 0; i < 4; ++i)
            setRange(i, 0, kEdge);
        for (int i = 0; i < 12; ++i)
            addShape();
        settle();
    }

    ~World() { chart->ClearPlots(); }

    void change();
    vtkContextMouseEvent event();

    // What the operations of these names answer, asked of everything.
    bool hoverDraggableShape(const vtkContextMouseEvent& mouse);
    void pressShapes(const vtkContextMouseEvent& mouse);
    std::vector<Plot*> pickShapeForDrag(const vtkContextMouseEvent& mouse);
    std::string shapeTooltip(const vtkContextMouseEvent& mouse);
    bool hit(const vtkContextMouseEvent& mouse, bool onlyHandles);

    std::vector<Plot*> dragTargets();
    bool isInteractive(const Plot* own);

    vtkNew<vtkContextScene> scene;
    vtkNew<AskedChart> chart;
    std::string log; ///< the calls of the shapes' callbacks

private:
    using Corner = std::vector<vtkPlot*>;

    std::size_t below(std::size_t end) { return random() % end; }
    double coordinate();
    Point anyPoint() { return {coordinate(), coordinate()}; }
    Shape& anyShape() { return *shapes[below(shapes.size())]; }
    vtkPlot* anyPlot()
    {
        return chart->GetPlot(
            static_cast<vtkIdType>(below(static_cast<std::size_t>(chart->GetNumberOfPlots()))));
    }
    static Plot* part(vtkPlot* plot) { return dynamic_cast<Plot*>(plot); }

    void setRange(int axis, double from, double to);
    void settle();
    Shape makeShape();
    void setCallbacks(Shape& shape);
    void addShape();
    void removeShape();
    void changePoint(Shape& shape);
    void changeLines(Shape& shape);
    void changeShape(Shape& shape);
    void changePlot();
    void changeStack();
    std::vector<vtkContextTransform*> transforms();
    std::vector<Corner> corners();
    Point position(const vtkContextMouseEvent& mouse);
    template <class Take>
    void climb(const Corner& corner, const Point& position, bool withHandles, Take take);

    std::mt19937 random;
    std::vector<std::unique_ptr<Shape>> shapes;
    int named = 0;
};

/** Round, so that the mouse comes to lie level with ends, mostly; now and then no number at all. */
double World::coordinate()
{
    constexpr double odd[] = {std::numeric_limits<double>::quiet_NaN(),
        std::numeric_limits<double>::infinity(), 1e200, -1e101, 1e-200, 150.5};
    return random() % 64 == 0 ? odd[below(std::size(odd))] : 10.0 * static_cast<double>(below(30));
}

void World::setRange(int index, double from, double to)
{
    vtkAxis* axis = chart->GetAxis(index);
    const bool vertical = index == vtkAxis::LEFT || index == vtkAxis::RIGHT;
    axis->SetBehavior(vtkAxis::FIXED);
    axis->SetRange(from, to);
    axis->SetPoint1(0, 0);
    axis->SetPoint2(vertical ? 0 : kEdge, vertical ? kEdge : 0);
}

void World::settle()
{
    chart->Update();
    chart->MouseWheelEvent(event(), 0); // sets the transforms, moves nothing
}

vtkContextMouseEvent World::event()
{
    const int x = static_cast<int>(below(30)) * 10 + (random() % 4 == 0 ? 3 : 0);
    const int y = static_cast<int>(below(30)) * 10 + (random() % 2 == 0 ? 3 : 0);
    const vtkVector2f place(static_cast<float>(x), static_cast<float>(y));
    vtkContextMouseEvent mouse {};
    mouse.SetPos(place);
    mouse.SetScenePos(place);
    mouse.SetScreenPos(vtkVector2i(x, y));
    mouse.SetLastScreenPos(vtkVector2i(x, y - 1));
    return mouse;
}

Shape World::makeShape()
{
    Shape shape;
    if (random() % 3 > 0) { // a box
        const double left = coordinate(), bottom = coordinate();
        const double right = left + 10.0 * static_cast<double>(1 + below(8));
        const double top = bottom + 10.0 * static_cast<double>(1 + below(8));
        const Point ends[] {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
        for (std::size_t i = 0; i < 4; ++i)
            shape.addLine(ends[i], ends[(i + 1) % 4]);
    } else {
        for (std::size_t i = below(6); i > 0; --i)
            shape.addLine(anyPoint(), anyPoint());
    }
    shape.setPriority(static_cast<int>(below(4)));
    setCallbacks(shape);
    return shape;
}

void World::setCallbacks(Shape& shape)
{
    const std::string name = std::to_string(++named) + " ";
    shape.setOnMousePressCallback([=] { log += "press " + name; });
    shape.setXTranslationCallback([=](double) { log += "x " + name; });
    shape.setYTranslationCallback([=](double) { log += "y " + name; });
    const bool hasText = random() % 4 > 0;
    shape.setShapeTooltipCallback([=](const Point&) {
        log += "text " + name;
        return hasText ? QString::fromStdString(name) : QString();
    });
    if (random() % 8 == 0)
        shape.setInsidePolygonCallback([=](const Point& point) {
            log += "inside " + name;
            return point.x() < 150;
        });
    else
        shape.setInsidePolygonCallback(nullptr);
}

void World::addShape()
{
    shapes.push_back(std::make_unique<Shape>(makeShape()));
    Shape* shape = shapes.back().get();
    std::vector<Point> ends, handles;
    for (int i = 0; i < shape->numberOfLines(); ++i)
        ends.insert(ends.end(), {*shape->line(i)->p1(), *shape->line(i)->p2()});
    for (int i = 0; i < shape->numberOfHandles(); ++i)
        handles.push_back(*shape->handle(i));
    vtkPlot* both[] {chart->AddPlot(vtkChart::LINE), chart->AddPlot(vtkChart::POINTS)};
    both[0]->SetInputData(tableOf(ends), 0, 1);
    both[1]->SetInputData(tableOf(handles), 0, 1);
    for (int i = 0; i < 2; ++i) {
        Plot* own = part(both[i]);
        own->shape = shape;
        own->sibling = both[1 - i];
        own->isHandle = i == 1;
        own->canDragX = random() % 4 > 0;
        own->canDragY = random() % 2 > 0;
        chart->SetPlotCorner(both[i], static_cast<int>(below(8)) / 5);
    }
    chart->Update();
}

void World::removeShape()
{
    const std::size_t index = below(shapes.size());
    for (vtkIdType i = chart->GetNumberOfPlots(); i-- > 0;)
        if (part(chart->GetPlot(i))->shape == shapes[index].get())
            chart->RemovePlot(i);
    shapes.erase(shapes.begin() + static_cast<std::ptrdiff_t>(index));
}

void World::changePoint(Shape& shape)
{
    if (shape.numberOfLines() == 0)
        return;
    Line* line
        = shape.line(static_cast<int>(below(static_cast<std::size_t>(shape.numberOfLines()))));
    Point* end = random() % 2 == 0 ? line->p1() : line->p2();
    switch (below(8)) {
    case 0:
        end->setX(coordinate());
        break;
    case 1:
        end->setY(coordinate());
        break;
    case 2:
        *end += Point(10, -10);
        break;
    case 3:
        *end = anyPoint();
        break;
    case 4: {
        const Point other = anyPoint();
        *end = other;
        break;
    }
    case 5:
        end->setVisible(!end->visible());
        break;
    case 6: {
        Point taken(std::move(*end));
        taken.setX(coordinate());
        *end = std::move(taken);
        break;
    }
    default:
        end->shallowCopy(Point());
        break;
    }
}

void World::changeLines(Shape& shape)
{
    Shape& other = anyShape();
    switch (below(4)) {
    case 0:
        shape.addLine(anyPoint(), anyPoint());
        break;
    case 1:
        if (random() % 4 == 0)
            shape.clear();
        break;
    case 2:
        if (shape.numberOfLines() > 0)
            *shape.line(0) = Line(anyPoint(), anyPoint());
        break;
    default:
        if (&shape != &other && shape.numberOfLines() > 0 && other.numberOfLines() > 0)
            std::swap(*shape.line(0), *other.line(0));
        break;
    }
}

void World::changeShape(Shape& shape)
{
    switch (below(5)) {
    case 0:
        shape.setPriority(static_cast<int>(below(4)));
        break;
    case 1:
        setCallbacks(shape);
        break;
    case 2: {
        const Shape update = makeShape();
        shape = update;
        break;
    }
    case 3:
        shape = makeShape();
        break;
    default:
        shape.shallowCopy(anyShape());
        break;
    }
}

void World::changePlot()
{
    vtkPlot* plot = anyPlot();
    switch (below(7)) {
    case 0:
        part(plot)->canDragX = !part(plot)->canDragX;
        break;
    case 1:
        part(plot)->canDragY = !part(plot)->canDragY;
        break;
    case 2:
        part(plot)->shape = random() % 4 == 0 ? nullptr : &anyShape();
        break;
    case 3:
        part(plot)->isHandle = !part(plot)->isHandle;
        break;
    case 4:
        plot->SetVisible(!plot->GetVisible());
        break;
    case 5:
        plot->SetInteractive(!plot->GetInteractive());
        break;
    default:
        chart->SetPlotCorner(plot, static_cast<int>(below(4)));
        break;
    }
}

void World::changeStack()
{
    switch (below(5)) {
    case 0:
        chart->LowerPlot(anyPlot());
        break;
    case 1:
        chart->StackPlotUnder(anyPlot(), anyPlot());
        break;
    case 2:
        chart->LowerPlots({anyPlot()});
        break;
    case 3: {
        vtkContextTransform* corner = transforms()[0];
        if (corner->GetNumberOfItems() > 0)
            corner->Raise(static_cast<vtkIdType>(below(8)) % corner->GetNumberOfItems());
        break;
    }
    default: {
        const int axis = static_cast<int>(below(4));
        const double ranges[][2] = {{0, kEdge}, {kEdge, 0}, {-20, 280}, {1, 1}, {0, 1000}};
        const double* range = ranges[random() % 3 == 0 ? below(5) : 0];
        chart->GetAxis(axis)->SetLogScale(random() % 8 == 0);
        setRange(axis, range[0], range[1]);
        settle();
        break;
    }
    }
}

void World::change()
{
    switch (below(12)) {
    case 0:
        addShape();
        break;
    case 1:
        if (shapes.size() > 6)
            removeShape();
        break;
    case 2:
        changeStack();
        break;
    case 3:
    case 4:
        changePlot();
        break;
    case 5:
        changeShape(anyShape());
        break;
    case 6:
    case 7:
        changeLines(anyShape());
        break;
    default:
        changePoint(anyShape());
        break;
    }
}

/** The corners' transforms stand behind two grids among what the chart clips. */
std::vector<vtkContextTransform*> World::transforms()
{
    std::vector<vtkContextTransform*> all;
    for (vtkIdType i = 0; i < chart->GetItem(0)->GetNumberOfItems(); ++i)
        if (auto* corner = vtkContextTransform::SafeDownCast(chart->GetItem(0)->GetItem(i)))
            all.push_back(corner);
    return all;
}

std::vector<World::Corner> World::corners()
{
    std::vector<Corner> all;
    for (vtkContextTransform* transform : transforms()) {
        Corner corner;
        for (vtkIdType i = 0; i < transform->GetNumberOfItems(); ++i)
            corner.push_back(vtkPlot::SafeDownCast(transform->GetItem(i)));
        all.push_back(corner);
    }
    return all;
}

Point World::position(const vtkContextMouseEvent& mouse)
{
    const double screen[2] = {double(mouse.GetScreenPos()[0]), double(mouse.GetScreenPos()[1])};
    double place[2];
    transforms()[0]->GetTransform()->InverseTransformPoints(screen, place, 1);
    return {place[0], place[1]};
}

bool World::hit(const vtkContextMouseEvent& mouse, bool onlyHandles)
{
    const vtkVector2i screen = mouse.GetScreenPos();
    if (screen[0] <= 0 || screen[0] >= kEdge || screen[1] <= 0 || screen[1] >= kEdge)
        return false;
    for (vtkContextTransform* corner : transforms()) {
        const PointProbe probe(corner, mouse);
        for (vtkIdType i = corner->GetNumberOfItems(); i-- > 0;) {
            vtkPlot* plot = vtkPlot::SafeDownCast(corner->GetItem(i));
            vtkVector2f found;
            vtkIdType segment = -1;
            if (plot->GetVisible() && plot->GetInteractive()
                && (!onlyHandles || part(plot)->isHandle)
                && compat::nearestPoint(plot, probe.position, probe.tolerance, found, segment) >= 0)
                return true;
        }
    }
    return false;
}

bool World::hoverDraggableShape(const vtkContextMouseEvent& mouse)
{
    const Point place = position(mouse);
    bool inside = false;
    for (const Corner& corner : corners()) {
        for (vtkPlot* plot : corner) {
            const Plot* own = part(plot);
            if (own->shape && (own->canDragX || own->canDragY) && own->shape->insidePolygon(place))
                inside = true;
        }
    }
    return inside && !hit(mouse, true);
}

template <class Take>
void World::climb(const Corner& corner, const Point& place, bool withHandles, Take take)
{
    int best = INT_MIN;
    for (vtkPlot* plot : corner) {
        Plot* own = part(plot);
        if (!own->shape || !(own->canDragX || own->canDragY) || (own->isHandle && !withHandles))
            continue;
        if (own->shape->insidePolygon(place) && own->shape->priority() > best && take(own))
            best = own->shape->priority();
    }
}

void World::pressShapes(const vtkContextMouseEvent& mouse)
{
    for (const Corner& corner : corners()) {
        climb(corner, position(mouse), true, [](Plot* own) {
            own->shape->onMousePress();
            return true;
        });
    }
}

std::vector<Plot*> World::pickShapeForDrag(const vtkContextMouseEvent& mouse)
{
    std::vector<Plot*> targets;
    for (const Corner& corner : corners()) {
        Plot* winner = nullptr;
        climb(corner, position(mouse), false, [&](Plot* own) {
            winner = own;
            return true;
        });
        if (winner)
            targets.push_back(winner);
    }
    return targets;
}

std::string World::shapeTooltip(const vtkContextMouseEvent& mouse)
{
    std::string result;
    const Point place = position(mouse);
    for (const Corner& corner : corners()) {
        climb(corner, place, false, [&](Plot* own) {
            const std::string text = own->shape->tooltips(place).toStdString();
            if (!text.empty())
                result = text;
            return !text.empty();
        });
    }
    return result;
}

std::vector<Plot*> World::dragTargets()
{
    std::vector<Plot*> targets;
    for (const Corner& corner : corners())
        for (vtkPlot* plot : corner)
            if (part(plot)->dragTarget)
                targets.push_back(part(plot));
    return targets;
}

bool World::isInteractive(const Plot* own)
{
    for (const Corner& corner : corners())
        for (vtkPlot* plot : corner)
            if (part(plot) == own)
                return plot->GetInteractive();
    return false;
}

template <class Asked, class Expected>
void compare(World& world, const char* question, Asked asked, Expected expected)
{
    SCOPED_TRACE(question);
    world.log.clear();
    const auto answer = asked();
    const std::string log = std::exchange(world.log, std::string());
    EXPECT_EQ(answer, expected());
    EXPECT_EQ(log, world.log);
}

/** Of a drag from the mouse's place to right above it: which shapes are told, and along what. */
std::string dragLog(const std::vector<Plot*>& targets, World& world)
{
    world.log.clear();
    for (Plot* target : targets) {
        if (!world.isInteractive(target))
            continue;
        if (target->canDragX)
            target->shape->xTranslate(0);
        if (target->canDragY)
            target->shape->yTranslate(1);
    }
    return std::exchange(world.log, std::string());
}

class ShapeEvents : public testing::TestWithParam<unsigned int> { };

TEST_P(ShapeEvents, AnswerAsIfEveryShapeWereAsked)
{
    World world(GetParam());
    AskedChart* chart = world.chart;
    for (int step = 0; step < 300 && !testing::Test::HasFailure(); ++step) {
        SCOPED_TRACE(step);
        const vtkContextMouseEvent mouse = world.event();
        compare(
            world, "hover", [&] { return chart->HoverDraggableShape(mouse); },
            [&] { return world.hoverDraggableShape(mouse); });
        compare(
            world, "tooltip", [&] { return chart->ShapeTooltip(mouse); },
            [&] { return world.shapeTooltip(mouse); });
        compare(
            world, "point", [&] { return chart->HitInteractivePlot(mouse); },
            [&] { return world.hit(mouse, false); });
        compare(
            world, "press", [&] { return chart->PressShapes(mouse), 0; },
            [&] { return world.pressShapes(mouse), 0; });
        compare(
            world, "pick", [&] { return chart->PickShapeForDrag(mouse), world.dragTargets(); },
            [&] { return world.pickShapeForDrag(mouse); });
        world.change();
    }
}

TEST_P(ShapeEvents, DragWhatHasBeenPicked)
{
    World world(GetParam());
    AskedChart* chart = world.chart;
    int drags = 0;
    for (int step = 0; step < 200 && !testing::Test::HasFailure(); ++step) {
        SCOPED_TRACE(step);
        vtkContextMouseEvent mouse = world.event();
        mouse.SetButton(vtkContextMouseEvent::LEFT_BUTTON);
        chart->MouseButtonPressEvent(mouse);
        const std::vector<Plot*> targets = world.dragTargets();
        if (!targets.empty() && !world.hit(mouse, false)) {
            ++drags;
            world.log.clear();
            chart->MouseMoveEvent(mouse); // without a cursor to be chosen
            const std::string told = world.log;
            EXPECT_EQ(told, dragLog(targets, world));
        }
        chart->MouseButtonReleaseEvent(mouse);
        world.change();
    }
    EXPECT_GT(drags, 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ShapeEvents, testing::Range(1U, 13U));

} // namespace
} // namespace ovl
