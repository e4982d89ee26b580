// SPDX-License-Identifier: BSD-3-Clause
// Selection by rubber band and polygon, and in step with the annotation link.
#include "chartselection.h"
#include "chartxy_p.h"

#include <vtkAnnotationLink.h>
#include <vtkCommand.h>
#include <vtkContextMapper2D.h>
#include <vtkContextMouseEvent.h>
#include <vtkDataArray.h>
#include <vtkDataSetAttributes.h>
#include <vtkIdTypeArray.h>
#include <vtkInformation.h>
#include <vtkInformationObjectBaseKey.h>
#include <vtkNew.h>
#include <vtkSelection.h>
#include <vtkSelectionNode.h>
#include <vtkTable.h>
#include <vtkTransform2D.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace ovl {
namespace {

/** What to select within, in the plot space of one corner. */
struct Region {
    bool isPolygon;
    vtkContextPolygon polygon;
    vtkVector2f lower;
    vtkVector2f upper;

    bool selectIn(vtkPlot* plot) const
    {
        SelectionNotes::note();
        return isPolygon ? plot->SelectPointsInPolygon(polygon) : plot->SelectPoints(lower, upper);
    }
};

Region polygonRegion(const vtkContextPolygon& polygon, vtkContextTransform* corner)
{
    const vtkNew<vtkTransform2D> toPlot;
    toPlot->SetMatrix(corner->GetTransform()->GetMatrix());
    toPlot->Inverse();
    return {true, polygon.Transformed(toPlot), {0, 0}, {0, 0}};
}

Region bandRegion(const vtkVector2f& from, const vtkVector2f& to, vtkContextTransform* corner)
{
    const float pixels[4] = {from.GetX(), from.GetY(), to.GetX(), to.GetY()};
    float ends[4];
    corner->GetTransform()->InverseTransformPoints(pixels, ends, 2);
    const auto [left, right] = std::minmax(ends[0], ends[2]);
    const auto [bottom, top] = std::minmax(ends[1], ends[3]);
    return {false, {}, {left, bottom}, {right, top}};
}

bool isSelectable(vtkPlot* plot) { return plot->GetVisible() && plot->GetSelectable(); }

/** Emptied first: a plot without a selection would leave the one of the plot before. */
void copySelection(vtkIdTypeArray* target, vtkAbstractArray* selection)
{
    target->SetNumberOfTuples(0);
    if (selection)
        target->DeepCopy(selection);
}

vtkDataArray* yColumn(vtkPlot* plot)
{
    vtkTable* table = plot->GetInput();
    return table ? plot->GetData()->GetInputArrayToProcess(1, table) : nullptr;
}

void fillWithRows(vtkIdTypeArray* rows, vtkIdType count)
{
    rows->SetNumberOfTuples(count);
    std::iota(rows->GetPointer(0), rows->GetPointer(count), vtkIdType {0});
    rows->Modified();
}

/** Gives the plot every row of `column`, or nothing for null. */
void selectWholeColumn(vtkPlot* plot, vtkDataArray* column)
{
    if (!column) {
        plot->SetSelection(nullptr);
        return;
    }
    vtkIdTypeArray* present = plot->GetSelection();
    if (present && present->GetNumberOfTuples() == column->GetNumberOfTuples())
        return;
    const vtkNew<vtkIdTypeArray> rows;
    fillWithRows(rows, column->GetNumberOfTuples());
    plot->SetSelection(rows);
}

vtkIdType columnIndex(vtkPlot* plot, vtkDataArray* column)
{
    int index = -1;
    if (const char* name = column->GetName())
        plot->GetInput()->GetRowData()->GetAbstractArray(name, index);
    return index;
}

vtkIdTypeArray* selectionList(vtkSelectionNode* node)
{
    return vtkIdTypeArray::SafeDownCast(node->GetSelectionList());
}

vtkSelection* linkedSelection(vtkAnnotationLink* link)
{
    link->Update();
    return vtkSelection::SafeDownCast(link->GetOutputDataObject(2));
}

} // namespace

