// SPDX-License-Identifier: BSD-3-Clause
// The gestures: what presses, moves, releases, the wheel and the keys do.
#include "chartxy_p.h"
#include "line.h"
#include "point.h"
#include "range.h"
#include "shape.h"

#include <vtkCommand.h>
#include <vtkContextKeyEvent.h>
#include <vtkContextMapper2D.h>
#include <vtkContextMouseEvent.h>
#include <vtkContextScene.h>
#include <vtkDataArray.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkTable.h>
#include <vtkTooltipItem.h>
#include <vtkTransform2D.h>
#include <vtkVectorOperators.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ovl {
namespace {

constexpr double kZoomPart = 0.1; ///< of an axis's range, for each notch or 100 pixels of a drag
constexpr double kPixelsPerAxisZoom = -100.0;
constexpr float kLeastExtent = 0.5F; ///< of a rubber band; below, it was a click
constexpr float kPolygonStepSquared = 100.0F;

constexpr int kX = 0; // coordinates, and the input arrays that hold them
constexpr int kY = 1;

Range rangeOf(vtkAxis* axis) { return {axis->GetMinimum(), axis->GetMaximum()}; }

/** Moves both ends towards the centre by `part` of the range; away from it when negative. */
void zoomAxis(vtkAxis* axis, double part)
{
    const double minimum = axis->GetMinimum();
    const double maximum = axis->GetMaximum();
    const double fraction = (maximum - minimum) * kZoomPart;
    // On an inverted axis the fraction is negative, and taken the other way round: so the ends of
    // an inverted axis move apart where those of another come together.
    const double step = fraction > 0.0 ? fraction * part : -fraction * part;
    axis->SetMinimum(minimum + step);
    axis->SetMaximum(maximum - step);
    axis->RecalculateTickSpacing();
}

/** Moves an axis by `delta` plot units, but not beyond its limits. */
void panAxis(vtkAxis* axis, double delta)
{
    delta /= axis->GetScalingFactor();
    delta = delta > 0.0 ? std::min(delta, axis->GetMaximumLimit() - axis->GetMaximum())
                        : std::max(delta, axis->GetMinimumLimit() - axis->GetMinimum());
    const double minimum = axis->GetMinimum();
    const double maximum = axis->GetMaximum();
    axis->SetMinimum(minimum + delta);
    axis->SetMaximum(maximum + delta);
}

/** Puts an axis between two values, whichever is greater; an inverted axis stays inverted. */
void spanAxis(vtkAxis* axis, double a, double b)
{
    const bool upright = axis->GetMaximum() > axis->GetMinimum();
    axis->SetMaximum(upright ? std::max(a, b) : std::min(a, b));
    axis->SetMinimum(upright ? std::min(a, b) : std::max(a, b));
}

vtkDataArray* columnOf(vtkPlot* plot, int coordinate)
{
    vtkTable* table = plot->GetInput();
    return table ? plot->GetData()->GetInputArrayToProcess(coordinate, table) : nullptr;
}

void markInputModified(vtkPlot* plot)
{
    if (vtkTable* table = plot->GetInput())
        table->Modified();
}

double coordinateOf(const Point* point, int coordinate)
{
    return coordinate == kX ? point->x() : point->y();
}

void copyHandles(const Shape& shape, int coordinate, vtkDataArray* column)
{
    const vtkIdType count
        = std::min<vtkIdType>(column->GetNumberOfTuples(), shape.numberOfHandles());
    for (vtkIdType i = 0; i < count; ++i)
        column->SetTuple1(i, coordinateOf(shape.handle(static_cast<int>(i)), coordinate));
}

void copyLines(const Shape& shape, int coordinate, vtkDataArray* column)
{
    const vtkIdType count
        = std::min<vtkIdType>(column->GetNumberOfTuples(), vtkIdType {2} * shape.numberOfLines());
    for (vtkIdType i = 0; i < count; ++i) {
        Line* line = shape.line(static_cast<int>(i / 2));
        column->SetTuple1(i, coordinateOf(i % 2 == 0 ? line->p1() : line->p2(), coordinate));
    }
}

void copyShape(const Shape& shape, bool handles, int coordinate, vtkPlot* plot)
{
    vtkDataArray* column = columnOf(plot, coordinate);
    if (!column)
        return;
    if (handles)
        copyHandles(shape, coordinate, column);
    else
        copyLines(shape, coordinate, column);
}

/** Copies one coordinate of the shape's points, as the host has moved them, into both its plots. */
void followShape(const RosterPlot& entry, int coordinate)
{
    const Plot& part = *entry.part;
    copyShape(*part.shape, part.isHandle, coordinate, entry.plot);
    if (part.sibling) {
        copyShape(*part.shape, !part.isHandle, coordinate, part.sibling);
        part.sibling->Modified();
    }
}

void shiftColumn(vtkPlot* plot, int coordinate, double by)
{
    vtkDataArray* column = columnOf(plot, coordinate);
    if (!column)
        return;
    for (vtkIdType i = 0; i < column->GetNumberOfTuples(); ++i)
        column->SetTuple1(i, column->GetTuple1(i) + by);
}

void markSelectionModified(vtkPlot* plot)
{
    if (vtkIdTypeArray* selection = plot->GetSelection())
        selection->Modified();
    markInputModified(plot);
}

} // namespace

