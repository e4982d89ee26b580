// SPDX-License-Identifier: BSD-3-Clause
#include "measuringtools.h"

#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>

#include <QColor>

#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace ovl::gallery {
namespace {

struct Look {
    const char* title;
    QColor colour;
    LineType line;
    int priority; // where tools overlap, the mouse takes the one with the highest
};

const Look& lookOf(int tool)
{
    static const std::array<Look, 4> looks {{
        {"Band A", QColor(0x5c, 0xe1, 0x9a), Dash, 1},
        {"Band B", QColor(0xff, 0x8a, 0x80), Dash, 1},
        {"Box", QColor(0xff, 0xe0, 0x82), Solid, 2},
        {"Line", QColor(0xff, 0xff, 0xff), Solid, 3},
    }};
    return looks[static_cast<std::size_t>(tool - 1)];
}

void setPoint(Point& point, const Place& place) { point.set(place.x, place.y); }

Place middleOf(const Edge& edge)
{
    return {(edge.from.x + edge.to.x) / 2, (edge.from.y + edge.to.y) / 2};
}

/** Brings a shape's line and its three handles to an edge. */
void setLine(Shape& shape, int index, const Edge& edge)
{
    setPoint(*shape.line(index)->p1(), edge.from);
    setPoint(*shape.line(index)->p2(), edge.to);
    setPoint(*shape.handle(3 * index), edge.from);
    setPoint(*shape.handle(3 * index + 1), middleOf(edge));
    setPoint(*shape.handle(3 * index + 2), edge.to);
}

void addEdge(Shape& shape, const Edge& edge)
{
    shape.addLine(Point(edge.from.x, edge.from.y), Point(edge.to.x, edge.to.y));
}

} // namespace

MeasuringTools::MeasuringTools(QObject* parent)
    : QObject(parent)
{
}

void MeasuringTools::setScale(int xExponent, int yExponent, const QString& unitName)
{
    xFactor = std::pow(10.0, -xExponent);
    yFactor = std::pow(10.0, -yExponent);
    unit = unitName;
}

void MeasuringTools::place(const HomeRange& bottom, const HomeRange& left)
{
    const double width = static_cast<double>(bottom.to) - bottom.from;
    const double height = static_cast<double>(left.to) - left.from;
    const auto x = [&](double share) { return bottom.from + share * width; };
    const auto y = [&](double share) { return left.from + share * height; };
    bandA = {x(0.12), x(0.20), y(0.06), y(0.94)};
    bandB = {x(0.32), x(0.40), y(0.06), y(0.94)};
    area = {x(0.72), x(0.88), y(0.30), y(0.70)};
    distance = {{x(0.48), y(0.35)}, {x(0.62), y(0.65)}};
    xReach = 0.015 * width;
    yReach = 0.02 * height;
}

void MeasuringTools::placeOnPart()
{
    bandA = {18, 27, 1, 13}; // mm
    bandB = {48.8, 52.5, 1, 13};
    area = {92.5, 102, 8.5, 10.5};
    distance = {{54.5, 6}, {76.5, 6}};
}

void MeasuringTools::addTo(ProfileView& view)
{
    addBox(view, BandA, false);
    addBox(view, BandB, false);
    addBox(view, Area, true);
    addDistance(view);
}

Shape MeasuringTools::styledShape(Tool tool, bool alongY) const
{
    const Look& own = lookOf(tool);
    Shape shape;
    shape.setIdentifier(tool);
    shape.setTitle(QString::fromLatin1(own.title));
    shape.setColor(own.colour);
    shape.setHandleColor(own.colour);
    shape.setHandleSize(look.handleSize);
    shape.setHandleVisibility(look.handles);
    shape.setLineType(own.line);
    shape.setPriority(own.priority);
    shape.setInteractive(look.interactive);
    shape.setCanDragAlongX(look.alongX);
    shape.setCanDragAlongY(look.alongY && alongY);
    shape.setLegendVisible(look.legend);
    shape.setTooltipsVisibility(false); // the shape as a whole has one
    shape.setHandleTooltipVisibility(false);
    if (look.tooltips)
        shape.setShapeTooltipCallback([this, tool](const Point&) { return tooltip(tool); });
    return shape;
}

Box& MeasuringTools::box(Tool tool) { return tool == BandA ? bandA : tool == BandB ? bandB : area; }

void MeasuringTools::addBox(ProfileView& view, Tool tool, bool alongY)
{
    Shape shape = styledShape(tool, alongY);
    for (const Edge& edge : box(tool).edges())
        addEdge(shape, edge);
    // The shape never moves itself: each callback moves the box, and the shape after it.
    const auto change = [this, &view, tool](auto operation) {
        operation(box(tool));
        moveShape(view, tool);
    };
    shape.setXTranslationCallback(
        [change](double by) { change([by](Box& moving) { moving.moveX(by); }); });
    shape.setYTranslationCallback(
        [change](double by) { change([by](Box& moving) { moving.moveY(by); }); });
    shape.setXResizeCallback([change](const Point& handle, double by) {
        change([&](Box& resized) { resized.resizeX(handle.x(), by); });
    });
    shape.setYResizeCallback([change](const Point& handle, double by) {
        change([&](Box& resized) { resized.resizeY(handle.y(), by); });
    });
    // Not earlier: the side under the mouse must stay the same while it is dragged.
    shape.setOnMouseReleaseCallback([this, tool] { box(tool).putInOrder(); });
    view.addShape(shape);
}

