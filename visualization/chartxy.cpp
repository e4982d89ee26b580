// SPDX-License-Identifier: BSD-3-Clause
#include "chartxy.h"

#include "chartaxis.h"
#include "chartxy_p.h"
#include "plotarea.h"
#include "plotbag.h"
#include "plotbar.h"
#include "plotcorner.h"
#include "plotfunctionalbag.h"
#include "plotline.h"
#include "plotpoints.h"
#include "plotstacked.h"
#include "precondition.h"
#include "vtkcompat.h"

#include <vtkBrush.h>
#include <vtkChartLegend.h>
#include <vtkContextMouseEvent.h>
#include <vtkContextScene.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkPen.h>
#include <vtkPlotGrid.h>
#include <vtkTooltipItem.h>

#include <algorithm>
#include <iterator>

namespace ovl {
namespace {

constexpr int kAxisCount = 4;
constexpr int kCornerCount = 4;
constexpr int kNoCorner = 4;

/** Where a plot shows its colour. */
enum ColorPlace { PenColor = 1, BrushColor = 2 };

struct PlotKind {
    vtkSmartPointer<vtkPlot> (*make)();
    int colorPlaces;
    bool looksForChart; ///< needs its parent before it is in a corner
};

template <class PlotClass> vtkSmartPointer<vtkPlot> make()
{
    return vtkSmartPointer<PlotClass>::New();
}

constexpr PlotKind kPlotKinds[] = {
    // in the order of the framework's plot types
    {make<PlotLine>, PenColor, false},
    {make<PlotPoints>, PenColor, false},
    {make<PlotBar>, BrushColor, false},
    {make<PlotStacked>, BrushColor, true},
    {make<PlotBag>, BrushColor, true},
    {make<PlotFunctionalBag>, PenColor | BrushColor, false},
    {make<PlotArea>, BrushColor, true},
};
static_assert(std::size(kPlotKinds) == vtkChart::AREA + 1);

void setColor(vtkPlot* plot, int places, const vtkColor3ub& color)
{
    if (places & PenColor)
        plot->GetPen()->SetColor(color.GetRed(), color.GetGreen(), color.GetBlue());
    if (places & BrushColor)
        plot->GetBrush()->SetColor(color.GetRed(), color.GetGreen(), color.GetBlue());
}

void addCorner(std::vector<vtkContextTransform*>& corners, vtkContextClip* clip)
{
    const vtkNew<PlotCorner> corner;
    corners.push_back(corner);
    clip->AddItem(corner);
}

} // namespace

vtkStandardNewMacro(ChartXY);

ChartXY::ChartXY()
    : Legend(vtkSmartPointer<vtkChartLegend>::New())
    , Tooltip(vtkSmartPointer<vtkTooltipItem>::New())
    , ChartPrivate(new Private)
{
    Actions.Pan() = vtkContextMouseEvent::LEFT_BUTTON;
    Actions.Zoom() = vtkContextMouseEvent::RIGHT_BUTTON;
    Actions.Select() = -1;
    Actions.ClickAndDrag() = -1;

    // The order of the children is the order of painting: the grids under all plots, which stay
    // inside the plot area, the axes over them, then the legend, the tooltip over everything.
    AddItem(ChartPrivate->clip);
    const vtkNew<vtkPlotGrid> bottomLeftGrid;
    const vtkNew<vtkPlotGrid> topRightGrid;
    ChartPrivate->clip->AddItem(bottomLeftGrid);
    ChartPrivate->clip->AddItem(topRightGrid);
    addCorner(ChartPrivate->plotCorners, ChartPrivate->clip);

    for (int position = 0; position < kAxisCount; ++position) {
        vtkAxis* axis = ChartAxis::New();
        ChartPrivate->axes.push_back(axis);
        axis->SetVisible(position == vtkAxis::LEFT || position == vtkAxis::BOTTOM);
        AttachAxisRangeListener(axis);
        AddItem(axis);
    }
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    for (int position = 0; position < kAxisCount; ++position)
        axes[static_cast<std::size_t>(position)]->SetPosition(position);
    axes[vtkAxis::LEFT]->SetTitle("Y Axis");
    axes[vtkAxis::BOTTOM]->SetTitle("X Axis");

    bottomLeftGrid->SetXAxis(axes[vtkAxis::BOTTOM]);
    bottomLeftGrid->SetYAxis(axes[vtkAxis::LEFT]);
    topRightGrid->SetXAxis(axes[vtkAxis::TOP]);
    topRightGrid->SetYAxis(axes[vtkAxis::RIGHT]);

    Legend->SetChart(this);
    Legend->SetVisible(false);
    AddItem(Legend);

    Tooltip->SetVisible(false);
    AddItem(Tooltip);
}

ChartXY::~ChartXY()
{
    for (vtkPlot* plot : ChartPrivate->plots)
        plot->UnRegister(this);
    for (vtkAxis* axis : ChartPrivate->axes)
        axis->Delete();
    delete ChartPrivate;
}

void ChartXY::PrintSelf(ostream& os, vtkIndent indent)
{
    this->Superclass::PrintSelf(os, indent);
    os << indent << "Axes: " << std::endl;
    for (vtkAxis* axis : ChartPrivate->axes)
        axis->PrintSelf(os, indent.GetNextIndent());
    os << indent << "Number of plots: " << ChartPrivate->plots.size() << std::endl;
    for (std::size_t i = 0; i < ChartPrivate->plots.size(); ++i) {
        os << indent << "Plot " << i << ":" << std::endl;
        ChartPrivate->plots[i]->PrintSelf(os, indent.GetNextIndent());
    }
    os << indent << "ZoomWithMouseWheel: " << ZoomWithMouseWheel << std::endl;
}

vtkAbstractContextItem* ChartXY::GetPickedItem(const vtkContextMouseEvent& mouse)
{
    if constexpr (!compat::kPlotsAndAxesCanBePicked)
        return this->Superclass::GetPickedItem(mouse);

    // The mouse is the chart's over plots and axes too: the keys and the tooltip go on over a
    // point, and a press beside the plot area does nothing. It also spares a search for the nearest
    // point in every plot at every move.
    vtkContextMouseEvent childMouse = mouse;
    childMouse.SetPos(MapFromParent(mouse.GetPos()));
    childMouse.SetLastPos(MapFromParent(mouse.GetLastPos()));
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    for (vtkIdType i = GetNumberOfItems() - 1; i >= 0; --i) {
        vtkAbstractContextItem* child = GetItem(i);
        if (child == ChartPrivate->clip || std::find(axes.begin(), axes.end(), child) != axes.end())
            continue;
        if (vtkAbstractContextItem* picked = child->GetPickedItem(childMouse))
            return picked;
    }
    return Hit(mouse) ? this : nullptr;
}

vtkPlot* ChartXY::AddPlot(int type)
{
    if (type < 0 || type >= static_cast<int>(std::size(kPlotKinds)))
        return nullptr;
    const PlotKind& kind = kPlotKinds[type];
    const vtkSmartPointer<vtkPlot> plot = kind.make();
    if (kind.looksForChart)
        plot->SetParent(this);
    const auto count = static_cast<int>(ChartPrivate->plots.size());
    setColor(plot, kind.colorPlaces, ChartPrivate->colors->GetColorRepeating(count));
    AddPlot(plot.GetPointer());
    return plot;
}

vtkIdType ChartXY::AddPlot(vtkPlot* plot)
{
    if (!plot)
        return -1;
    plot->Register(this);
    ChartPrivate->plots.push_back(plot);
    const auto index = static_cast<vtkIdType>(ChartPrivate->plots.size()) - 1;
    SetPlotCorner(plot, 0);
    RecalculateBounds();
    return index;
}

bool ChartXY::RemovePlot(vtkIdType index)
{
    OVL_PRECONDITION("ChartXY::RemovePlot", index >= 0, index);
    std::vector<vtkPlot*>& plots = ChartPrivate->plots;
    if (static_cast<std::size_t>(index) >= plots.size())
        return false;
    const auto position = plots.begin() + index;
    vtkPlot* plot = *position;
    ForgetSibling(plot);
    RemovePlotFromCorners(plot);
    plot->UnRegister(this);
    plots.erase(position);
    RecalculateBounds();
    return true;
}

void ChartXY::ForgetSibling(vtkPlot* plot)
{
    // The other plot of a shape may outlive this one, and the next drag would follow its pointer.
    const Plot* part = plotPart(plot);
    if (!part || !part->sibling)
        return;
    const std::vector<vtkPlot*>& plots = ChartPrivate->plots;
    if (std::find(plots.begin(), plots.end(), part->sibling) == plots.end())
        return;
    Plot* sibling = plotPart(part->sibling);
    if (sibling && sibling->sibling == plot)
        sibling->sibling = nullptr;
}

bool ChartXY::RemovePlotFromCorners(vtkPlot* plot)
{
    // A new plot is in no corner: the search would make adding many of them quadratic.
    const vtkAbstractContextItem* parent = plot->GetParent();
    if (!parent || parent == this)
        return false;
    ChartPrivate->roster.itemsChanged();
    const std::vector<vtkContextTransform*>& corners = ChartPrivate->plotCorners;
    return std::any_of(corners.begin(), corners.end(),
        [plot](vtkContextTransform* corner) { return corner->RemoveItem(plot); });
}

void ChartXY::ClearPlots()
{
    for (vtkPlot* plot : ChartPrivate->plots)
        plot->UnRegister(this);
    ChartPrivate->plots.clear();
    ChartPrivate->roster.itemsChanged();
    std::vector<vtkContextTransform*>& corners = ChartPrivate->plotCorners;
    corners.front()->ClearItems();
    for (std::size_t i = 1; i < corners.size(); ++i) {
        corners[i]->ClearItems();
        ChartPrivate->clip->RemoveItem(corners[i]);
    }
    corners.resize(1);
    RecalculateBounds();
}

vtkPlot* ChartXY::GetPlot(vtkIdType index)
{
    OVL_PRECONDITION("ChartXY::GetPlot", index >= 0, index);
    const auto position = static_cast<std::size_t>(index);
    return position < ChartPrivate->plots.size() ? ChartPrivate->plots[position] : nullptr;
}

vtkIdType ChartXY::GetNumberOfPlots() { return static_cast<vtkIdType>(ChartPrivate->plots.size()); }

vtkAxis* ChartXY::GetAxis(int axisIndex)
{
    OVL_PRECONDITION("ChartXY::GetAxis", axisIndex >= 0, axisIndex);
    const auto position = static_cast<std::size_t>(axisIndex);
    return position < ChartPrivate->axes.size() ? ChartPrivate->axes[position] : nullptr;
}

vtkIdType ChartXY::GetNumberOfAxes() { return kAxisCount; }

void ChartXY::RecalculateBounds()
{
    PlotTransformValid = false;
    if (Scene)
        Scene->SetDirty(true);
}

void ChartXY::SetShowLegend(bool visible)
{
    this->Superclass::SetShowLegend(visible);
    Legend->SetVisible(visible);
}

vtkChartLegend* ChartXY::GetLegend() { return Legend; }

void ChartXY::SetPlotCorner(vtkPlot* plot, int corner)
{
    if (corner < 0 || corner >= kCornerCount) {
        vtkWarningMacro(<< "Invalid corner specified, should be between 0 and 3: " << corner);
        return;
    }
    // Told by the axes alone: a plot that already has them is not looked for in the corner's items.
    if (GetPlotCorner(plot) == corner)
        return;
    RemovePlotFromCorners(plot);
    const auto index = static_cast<std::size_t>(corner);
    while (ChartPrivate->plotCorners.size() <= index)
        addCorner(ChartPrivate->plotCorners, ChartPrivate->clip);
    ChartPrivate->plotCorners[index]->AddItem(plot);
    ChartPrivate->roster.itemsChanged();
    plot->SetXAxis(ChartPrivate->horizontalAxis(index));
    plot->SetYAxis(ChartPrivate->verticalAxis(index));
    PlotTransformValid = false;
}

int ChartXY::GetPlotCorner(vtkPlot* plot)
{
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    const vtkAxis* x = plot->GetXAxis();
    const vtkAxis* y = plot->GetYAxis();
    if (x == axes[vtkAxis::BOTTOM])
        return y == axes[vtkAxis::LEFT] ? 0 : y == axes[vtkAxis::RIGHT] ? 1 : kNoCorner;
    if (x == axes[vtkAxis::TOP])
        return y == axes[vtkAxis::RIGHT] ? 2 : y == axes[vtkAxis::LEFT] ? 3 : kNoCorner;
    return kNoCorner;
}

vtkContextTransform* ChartXY::CornerOfPlot(vtkPlot* plot)
{
    const auto corner = static_cast<std::size_t>(GetPlotCorner(plot));
    // Someone else may have set the axes of a corner that has not been made.
    return corner < ChartPrivate->plotCorners.size() ? ChartPrivate->plotCorners[corner] : nullptr;
}

vtkIdType ChartXY::GetPlotIndex(vtkPlot* plot)
{
    vtkContextTransform* corner = CornerOfPlot(plot);
    return corner ? corner->GetItemIndex(plot) : -1;
}

vtkIdType ChartXY::StackPlotAbove(vtkPlot* plot, vtkPlot* under)
{
    const vtkIdType plotIndex = GetPlotIndex(plot);
    const vtkIdType underIndex = GetPlotIndex(under);
    vtkContextTransform* corner = CornerOfPlot(plot);
    // An index is compared with a corner's number. That is what this operation has always done, and
    // it stays.
    if (!corner || underIndex != GetPlotCorner(under))
        return plotIndex;
    if (plotIndex < 0 || underIndex >= corner->GetNumberOfItems())
        return plotIndex;
    ChartPrivate->roster.itemsChanged();
    return corner->StackAbove(plotIndex, underIndex);
}

vtkIdType ChartXY::StackPlotUnder(vtkPlot* plot, vtkPlot* above)
{
    const vtkIdType plotIndex = GetPlotIndex(plot);
    const vtkIdType aboveIndex = GetPlotIndex(above);
    vtkContextTransform* corner = CornerOfPlot(plot);
    if (!corner || GetPlotCorner(plot) != GetPlotCorner(above))
        return plotIndex;
    if (plotIndex < 0 || aboveIndex < 0)
        return plotIndex;
    ChartPrivate->roster.itemsChanged();
    return corner->StackUnder(plotIndex, aboveIndex);
}

vtkIdType ChartXY::LowerPlot(vtkPlot* plot)
{
    const vtkIdType plotIndex = GetPlotIndex(plot);
    if (plotIndex < 0)
        return plotIndex;
    ChartPrivate->roster.itemsChanged();
    return CornerOfPlot(plot)->Lower(plotIndex);
}

void ChartXY::SetTooltip(vtkTooltipItem* tooltip)
{
    if (tooltip == Tooltip)
        return;
    if (Tooltip)
        RemoveItem(Tooltip);
    Tooltip = tooltip;
    if (Tooltip)
        AddItem(Tooltip);
}

vtkTooltipItem* ChartXY::GetTooltip() { return Tooltip; }

void ChartXY::GetAxisZoomEnabled(bool enabled[4])
{
    GetAxisZoomEnabled(enabled[0], enabled[1], enabled[2], enabled[3]);
}

void ChartXY::GetAxisZoomEnabled(bool& left, bool& bottom, bool& right, bool& top)
{
    left = AxisZoomEnabled[vtkAxis::LEFT];
    bottom = AxisZoomEnabled[vtkAxis::BOTTOM];
    right = AxisZoomEnabled[vtkAxis::RIGHT];
    top = AxisZoomEnabled[vtkAxis::TOP];
}

bool* ChartXY::GetAxisZoomEnabled() { return AxisZoomEnabled; }

} // namespace ovl