vtkVector2d ChartXY::Private::toPlot(std::size_t corner, const vtkVector2i& screen) const
{
    const double pixels[2]
        = {static_cast<double>(screen.GetX()), static_cast<double>(screen.GetY())};
    vtkVector2d position;
    plotCorners[corner]->GetTransform()->InverseTransformPoints(pixels, position.GetData(), 1);
    return position;
}

vtkVector2d ChartXY::Private::motion(std::size_t corner, const vtkContextMouseEvent& mouse) const
{
    return toPlot(corner, mouse.GetScreenPos()) - toPlot(corner, mouse.GetLastScreenPos());
}

void ChartXY::NotifyDirty()
{
    if (Callbacks)
        Callbacks->notifyDirty(true);
}

void ChartXY::MarkSceneDirty()
{
    if (Scene)
        Scene->SetDirty(true);
}

void ChartXY::HideTooltip()
{
    if (Tooltip)
        Tooltip->SetVisible(false);
}

bool ChartXY::OfferToCorners(const vtkContextMouseEvent& mouse,
    bool (vtkAbstractContextItem::*handler)(const vtkContextMouseEvent&))
{
    const std::vector<vtkContextTransform*>& corners = ChartPrivate->plotCorners;
    return std::any_of(corners.begin(), corners.end(),
        [&](vtkContextTransform* corner) { return (corner->*handler)(mouse); });
}

bool ChartXY::IsInMouseEvent() const { return ChartPrivate->roster.isInEvent(); }

bool ChartXY::Hit(const vtkContextMouseEvent& mouse)
{
    return Interactive && InsidePlotArea(mouse);
}

bool ChartXY::MouseEnterEvent(const vtkContextMouseEvent&)
{
    DrawNearestPoint = true;
    return true;
}

bool ChartXY::MouseLeaveEvent(const vtkContextMouseEvent&)
{
    DrawNearestPoint = false;
    HideTooltip();
    NotifyDirty();
    return true;
}

bool ChartXY::KeyPressEvent(const vtkContextKeyEvent& key)
{
    if (key.GetKeyCode() == 'R' || key.GetKeyCode() == 'r') {
        RecalculateBounds();
        MarkSceneDirty();
    }
    NotifyDirty();
    return true;
}

bool ChartXY::MouseButtonPressEvent(const vtkContextMouseEvent& mouse)
{
    const PlotRoster::Event event(ChartPrivate->roster);
    HideTooltip();
    NotifyDirty();
    PressShapes(mouse);
    LastScenePos = mouse.GetScenePos();
    MouseDown = true;
    if (OfferToCorners(mouse, &vtkAbstractContextItem::MouseButtonPressEvent))
        return true;

    const int button = mouse.GetButton();
    if (button == Actions.Pan())
        PressPan(mouse);
    else if (button == Actions.Select() || button == Actions.Zoom())
        StartMouseBox(mouse, true);
    else if (button == Actions.ZoomAxis())
        StartMouseBox(mouse, false);
    else if (button == Actions.SelectPolygon())
        StartPolygon(mouse);
    else if (button == Actions.ClickAndDrag())
        PressClickAndDrag(mouse);
    else
        return button == ActionsClick.Select() || button == ActionsClick.Notify();
    return true;
}

