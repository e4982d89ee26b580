// SPDX-License-Identifier: BSD-3-Clause
#include "chartselection.h"
#include "chartxy_p.h"

#include <vtkChartLegend.h>
#include <vtkContext2D.h>
#include <vtkContextMapper2D.h>
#include <vtkContextScene.h>
#include <vtkDataArray.h>
#include <vtkPlotBar.h>
#include <vtkTable.h>
#include <vtkTransform2D.h>

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace ovl {
namespace {

constexpr float kDefaultBarWidth = 0.1F;
constexpr int kLegendMargin = 10; // pixels of one tile
constexpr float kLegendPadding = 5.0F; // pixels, whatever the tiles
constexpr int kTitleMargin = 5; // pixels of one tile

bool isVertical(std::size_t axis) { return axis == vtkAxis::LEFT || axis == vtkAxis::RIGHT; }

/** The bounds that the plots put on one axis. */
struct AxisBounds {
    double minimum = 0;
    double maximum = 0;
    bool known = false;

    void widen(double lower, double upper)
    {
        if (!known || lower < minimum)
            minimum = lower;
        if (!known || upper > maximum)
            maximum = upper;
        known = true;
    }

    void liftLowerBound()
    {
        if (minimum > 0)
            return;
        if (maximum > 0) {
            minimum = maximum < 10000.0 ? maximum / 10000.0 : 1.0;
        } else {
            maximum = 1.0;
            minimum = 0.0001;
        }
    }
};

bool hasVisiblePlot(vtkContextTransform* corner)
{
    for (vtkIdType i = 0; i < corner->GetNumberOfItems(); ++i) {
        vtkAbstractContextItem* item = corner->GetItem(i);
        if (item->GetVisible() && vtkPlot::SafeDownCast(item))
            return true;
    }
    return false;
}

std::vector<vtkPlotBar*> visibleBars(const std::vector<vtkPlot*>& plots)
{
    std::vector<vtkPlotBar*> bars;
    for (vtkPlot* plot : plots)
        if (vtkPlotBar* bar = vtkPlotBar::SafeDownCast(plot); bar && bar->GetVisible())
            bars.push_back(bar);
    return bars;
}

/** The width that lets so many plots of bars share the distance between the first two values. */
float barWidth(vtkPlotBar* first, std::size_t count, float fraction)
{
    if (first->GetUseIndexForXSeries())
        return static_cast<float>(1.0 / static_cast<double>(count) * fraction);
    vtkTable* table = first->GetData()->GetInput();
    vtkDataArray* x = table ? first->GetData()->GetInputArrayToProcess(0, table) : nullptr;
    if (!x || x->GetNumberOfTuples() < 2)
        return kDefaultBarWidth;
    const double distance = std::abs(x->GetTuple1(1) - x->GetTuple1(0));
    return static_cast<float>(distance * fraction) / static_cast<float>(count);
}

/** Leaves a plot alone that has it already: a change makes it build its points anew. */
void setShiftScale(vtkPlot* plot, const vtkRectd& shiftScale)
{
    if (!(plot->GetShiftScale() == shiftScale))
        plot->SetShiftScale(shiftScale);
}

float clamped(float coordinate, int lower, int upper)
{
    const float whole = std::trunc(coordinate);
    if (!(whole >= static_cast<float>(lower))) // so that NaN is outside too
        return static_cast<float>(lower);
    return whole > static_cast<float>(upper) ? static_cast<float>(upper) : coordinate;
}

void setEnds(vtkAxis* axis, float x1, float y1, float x2, float y2)
{
    axis->SetPoint1(x1, y1);
    axis->SetPoint2(x2, y2);
}

float centered(int lower, int upper, float size)
{
    return static_cast<float>((upper - lower) * 0.5 - static_cast<double>(size) * 0.5 + lower);
}

} // namespace

void ChartXY::Update()
{
    MarkInputsModified();
    ChartPrivate->roster.pointsChanged();
    for (vtkPlot* plot : ChartPrivate->plots)
        plot->Update();
    Legend->Update();
    UpdateSelectionFromLink();
    for (vtkPlot* plot : ChartPrivate->plots)
        DropMissingRows(plot);
    UpdateBars();
    if (AutoAxes)
        UpdateAxisVisibility();
}

void ChartXY::UpdateBars()
{
    const std::vector<vtkPlotBar*> bars = visibleBars(ChartPrivate->plots);
    if (bars.empty())
        return;
    const float width = barWidth(bars.front(), bars.size(), BarWidthFraction);
    int halfWidths = static_cast<int>(bars.size()) - 1;
    for (vtkPlotBar* bar : bars) {
        bar->SetWidth(width);
        bar->SetOffset(static_cast<float>(halfWidths) * (width * 0.5F));
        halfWidths -= 2;
    }
}

void ChartXY::UpdateAxisVisibility()
{
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    const std::vector<vtkContextTransform*>& corners = ChartPrivate->plotCorners;
    bool shown[4] = {false, false, false, false};
    for (std::size_t i = 0; i < corners.size(); ++i)
        if (hasVisiblePlot(corners[i]))
            shown[i % 4] = shown[(i + 1) % 4] = true; // the corner's two axes
    for (std::size_t axis = 0; axis < axes.size(); ++axis)
        axes[axis]->SetVisible(shown[axis]);
}

void ChartXY::RecalculatePlotBounds()
{
    AxisBounds bounds[4];
    for (vtkPlot* plot : ChartPrivate->plots) {
        if (!plot->GetVisible())
            continue;
        // Plots without points leave it as it is, or only widen it.
        double box[4] = {DBL_MAX, -DBL_MAX, DBL_MAX, -DBL_MAX};
        plot->GetBounds(box);
        const int corner = GetPlotCorner(plot);
        if (box[1] - box[0] < 0 || corner > 3)
            continue;
        for (const int side : {corner, (corner + 1) % 4}) { // the corner's two axes
            const auto axis = static_cast<std::size_t>(side);
            const double* range = isVertical(axis) ? box + 2 : box;
            bounds[axis].widen(range[0], range[1]);
        }
    }
    for (std::size_t i = 0; i < ChartPrivate->axes.size(); ++i) {
        vtkAxis* axis = ChartPrivate->axes[i];
        if (AdjustLowerBoundForLogPlot && axis->GetLogScale())
            bounds[i].liftLowerBound();
        if (ForceAxesToBounds) {
            axis->SetMinimumLimit(bounds[i].minimum);
            axis->SetMaximumLimit(bounds[i].maximum);
        }
        if (axis->GetBehavior() == vtkAxis::AUTO && bounds[i].known) {
            axis->SetRange(bounds[i].minimum, bounds[i].maximum);
            axis->AutoScale();
        }
    }
    Modified();
}

void ChartXY::RecalculatePlotTransforms()
{
    ChartPrivate->roster.forgetAnswers();
    for (std::size_t i = 0; i < ChartPrivate->plotCorners.size(); ++i) {
        vtkContextTransform* corner = ChartPrivate->plotCorners[i];
        if (corner->GetNumberOfItems() == 0)
            continue;
        if (i > 3) { // SetPlotCorner lets none in
            vtkWarningMacro(<< "Error: default case in recalculate plot transforms.");
            continue;
        }
        vtkAxis* x = ChartPrivate->horizontalAxis(i);
        vtkAxis* y = ChartPrivate->verticalAxis(i);
        CalculatePlotTransform(x, y, corner->GetTransform());
        const vtkRectd shiftScale(
            x->GetShift(), y->GetShift(), x->GetScalingFactor(), y->GetScalingFactor());
        for (vtkIdType item = 0; item < corner->GetNumberOfItems(); ++item)
            if (vtkPlot* plot = vtkPlot::SafeDownCast(corner->GetItem(item)))
                setShiftScale(plot, shiftScale);
    }
    PlotTransformValid = true;
}

bool ChartXY::UpdateLayout(vtkContext2D* painter)
{
    const vtkVector2i tileScale = Scene->GetLogicalTileScale();
    const vtkVector2i hiddenBorder(
        tileScale.GetX() * HiddenAxisBorder, tileScale.GetY() * HiddenAxisBorder);
    const bool changed = LayoutStrategy < AXES_TO_RECT && UpdateBorders(painter, hiddenBorder);
    if (DrawAxesAtOrigin)
        PlaceAxesAtOrigin(hiddenBorder);
    else
        PlaceAxesAtEdges(painter);
    SetLegendPosition(Legend->GetBoundingRect(painter));
    return changed;
}

bool ChartXY::UpdateBorders(vtkContext2D* painter, const vtkVector2i& hiddenBorder)
{
    bool changed = false;
    for (std::size_t side = 0; side < ChartPrivate->axes.size(); ++side) {
        vtkAxis* axis = ChartPrivate->axes[side];
        axis->Update();
        int border = 0;
        if (axis->GetVisible()) {
            const vtkRectf bounds = axis->GetBoundingRect(painter);
            border = static_cast<int>(isVertical(side) ? bounds.GetWidth() : bounds.GetHeight());
        }
        border += GetLegendBorder(painter, static_cast<int>(side));
        if (side == vtkAxis::TOP)
            border = WithTitle(painter, border);
        border = std::max(border, isVertical(side) ? hiddenBorder.GetX() : hiddenBorder.GetY());
        changed = changed || ChartPrivate->borders[side] != border;
        ChartPrivate->borders[side] = border;
    }
    return changed;
}

int ChartXY::WithTitle(vtkContext2D* painter, int topBorder)
{
    float bounds[4] = {0, 0, 0, 0};
    painter->ApplyTextProp(TitleProperties);
    painter->ComputeStringBounds(Title, bounds);
    const float height = bounds[3];
    if (!(height > 0))
        return topBorder;
    const int margin = Scene->GetLogicalTileScale().GetY() * kTitleMargin;
    return static_cast<int>(static_cast<float>(margin) + height + static_cast<float>(topBorder));
}

void ChartXY::PlaceAxesAtOrigin(const vtkVector2i& hiddenBorder)
{
    const int* borders = ChartPrivate->borders;
    SetBorders(
        hiddenBorder.GetX(), hiddenBorder.GetY(), borders[vtkAxis::RIGHT], borders[vtkAxis::TOP]);
    float origin[2] = {0, 0};
    ChartPrivate->plotCorners.front()->GetTransform()->TransformPoints(origin, origin, 1);
    const float x = clamped(origin[0], Point1[0], Point2[0]);
    const float y = clamped(origin[1], Point1[1], Point2[1]);
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    setEnds(
        axes[vtkAxis::BOTTOM], static_cast<float>(Point1[0]), y, static_cast<float>(Point2[0]), y);
    setEnds(
        axes[vtkAxis::LEFT], x, static_cast<float>(Point1[1]), x, static_cast<float>(Point2[1]));
}

void ChartXY::PlaceAxesAtEdges(vtkContext2D* painter)
{
    const std::vector<vtkAxis*>& axes = ChartPrivate->axes;
    const int* borders = ChartPrivate->borders;
    if (LayoutStrategy == AXES_TO_RECT) {
        SetBorders(0, 0, 0, 0);
        for (vtkAxis* axis : axes)
            axis->GetBoundingRect(painter); // settles where the axis puts its title
    } else {
        SetBorders(borders[0], borders[1], borders[2], borders[3]);
    }
    const auto left = static_cast<float>(Point1[0]);
    const auto bottom = static_cast<float>(Point1[1]);
    const auto right = static_cast<float>(Point2[0]);
    const auto top = static_cast<float>(Point2[1]);
    setEnds(axes[vtkAxis::LEFT], left, bottom, left, top);
    setEnds(axes[vtkAxis::BOTTOM], left, bottom, right, bottom);
    setEnds(axes[vtkAxis::RIGHT], right, bottom, right, top);
    setEnds(axes[vtkAxis::TOP], left, top, right, top);
    for (vtkAxis* axis : axes)
        axis->Update();
}

int ChartXY::GetLegendBorder(vtkContext2D* painter, int axisPosition)
{
    if (!Legend->GetVisible() || Legend->GetInline())
        return 0;
    const int horizontal = Legend->GetHorizontalAlignment();
    const int vertical = Legend->GetVerticalAlignment();
    const bool beside = horizontal == vtkChartLegend::LEFT || horizontal == vtkChartLegend::RIGHT;
    const bool takesWidth = (axisPosition == vtkAxis::LEFT && horizontal == vtkChartLegend::LEFT)
        || (axisPosition == vtkAxis::RIGHT && horizontal == vtkChartLegend::RIGHT);
    const bool takesHeight = !beside
        && ((axisPosition == vtkAxis::TOP && vertical == vtkChartLegend::TOP)
            || (axisPosition == vtkAxis::BOTTOM && vertical == vtkChartLegend::BOTTOM));
    if (!takesWidth && !takesHeight)
        return 0;

    Legend->Update(); // measures anew, so only for the one side that pays
    const vtkRectf rect = Legend->GetBoundingRect(painter);
    const vtkVector2i tileScale = Scene->GetLogicalTileScale();
    return takesWidth ? static_cast<int>(rect.GetWidth()) + kLegendMargin * tileScale.GetX()
                      : static_cast<int>(rect.GetHeight()) + kLegendMargin * tileScale.GetY();
}

void ChartXY::SetLegendPosition(const vtkRectf& rect)
{
    if (Legend->GetHorizontalAlignment() == vtkChartLegend::CUSTOM
        || Legend->GetVerticalAlignment() == vtkChartLegend::CUSTOM)
        return;
    const vtkVector2f point
        = Legend->GetInline() ? InlineLegendPoint(rect) : OutsideLegendPoint(rect);
    // Setting the same point again would make the legend measure all its labels anew.
    if (!(point == Legend->GetPointVector()))
        Legend->SetPoint(point);
}

vtkVector2f ChartXY::InlineLegendPoint(const vtkRectf& rect)
{
    vtkVector2f point(
        static_cast<float>(Point2[0]) - rect.GetWidth(), static_cast<float>(Point1[1]));
    switch (Legend->GetHorizontalAlignment()) {
    case vtkChartLegend::LEFT:
        point.SetX(static_cast<float>(Point1[0]));
        break;
    case vtkChartLegend::CENTER:
        point.SetX(centered(Point1[0], Point2[0], rect.GetWidth()));
        break;
    default:
        break;
    }
    switch (Legend->GetVerticalAlignment()) {
    case vtkChartLegend::TOP:
        point.SetY(static_cast<float>(Point2[1]) - rect.GetHeight());
        break;
    case vtkChartLegend::CENTER:
        point.SetY(centered(Point1[1], Point2[1], rect.GetHeight()));
        break;
    default:
        break;
    }
    return point;
}

vtkVector2f ChartXY::OutsideLegendPoint(const vtkRectf& rect)
{
    const int* borders = ChartPrivate->borders;
    const auto left = static_cast<float>(Point1[0]);
    const auto bottom = static_cast<float>(Point1[1]);
    const auto right = static_cast<float>(Point2[0]);
    const auto top = static_cast<float>(Point2[1]);
    const auto border = [borders](int side) { return static_cast<float>(borders[side]); };
    const int vertical = Legend->GetVerticalAlignment();
    vtkVector2f point(0, 0); // what no alignment decides stays 0
    bool centeredAcross = false;
    switch (Legend->GetHorizontalAlignment()) {
    case vtkChartLegend::LEFT:
        point.SetX(left - border(vtkAxis::LEFT) + kLegendPadding);
        break;
    case vtkChartLegend::RIGHT:
        point.SetX(right + border(vtkAxis::RIGHT) - rect.GetWidth() - kLegendPadding);
        break;
    case vtkChartLegend::CENTER:
        point.SetX(centered(Point1[0], Point2[0], rect.GetWidth()));
        centeredAcross = true;
        break;
    default:
        break;
    }
    // Over or under the chart when centred, else beside it and level with its edges.
    switch (vertical) {
    case vtkChartLegend::TOP:
        point.SetY(centeredAcross ? top + border(vtkAxis::TOP) - rect.GetHeight() - kLegendPadding
                                  : top - rect.GetHeight());
        break;
    case vtkChartLegend::BOTTOM:
        point.SetY(centeredAcross ? bottom - border(vtkAxis::BOTTOM) + kLegendPadding : bottom);
        break;
    case vtkChartLegend::CENTER:
        point.SetY(centered(Point1[1], Point2[1], rect.GetHeight()));
        break;
    default:
        break;
    }
    return point;
}

} // namespace ovl
