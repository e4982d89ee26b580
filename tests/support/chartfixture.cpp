// SPDX-License-Identifier: BSD-3-Clause
#include "chartfixture.h"

#include <QVTKInteractor.h>
#include <vtkAxis.h>
#include <vtkContextClip.h>
#include <vtkContextScene.h>
#include <vtkContextTransform.h>
#include <vtkDoubleArray.h>
#include <vtkPlot.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkTransform2D.h>

namespace ovl::test {

vtkSmartPointer<vtkTable> makeTable(const std::vector<std::vector<double>>& columns)
{
    auto table = vtkSmartPointer<vtkTable>::New();
    const char* const names[] = {"x", "y", "y1", "y2", "y3"};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const vtkNew<vtkDoubleArray> column;
        column->SetName(names[i]);
        for (const double value : columns[i])
            column->InsertNextValue(value);
        table->AddColumn(column);
    }
    return table;
}

ChartFixture::ChartFixture(QSize size)
    : ChartFixture(size, vtkSmartPointer<ChartXY>::New())
{
}

ChartFixture::ChartFixture(QSize size, ChartXY* chartToShow)
    : HostFixture(size)
    , chart(chartToShow)
{
    view->SetRenderWindow(window());
    view->GetRenderer()->SetBackground(0, 0, 0);
    const vtkNew<QVTKInteractor> interactor;
    view->SetInteractor(interactor);
    window()->AddRenderer(view->GetRenderer());
    view->GetScene()->AddItem(chart);
}

vtkPlot* ChartFixture::addPlot(
    int type, const std::vector<double>& x, const std::vector<double>& y, int corner)
{
    vtkPlot* plot = chart->AddPlot(type);
    chart->SetPlotCorner(plot, corner);
    plot->SetInputData(makeTable({x, y}), 0, 1);
    return plot;
}

void ChartFixture::fixAxis(int axis, double minimum, double maximum)
{
    chart->GetAxis(axis)->SetBehavior(vtkAxis::FIXED);
    chart->GetAxis(axis)->SetRange(minimum, maximum);
}

vtkContextClip* ChartFixture::clip() { return vtkContextClip::SafeDownCast(chart->GetItem(0)); }

int ChartFixture::cornerCount() { return static_cast<int>(clip()->GetNumberOfItems()) - 2; }

vtkContextTransform* ChartFixture::corner(int index)
{
    // Two grids lie under the corners.
    return vtkContextTransform::SafeDownCast(clip()->GetItem(2 + index));
}

QPointF ChartFixture::position(double x, double y, int cornerIndex)
{
    const double place[2] = {x, y};
    double mapped[2] = {0, 0};
    corner(cornerIndex)->GetTransform()->TransformPoints(place, mapped, 1);
    return fromBottom(mapped[0], mapped[1]);
}

QPointF ChartFixture::fromBottom(double x, double y) { return {x, widget()->height() - 1 - y}; }

} // namespace ovl::test