void ChartXY::PressPan(const vtkContextMouseEvent& mouse)
{
    if (HitInteractivePlot(mouse)) {
        ClearPlotSelections();
        DragPoint = LocatePointInPlots(mouse, vtkCommand::SelectionChangedEvent);
        // Raised once more: with the point's data for the point, without for the selection.
        InvokeEvent(vtkCommand::SelectionChangedEvent);
        return;
    }
    StartMouseBox(mouse, false);
    DragShape = PickShapeForDrag(mouse);
}

void ChartXY::PressClickAndDrag(const vtkContextMouseEvent& mouse)
{
    ClearPlotSelections();
    DragPoint = LocatePointInPlots(mouse, vtkCommand::SelectionChangedEvent);
    DragShape = PickShapeForDrag(mouse);
    InvokeEvent(vtkCommand::SelectionChangedEvent);
}

void ChartXY::StartMouseBox(const vtkContextMouseEvent& mouse, bool draw)
{
    MouseBox.Set(mouse.GetPos().GetX(), mouse.GetPos().GetY(), 0.0F, 0.0F);
    DrawBox = draw;
}

void ChartXY::StretchMouseBox(const vtkContextMouseEvent& mouse)
{
    MouseBox.SetWidth(mouse.GetPos().GetX() - MouseBox.GetX());
    MouseBox.SetHeight(mouse.GetPos().GetY() - MouseBox.GetY());
}

void ChartXY::CollapseMouseBox()
{
    MouseBox.SetWidth(0.0F);
    MouseBox.SetHeight(0.0F);
}

void ChartXY::StartPolygon(const vtkContextMouseEvent& mouse)
{
    SelectionPolygon.Clear();
    SelectionPolygon.AddPoint(mouse.GetPos());
    DrawSelectionPolygon = true;
}

bool ChartXY::MouseMoveEvent(const vtkContextMouseEvent& mouse)
{
    const PlotRoster::Event event(ChartPrivate->roster);
    LastScenePos = mouse.GetScenePos();
    if (OfferToCorners(mouse, &vtkAbstractContextItem::MouseMoveEvent))
        return true;
    ShowCursor(mouse);

    const int button = mouse.GetButton();
    if (button == Actions.Pan())
        MovePan(mouse);
    else if (button == Actions.Zoom() || button == Actions.Select())
        MoveBox(mouse);
    else if (button == Actions.ZoomAxis())
        ZoomAxes(mouse);
    else if (button == Actions.SelectPolygon())
        MovePolygon(mouse);
    else if (button == Actions.ClickAndDrag() && (DragPoint || DragShape)
        && (DragPointAlongX || DragPointAlongY))
        DragColumns(mouse);
    else if (button == vtkContextMouseEvent::NO_BUTTON)
        Hover(mouse);
    return true;
}

void ChartXY::ShowCursor(const vtkContextMouseEvent& mouse)
{
    if (!Callbacks)
        return;
    const CursorType idle = CrosshairCursor ? CursorType::Cross : CursorType::Default;
    Callbacks->notifyCursor(HoverDraggableShape(mouse) ? CursorType::Move : idle);
}

void ChartXY::MovePan(const vtkContextMouseEvent& mouse)
{
    NotifyDirty();
    // Chosen anew at each move: a pan that comes over a point does not pan for that event.
    if (DragPoint || HitInteractivePlot(mouse))
        DragHandles(mouse);
    else if (DragShape)
        DragShapes(mouse);
    else
        PanAxes(mouse);
}

void ChartXY::MoveBox(const vtkContextMouseEvent& mouse)
{
    NotifyDirty();
    StretchMouseBox(mouse);
    MarkSceneDirty();
}

