// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: how a new selection combines with an old one, and how it gets
// into an annotation link. None of these functions has a state.
#ifndef OVL_VISUALIZATION_CHARTSELECTION_H
#define OVL_VISUALIZATION_CHARTSELECTION_H

class vtkAnnotationLink;
class vtkContextMouseEvent;
class vtkIdTypeArray;
class vtkPlot;

namespace ovl {

/** How a new selection combines with the old one; the framework's numbers. */
namespace SelectionMode {
constexpr int Replace = 1;
constexpr int Addition = 2;
constexpr int Subtraction = 3;
constexpr int Toggle = 4;
} // namespace SelectionMode

/**
 * The mode that the event's modifier keys ask for: shift and control toggle, control alone adds,
 * shift alone subtracts; with neither it is `fallback`.
 */
int GetMouseSelectionMode(const vtkContextMouseEvent& mouse, int fallback);

/**
 * The set operations. Both arrays are sorted ascending, without doubles; the result, as sorted,
 * goes into the first. AddSelection gives the union, MinusSelection what is in `oldSelection` only,
 * ToggleSelection what is in one of the two only.
 */
void AddSelection(vtkIdTypeArray* selection, vtkIdTypeArray* oldSelection);
void MinusSelection(vtkIdTypeArray* selection, vtkIdTypeArray* oldSelection);
void ToggleSelection(vtkIdTypeArray* selection, vtkIdTypeArray* oldSelection);

/**
 * Combines `oldSelection` into `selection` as the mode says (any other number replaces the old one)
 * and gives the result to `link`, which may be null. A null array stops it.
 */
void BuildSelection(vtkAnnotationLink* link, int mode, vtkIdTypeArray* selection,
    vtkIdTypeArray* oldSelection, vtkPlot* plot);

/**
 * Puts `selection` itself, not a copy, into the link's current selection: into the node that
 * belongs to `plot`, which is made when there is none, or, without a plot, into the one node of a
 * new selection.
 */
void MakeSelection(vtkAnnotationLink* link, vtkIdTypeArray* selection, vtkPlot* plot);

/**
 * Gives `plot` a selection of its own without the rows that it has no point for, if there are such:
 * the framework would paint them from beyond the points' end. A table may shrink at any time, also
 * while the mouse holds one of its points.
 */
void DropMissingRows(vtkPlot* plot);

} // namespace ovl

#endif
