// SPDX-License-Identifier: BSD-3-Clause
#include "chartselection.h"

#include "plotroster.h"
#include "vtkcompat.h"

#include <vtkAnnotationLink.h>
#include <vtkContextMouseEvent.h>
#include <vtkIdTypeArray.h>
#include <vtkInformation.h>
#include <vtkInformationObjectBaseKey.h>
#include <vtkNew.h>
#include <vtkPlot.h>
#include <vtkSelection.h>
#include <vtkSelectionNode.h>
#include <vtkTable.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace ovl {
namespace {

// A function object of its own for each operation, so that the merge is compiled into it.
template <class Merge> void merge(vtkIdTypeArray* first, vtkIdTypeArray* second, Merge operation)
{
    const auto begin = [](vtkIdTypeArray* array) { return array->GetPointer(0); };
    const auto end
        = [](vtkIdTypeArray* array) { return array->GetPointer(array->GetNumberOfTuples()); };

    std::vector<vtkIdType> result;
    result.reserve(
        static_cast<std::size_t>(first->GetNumberOfTuples() + second->GetNumberOfTuples()));
    operation(begin(first), end(first), begin(second), end(second), std::back_inserter(result));

    first->SetNumberOfTuples(static_cast<vtkIdType>(result.size()));
    std::copy(result.begin(), result.end(), begin(first));
    first->Modified(); // else the highlight would not follow
}

vtkSelectionNode* addIndexNode(vtkSelection* selection)
{
    vtkNew<vtkSelectionNode> node;
    selection->AddNode(node);
    node->SetContentType(vtkSelectionNode::INDICES);
    node->SetFieldType(vtkSelectionNode::POINT);
    return node;
}

vtkSelectionNode* nodeOfPlot(vtkSelection* selection, vtkPlot* plot)
{
    for (unsigned int i = 0; i < selection->GetNumberOfNodes(); ++i) {
        vtkSelectionNode* node = selection->GetNode(i);
        if (node->GetProperties()->Get(vtkSelectionNode::PROP()) == plot)
            return node;
    }
    vtkSelectionNode* node = addIndexNode(selection);
    node->GetProperties()->Set(vtkSelectionNode::PROP(), plot);
    node->GetProperties()->Set(vtkSelectionNode::SOURCE(), plot->GetInput());
    return node;
}

} // namespace

int GetMouseSelectionMode(const vtkContextMouseEvent& mouse, int fallback)
{
    const int modifiers = mouse.GetModifiers();
    const bool shift = (modifiers & vtkContextMouseEvent::SHIFT_MODIFIER) != 0;
    const bool control = (modifiers & vtkContextMouseEvent::CONTROL_MODIFIER) != 0;
    if (shift && control)
        return SelectionMode::Toggle;
    if (control)
        return SelectionMode::Addition;
    return shift ? SelectionMode::Subtraction : fallback;
}

void AddSelection(vtkIdTypeArray* selection, vtkIdTypeArray* oldSelection)
{
    merge(selection, oldSelection, [](auto... ranges) { std::set_union(ranges...); });
}

void MinusSelection(vtkIdTypeArray* selection, vtkIdTypeArray* oldSelection)
{
    merge(selection, oldSelection,
        [](auto newFirst, auto newLast, auto oldFirst, auto oldLast, auto out) {
            std::set_difference(oldFirst, oldLast, newFirst, newLast, out);
        });
}

void ToggleSelection(vtkIdTypeArray* selection, vtkIdTypeArray* oldSelection)
{
    merge(
        selection, oldSelection, [](auto... ranges) { std::set_symmetric_difference(ranges...); });
}

void BuildSelection(vtkAnnotationLink* link, int mode, vtkIdTypeArray* selection,
    vtkIdTypeArray* oldSelection, vtkPlot* plot)
{
    if (!selection || !oldSelection)
        return;

    if (mode == SelectionMode::Addition)
        AddSelection(selection, oldSelection);
    else if (mode == SelectionMode::Subtraction)
        MinusSelection(selection, oldSelection);
    else if (mode == SelectionMode::Toggle)
        ToggleSelection(selection, oldSelection);

    if (link)
        MakeSelection(link, selection, plot);
}

void MakeSelection(vtkAnnotationLink* link, vtkIdTypeArray* selection, vtkPlot* plot)
{
    if (plot) {
        nodeOfPlot(link->GetCurrentSelection(), plot)->SetSelectionList(selection);
        return;
    }
    vtkNew<vtkSelection> rows;
    addIndexNode(rows)->SetSelectionList(selection);
    link->SetCurrentSelection(rows);
}

void DropMissingRows(vtkPlot* plot)
{
    vtkIdTypeArray* selection = plot->GetSelection();
    if (!selection || selection->GetNumberOfTuples() == 0)
        return;
    auto* drawn = vtkPlotPoints::SafeDownCast(plot);
    vtkPoints2D* points = drawn ? compat::PlotPointsAccess::points(drawn) : nullptr;
    if (!points)
        return;
    const vtkIdType count = points->GetNumberOfPoints();
    const auto isMissing = [count](vtkIdType row) { return row < 0 || row >= count; };
    const vtkIdType* begin = selection->GetPointer(0);
    const vtkIdType* end = begin + selection->GetNumberOfTuples();
    if (std::none_of(begin, end, isMissing))
        return;
    const vtkNew<vtkIdTypeArray> present; // of its own: a selection may be shared
    for (const vtkIdType* row = begin; row != end; ++row)
        if (!isMissing(*row))
            present->InsertNextValue(*row);
    plot->SetSelection(present);
    SelectionNotes::note();
}

} // namespace ovl