void ChartXY::MovePolygon(const vtkContextMouseEvent& mouse)
{
    const vtkIdType count = SelectionPolygon.GetNumberOfPoints();
    if (count == 0)
        return;
    const vtkVector2f step = mouse.GetPos() - SelectionPolygon.GetPoint(count - 1);
    if (step.SquaredNorm() > kPolygonStepSquared)
        SelectionPolygon.AddPoint(mouse.GetPos());
    MarkSceneDirty();
}

template <class Drag> void ChartXY::DragSelected(Drag drag)
{
    for (const RosterPlot* entry : ChartPrivate->roster.selected()) {
        if (entry->plot->IsA("vtkPlotBar")) // bars stay where they are
            continue;
        if (DragPointAlongX && entry->part->canDragX)
            drag(*entry, kX);
        if (DragPointAlongY && entry->part->canDragY)
            drag(*entry, kY);
        markSelectionModified(entry->plot);
        MarkSceneDirty();
    }
}

void ChartXY::DragHandles(const vtkContextMouseEvent& mouse)
{
    const vtkVector2d delta = ChartPrivate->motion(0, mouse);
    DragSelected([&](const RosterPlot& entry, int coordinate) {
        DragHandle(entry, coordinate, delta[coordinate]);
    });
}

void ChartXY::DragHandle(const RosterPlot& entry, int coordinate, double delta)
{
    Shape* shape = entry.part->shape;
    vtkDataArray* x = columnOf(entry.plot, kX);
    vtkDataArray* y = columnOf(entry.plot, kY);
    if (!entry.plot->GetInteractive() || !shape || !entry.part->isHandle || !x || !y)
        return;
    vtkIdTypeArray* selection = entry.plot->GetSelection();
    if (!selection || selection->GetNumberOfTuples() == 0) // since an event within this one
        return;
    const vtkIdType row = selection->GetValue(0);
    if (row < 0 || row >= std::min(x->GetNumberOfTuples(), y->GetNumberOfTuples()))
        return;
    const Point grabbed(x->GetTuple1(row), y->GetTuple1(row));
    if (coordinate == kX)
        shape->xResize(grabbed, delta);
    else
        shape->yResize(grabbed, delta);
    followShape(entry, coordinate);
}

void ChartXY::DragShapes(const vtkContextMouseEvent& mouse)
{
    const vtkVector2d delta = ChartPrivate->motion(0, mouse);
    PlotRoster& roster = ChartPrivate->roster;
    for (const RosterPlot* entry : roster.dragTargets()) {
        const Plot& part = *entry->part;
        const bool dragged = part.dragTarget && part.shape && entry->plot->GetInteractive();
        if (dragged && DragPointAlongX && part.canDragX) {
            part.shape->xTranslate(delta.GetX());
            followShape(*entry, kX);
        }
        if (dragged && DragPointAlongY && part.canDragY) {
            part.shape->yTranslate(delta.GetY());
            followShape(*entry, kY);
        }
        markInputModified(entry->plot);
    }
    if (roster.corners().empty())
        return;
    ChartPrivate->inputsOutdated = true;
    MarkSceneDirty();
}

/** A drag makes every plot take over its table, dragged or not, but none does before Update(). */
void ChartXY::MarkInputsModified()
{
    if (!std::exchange(ChartPrivate->inputsOutdated, false))
        return;
    for (const RosterCorner& corner : ChartPrivate->roster.corners())
        for (const RosterPlot& entry : corner.plots)
            markInputModified(entry.plot);
}

void ChartXY::PanAxes(const vtkContextMouseEvent& mouse)
{
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    const std::size_t corners = ChartPrivate->plotCorners.size();
    // The content follows the mouse, so the axes go against it.
    const vtkVector2d delta = ChartPrivate->motion(0, mouse);
    panAxis(axes[vtkAxis::BOTTOM], -delta.GetX());
    panAxis(axes[vtkAxis::LEFT], -delta.GetY());
    if (corners == 2) {
        panAxis(axes[vtkAxis::RIGHT], -ChartPrivate->motion(1, mouse).GetY());
    } else if (corners > 2) {
        const vtkVector2d topRight = ChartPrivate->motion(2, mouse);
        panAxis(axes[vtkAxis::TOP], -topRight.GetX());
        panAxis(axes[vtkAxis::RIGHT], -topRight.GetY());
    }
    RecalculatePlotTransforms(); // the shapes are not told: only zooming tells them
    MarkSceneDirty();
    InvokeEvent(vtkCommand::InteractionEvent);
}

