// SPDX-License-Identifier: BSD-3-Clause
// What lies under the mouse, among the points of the plots and the shapes, and what the tooltip
// says about it.
#include "chartplotdata.h"
#include "chartselection.h"
#include "chartxy_p.h"
#include "point.h"
#include "shape.h"
#include "tooltipformat.h"

#include <vtkCommand.h>
#include <vtkContextMouseEvent.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkStringArray.h>
#include <vtkTooltipItem.h>

#include <QString>

#include <cmath>
#include <limits>

namespace ovl {
namespace {

// Where the tooltip stands beside the mouse, in pixels.
constexpr int kTooltipRight = 2;
constexpr int kTooltipDown = 40;

void showAt(vtkTooltipItem* tooltip, const std::string& text, const vtkContextMouseEvent& mouse)
{
    const vtkVector2i screen = mouse.GetScreenPos();
    tooltip->SetText(text);
    tooltip->SetPosition(static_cast<float>(screen.GetX() + kTooltipRight),
        static_cast<float>(screen.GetY() - kTooltipDown));
}

bool takesEvents(const RosterPlot& entry)
{
    return entry.plot->GetVisible() && entry.plot->GetInteractive();
}

bool showsTooltip(const RosterPlot& entry)
{
    return entry.part->tooltipVisible && entry.plot->GetVisible();
}

bool canBeDragged(const Plot& part) { return part.shape && (part.canDragX || part.canDragY); }

/** Of the two plots of a shape, the one that stands for it where only one may. */
bool canBeDraggedByLines(const Plot& part) { return canBeDragged(part) && !part.isHandle; }

/**
 * Goes up the shapes of a corner that lie under `position`: calls `take` for each candidate that
 * has a higher priority than all taken before it. `take` answers whether it took the shape.
 */
template <class Take>
void climb(PlotRoster& roster, std::size_t corner, const Point& position,
    bool (*isCandidate)(const Plot&), Take take)
{
    int best = std::numeric_limits<int>::lowest();
    roster.visitShapes(corner, position, [&](Plot& part) {
        if (!isCandidate(part) || !Outlines::contains(*part.shape, position))
            return;
        const int priority = part.shape->priority();
        if (priority > best && take(part))
            best = priority;
    });
}

vtkVector2d dataPosition(const RosterPlot& found)
{
    const vtkRectd shiftScale = found.plot->GetShiftScale();
    const vtkVector2f& position = found.nearest.position;
    return {position.GetX() / shiftScale.GetWidth() - shiftScale.GetX(),
        position.GetY() / shiftScale.GetHeight() - shiftScale.GetY()};
}

std::string formatNumber(double value, vtkPlot* plot, vtkAxis* axis)
{
    if (axis && axis->GetLogScaleActive())
        value = std::pow(10.0, value);
    return formatTooltipNumber(value, plot->GetTooltipPrecision(), plot->GetTooltipNotation());
}

std::string indexedLabel(vtkPlot* plot, vtkIdType seriesIndex)
{
    vtkStringArray* labels = plot->GetIndexedLabels();
    const bool known = labels && seriesIndex >= 0 && seriesIndex < labels->GetNumberOfValues();
    return known ? std::string(labels->GetValue(seriesIndex)) : std::string();
}

} // namespace

bool ChartXY::InsidePlotArea(const vtkContextMouseEvent& mouse) const
{
    const vtkVector2i screen = mouse.GetScreenPos();
    return screen.GetX() > Point1[0] && screen.GetX() < Point2[0] && screen.GetY() > Point1[1]
        && screen.GetY() < Point2[1];
}

/** The one point test: the topmost plot, corner by corner, that `accepts` and has a point there. */
template <class Accepts> bool ChartXY::HitPlot(const vtkContextMouseEvent& mouse, Accepts accepts)
{
    if (!InsidePlotArea(mouse))
        return false;
    PlotRoster& roster = ChartPrivate->roster;
    for (RosterCorner& corner : roster.corners())
        if (roster.topmost(corner, PointProbe(corner.transform, mouse), accepts))
            return true;
    return false;
}

bool ChartXY::HitInteractivePlot(const vtkContextMouseEvent& mouse)
{
    return HitPlot(mouse, takesEvents);
}

bool ChartXY::HitHandlePlot(const vtkContextMouseEvent& mouse)
{
    return HitPlot(
        mouse, [](const RosterPlot& entry) { return entry.part->isHandle && takesEvents(entry); });
}

bool ChartXY::LocatePointInPlots(const vtkContextMouseEvent& mouse, int invokeEvent)
{
    if (!InsidePlotArea(mouse))
        return false;
    PlotRoster& roster = ChartPrivate->roster;
    for (RosterCorner& corner : roster.corners()) {
        const PointProbe probe(corner.transform, mouse);
        if (const RosterPlot* found = roster.topmost(corner, probe, takesEvents)) {
            ReportPoint(mouse, *found, invokeEvent);
            return true;
        }
        // A plot that takes no events may still show its tooltip, where no other has a point.
        if (const RosterPlot* found = roster.topmost(corner, probe, showsTooltip)) {
            SetTooltipInfo(mouse, dataPosition(*found), found->nearest.row, found->plot,
                found->nearest.segment);
            return true;
        }
    }
    return false;
}

void ChartXY::ReportPoint(
    const vtkContextMouseEvent& mouse, const RosterPlot& found, int invokeEvent)
{
    // Whoever gets the event may remove plots, and with them what `found` refers to.
    const vtkSmartPointer<vtkPlot> plot = found.plot;
    const NearestPoint nearest = found.nearest;
    if (found.part->tooltipVisible)
        SetTooltipInfo(mouse, dataPosition(found), nearest.row, plot, nearest.segment);

    if (invokeEvent >= 0) {
        ChartPlotData data {plot->GetLabel(), nearest.position, mouse.GetScreenPos(),
            static_cast<int>(nearest.row)};
        InvokeEvent(static_cast<unsigned long>(invokeEvent), &data);
    }
    if (invokeEvent == static_cast<int>(vtkCommand::SelectionChangedEvent)) {
        const vtkNew<vtkIdTypeArray> row;
        row->InsertNextValue(nearest.row);
        plot->SetSelection(row);
        SelectionNotes::note();
        if (AnnotationLink)
            MakeSelection(AnnotationLink, row, plot);
    }
}

void ChartXY::SetTooltipInfo(const vtkContextMouseEvent& mouse, const vtkVector2d& plotPos,
    vtkIdType seriesIndex, vtkPlot* plot, vtkIdType segmentIndex)
{
    if (Tooltip)
        showAt(Tooltip, BuildTooltipLabel(plot, plotPos, seriesIndex, segmentIndex), mouse);
}

std::string ChartXY::BuildTooltipLabel(
    vtkPlot* plot, const vtkVector2d& plotPos, vtkIdType seriesIndex, vtkIdType)
{
    const auto number
        = [plot](double value, vtkAxis* axis) { return formatNumber(value, plot, axis); };
    const auto append = [&](char code, std::string& text) {
        vtkVector2d custom = plotPos;
        switch (code) {
        case 'x':
            text += number(plotPos.GetX(), plot->GetXAxis());
            return true;
        case 'y':
            text += number(plotPos.GetY(), plot->GetYAxis());
            return true;
        case 'a':
            if (Callbacks && Callbacks->customX(static_cast<int>(seriesIndex), custom[0]))
                text += number(custom.GetX(), plot->GetXAxis());
            return true;
        case 'b':
            if (Callbacks && Callbacks->customY(static_cast<int>(seriesIndex), custom[1]))
                text += number(custom.GetY(), plot->GetYAxis());
            return true;
        case 'h':
            text += formatTooltipHex(plotPos.GetY());
            return true;
        case 'i':
            text += indexedLabel(plot, seriesIndex);
            return true;
        case 'j':
            text += number(static_cast<double>(seriesIndex), plot->GetXAxis());
            return true;
        case 'l':
            text += plot->GetLabel();
            return true;
        default:
            return false;
        }
    };
    const std::string own = plot->GetTooltipLabelFormat();
    return expandTooltipFormat(own.empty() ? TooltipDefaultLabelFormat : own, append);
}

void ChartXY::Hover(const vtkContextMouseEvent& mouse)
{
    MarkSceneDirty();
    if (!Tooltip)
        return;
    const std::string shapeText = ShapeTooltip(mouse);
    showAt(Tooltip, shapeText, mouse);
    const bool found = LocatePointInPlots(mouse, -1); // a point's text replaces the shape's
    const bool visible = found || !shapeText.empty();
    if (visible || Tooltip->GetVisible())
        NotifyDirty();
    Tooltip->SetVisible(visible);
}

Point ChartXY::MouseOnCornerZero(const vtkContextMouseEvent& mouse) const
{
    // All shape tests use corner 0's transform, whichever corner the plot is in.
    const vtkVector2d position = ChartPrivate->toPlot(0, mouse.GetScreenPos());
    return {position.GetX(), position.GetY()};
}

bool ChartXY::HoverDraggableShape(const vtkContextMouseEvent& mouse)
{
    const Point position = MouseOnCornerZero(mouse);
    PlotRoster& roster = ChartPrivate->roster;
    bool inside = false;
    for (std::size_t corner = 0; corner < roster.corners().size(); ++corner) {
        roster.visitShapes(corner, position, [&](const Plot& part) {
            if (canBeDragged(part) && Outlines::contains(*part.shape, position))
                inside = true;
        });
    }
    return inside && !HitHandlePlot(mouse);
}

void ChartXY::PressShapes(const vtkContextMouseEvent& mouse)
{
    const Point position = MouseOnCornerZero(mouse);
    PlotRoster& roster = ChartPrivate->roster;
    for (std::size_t corner = 0; corner < roster.corners().size(); ++corner) {
        clearDragTargets(roster.corners()[corner]);
        climb(roster, corner, position, canBeDragged, [](Plot& part) {
            part.shape->onMousePress(); // also when a later shape beats it
            return true;
        });
    }
}

bool ChartXY::PickShapeForDrag(const vtkContextMouseEvent& mouse)
{
    const Point position = MouseOnCornerZero(mouse);
    PlotRoster& roster = ChartPrivate->roster;
    bool picked = false;
    for (std::size_t corner = 0; corner < roster.corners().size(); ++corner) {
        clearDragTargets(roster.corners()[corner]);
        Plot* winner = nullptr;
        climb(roster, corner, position, canBeDraggedByLines, [&winner](Plot& part) {
            winner = &part;
            return true;
        });
        if (winner) {
            winner->dragTarget = true;
            picked = true;
        }
    }
    return picked;
}

std::string ChartXY::ShapeTooltip(const vtkContextMouseEvent& mouse)
{
    const Point position = MouseOnCornerZero(mouse);
    PlotRoster& roster = ChartPrivate->roster;
    std::string result; // of the last corner that has a text
    for (std::size_t corner = 0; corner < roster.corners().size(); ++corner) {
        climb(roster, corner, position, canBeDraggedByLines, [&](Plot& part) {
            const std::string text = part.shape->tooltips(position).toStdString();
            if (!text.empty()) // else it does not raise the bar
                result = text;
            return !text.empty();
        });
    }
    return result;
}

} // namespace ovl