void MeasuringTools::addDistance(ProfileView& view)
{
    Shape shape = styledShape(Distance, true);
    addEdge(shape, {distance.first, distance.second});
    const auto change = [this, &view](auto operation) {
        operation(distance);
        moveShape(view, Distance);
    };
    shape.setXTranslationCallback(
        [change](double by) { change([by](Segment& moving) { moving.moveX(by); }); });
    shape.setYTranslationCallback(
        [change](double by) { change([by](Segment& moving) { moving.moveY(by); }); });
    shape.setXResizeCallback([change](const Point& handle, double by) {
        change([&](Segment& resized) { resized.resizeX({handle.x(), handle.y()}, by); });
    });
    shape.setYResizeCallback([change](const Point& handle, double by) {
        change([&](Segment& resized) { resized.resizeY({handle.x(), handle.y()}, by); });
    });
    // A line has no inside: it is taken where the mouse comes near it.
    shape.setInsidePolygonCallback([this](const Point& point) {
        return distance.passes({point.x(), point.y()}, xReach, yReach);
    });
    view.addShape(shape);
}

void MeasuringTools::moveShape(ProfileView& view, Tool tool)
{
    Shape* shape = view.shape(static_cast<int>(tool));
    if (!shape)
        return;
    if (tool == Distance) {
        setLine(*shape, 0, {distance.first, distance.second});
    } else {
        int index = 0;
        for (const Edge& edge : box(tool).edges())
            setLine(*shape, index++, edge);
    }
    Q_EMIT moved();
}

Statistics MeasuringTools::statisticsOf(
    const Box& region, const Table& table, bool wholeHeight) const
{
    constexpr double kEverywhere = std::numeric_limits<double>::max();
    Box inTable {region.left * xFactor, region.right * xFactor, region.bottom * yFactor,
        region.top * yFactor};
    inTable.putInOrder(); // a box may be inside out while it is dragged
    if (wholeHeight) {
        inTable.bottom = -kEverywhere;
        inTable.top = kEverywhere;
    }
    return statisticsIn(inTable, table.columns[0], table.columns[1]);
}

void MeasuringTools::measure(const Table& table)
{
    inA = statisticsOf(bandA, table, true);
    inB = statisticsOf(bandB, table, true);
    inArea = statisticsOf(area, table, false);
}

QString MeasuringTools::number(double value) const
{
    // Three digits behind the point suit millimetres; other data tell their size themselves.
    QString text = unit.isEmpty() ? QString::number(value, 'g', 5) : QString::number(value, 'f', 3);
    if (text.startsWith(QLatin1Char('-')) && qFuzzyIsNull(text.toDouble()))
        text.remove(0, 1); // nothing is less than nothing by less than a digit
    return text;
}

QString MeasuringTools::tooltip(Tool tool) const
{
    if (tool == Distance)
        return tr("Line: %1 along x, %2 along y")
            .arg(number((distance.second.x - distance.first.x) * xFactor),
                number((distance.second.y - distance.first.y) * yFactor));
    const Statistics& found = tool == BandA ? inA : tool == BandB ? inB : inArea;
    return tr("%1: mean %2 of %3 samples")
        .arg(QString::fromLatin1(lookOf(tool).title), number(found.mean))
        .arg(found.count);
}

QString MeasuringTools::readOut() const
{
    const auto line = [this](const QString& name, std::optional<double> value,
                          const QString& note = QString()) {
        QString text = QStringLiteral("%1%2").arg(name, -6).arg(
            value ? number(*value) : QStringLiteral("\u2013"), 10);
        if (!unit.isEmpty()) // its column stays free where there is no number
            text += QStringLiteral(" %1 ").arg(value ? unit : QString(), -unit.size());
        return note.isEmpty() ? text : text + QLatin1Char(' ') + note;
    };
    const auto mean = [](const Statistics& found) {
        return found.count > 0 ? std::make_optional(found.mean) : std::nullopt;
    };
    const bool hasStep = inA.count > 0 && inB.count > 0;
    const double length = std::hypot((distance.second.x - distance.first.x) * xFactor,
        (distance.second.y - distance.first.y) * yFactor);
    const QStringList lines {
        line(tr("A"), mean(inA), tr("%1 samples").arg(inA.count)),
        line(tr("B"), mean(inB), tr("%1 samples").arg(inB.count)),
        line(tr("Step"), hasStep ? std::make_optional(inB.mean - inA.mean) : std::nullopt),
        line(tr("Box"), mean(inArea),
            inArea.count > 0 ? QStringLiteral("\u00b1 ") + number(inArea.deviation)
                             : tr("no samples")),
        line(tr("Line"), length),
    };
    return lines.join(QLatin1Char('\n'));
}

} // namespace ovl::gallery