void ChartXY::ZoomAxes(const vtkContextMouseEvent& mouse)
{
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    const vtkVector2i moved = mouse.GetLastScreenPos() - mouse.GetScreenPos();
    // The wheel's switches do not matter here.
    for (const int position : {vtkAxis::BOTTOM, vtkAxis::LEFT, vtkAxis::TOP, vtkAxis::RIGHT}) {
        const bool horizontal = position == vtkAxis::BOTTOM || position == vtkAxis::TOP;
        const int pixels = horizontal ? moved.GetX() : moved.GetY();
        if (pixels != 0)
            zoomAxis(axes[static_cast<std::size_t>(position)], pixels / kPixelsPerAxisZoom);
    }
    // The top axis, where the wheel tells the left one: that is meant.
    PushRangesToShapes(rangeOf(axes[vtkAxis::BOTTOM]), rangeOf(axes[vtkAxis::TOP]));
    RecalculatePlotTransforms();
    MarkSceneDirty();
}

void ChartXY::DragColumns(const vtkContextMouseEvent& mouse)
{
    // Between the event's own two positions and not the last two of the mouse: the chart's place in
    // its scene is what is measured, nothing for a chart at the scene's origin. That is meant.
    const vtkVector2f offset = mouse.GetPos() - LastScenePos;
    const Range x = rangeOf(ChartPrivate->axes[vtkAxis::BOTTOM]);
    const Range y = rangeOf(ChartPrivate->axes[vtkAxis::LEFT]);
    const double dx = Scene ? double {offset.GetX()} / Scene->GetSceneWidth() * x.length() : 0.0;
    const double dy = Scene ? double {offset.GetY()} / Scene->GetSceneHeight() * y.length() : 0.0;
    DragSelected([&](const RosterPlot& entry, int coordinate) {
        shiftColumn(entry.plot, coordinate, coordinate == kX ? dx : dy);
    });
}

bool ChartXY::MouseButtonReleaseEvent(const vtkContextMouseEvent& mouse)
{
    const PlotRoster::Event event(ChartPrivate->roster);
    MouseDown = false;
    NotifyDirty();
    ReleaseShapes();
    if (OfferToCorners(mouse, &vtkAbstractContextItem::MouseButtonReleaseEvent))
        return true;

    const int button = mouse.GetButton();
    if (button >= vtkContextMouseEvent::LEFT_BUTTON
        && button <= vtkContextMouseEvent::RIGHT_BUTTON) {
        // A release on a point ends a drag whatever the button: a rubber band that ends there is
        // neither applied nor taken away.
        if (DragPoint || DragShape || HitInteractivePlot(mouse))
            return EndDrag();
        StretchMouseBox(mouse);
        if (IsClick() && (button == Actions.Select() || button == Actions.Pan()))
            return ReleaseClick(mouse);
    }
    if (button == Actions.Select() || button == Actions.SelectPolygon()) {
        SelectOnRelease(mouse);
        return true;
    }
    if (button == Actions.Zoom()) {
        ZoomOnRelease(mouse);
        return true;
    }
    if (button == Actions.ZoomAxis())
        return true;
    return button == Actions.ClickAndDrag() && EndDrag();
}

void ChartXY::ReleaseShapes()
{
    for (const RosterCorner& corner : ChartPrivate->roster.corners()) {
        clearDragTargets(corner);
        // A shape with two plots is told twice.
        for (const RosterPlot& entry : corner.plots)
            if (entry.part->shape)
                entry.part->shape->onMouseRelease();
    }
}

bool ChartXY::IsClick() const
{
    return std::fabs(MouseBox.GetWidth()) < kLeastExtent
        && std::fabs(MouseBox.GetHeight()) < kLeastExtent;
}

