// SPDX-License-Identifier: BSD-3-Clause
#include "shape.h"

#include "shape_p.h"

#include <cmath>

namespace ovl {

namespace {

/** Calls a copy: what is called may set another callback, or the whole shape, in its own place. */
template <class Callback, class... Arguments>
void callIfSet(Callback callback, Arguments&&... arguments) // NOLINT: it is to be copied
{
    if (callback)
        callback(std::forward<Arguments>(arguments)...);
}

} // namespace

Shape::Shape()
    : d(new Private)
{
}

Shape::Shape(const Shape& other)
    : d(copyOfContents("Shape::Shape", other.d))
{
}

Shape::Shape(Shape&& other) noexcept
    : d(std::exchange(other.d, nullptr))
{
    if (d)
        d->outline.moved();
}

Shape::~Shape() { delete d; }

Shape& Shape::operator=(const Shape& other)
{
    if (this == &other)
        return *this;
    Private* copy = copyOfContents("Shape::operator=", other.d);
    if (d && copy)
        copy->outline.replace(d->outline);
    delete std::exchange(d, copy);
    return *this;
}

Shape& Shape::operator=(Shape&& other) noexcept
{
    moveContents(d, other.d);
    if (d)
        d->outline.moved();
    return *this;
}

void Shape::addLine(const Point& p1, const Point& p2)
{
    Private& shape = contents("Shape::addLine", d);
    shape.lines.emplace_back(p1, p2);
    Line& line = shape.lines.back();
    shape.handles.push_back(*line.p1());
    shape.handles.push_back(line.center());
    shape.handles.push_back(*line.p2());
    shape.outline.changed();
}

void Shape::clear()
{
    Private& shape = contents("Shape::clear", d);
    shape.lines.clear();
    shape.handles.clear();
    shape.outline.changed();
}

Line* Shape::line(int index) const
{
    return elementAt("Shape::line", contents("Shape::line", d).lines, index);
}

Point* Shape::handle(int index) const
{
    return elementAt("Shape::handle", contents("Shape::handle", d).handles, index);
}

int Shape::numberOfLines() const
{
    return static_cast<int>(contents("Shape::numberOfLines", d).lines.size());
}

int Shape::numberOfHandles() const
{
    return static_cast<int>(contents("Shape::numberOfHandles", d).handles.size());
}

// Each axis is tested by itself and only against the first end: that is meant.
bool Shape::closeToLine(const Point& point)
{
    const Private& shape = contents("Shape::closeToLine", d);
    const double xTolerance = shape.xAxisRange.length() * shape.tolerance;
    const double yTolerance = shape.yAxisRange.length() * shape.tolerance;
    const Position p = contents("Shape::closeToLine", point.d).shown();
    for (const Line& line : shape.lines) {
        const Position end = contents("Shape::closeToLine", line.d).start();
        if (xTolerance > std::fabs(end.x - p.x) || yTolerance > std::fabs(end.y - p.y))
            return true;
    }
    return false;
}

bool Shape::insidePolygon(const Point& point)
{
    const Private& shape = contents("Shape::insidePolygon", d);
    if (shape.insidePolygonCallback)
        return shape.insidePolygonCallback(point);
    const Position p = contents("Shape::insidePolygon", point.d).shown();
    bool inside = false;
    for (const Line& line : shape.lines)
        if (meetsRay(contents("Shape::insidePolygon", line.d).segment(), p))
            inside = !inside;
    return inside;
}

QString Shape::tooltips(const Point& point)
{
    const auto callback = contents("Shape::tooltips", d).shapeTooltipCallback;
    return callback ? callback(point) : QString(); // of a copy too
}

void Shape::xTranslate(double distance)
{
    callIfSet(contents("Shape::xTranslate", d).xTranslationCallback, distance);
}

void Shape::yTranslate(double distance)
{
    callIfSet(contents("Shape::yTranslate", d).yTranslationCallback, distance);
}

void Shape::xResize(const Point& handle, double distance)
{
    callIfSet(contents("Shape::xResize", d).xResizeCallback, handle, distance);
}

void Shape::yResize(const Point& handle, double distance)
{
    callIfSet(contents("Shape::yResize", d).yResizeCallback, handle, distance);
}

void Shape::onMousePress() { callIfSet(contents("Shape::onMousePress", d).onMousePressCallback); }

void Shape::onMouseRelease()
{
    callIfSet(contents("Shape::onMouseRelease", d).onMouseReleaseCallback);
}

void Shape::shallowCopy(const Shape& other)
{
    Private& shape = contents("Shape::shallowCopy", d);
    const Private& source = contents("Shape::shallowCopy", other.d);
    // Not the tolerance: like lines and handles it stays this shape's own.
    shape.identifier = source.identifier;
    shape.lineStyle = source.lineStyle;
    shape.handleStyle = source.handleStyle;
    shape.title = source.title;
    shape.format = source.format;
    shape.xAxisRange = source.xAxisRange;
    shape.yAxisRange = source.yAxisRange;
    shape.lineType = source.lineType;
    shape.handleVisible = source.handleVisible;
    shape.legendVisible = source.legendVisible;
    shape.plotStackPriority = source.plotStackPriority;
    shape.handleSize = source.handleSize;
    shape.priority = source.priority;
    shape.onMousePressCallback = source.onMousePressCallback;
    shape.xTranslationCallback = source.xTranslationCallback;
    shape.yTranslationCallback = source.yTranslationCallback;
    shape.xResizeCallback = source.xResizeCallback;
    shape.yResizeCallback = source.yResizeCallback;
    shape.onMouseReleaseCallback = source.onMouseReleaseCallback;
    shape.insidePolygonCallback = source.insidePolygonCallback;
    shape.shapeTooltipCallback = source.shapeTooltipCallback;
    shape.visible = source.visible;
    shape.outline.changed();
}

void Shape::setOnMousePressCallback(std::function<void()> callback)
{
    contents("Shape::setOnMousePressCallback", d).onMousePressCallback = std::move(callback);
}

void Shape::setOnMouseReleaseCallback(std::function<void()> callback)
{
    contents("Shape::setOnMouseReleaseCallback", d).onMouseReleaseCallback = std::move(callback);
}

void Shape::setXTranslationCallback(std::function<void(double)> callback)
{
    contents("Shape::setXTranslationCallback", d).xTranslationCallback = std::move(callback);
}

void Shape::setYTranslationCallback(std::function<void(double)> callback)
{
    contents("Shape::setYTranslationCallback", d).yTranslationCallback = std::move(callback);
}

void Shape::setXResizeCallback(std::function<void(const Point&, double)> callback)
{
    contents("Shape::setXResizeCallback", d).xResizeCallback = std::move(callback);
}

void Shape::setYResizeCallback(std::function<void(const Point&, double)> callback)
{
    contents("Shape::setYResizeCallback", d).yResizeCallback = std::move(callback);
}

void Shape::setInsidePolygonCallback(std::function<bool(const Point&)> callback)
{
    Private& shape = contents("Shape::setInsidePolygonCallback", d);
    shape.insidePolygonCallback = std::move(callback);
    shape.outline.changed();
}

void Shape::setShapeTooltipCallback(std::function<QString(const Point&)> callback)
{
    contents("Shape::setShapeTooltipCallback", d).shapeTooltipCallback = std::move(callback);
}

QColor Shape::color() const { return contents("Shape::color", d).lineStyle.color; }

void Shape::setColor(const QColor& color)
{
    contents("Shape::setColor", d).lineStyle.color = color;
}

QColor Shape::handleColor() const { return contents("Shape::handleColor", d).handleStyle.color; }

void Shape::setHandleColor(const QColor& color)
{
    contents("Shape::setHandleColor", d).handleStyle.color = color;
}

bool Shape::interactive() const { return contents("Shape::interactive", d).lineStyle.interactive; }

void Shape::setInteractive(bool interactive)
{
    contents("Shape::setInteractive", d).lineStyle.interactive = interactive;
}

bool Shape::hasPlot() const { return contents("Shape::hasPlot", d).lineStyle.hasPlot; }

void Shape::setHasPlot(bool hasPlot)
{
    contents("Shape::setHasPlot", d).lineStyle.hasPlot = hasPlot;
}

bool Shape::tooltipsVisibility() const
{
    return contents("Shape::tooltipsVisibility", d).lineStyle.tooltips;
}

void Shape::setTooltipsVisibility(bool visible)
{
    contents("Shape::setTooltipsVisibility", d).lineStyle.tooltips = visible;
}

bool Shape::handleTooltipVisibility() const
{
    return contents("Shape::handleTooltipVisibility", d).handleStyle.tooltips;
}

void Shape::setHandleTooltipVisibility(bool visible)
{
    contents("Shape::setHandleTooltipVisibility", d).handleStyle.tooltips = visible;
}

bool Shape::canDragAlongX() const
{
    return contents("Shape::canDragAlongX", d).handleStyle.canDragX;
}

void Shape::setCanDragAlongX(bool allowed)
{
    contents("Shape::setCanDragAlongX", d).handleStyle.canDragX = allowed;
}

bool Shape::canDragAlongY() const
{
    return contents("Shape::canDragAlongY", d).handleStyle.canDragY;
}

void Shape::setCanDragAlongY(bool allowed)
{
    contents("Shape::setCanDragAlongY", d).handleStyle.canDragY = allowed;
}

QString Shape::title() const { return contents("Shape::title", d).title; }

void Shape::setTitle(const QString& title) { contents("Shape::setTitle", d).title = title; }

QString Shape::format() const { return contents("Shape::format", d).format; }

void Shape::setFormat(const QString& format) { contents("Shape::setFormat", d).format = format; }

void Shape::setXAxisRange(const Range& range)
{
    contents("Shape::setXAxisRange", d).xAxisRange = range;
}

void Shape::setYAxisRange(const Range& range)
{
    contents("Shape::setYAxisRange", d).yAxisRange = range;
}

int Shape::identifier() const
{
    return static_cast<int>(contents("Shape::identifier", d).identifier);
}

void Shape::setIdentifier(int identifier)
{
    contents("Shape::setIdentifier", d).identifier = identifier;
}

double Shape::tolerance() const { return contents("Shape::tolerance", d).tolerance; }

void Shape::setTolerance(double tolerance)
{
    contents("Shape::setTolerance", d).tolerance = tolerance;
}

LineType Shape::lineType() const { return contents("Shape::lineType", d).lineType; }

void Shape::setLineType(LineType type) { contents("Shape::setLineType", d).lineType = type; }

PlotStackPriority Shape::plotStackPriority() const
{
    return contents("Shape::plotStackPriority", d).plotStackPriority;
}

void Shape::setPlotStackPriority(PlotStackPriority priority)
{
    contents("Shape::setPlotStackPriority", d).plotStackPriority = priority;
}

int Shape::handleSize() const { return contents("Shape::handleSize", d).handleSize; }

void Shape::setHandleSize(int size) { contents("Shape::setHandleSize", d).handleSize = size; }

int Shape::priority() const { return contents("Shape::priority", d).priority; }

void Shape::setPriority(int priority) { contents("Shape::setPriority", d).priority = priority; }

bool Shape::handleVisible() const { return contents("Shape::handleVisible", d).handleVisible; }

void Shape::setHandleVisibility(bool visible)
{
    contents("Shape::setHandleVisibility", d).handleVisible = visible;
}

bool Shape::legendVisiblity() const { return contents("Shape::legendVisiblity", d).legendVisible; }

void Shape::setLegendVisible(bool visible)
{
    contents("Shape::setLegendVisible", d).legendVisible = visible;
}

bool Shape::visible() const { return contents("Shape::visible", d).visible; }

void Shape::setVisible(bool visible) { contents("Shape::setVisible", d).visible = visible; }

} // namespace ovl
