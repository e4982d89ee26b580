// SPDX-License-Identifier: BSD-3-Clause
#include "plotcorner.h"

#include "plotline.h"
#include "plotpoints.h"
#include "vtkcompat.h"

#include <vtkContext2D.h>
#include <vtkContextDevice2D.h>
#include <vtkIdTypeArray.h>
#include <vtkObjectFactory.h>
#include <vtkPen.h>

#include <algorithm>
#include <cmath>
#include <typeinfo>

namespace ovl {
namespace {

constexpr vtkIdType kManyPoints = 256; ///< of a plot that is worth a call of its own
constexpr int kColorParts = 4;

vtkIdType countOf(vtkPlotPoints* plot)
{
    vtkPoints2D* points = compat::PlotPointsAccess::points(plot);
    return points ? points->GetNumberOfPoints() : 0;
}

const float* pointsOf(vtkPlotPoints* plot)
{
    return static_cast<float*>(compat::PlotPointsAccess::points(plot)->GetVoidPointer(0));
}

/** A plot leaves points out that are not numbers. */
bool areAllNumbers(vtkPlotPoints* plot, vtkIdType count)
{
    const float* first = pointsOf(plot);
    return std::all_of(first, first + 2 * count, [](float value) { return std::isfinite(value); });
}

bool isSmallAndPlain(vtkPlotPoints* plot, vtkIdType count)
{
    vtkIdTypeArray* selection = plot->GetSelection();
    return count > 0 && count <= kManyPoints && !plot->GetScalarVisibility()
        && plot->GetValidPointMaskName().empty()
        && (!selection || selection->GetNumberOfTuples() == 0) && areAllNumbers(plot, count);
}

bool isSolid(vtkPen* pen)
{
    return pen->GetLineType() == vtkPen::SOLID_LINE && pen->GetOpacity() > 0;
}

PlotLook lookOfLine(PlotLine* plot)
{
    vtkPen* pen = plot->GetPen();
    const vtkIdType count = countOf(plot);
    const bool isShared = !plot->GetPolyLine() && plot->GetMarkerStyle() == vtkPlotPoints::NONE
        && isSolid(pen) && count % 2 == 0 // a pattern would go on from plot to plot
        && isSmallAndPlain(plot, count);
    return isShared ? PlotLook {PlotLook::Lines, vtkPen::SOLID_LINE, pen->GetWidth()} : PlotLook {};
}

PlotLook lookOfPoints(PlotPoints* plot)
{
    const bool isShared = plot->GetMarkerStyle() != vtkPlotPoints::NONE
        && plot->GetMarkerSize() > 0.0F && isSolid(plot->GetPen())
        && isSmallAndPlain(plot, countOf(plot));
    return isShared ? PlotLook {PlotLook::Markers, plot->GetMarkerStyle(), plot->GetMarkerSize()}
                    : PlotLook {};
}

/** Of exactly these classes it is known how they paint. */
PlotLook lookOf(vtkAbstractContextItem* item)
{
    if (typeid(*item) == typeid(PlotLine))
        return lookOfLine(static_cast<PlotLine*>(item));
    if (typeid(*item) == typeid(PlotPoints))
        return lookOfPoints(static_cast<PlotPoints*>(item));
    return {};
}

} // namespace

vtkStandardNewMacro(PlotCorner);

bool PlotCorner::PaintChildren(vtkContext2D* painter)
{
    for (vtkIdType i = 0; i < GetNumberOfItems(); ++i) {
        vtkAbstractContextItem* item = GetItem(i);
        if (!item->GetVisible())
            continue;
        const PlotLook look = lookOf(item);
        if (!(look == Look))
            Flush(painter);
        Look = look;
        if (look.kind == PlotLook::Own)
            item->Paint(painter);
        else
            Add(static_cast<vtkPlotPoints*>(item));
    }
    Flush(painter);
    return true;
}

void PlotCorner::Add(vtkPlotPoints* plot)
{
    const vtkIdType count = countOf(plot);
    const float* first = pointsOf(plot);
    Plots.push_back(plot);
    Points.insert(Points.end(), first, first + 2 * count);
    unsigned char color[kColorParts];
    plot->GetPen()->GetColor(color);
    color[kColorParts - 1] = plot->GetPen()->GetOpacity();
    for (vtkIdType i = 0; i < count; ++i)
        Colors.insert(Colors.end(), color, color + kColorParts);
}

void PlotCorner::Flush(vtkContext2D* painter)
{
    if (Plots.size() == 1) {
        Plots.front()->Paint(painter);
    } else if (!Plots.empty()) {
        // What the last plot would leave behind as the painter's pen and brush.
        painter->ApplyPen(Plots.back()->GetPen());
        const auto count = static_cast<int>(Points.size() / 2);
        if (Look.kind == PlotLook::Lines) {
            painter->GetDevice()->DrawLines(Points.data(), count, Colors.data(), kColorParts);
        } else {
            painter->ApplyBrush(Plots.back()->GetBrush());
            painter->GetPen()->SetWidth(Look.width);
            painter->DrawMarkers(
                Look.pattern, false, Points.data(), count, Colors.data(), kColorParts);
        }
    }
    Look = {};
    Plots.clear();
    Points.clear();
    Colors.clear();
}

} // namespace ovl