bool ChartXY::IsMouseBoxFlat() const
{
    return std::fabs(MouseBox.GetWidth()) < kLeastExtent
        || std::fabs(MouseBox.GetHeight()) < kLeastExtent;
}

bool ChartXY::ReleaseClick(const vtkContextMouseEvent& mouse)
{
    CollapseMouseBox();
    DrawBox = false;
    if (mouse.GetButton() == ActionsClick.Notify()) {
        LocatePointInPlots(mouse, vtkCommand::InteractionEvent);
        return true;
    }
    if (mouse.GetButton() == ActionsClick.Select()) {
        LocatePointInPlots(mouse, vtkCommand::SelectionChangedEvent);
        return true;
    }
    return false;
}

void ChartXY::ZoomOnRelease(const vtkContextMouseEvent& mouse)
{
    DrawBox = false;
    if (IsMouseBoxFlat()) {
        CollapseMouseBox();
        return;
    }
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    const vtkVector2f origin(MouseBox.GetX(), MouseBox.GetY());
    ZoomInAxes(axes[vtkAxis::BOTTOM], axes[vtkAxis::LEFT], origin, mouse.GetPos());
    ZoomInAxes(axes[vtkAxis::TOP], axes[vtkAxis::RIGHT], origin, mouse.GetPos());
    RecalculatePlotTransforms();
    CollapseMouseBox();
    MarkSceneDirty();
    InvokeEvent(vtkCommand::InteractionEvent);
}

bool ChartXY::EndDrag()
{
    ClearPlotSelections();
    InvokeEvent(vtkCommand::SelectionChangedEvent);
    DragPoint = false;
    DragShape = false;
    return true;
}

void ChartXY::ZoomInAxes(
    vtkAxis* x, vtkAxis* y, const vtkVector2f& origin, const vtkVector2f& corner)
{
    const vtkNew<vtkTransform2D> transform;
    CalculateUnscaledPlotTransform(x, y, transform);
    const double pixels[4] = {origin.GetX(), origin.GetY(), corner.GetX(), corner.GetY()};
    double ends[4];
    transform->InverseTransformPoints(pixels, ends, 2);
    spanAxis(x, ends[0], ends[2]);
    spanAxis(y, ends[1], ends[3]);
    PushRangesToShapes(rangeOf(x), rangeOf(y));
    x->RecalculateTickSpacing();
    y->RecalculateTickSpacing();
}

bool ChartXY::MouseWheelEvent(const vtkContextMouseEvent&, int delta)
{
    NotifyDirty();
    HideTooltip();
    if (!ZoomWithMouseWheel)
        return false;
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    for (std::size_t i = 0; i < axes.size(); ++i)
        if (AxisZoomEnabled[i])
            zoomAxis(axes[i], delta);
    PushRangesToShapes(rangeOf(axes[vtkAxis::BOTTOM]), rangeOf(axes[vtkAxis::LEFT]));
    RecalculatePlotTransforms();
    MarkSceneDirty();
    InvokeEvent(vtkCommand::InteractionEvent);
    return true;
}

void ChartXY::PushRangesToShapes(const Range& xRange, const Range& yRange)
{
    for (const RosterCorner& corner : ChartPrivate->roster.corners()) {
        for (const RosterPlot& entry : corner.plots) {
            if (Shape* shape = entry.part->shape) {
                shape->setXAxisRange(xRange);
                shape->setYAxisRange(yRange);
            }
        }
    }
}

void ChartXY::ClearPlotSelections()
{
    for (vtkPlot* plot : ChartPrivate->plots) {
        vtkIdTypeArray* present = plot->GetSelection();
        if (present && present->GetNumberOfTuples() == 0 && present->GetReferenceCount() == 1) {
            if (plot->GetSelectable())
                plot->Modified(); // as if it had got another one
            continue;
        }
        const vtkNew<vtkIdTypeArray> none; // of its own: a selection may be shared
        plot->SetSelection(none);
    }
    SelectionNotes::note();
}

} // namespace ovl