/** One selection on its way from the release of the mouse into plots and link. */
struct ChartXY::SelectionRun {
    vtkAnnotationLink* link;
    int mode;
    vtkNew<vtkIdTypeArray> oldSelection;
    vtkNew<vtkIdTypeArray> accumulated;
    vtkNew<vtkIdTypeArray> plotSelection; ///< every row; shared by the plots of selected columns

    void selectRows(const RosterPlot& entry, const Region& region, bool first);
    void selectInPlot(vtkPlot* plot, const Region& region);
    void selectColumn(vtkPlot* plot, const Region& region);
};

void ChartXY::SelectionRun::selectRows(const RosterPlot& entry, const Region& region, bool first)
{
    // Only the very first plot tells what was selected. Where it is hidden or not selectable,
    // nothing was.
    if (first)
        copySelection(oldSelection, entry.plot->GetSelection());
    region.selectIn(entry.plot);
    BuildSelection(
        nullptr, SelectionMode::Addition, accumulated, entry.plot->GetSelection(), nullptr);
}

void ChartXY::SelectionRun::selectInPlot(vtkPlot* plot, const Region& region)
{
    copySelection(oldSelection, plot->GetSelection());
    region.selectIn(plot);
    BuildSelection(link, mode, plot->GetSelection(), oldSelection, plot);
}

void ChartXY::SelectionRun::selectColumn(vtkPlot* plot, const Region& region)
{
    vtkDataArray* column = region.selectIn(plot) ? yColumn(plot) : nullptr;
    if (!column)
        return;
    if (plotSelection->GetNumberOfTuples() != column->GetNumberOfTuples())
        fillWithRows(plotSelection, column->GetNumberOfTuples());
    plot->SetSelection(plotSelection);
    accumulated->InsertNextValue(columnIndex(plot, column));
}

void ChartXY::SetSelectionMethod(int method)
{
    if (method == SelectionMethod)
        return;
    if (method == SELECTION_PLOTS) // what the plots have so far may be one array for all
        for (vtkPlot* plot : ChartPrivate->plots)
            plot->SetSelection(nullptr);
    SelectionNotes::note();
    this->Superclass::SetSelectionMethod(method);
}

void ChartXY::SelectOnRelease(const vtkContextMouseEvent& mouse)
{
    const int mode = GetMouseSelectionMode(mouse, SelectionMode);
    const bool polygon = mouse.GetButton() == Actions.SelectPolygon();
    MarkSceneDirty();
    if (polygon) {
        SelectionPolygon.AddPoint(mouse.GetPos());
        DrawSelectionPolygon = false;
        if (SelectionPolygon.GetNumberOfPoints() < 3) {
            SelectionPolygon.Clear();
            return;
        }
    } else {
        StretchMouseBox(mouse);
        DrawBox = false;
    }
    // A polygon has to pass this test too, with the box from the last press that set its origin to
    // this release. It keeps its points until the next press when it does not: that is meant.
    if (IsMouseBoxFlat()) {
        CollapseMouseBox();
        return;
    }
    SelectInCorners(mouse, polygon, mode);
    InvokeEvent(vtkCommand::SelectionChangedEvent);
    CollapseMouseBox();
    SelectionPolygon.Clear();
}

