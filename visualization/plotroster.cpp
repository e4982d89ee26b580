// SPDX-License-Identifier: BSD-3-Clause
#include "plotroster.h"

#include "vtkcompat.h"

#include <vtkContextMouseEvent.h>
#include <vtkContextTransform.h>
#include <vtkMatrix3x3.h>
#include <vtkPlot.h>
#include <vtkTransform2D.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovl {
namespace {

constexpr double kHitPixels = 5.0;

float plotUnits(vtkTransform2D* transform, int axis)
{
    return static_cast<float>(
        std::fabs(kHitPixels / transform->GetMatrix()->GetElement(axis, axis)));
}

PointBounds measure(vtkPlotPoints* plot, vtkMTimeType built)
{
    constexpr float none = std::numeric_limits<float>::infinity();
    PointBounds bounds {built, none, -none, none, -none};
    vtkPoints2D* points = compat::PlotPointsAccess::points(plot);
    const vtkIdType count = points ? points->GetNumberOfPoints() : 0;
    const auto* place = count > 0 ? static_cast<float*>(points->GetVoidPointer(0)) : nullptr;
    for (vtkIdType i = 0; i < count; ++i, place += 2) {
        // A NaN loses every comparison: it does not count, as it cannot be hit.
        bounds.left = std::min(bounds.left, place[0]);
        bounds.right = std::max(bounds.right, place[0]);
        bounds.bottom = std::min(bounds.bottom, place[1]);
        bounds.top = std::max(bounds.top, place[1]);
    }
    return bounds;
}

/** False only when the plot would certainly answer that it has no point there. */
bool mayHit(RosterPlot& entry, const PointProbe& probe)
{
    if (!entry.points)
        return true;
    const vtkMTimeType built = compat::PlotPointsAccess::buildTime(entry.points);
    PointBounds& bounds = entry.bounds;
    if (bounds.built != built || built == 0)
        bounds = measure(entry.points, built);
    constexpr float slack = 1.001F; // whichever way the plot rounds
    const float x = probe.tolerance.GetX() * slack;
    const float y = probe.tolerance.GetY() * slack;
    const vtkVector2f& at = probe.position;
    return !(bounds.right < at.GetX() - x || bounds.left > at.GetX() + x
        || bounds.top < at.GetY() - y || bounds.bottom > at.GetY() + y);
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

std::vector<RosterCorner>& PlotRoster::corners()
{
    if (!isCurrent())
        look();
    return known;
}

bool PlotRoster::isCurrent() const
{
    auto next = seen.begin();
    const auto isNext = [&](const vtkAbstractContextItem* item) {
        return next != seen.end() && (next++)->GetPointer() == item;
    };
    for (vtkContextTransform* transform : transforms) {
        if (!isNext(transform))
            return false;
        for (vtkIdType i = 0; i < transform->GetNumberOfItems(); ++i)
            if (!isNext(transform->GetItem(i)))
                return false;
    }
    return next == seen.end();
}

void PlotRoster::look()
{
    known.clear();
    seen.clear();
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
        if (!corner.plots.empty())
            known.push_back(std::move(corner));
    }
}

PlotRoster::Event::Event(PlotRoster& roster)
    : owner(roster)
{
    owner.forgetAnswers();
    ++owner.events;
}

PlotRoster::Event::~Event()
{
    --owner.events;
    owner.forgetAnswers();
}

const std::vector<std::size_t>& PlotRoster::near(RosterCorner& corner, const PointProbe& probe)
{
    if (events > 0 && corner.probed == serial && corner.probe == probe)
        return corner.near;
    corner.near.clear();
    for (std::size_t i = corner.plots.size(); i-- > 0;)
        if (mayHit(corner.plots[i], probe))
            corner.near.push_back(i);
    corner.probed = serial;
    corner.probe = probe;
    return corner.near;
}

const NearestPoint& PlotRoster::nearestPoint(RosterPlot& plot, const PointProbe& probe)
{
    if (events == 0 || plot.asked != serial) {
        plot.nearest = {};
        plot.nearest.row = compat::nearestPoint(plot.plot, probe.position, probe.tolerance,
            plot.nearest.position, plot.nearest.segment);
        plot.asked = serial;
    }
    return plot.nearest;
}

} // namespace ovl
