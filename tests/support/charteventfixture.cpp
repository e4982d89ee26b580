// SPDX-License-Identifier: BSD-3-Clause
#include "charteventfixture.h"

#include <visualization/chartplotdata.h>
#include <visualization/line.h>
#include <visualization/point.h>

#include <vtkAxis.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkPlot.h>
#include <vtkRenderWindow.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkTable.h>
#include <vtkVariant.h>

#include <QString>

#include <cmath>

namespace ovl::test {

vtkStandardNewMacro(OpenChart);

double ShapePlots::lineValue(int column, int row) const
{
    return lines->GetInput()->GetValue(row, column).ToDouble();
}

double ShapePlots::handleValue(int column, int row) const
{
    return handles->GetInput()->GetValue(row, column).ToDouble();
}

ChartEventFixture::ChartEventFixture()
    : ChartFixture({400, 300}, vtkNew<OpenChart>())
    , open(static_cast<OpenChart*>(chart.GetPointer()))
{
    chart->SetInteractive(true);
    chart->SetRenderEmpty(true);
    chart->SetLayoutStrategy(vtkChart::AXES_TO_RECT);
    chart->SetSize(vtkRectf(kLeft, kBottom, kWidth, kHeight));
    fixAxis(vtkAxis::BOTTOM, 0, kWidth);
    fixAxis(vtkAxis::LEFT, 0, kHeight);
    fixAxis(vtkAxis::TOP, 0, kWidth);
    fixAxis(vtkAxis::RIGHT, 0, kHeight);
    callbacks.setDirtyCallback([this](bool value) { dirty += value ? 1 : 0; });
    callbacks.setCursorCallback([this](CursorType type) { cursors.push_back(type); });
    chart->SetCallbacks(&callbacks);
    chart->AddObserver(vtkCommand::InteractionEvent, this, &ChartEventFixture::record);
    chart->AddObserver(vtkCommand::SelectionChangedEvent, this, &ChartEventFixture::record);
}

ChartEventFixture::~ChartEventFixture()
{
    // The plots of a test's shapes may be looked at when the window goes, the shapes no more.
    chart->ClearPlots();
    chart->RemoveAllObservers();
    chart->SetCallbacks(nullptr);
}

void ChartEventFixture::record(vtkObject*, unsigned long id, void* data)
{
    RaisedEvent event {id, data != nullptr, {}, 0, 0, 0, 0, 0};
    if (const auto* point = static_cast<ChartPlotData*>(data)) {
        event.series = point->SeriesName;
        event.x = point->Position.GetX();
        event.y = point->Position.GetY();
        event.screenX = point->ScreenPosition.GetX();
        event.screenY = point->ScreenPosition.GetY();
        event.index = point->Index;
    }
    raised.push_back(event);
}

vtkContextMouseEvent ChartEventFixture::event(double x, double y, int button)
{
    const vtkVector2i screen(
        kLeft + static_cast<int>(std::lround(x)), kBottom + static_cast<int>(std::lround(y)));
    const vtkVector2f position(static_cast<float>(kLeft + x), static_cast<float>(kBottom + y));
    vtkContextMouseEvent mouse;
    mouse.SetInteractor(window()->GetInteractor());
    mouse.SetButton(button);
    mouse.SetPos(position);
    mouse.SetScenePos(position);
    mouse.SetScreenPos(screen);
    mouse.SetLastPos(
        vtkVector2f(static_cast<float>(lastScreen.GetX()), static_cast<float>(lastScreen.GetY())));
    mouse.SetLastScenePos(mouse.GetLastPos());
    mouse.SetLastScreenPos(lastScreen);
    return mouse;
}

bool ChartEventFixture::press(double x, double y, int button)
{
    lastScreen = event(x, y).GetScreenPos(); // a press has come from nowhere
    return chart->MouseButtonPressEvent(event(x, y, button));
}

bool ChartEventFixture::move(double x, double y, int button)
{
    const vtkContextMouseEvent mouse = event(x, y, button);
    lastScreen = mouse.GetScreenPos();
    return chart->MouseMoveEvent(mouse);
}

bool ChartEventFixture::release(double x, double y, int button)
{
    const vtkContextMouseEvent mouse = event(x, y, button);
    lastScreen = mouse.GetScreenPos();
    return chart->MouseButtonReleaseEvent(mouse);
}

bool ChartEventFixture::wheel(int delta) { return chart->MouseWheelEvent(event(50, 50), delta); }

bool ChartEventFixture::key(char code)
{
    window()->GetInteractor()->SetKeyCode(code);
    vtkContextKeyEvent event;
    event.SetInteractor(window()->GetInteractor());
    return chart->KeyPressEvent(event);
}

void ChartEventFixture::setModifiers(bool shift, bool control, bool alt)
{
    window()->GetInteractor()->SetShiftKey(shift ? 1 : 0);
    window()->GetInteractor()->SetControlKey(control ? 1 : 0);
    window()->GetInteractor()->SetAltKey(alt ? 1 : 0);
}

ShapePlots ChartEventFixture::show(Shape* shape, bool dragX, bool dragY, int corner)
{
    std::vector<double> lineX, lineY, handleX, handleY;
    for (int i = 0; i < shape->numberOfLines(); ++i) {
        for (const Point* end : {shape->line(i)->p1(), shape->line(i)->p2()}) {
            lineX.push_back(end->x());
            lineY.push_back(end->y());
        }
    }
    for (int i = 0; i < shape->numberOfHandles(); ++i) {
        handleX.push_back(shape->handle(i)->x());
        handleY.push_back(shape->handle(i)->y());
    }
    ShapePlots plots;
    plots.lines = addPlot(vtkChart::LINE, lineX, lineY, corner);
    plots.handles = addPlot(vtkChart::POINTS, handleX, handleY, corner);
    plots.linesPart = part(plots.lines);
    plots.handlesPart = part(plots.handles);
    plots.linesPart->sibling = plots.handles;
    plots.handlesPart->sibling = plots.lines;
    plots.handlesPart->isHandle = true;
    for (Plot* both : {plots.linesPart, plots.handlesPart}) {
        both->shape = shape;
        both->canDragX = dragX;
        both->canDragY = dragY;
    }
    return plots;
}

void ChartEventFixture::addRectangle(
    Shape& shape, double left, double bottom, double right, double top)
{
    shape.addLine(Point(left, bottom), Point(right, bottom));
    shape.addLine(Point(right, bottom), Point(right, top));
    shape.addLine(Point(right, top), Point(left, top));
    shape.addLine(Point(left, top), Point(left, bottom));
}

void ChartEventFixture::moveAlong(Shape& shape)
{
    const auto moveBy = [&shape](double dx, double dy) {
        const Point step(dx, dy);
        for (int i = 0; i < shape.numberOfLines(); ++i) {
            *shape.line(i)->p1() += step;
            *shape.line(i)->p2() += step;
        }
        for (int i = 0; i < shape.numberOfHandles(); ++i)
            *shape.handle(i) += step;
    };
    shape.setXTranslationCallback([moveBy](double dx) { moveBy(dx, 0); });
    shape.setYTranslationCallback([moveBy](double dy) { moveBy(0, dy); });
}

double ChartEventFixture::minimum(int axis) { return chart->GetAxis(axis)->GetMinimum(); }

double ChartEventFixture::maximum(int axis) { return chart->GetAxis(axis)->GetMaximum(); }

std::vector<vtkIdType> ChartEventFixture::selected(vtkPlot* plot)
{
    vtkIdTypeArray* rows = plot->GetSelection();
    if (!rows)
        return {-1};
    return {rows->GetPointer(0), rows->GetPointer(rows->GetNumberOfTuples())};
}

void ChartEventFixture::select(vtkPlot* plot, const std::vector<vtkIdType>& rows)
{
    const vtkNew<vtkIdTypeArray> array;
    for (const vtkIdType row : rows)
        array->InsertNextValue(row);
    plot->SetSelection(array);
}

Plot* ChartEventFixture::part(vtkPlot* plot) { return dynamic_cast<Plot*>(plot); }

std::string ChartEventFixture::tooltip() { return chart->GetTooltip()->GetText(); }

bool ChartEventFixture::tooltipShown() { return chart->GetTooltip()->GetVisible(); }

} // namespace ovl::test
