// SPDX-License-Identifier: BSD-3-Clause
#include "plotroster.h"

#include "plotline.h"
#include "plotpoints.h"
#include "point.h"
#include "vtkcompat.h"

#include <vtkContextMouseEvent.h>
#include <vtkContextTransform.h>
#include <vtkIdTypeArray.h>
#include <vtkMatrix3x3.h>
#include <vtkPlot.h>
#include <vtkPlotPoints.h>
#include <vtkPoints2D.h>
#include <vtkTransform2D.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <typeinfo>
#include <utility>

namespace ovl {
namespace {

constexpr double kHitPixels = 5.0;

float plotUnits(vtkTransform2D* transform, int axis)
{
    return static_cast<float>(
        std::fabs(kHitPixels / transform->GetMatrix()->GetElement(axis, axis)));
}

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr std::size_t kLanes = PointBounds::kCount;

/** The points of a plot as it has built them, in plot space. */
struct BuiltPoints {
    struct Place {
        float x, y;
    };

    explicit BuiltPoints(vtkPlotPoints* plot)
    {
        vtkPoints2D* points = compat::PlotPointsAccess::points(plot);
        const vtkIdType count = points ? points->GetNumberOfPoints() : 0;
        first = count > 0 ? static_cast<const Place*>(points->GetVoidPointer(0)) : nullptr;
        last = first + count;
    }

    const Place* begin() const { return first; }
    const Place* end() const { return last; }