void ChartXY::SelectInCorners(const vtkContextMouseEvent& mouse, bool polygon, int mode)
{
    SelectionRun run {AnnotationLink, mode, {}, {}, {}};
    if (SelectionMethod == SELECTION_COLUMNS && AnnotationLink) {
        vtkSelection* selection = linkedSelection(AnnotationLink);
        if (selection && selection->GetNumberOfNodes() > 0)
            copySelection(run.oldSelection, selection->GetNode(0)->GetSelectionList());
    }

    const vtkVector2f origin(MouseBox.GetX(), MouseBox.GetY());
    const vtkContextTransform* cornerZero = ChartPrivate->plotCorners.front();
    for (const RosterCorner& corner : ChartPrivate->roster.corners()) {
        const Region region = polygon ? polygonRegion(SelectionPolygon, corner.transform)
                                      : bandRegion(origin, mouse.GetPos(), corner.transform);
        const RosterPlot* first = corner.transform == cornerZero ? &corner.plots.front() : nullptr;
        for (const RosterPlot& entry : corner.plots) {
            if (!isSelectable(entry.plot))
                continue;
            if (SelectionMethod == SELECTION_ROWS)
                run.selectRows(entry, region, &entry == first);
            else if (SelectionMethod == SELECTION_PLOTS)
                run.selectInPlot(entry.plot, region);
            else if (SelectionMethod == SELECTION_COLUMNS)
                run.selectColumn(entry.plot, region);
        }
    }

    if (SelectionMethod == SELECTION_COLUMNS) {
        vtkIdType* ids = run.accumulated->GetPointer(0);
        std::sort(ids, ids + run.accumulated->GetNumberOfTuples());
    }
    if (SelectionMethod == SELECTION_ROWS || SelectionMethod == SELECTION_COLUMNS)
        BuildSelection(AnnotationLink, mode, run.accumulated, run.oldSelection, nullptr);
}

void ChartXY::UpdateSelectionFromLink()
{
    if (!AnnotationLink)
        return;
    vtkSelection* selection = linkedSelection(AnnotationLink);
    if (!selection)
        return;
    if (SelectionMethod == SELECTION_ROWS)
        TakeRows(selection);
    else if (SelectionMethod == SELECTION_PLOTS)
        TakePlots(selection);
    else if (SelectionMethod == SELECTION_COLUMNS)
        TakeColumns(selection);
    SelectionNotes::note();
}

void ChartXY::TakeRows(vtkSelection* selection)
{
    vtkIdTypeArray* rows
        = selection->GetNumberOfNodes() > 0 ? selectionList(selection->GetNode(0)) : nullptr;
    for (vtkPlot* plot : ChartPrivate->plots)
        plot->SetSelection(rows);
}

void ChartXY::TakePlots(vtkSelection* selection)
{
    const std::vector<vtkPlot*>& plots = ChartPrivate->plots;
    for (unsigned int i = 0; i < selection->GetNumberOfNodes(); ++i) {
        vtkSelectionNode* node = selection->GetNode(i);
        // Compared before it is used: the link may hold plots that are no longer the chart's.
        const vtkObjectBase* prop = node->GetProperties()->Get(vtkSelectionNode::PROP());
        const auto plot = std::find(plots.begin(), plots.end(), prop);
        if (plot != plots.end())
            (*plot)->SetSelection(selectionList(node));
    }
}

void ChartXY::TakeColumns(vtkSelection* selection)
{
    const std::vector<vtkPlot*>& plots = ChartPrivate->plots;
    std::vector<vtkDataArray*> columns;
    std::transform(plots.begin(), plots.end(), std::back_inserter(columns), yColumn);
    std::vector<bool> selected(plots.size(), false);

    for (unsigned int i = 0; i < selection->GetNumberOfNodes(); ++i) {
        vtkIdTypeArray* ids = selectionList(selection->GetNode(i));
        for (vtkIdType k = 0; ids && k < ids->GetNumberOfTuples(); ++k) {
            for (std::size_t p = 0; p < plots.size(); ++p) {
                if (columns[p] && plots[p]->GetInput()->GetColumn(ids->GetValue(k)) == columns[p]) {
                    selected[p] = true; // the first plot of the column, and no other
                    break;
                }
            }
        }
    }
    for (std::size_t p = 0; p < plots.size(); ++p)
        selectWholeColumn(plots[p], selected[p] ? columns[p] : nullptr);
}

} // namespace ovl
