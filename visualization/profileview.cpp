// SPDX-License-Identifier: BSD-3-Clause
#include "profileview.h"

#include "profileview_p.h"
#include "viewframe.h"
#include "vtkcompat.h"

#include <QVTKInteractor.h>
#include <vtkAxis.h>
#include <vtkBrush.h>
#include <vtkChartLegend.h>
#include <vtkContextScene.h>
#include <vtkMath.h>
#include <vtkNew.h>
#include <vtkPen.h>
#include <vtkPlot.h>
#include <vtkPlotPoints.h>
#include <vtkTextProperty.h>

#include <QColor>
#include <QCursor>
#include <QOpenGLWidget>
#include <QString>

#include <algorithm>

namespace ovl {
namespace {

constexpr float kMarkerSize = 2.0F; // pixels
constexpr unsigned char kGridGrey = 30;

void paintWhite(vtkTextProperty* text) { text->SetColor(1.0, 1.0, 1.0); }

} // namespace

ProfileView::Private::Private(QOpenGLWidget* hostWidget, int columnCount)
    : widget(hostWidget)
    , numberOfCols(columnCount)
{
    attach();
    chart->SetShowLegend(true);
    chart->SetInteractive(true);
    buildPlots(columnCount);
    dressChart();
    contextView->GetScene()->AddItem(chart);
    connectCallbacks();
}

ProfileView::Private::~Private() { detach(); }

void ProfileView::Private::detach()
{
    if (detached)
        return;
    // The style stays on the interactor: it holds its scene weakly, and may have a timer running.
    detachRenderer(renderWindow, contextView->GetRenderer());
    dirty = true;
    detached = true;
}

void ProfileView::Private::attach()
{
    renderWindow = compat::renderWindow(compat::hostWidget(widget));
    contextView->SetRenderWindow(renderWindow);
    contextView->GetRenderer()->SetBackground(0.0, 0.0, 0.0);
    const vtkNew<QVTKInteractor> interactor;
    contextView->SetInteractor(interactor);
    contextView->GetInteractor()->RemoveObservers("CharEvent"); // no key acts on the scene
    renderWindow->AddRenderer(contextView->GetRenderer());
}

/** Right on a new view only: nothing is taken off table and chart. */
void ProfileView::Private::buildPlots(int count)
{
    OVL_PRECONDITION("ProfileView::ProfileView", count > 0, count);
    columns.clear();
    cells.clear();
    plots.clear();
    numberOfCols = count;
    for (int i = 0; i < count; ++i) {
        const auto column = Column::New();
        columns.push_back(column);
        cells.push_back(nullptr);
        // Named before it is added: a column of the same name would be replaced.
        column->SetName(QString("plot%1").arg(i).toLatin1().constData());
        table->AddColumn(column);
        vtkPlot* plot = chart->AddPlot(vtkChart::POINTS);
        plot->SetVisible(true);
        if (auto* points = vtkPlotPoints::SafeDownCast(plot)) {
            points->SetMarkerStyle(vtkPlotPoints::SQUARE);
            points->SetMarkerSize(kMarkerSize);
        }
        plots.push_back(plot);
    }
    if (!plots.empty())
        plots.front()->SetVisible(false); // the x column against itself
}

void ProfileView::Private::dressChart()
{
    chart->SetTitle("Chart");
    paintWhite(chart->GetTitleProperties());
    paintWhite(chart->GetLegend()->GetLabelProperties());
    chart->GetLegend()->GetBrush()->SetOpacity(0);
    dressAxis(vtkAxis::BOTTOM, "Bottom");
    dressAxis(vtkAxis::TOP, "Top");
    dressAxis(vtkAxis::LEFT, "Left");
    dressAxis(vtkAxis::RIGHT, "Right");
    chart->GetAxis(vtkAxis::RIGHT)->GetGridPen()->SetOpacityF(0.0); // it alone draws no grid
    for (const int axis : {vtkAxis::BOTTOM, vtkAxis::TOP, vtkAxis::LEFT, vtkAxis::RIGHT})
        chart->GetAxis(axis)->SetBehavior(vtkAxis::FIXED);
}

void ProfileView::Private::dressAxis(int index, const char* title)
{
    vtkAxis* axis = chart->GetAxis(index);
    axis->SetTitle(title);
    paintWhite(axis->GetTitleProperties());
    paintWhite(axis->GetLabelProperties());
    axis->GetGridPen()->SetColor(kGridGrey, kGridGrey, kGridGrey);
}

void ProfileView::Private::connectCallbacks()
{
    callbacks->setDirtyCallback([this](bool value) { dirty = value; });
    callbacks->setCursorCallback([this](CursorType type) { showCursor(type); });
    chart->SetCallbacks(callbacks.get());
}

void ProfileView::Private::showCursor(CursorType type)
{
    if (type == CursorType::Cross)
        widget->setCursor(QCursor(Qt::CrossCursor));
    else if (type == CursorType::Move)
        widget->setCursor(QCursor(Qt::SizeAllCursor));
    else
        widget->unsetCursor();
}

vtkTypeFloat64Array* ProfileView::Private::column(const char* operation, int index) const
{
    const Column* found = elementAt(operation, columns, index);
    return found ? found->GetPointer() : nullptr;
}

vtkPlot* ProfileView::Private::plot(const char* operation, int index) const
{
    vtkPlot* const* found = elementAt(operation, plots, index);
    return found ? *found : nullptr;
}

ProfileView::ProfileView(QOpenGLWidget* widget, int numberOfCols)
    : d(new Private(widget, numberOfCols))
{
}

ProfileView::~ProfileView()
{
    // A host's callback that destroys the view does so under the feet of the chart that calls it,
    // and of itself: all of that lives on until the event is over.
    const bool called = d->chart->IsInMouseEvent();
    OVL_PRECONDITION("ProfileView::~ProfileView", !called, 0);
    std::unique_ptr<Private> all(d);
    all->detach();
    if (called)
        releaseAfterEvent(std::move(all));
}

void ProfileView::setDirty(bool dirty) { d->dirty = dirty; }

bool ProfileView::isDirty() const { return d->dirty; }

int ProfileView::numberOfCols() const { return d->numberOfCols; }

int ProfileView::numberOfValues() const { return d->numberOfValues; }

void ProfileView::setNumberOfValues(int count)
{
    OVL_PRECONDITION("ProfileView::setNumberOfValues", count >= 0, count);
    d->numberOfValues = count;
    for (std::size_t i = 0; i < d->columns.size(); ++i) {
        const Private::Column& column = d->columns[i];
        column->Reset();
        column->SetNumberOfTuples(std::max(count, 0));
        d->cells[i] = column->GetPointer(0);
    }
}

// Straight into the column's memory. The framework's way through the table and a variant ends in
// the same store: it looks for the column, converts the number twice, and neither marks anything
// modified nor tells anyone.
void ProfileView::setValue(int column, int row, double value)
{
    if (double* cell = d->cell(column, row)) {
        *cell = value;
        return;
    }
    const bool noSuchColumn = column < 0 || column >= d->numberOfCols; // answered with nothing
    OVL_PRECONDITION("ProfileView::setValue", noSuchColumn, row);
    static_cast<void>(noSuchColumn);
}

void ProfileView::setNanValue(int column, int row) { setValue(column, row, vtkMath::Nan()); }

double ProfileView::value(int column, int row) const
{
    const double* cell = d->cell(column, row);
    return cell ? *cell : 0.0; // what an invalid variant converts to
}

void ProfileView::drawPlots()
{
    for (std::size_t i = 0; i < d->plots.size(); ++i) {
        d->plots[i]->SetInputData(d->table, 0, static_cast<vtkIdType>(i));
        d->plots[i]->Modified();
    }
    d->dirty = true;
}

QString ProfileView::plotTitle(int column) const
{
    vtkTypeFloat64Array* array = d->column("ProfileView::plotTitle", column);
    return array ? QString(array->GetName()) : QString();
}

void ProfileView::setPlotTitle(int column, const QString& title)
{
    if (vtkTypeFloat64Array* array = d->column("ProfileView::setPlotTitle", column))
        array->SetName(title.toLatin1().constData());
}

QString ProfileView::plotFormat(int column) const
{
    vtkPlot* plot = d->plot("ProfileView::plotFormat", column);
    return plot ? QString(plot->GetTooltipLabelFormat().c_str()) : QString();
}

void ProfileView::setPlotFormat(int column, const QString& format)
{
    if (vtkPlot* plot = d->plot("ProfileView::setPlotFormat", column))
        plot->SetTooltipLabelFormat(format.toStdString());
}

bool ProfileView::plotVisibility(int column) const
{
    vtkPlot* plot = d->plot("ProfileView::plotVisibility", column);
    return plot && plot->GetVisible();
}

void ProfileView::setPlotVisibily(int column, bool visible)
{
    if (vtkPlot* plot = d->plot("ProfileView::setPlotVisibily", column))
        plot->SetVisible(visible);
}

int ProfileView::plotCorner(int column)
{
    vtkPlot* plot = d->plot("ProfileView::plotCorner", column);
    return plot ? d->chart->GetPlotCorner(plot) : 0;
}

void ProfileView::setPlotCorner(int column, int corner)
{
    if (vtkPlot* plot = d->plot("ProfileView::setPlotCorner", column))
        d->chart->SetPlotCorner(plot, corner);
}

// The blue channel alone, 0.0 to 1.0 truncated, taken for all three: this is how the interface has
// always answered, and hosts have come to live with it.
QColor ProfileView::color(int column) const
{
    double rgb[3] = {0.0, 0.0, 0.0};
    if (vtkPlot* plot = d->plot("ProfileView::color", column))
        plot->GetColor(rgb);
    return {static_cast<QRgb>(rgb[2])};
}

void ProfileView::setColor(int column, const QColor& color)
{
    if (vtkPlot* plot = d->plot("ProfileView::setColor", column))
        plot->SetColor(color.redF(), color.greenF(), color.blueF());
}

void ProfileView::xCustomTooltip(std::function<double(int, double)> function)
{
    d->callbacks->setCustomXCallback(std::move(function));
}

void ProfileView::yCustomTooltip(std::function<double(int, double)> function)
{
    d->callbacks->setCustomYCallback(std::move(function));
}

} // namespace ovl