    const Place* first;
    const Place* last;
};

/** Whether it is the framework's own for points and lines; derived classes may have another. */
bool hasFrameworksSearch(vtkPlot* plot)
{
    return typeid(*plot) == typeid(PlotLine) || typeid(*plot) == typeid(PlotPoints);
}

void measure(RosterPlot& plot, PointBounds& bounds, std::size_t lane)
{
    float left = kInfinity, right = -kInfinity, bottom = kInfinity, top = -kInfinity;
    float previous = -kInfinity;
    bool isAscending = true;
    for (const BuiltPoints::Place& place : BuiltPoints(plot.points)) {
        // A NaN loses every comparison: it does not count, as it cannot be hit.
        left = std::min(left, place.x);
        right = std::max(right, place.x);
        bottom = std::min(bottom, place.y);
        top = std::max(top, place.y);
        isAscending = isAscending && place.x > previous;
        previous = place.x;
    }
    plot.isAscending = isAscending && hasFrameworksSearch(plot.plot);
    bounds.x.set(lane, left, right);
    bounds.y.set(lane, bottom, top);
}

/**
 * What the framework's search answers: the leftmost point in the open rectangle around the probe.
 * It makes a sorted copy of the points for it; where they are in order already, that takes time and
 * memory for nothing.
 */
NearestPoint searchAscending(vtkPlotPoints* plot, const PointProbe& probe)
{
    const float x = probe.position.GetX(), xReach = probe.tolerance.GetX();
    const float y = probe.position.GetY(), yReach = probe.tolerance.GetY();
    const BuiltPoints points(plot);
    const auto isLeft = [](const BuiltPoints::Place& place, float at) { return place.x < at; };
    for (const auto* place = std::lower_bound(points.begin(), points.end(), x - xReach, isLeft);
         place != points.end() && !(place->x > x + xReach); ++place) {
        const bool isInside = place->x > x - xReach && place->x < x + xReach
            && place->y > y - yReach && place->y < y + yReach;
        if (isInside)
            return {place - points.begin(), -1, vtkVector2f(place->x, place->y)};
    }
    return {};
}

/** Of plots that must be asked wherever the mouse is; what follows the last one is nowhere. */
std::vector<PointBounds> unmeasured(std::size_t plots)
{
    std::vector<PointBounds> bounds((plots + kLanes - 1) / kLanes);
    for (std::size_t i = 0; i < bounds.size() * kLanes; ++i) {
        const float reach = i < plots ? kInfinity : -kInfinity;
        bounds[i / kLanes].x.set(i % kLanes, -reach, reach);
        bounds[i / kLanes].y.set(i % kLanes, -reach, reach);
    }
    return bounds;
}

/** Among so many plots each is looked at again whenever the roster is asked for them. */
constexpr std::size_t kLooksAtOnce = 256;
/** Of more plots so many, since an event asks for them some times. */
constexpr std::size_t kLooksInTurn = 32;

bool hasSelection(vtkPlot* plot)
{
    vtkIdTypeArray* selection = plot->GetSelection();
    return selection && selection->GetNumberOfTuples() > 0;
}

} // namespace

PointProbe::PointProbe(vtkContextTransform* corner, const vtkContextMouseEvent& mouse)
{
    vtkTransform2D* transform = corner->GetTransform();
    const vtkVector2f item = mouse.GetPos();
    transform->InverseTransformPoints(item.GetData(), position.GetData(), 1);
    tolerance.Set(plotUnits(transform, 0), plotUnits(transform, 1));
}

PlotRoster::PlotRoster(const std::vector<vtkContextTransform*>& corners)
    : transforms(corners)
{
}

void PlotRoster::forgetAnswers() { ++serial; }

void PlotRoster::pointsChanged()
{
    arePointsKnown = false;
    forgetAnswers();
}

void PlotRoster::itemsChanged() { areItemsKnown = false; }

std::vector<RosterCorner>& PlotRoster::corners()
{
    if (!isCurrent())
        look();
    return known;
}

bool PlotRoster::isCurrent()
{
    if (!areItemsKnown || shapesPointedAt != Noted<Shape*>::changes()
        || shapesMoved != Outlines::moves())
        return false;
    if (inspected >= seen.size())
        inspected = 0;
    const std::size_t end = inspected + (seen.size() <= kLooksAtOnce ? kLooksAtOnce : kLooksInTurn);
    std::size_t at = 0;
    for (vtkContextTransform* transform : transforms) {
        const auto count = static_cast<std::size_t>(transform->GetNumberOfItems());
        if (at + count >= seen.size() || seen[at] != transform)
            return false;
        ++at;
        const std::size_t from = std::max(inspected, at);
        for (std::size_t i = from; i < std::min(end, at + count); ++i)
            if (seen[i] != transform->GetItem(static_cast<vtkIdType>(i - at)))
                return false;
        at += count;
    }
    inspected = end;
    return at == seen.size();
}

void PlotRoster::look()
{
    // A host that is called by an event may bring about another one.
    if (events > 0)
        former.push_back(std::move(known));
    known.clear();
    seen.clear();
    plotCount = 0;
    for (vtkContextTransform* transform : transforms) {
        RosterCorner corner {transform, {}};
        seen.emplace_back(transform);
        for (vtkIdType i = 0; i < transform->GetNumberOfItems(); ++i) {
            vtkAbstractContextItem* item = transform->GetItem(i);
            seen.emplace_back(item);
            auto* plot = vtkPlot::SafeDownCast(item);
            // A plot that is no Plot breaks the chart; without it the walk is at least safe.
            if (Plot* part = dynamic_cast<Plot*>(plot))
                corner.plots.push_back({plot, part, vtkPlotPoints::SafeDownCast(plot)});
        }
        if (corner.plots.empty())
            continue;
        corner.bounds = unmeasured(corner.plots.size());
        corner.firstSlot = plotCount;
        plotCount += corner.plots.size();
        known.push_back(std::move(corner));
    }
    shapes.build(known);
    shapesPointedAt = Noted<Shape*>::changes();
    shapesMoved = Outlines::moves();
    areItemsKnown = true;
    arePointsKnown = areNearShapesKnown = areTargetsKnown = areSelectedKnown = false;
}

void PlotRoster::ShapeIndex::clear()
{
    parts.clear();
    first = std::numeric_limits<OutlineNumber>::max();
    last = 0;
    slotOf.clear();
    unnumbered.clear();
}

void PlotRoster::ShapeIndex::build(const std::vector<RosterCorner>& corners)
{
    clear();
    std::vector<OutlineNumber> numbers; // of each slot
    for (const RosterCorner& corner : corners) {
        for (const RosterPlot& entry : corner.plots) {
            const Shape* shape = entry.part->shape;
            const OutlineNumber number = shape ? Outlines::watch(*shape) : 0;
            if (shape && number == 0)
                unnumbered.push_back(parts.size());
            if (number != 0) {
                first = std::min(first, number);
                last = std::max(last, number);
            }
            numbers.push_back(number);
            parts.push_back(entry.part);
        }
    }
    nextSlot.assign(parts.size(), kNone);
    if (last == 0)
        return;
    slotOf.assign(std::size_t {last} - first + 1, kNone);
    for (std::size_t slot = numbers.size(); slot-- > 0;)
        if (numbers[slot] != 0)
            nextSlot[slot] = std::exchange(slotOf[numbers[slot] - first], slot);
}

const std::vector<std::size_t>& PlotRoster::shapesNear(const Point& position)
{
    corners();
    const Position place {position.x(), position.y()};
    if (areNearShapesKnown && nearAt == shapeChanges() && nearPlace.x == place.x
        && nearPlace.y == place.y)
        return nearShapes;
    ++searches;
    nearShapes.clear();
    findShapes(place);
    sortNearShapes();
    nearPlace = place;
    nearAt = shapeChanges();
    areNearShapesKnown = true;
    return nearShapes;
}

void PlotRoster::findShapes(Position place)
{
    if (!Outlines::isOrdinary(place)) {
        for (std::size_t slot = 0; slot < shapes.parts.size(); ++slot)
            if (shapes.parts[slot]->shape)
                nearShapes.push_back(slot);
        return;
    }
    nearShapes = shapes.unnumbered;
    Outlines::sweep(shapes.first, shapes.last, place, [&](OutlineNumber number) {
        std::size_t slot = shapes.slotOf[number - shapes.first];
        if (slot == ShapeIndex::kNone || !Outlines::mayContain(*shapes.parts[slot]->shape, place))
            return;
        for (; slot != ShapeIndex::kNone; slot = shapes.nextSlot[slot])
            nearShapes.push_back(slot);
    });
}

void PlotRoster::sortNearShapes()
{
    // Where most shapes must be asked, a sort would take longer than asking them.
    if (nearShapes.size() < shapes.parts.size() / 16) {
        std::sort(nearShapes.begin(), nearShapes.end());
        return;
    }
    std::vector<bool> isNear(shapes.parts.size(), false);
    for (const std::size_t slot : nearShapes)
        isNear[slot] = true;
    nearShapes.clear();
    for (std::size_t slot = 0; slot < isNear.size(); ++slot)
        if (isNear[slot])
            nearShapes.push_back(slot);
}

std::vector<const RosterPlot*> PlotRoster::dragTargets()
{
    corners();
    if (areTargetsKnown && targetsAt == Noted<bool>::changes())
        return targets;
    targets.clear();
    for (const RosterCorner& corner : known)
        for (const RosterPlot& entry : corner.plots)
            if (entry.part->dragTarget)
                targets.push_back(&entry);
    targetsAt = Noted<bool>::changes();
    areTargetsKnown = true;
    return targets;
}

std::vector<const RosterPlot*> PlotRoster::selected()
{
    corners();
    // Whoever gets hold of a selection may also change it behind its plot's back.
    const bool isTold = plotCount > kLooksAtOnce && selectedAt == SelectionNotes::changes();
    if (areSelectedKnown && isTold)
        return selections;
    selections.clear();
    for (const RosterCorner& corner : known)
        for (const RosterPlot& entry : corner.plots)
            if (hasSelection(entry.plot))
                selections.push_back(&entry);
    selectedAt = SelectionNotes::changes();
    areSelectedKnown = true;
    return selections;
}

PlotRoster::Event::Event(PlotRoster& roster)
    : owner(roster)
{
    owner.forgetAnswers();
    ++owner.events;
}

PlotRoster::Event::~Event()
{
    if (--owner.events == 0)
        owner.former.clear();
    owner.forgetAnswers();
}

void PlotRoster::measurePoints()
{
    if (arePointsKnown && plotCount > kLooksAtOnce)
        return;
    for (RosterCorner& corner : known) {
        for (std::size_t i = 0; i < corner.plots.size(); ++i) {
            RosterPlot& plot = corner.plots[i];
            if (!plot.points)
                continue;
            const vtkMTimeType built = compat::PlotPointsAccess::buildTime(plot.points);
            if (plot.built != built || built == 0)
                measure(plot, corner.bounds[i / kLanes], i % kLanes);
            plot.built = built;
        }
    }
    arePointsKnown = true;
}

/** Leaves out only plots that would certainly answer that they have no point there. */
const std::vector<std::size_t>& PlotRoster::near(RosterCorner& corner, const PointProbe& probe)
{
    if (events > 0 && corner.probed == serial) {
        if (corner.probe == probe)
            return corner.near;
        forgetAnswers(); // they were given for another place
    }
    measurePoints();
    constexpr float slack = 1.001F; // whichever way the plot rounds
    const float x = probe.tolerance.GetX() * slack;
    const float y = probe.tolerance.GetY() * slack;
    const float left = probe.position.GetX() - x;
    const float right = probe.position.GetX() + x;
    const float bottom = probe.position.GetY() - y;
    const float top = probe.position.GetY() + y;
    corner.near.clear();
    for (std::size_t block = corner.bounds.size(); block-- > 0;) {
        const PointBounds& bounds = corner.bounds[block];
        if (!bounds.y.anyMeets(bottom, top))
            continue;
        const std::size_t first = block * kLanes;
        for (std::size_t lane = std::min(kLanes, corner.plots.size() - first); lane-- > 0;)
            if (bounds.y.meets(lane, bottom, top) && bounds.x.meets(lane, left, right))
                corner.near.push_back(first + lane);
    }
    corner.probed = serial;
    corner.probe = probe;
    return corner.near;
}

const NearestPoint& PlotRoster::nearestPoint(RosterPlot& plot, const PointProbe& probe)
{
    if (events == 0 || plot.asked != serial) {
        plot.nearest = ask(plot, probe);
        plot.asked = serial;
    }
    return plot.nearest;
}

NearestPoint PlotRoster::ask(const RosterPlot& plot, const PointProbe& probe)
{
    const bool isMeasured
        = plot.points && plot.built == compat::PlotPointsAccess::buildTime(plot.points);
    if (plot.isAscending && isMeasured)
        return searchAscending(plot.points, probe);
    NearestPoint nearest;
    nearest.row = compat::nearestPoint(
        plot.plot, probe.position, probe.tolerance, nearest.position, nearest.segment);
    return nearest;
}

} // namespace ovl
