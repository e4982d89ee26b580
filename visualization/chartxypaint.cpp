// SPDX-License-Identifier: BSD-3-Clause
#include "chartxy_p.h"

#include <vtkBrush.h>
#include <vtkContext2D.h>
#include <vtkContextScene.h>
#include <vtkNew.h>
#include <vtkPen.h>
#include <vtkPoints2D.h>
#include <vtkTextProperty.h>

#include <algorithm>

namespace ovl {
namespace {

constexpr double kTitleBoxHeight = 10.0; // pixels

void drawRubberBand(vtkContext2D* painter, const vtkRectf& box)
{
    painter->GetBrush()->SetColor(255, 255, 255, 0);
    painter->GetPen()->SetColor(255, 255, 255, 255); // to be seen on a black chart
    painter->GetPen()->SetWidth(1.0F);
    painter->GetPen()->SetLineType(vtkPen::SOLID_LINE);
    painter->DrawRect(box.GetX(), box.GetY(), box.GetWidth(), box.GetHeight());
}

void drawLine(vtkContext2D* painter, const vtkVector2f& from, const vtkVector2f& to)
{
    painter->DrawLine(from.GetX(), from.GetY(), to.GetX(), to.GetY());
}

void drawPolygon(vtkContext2D* painter, const vtkContextPolygon& polygon)
{
    painter->GetBrush()->SetColor(255, 0, 0, 0);
    painter->GetPen()->SetColor(0, 255, 0, 255);
    painter->GetPen()->SetWidth(2.0F);
    painter->GetPen()->SetLineType(vtkPen::SOLID_LINE);
    const vtkIdType count = polygon.GetNumberOfPoints();
    for (vtkIdType i = 1; i < count; ++i)
        drawLine(painter, polygon.GetPoint(i - 1), polygon.GetPoint(i));
    if (count >= 3)
        drawLine(painter, polygon.GetPoint(0), polygon.GetPoint(count - 1));
}

} // namespace

bool ChartXY::Paint(vtkContext2D* painter)
{
    if (!Visible)
        return false;
    const bool resized = LayoutStrategy == FILL_SCENE && FillScene();
    const std::vector<vtkPlot*>& plots = ChartPrivate->plots;
    const bool hasVisiblePlots
        = std::any_of(plots.begin(), plots.end(), [](vtkPlot* plot) { return plot->GetVisible(); });
    if (!hasVisiblePlots && !RenderEmpty)
        return false;

    Update();
    UpdateGeometry(painter, resized);
    for (vtkPlot* plot : plots)
        plot->UpdateCache();
    UpdateClip();
    DrawBackground(painter);
    PaintChildren(painter);
    if (DrawBox)
        drawRubberBand(painter, MouseBox);
    if (DrawSelectionPolygon)
        drawPolygon(painter, SelectionPolygon);
    DrawTitle(painter);
    return true;
}

bool ChartXY::FillScene()
{
    const int width = Scene->GetSceneWidth();
    const int height = Scene->GetSceneHeight();
    const bool resized = width != Geometry[0] || height != Geometry[1];
    SetSize(vtkRectf(0, 0, static_cast<float>(width), static_cast<float>(height)));
    return resized;
}

void ChartXY::UpdateGeometry(vtkContext2D* painter, bool resized)
{
    // A margin that only this first pass changes reaches the transforms through the axis, which is
    // then younger than the chart.
    UpdateLayout(painter);
    bool transformsOutdated = resized || GetMTime() < ChartPrivate->axes[vtkAxis::LEFT]->GetMTime();
    if (!PlotTransformValid) {
        RecalculatePlotBounds();
        transformsOutdated = true;
    }
    if (!UpdateLayout(painter) && !transformsOutdated)
        return;
    RecalculatePlotTransforms();
    // A plot draws from coordinates that it has shifted and scaled in Update(). That was before its
    // shift and scale may have changed: without this, the paint would show it where it was.
    for (vtkPlot* plot : ChartPrivate->plots)
        plot->Update();
}

void ChartXY::UpdateClip()
{
    // A window smaller than the margins has no plot area.
    ChartPrivate->clip->SetClip(static_cast<float>(Point1[0]), static_cast<float>(Point1[1]),
        static_cast<float>(std::max(Point2[0] - Point1[0], 0)),
        static_cast<float>(std::max(Point2[1] - Point1[1], 0)));
}

void ChartXY::DrawBackground(vtkContext2D* painter)
{
    if (!BackgroundBrush)
        return;
    painter->GetPen()->SetLineType(vtkPen::NO_PEN);
    painter->ApplyBrush(BackgroundBrush);
    // The geometry is the whole chart's, so this covers more than the plot area.
    painter->DrawRect(static_cast<float>(Point1[0]), static_cast<float>(Point1[1]),
        static_cast<float>(Geometry[0]), static_cast<float>(Geometry[1]));
}

void ChartXY::DrawTitle(vtkContext2D* painter)
{
    vtkAxis* topAxis = ChartPrivate->axes[vtkAxis::TOP];
    const int offset = topAxis->GetVisible()
        ? static_cast<int>(topAxis->GetBoundingRect(painter).GetHeight())
        : 0;
    const vtkNew<vtkPoints2D> rect;
    rect->InsertNextPoint(Point1[0], Point2[1] + offset);
    rect->InsertNextPoint(Point2[0] - Point1[0], kTitleBoxHeight);
    painter->ApplyTextProp(TitleProperties);
    painter->DrawStringRect(rect, Title);
}

} // namespace ovl
