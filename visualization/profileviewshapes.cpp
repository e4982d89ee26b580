// SPDX-License-Identifier: BSD-3-Clause
// The shapes laid over the curves.
#include "line.h"
#include "profileview.h"
#include "profileview_p.h"
#include "tablemapper.h"
#include "vtkcompat.h"

#include <vtkPen.h>
#include <vtkPlot.h>
#include <vtkPlotLine.h>
#include <vtkPlotPoints.h>

#include <QColor>
#include <QString>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace ovl {
namespace {

constexpr float kLineMarkerSize = 1.0F;

void setName(vtkAbstractArray* column, const QString& name)
{
    column->SetName(name.toLatin1().constData());
}

/** Lines are drawn in one of the framework's patterns; an unknown one is solid. */
int penLineType(LineType type)
{
    switch (type) {
    case Dash:
        return vtkPen::DASH_LINE;
    case Dot:
        return vtkPen::DOT_LINE;
    case DashDot:
        return vtkPen::DASH_DOT_LINE;
    case DashDotDot:
        return vtkPen::DASH_DOT_DOT_LINE;
    default:
        return vtkPen::SOLID_LINE;
    }
}

Plot* plotPart(vtkPlot* plot) { return dynamic_cast<Plot*>(plot); }

bool hasTitle(const Shape& shape, const QString& title)
{
    return QString::compare(shape.title(), title, Qt::CaseSensitive) == 0;
}

template <class T> void eraseAt(std::vector<T>& all, std::size_t index)
{
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(index));
}

} // namespace

void ProfileView::Private::PointTable::setRows(int count)
{
    x->SetNumberOfTuples(count);
    y->SetNumberOfTuples(count);
}

void ProfileView::Private::PointTable::setRow(int row, const Point& point)
{
    x->SetValue(row, point.x());
    y->SetValue(row, point.y());
}

// A mapper with its columns costs as much as the rest of a plot, so it is handed on from the plot
// that goes to the one that comes. On the way it is not counted up and down: the framework looks
// for lost cycles in a mapper whenever one of several hands lets it go.
void ProfileView::Private::PointTable::keepMapper()
{
    constexpr int chartAndCorner = 2; // whoever else holds the plot may ask it for its data
    if (plot && plot->GetReferenceCount() == chartAndCorner)
        compat::handOver(compat::PlotMapperAccess::mapper(plot), mapper);
    plot = nullptr;
}

bool ProfileView::Private::PointTable::isOurs() const
{
    const bool mapperIsOurs = !mapper || mapper->GetReferenceCount() == 1;
    const int holders = mapper ? 2 : 1;
    return mapperIsOurs && table->GetReferenceCount() == holders && x->GetReferenceCount() == 2
        && y->GetReferenceCount() == 2 && table->GetNumberOfColumns() == 2
        && table->GetColumn(0) == x && table->GetColumn(1) == y;
}

void ProfileView::Private::PointTable::build()
{
    if (table->GetNumberOfColumns() == 0) {
        table->AddColumn(x);
        table->AddColumn(y);
    }
    // Of columns handed on, whoever remembers ranges or times learns that they are new.
    x->Modified();
    y->Modified();
    table->Modified();
}

bool ProfileView::Private::PointTable::isFed() const
{
    return mapper && mapper->GetMTime() == fedAt && xName == x->GetName() && yName == y->GetName();
}

void ProfileView::Private::PointTable::feed(vtkPlot* newPlot)
{
    if (!isFed()) {
        const auto fresh = vtkSmartPointer<TableMapper>::New();
        fresh->SetInputData(table);
        fresh->setColumns(x->GetName(), y->GetName());
        mapper = fresh;
        fedAt = mapper->GetMTime();
        xName = x->GetName();
        yName = y->GetName();
    }
    compat::handOver(mapper, compat::PlotMapperAccess::mapper(newPlot));
    plot = newPlot;
}

void ProfileView::Private::ShapeTables::take(const Shape& shape)
{
    // A name ends at a null, so that one within the title would make all names the same: and of two
    // columns of one name a table keeps the second.
    const QString title = shape.title().left(shape.title().indexOf(QChar::Null));
    setName(lines.x, title + "_x");
    setName(lines.y, title);
    setName(handles.x, title + "_handle_x");
    setName(handles.y, title + "_handle_y");
    fill(shape);
    lines.build();
    handles.build();
}

void ProfileView::Private::ShapeTables::fill(const Shape& shape)
{
    const int lineCount = shape.numberOfLines();
    const int handleCount = shape.numberOfHandles();
    lines.setRows(2 * lineCount);
    handles.setRows(handleCount);
    for (int i = 0; i < lineCount; ++i) {
        Line* line = shape.line(i);
        lines.setRow(2 * i, *line->p1());
        lines.setRow(2 * i + 1, *line->p2());
    }
    for (int i = 0; i < handleCount; ++i)
        handles.setRow(i, *shape.handle(i));
}

bool ProfileView::Private::hasShape([[maybe_unused]] const char* operation, std::size_t index) const
{
    const bool usable = isUsable(shapes[index]);
    OVL_PRECONDITION(operation, usable, index);
    return usable;
}

template <class Predicate>
std::size_t ProfileView::Private::find(const char* operation, Predicate matches) const
{
    for (std::size_t i = 0; i < shapes.size(); ++i)
        if (hasShape(operation, i) && matches(shapes[i]))
            return i;
    return shapes.size();
}

std::size_t ProfileView::Private::find(const char* operation, int identifier) const
{
    return find(operation, [=](const Shape& shape) { return shape.identifier() == identifier; });
}

std::size_t ProfileView::Private::find(const char* operation, const QString& title) const
{
    return find(operation, [&](const Shape& shape) { return hasTitle(shape, title); });
}

Shape* ProfileView::Private::shapeAt(std::size_t index)
{
    return index < shapes.size() ? &shapes[index] : nullptr;
}

/** Where the chart's plots keep the shapes that they were drawn for. */
template <class Visit> void ProfileView::Private::forEachShapePart(Visit visit)
{
    for (const std::vector<vtkPlot*>* drawn : {&shapePlots, &handlePlots})
        for (vtkPlot* plot : *drawn)
            if (Plot* part = plotPart(plot); part && part->shape)
                visit(*part);
}

/** Without a call of drawShapes() after it, an event of the mouse still finds the shapes. */
void ProfileView::Private::append(Shape shape)
{
    if (shapes.size() == shapes.capacity()) {
        std::vector<Shape> roomier;
        roomier.reserve(2 * shapes.size() + 1);
        std::move(shapes.begin(), shapes.end(), std::back_inserter(roomier));
        forEachShapePart([&](Plot& part) {
            part.shape = &roomier[static_cast<std::size_t>(part.shape - shapes.data())];
        });
        shapes.swap(roomier);
    }
    shapes.push_back(std::move(shape));
}

/**
 * The same, where the last place goes: plots that were drawn for it draw no shape any more, nor do
 * those of a place that a removal has left unusable.
 */
void ProfileView::Private::eraseShape(std::size_t index)
{
    eraseAt(shapes, index);
    const Shape* end = shapes.data() + shapes.size();
    forEachShapePart([end](Plot& part) {
        if (part.shape == end || !isUsable(*part.shape))
            part.shape = nullptr;
    });
}

void ProfileView::Private::update(std::size_t index, const Shape& shape)
{
    if (index >= shapes.size())
        return;
    ShapeTables& tables = shapeTables[index];
    for (const PointTable* points : {&tables.lines, &tables.handles}) {
        points->x->Initialize();
        points->y->Initialize();
    }
    tables.fill(shape);
    shapes[index] = shape;
    // The plots look at the tables' time only, and would go on drawing what they have.
    tables.lines.table->Modified();
    tables.handles.table->Modified();
}

/** Of a shape that was cleared, if there is one: tables and mappers cost as much as the plots. */
ProfileView::Private::ShapeTables ProfileView::Private::nextTables()
{
    while (!idleTables.empty()) {
        ShapeTables tables = std::move(idleTables.back());
        idleTables.pop_back();
        if (tables.lines.isOurs() && tables.handles.isOurs())
            return tables;
    }
    return {};
}

void ProfileView::addShape(const Shape& shape)
{
    d->shapeTables.push_back(d->nextTables());
    d->shapeTables.back().take(shape);
    d->append(shape);
}

void ProfileView::updateShape(const Shape& shape) { updateShape(shape.identifier(), shape); }

void ProfileView::updateShape(int identifier, const Shape& shape)
{
    d->update(d->find("ProfileView::updateShape", identifier), shape);
}

void ProfileView::updateShape(const QString& title, const Shape& shape)
{
    d->update(d->find("ProfileView::updateShape", title), shape);
}

void ProfileView::removeShape(int identifier)
{
    const std::size_t index = d->find("ProfileView::removeShape", identifier);
    if (index == d->shapes.size())
        return;
    d->eraseShape(index);
    eraseAt(d->shapeTables, index);
}

// Not the mirror of the removal by identifier: the shapes close up, but the tables lose the entry
// where the shapes ended up one short. Hosts know it so; it is exact for the last shape.
void ProfileView::removeShape(const QString& title)
{
    std::size_t index = 0;
    const auto matches = [&](const Shape& shape) {
        return d->hasShape("ProfileView::removeShape", index++) && hasTitle(shape, title);
    };
    const auto kept = std::remove_if(d->shapes.begin(), d->shapes.end(), matches);
    if (kept == d->shapes.end())
        return;
    const auto gone = static_cast<std::size_t>(kept - d->shapes.begin());
    d->eraseShape(gone);
    eraseAt(d->shapeTables, gone);
}

void ProfileView::clearShape()
{
    d->keepMappers();
    d->removeShapePlots();
    d->idleTables.swap(d->shapeTables);
    std::reverse(d->idleTables.begin(), d->idleTables.end()); // taken from the end
    d->shapeTables.clear();
    d->shapes.clear();
}

Shape* ProfileView::shape(const QString& title)
{
    return d->shapeAt(d->find("ProfileView::shape", title));
}

Shape* ProfileView::shape(int identifier)
{
    return d->shapeAt(d->find("ProfileView::shape", identifier));
}

void ProfileView::Private::keepMappers()
{
    for (ShapeTables& tables : shapeTables)
        for (PointTable* points : {&tables.lines, &tables.handles})
            points->keepMapper();
}

void ProfileView::Private::removeShapePlots()
{
    std::vector<vtkPlot*> all = shapePlots;
    all.insert(all.end(), handlePlots.begin(), handlePlots.end());
    chart->RemovePlots(all);
    shapePlots.clear();
    handlePlots.clear();
}

Plot* ProfileView::Private::dress(
    vtkPlot* plot, std::size_t index, PointTable& points, const QColor& color)
{
    Shape& shape = shapes[index];
    points.feed(plot);
    plot->SetInteractive(shape.interactive());
    plot->SetVisible(shape.visible());
    plot->SetColor(color.redF(), color.greenF(), color.blueF());
    Plot* part = plotPart(plot);
    part->shape = &shape;
    part->canDragX = shape.canDragAlongX();
    part->canDragY = shape.canDragAlongY();
    return part;
}

vtkPlot* ProfileView::Private::addHandlePlot(std::size_t index)
{
    const Shape& shape = shapes[index];
    PointTable& points = shapeTables[index].handles;
    setName(points.y, shape.title() + "_handle"); // before the plot asks for it
    vtkPlot* plot = chart->AddPlot(vtkChart::POINTS);
    Plot* part = dress(plot, index, points, shape.handleColor());
    part->isHandle = true;
    part->tooltipVisible = shape.handleTooltipVisibility();
    plot->SetLegendVisibility(false);
    auto* markers = static_cast<vtkPlotPoints*>(plot);
    markers->SetMarkerStyle(vtkPlotPoints::SQUARE);
    markers->SetMarkerSize(static_cast<float>(shape.handleSize()));
    return plot;
}

vtkPlot* ProfileView::Private::addLinePlot(std::size_t index)
{
    const Shape& shape = shapes[index];
    PointTable& points = shapeTables[index].lines;
    setName(points.y, shape.title());
    vtkPlot* plot = chart->AddPlot(vtkChart::LINE);
    Plot* part = dress(plot, index, points, shape.color());
    part->isHandle = false;
    part->tooltipVisible = shape.tooltipsVisibility();
    plot->SetLegendVisibility(shape.legendVisiblity());
    plot->SetTooltipLabelFormat(shape.format().toStdString());
    plot->GetPen()->SetLineType(penLineType(shape.lineType()));
    auto* line = static_cast<vtkPlotLine*>(plot);
    line->SetPolyLine(false); // every two rows are a line of their own
    line->SetMarkerStyle(vtkPlotPoints::NONE);
    line->SetMarkerSize(kLineMarkerSize);
    return plot;
}

void ProfileView::Private::drawShape(std::size_t index)
{
    const Shape& shape = shapes[index];
    if (!shape.hasPlot())
        return;
    vtkPlot* handles = shape.handleVisible() ? addHandlePlot(index) : nullptr;
    vtkPlot* lines = shape.numberOfLines() > 0 ? addLinePlot(index) : nullptr;
    handlePlots.push_back(handles);
    shapePlots.push_back(lines);
    if (handles)
        plotPart(handles)->sibling = lines;
    if (lines)
        plotPart(lines)->sibling = handles;
}

void ProfileView::drawShapes()
{
    d->keepMappers();
    d->removeShapePlots();
    for (std::size_t i = 0; i < d->shapes.size(); ++i)
        if (d->hasShape("ProfileView::drawShapes", i))
            d->drawShape(i);
    d->idleTables.clear();
    d->chart->LowerPlots(d->handlePlots);
    d->chart->LowerPlots(d->shapePlots);
    d->dirty = true;
}

/** A plot drawn before its shape was moved or removed is left as it is, and stops a debug build. */
void ProfileView::Private::showOrHide(vtkPlot* plot)
{
    const Shape* shape = plotPart(plot)->shape;
    const std::less<const Shape*> before;
    const bool isOurs = !shapes.empty() && !before(shape, shapes.data())
        && before(shape, shapes.data() + shapes.size()) && isUsable(*shape);
    OVL_PRECONDITION("ProfileView::redrawShapes", isOurs, shapes.size());
    if (!isOurs)
        return;
    plot->SetVisible(shape->visible());
    plot->Modified();
}

void ProfileView::redrawShapes()
{
    for (std::size_t i = 0; i < d->shapePlots.size(); ++i) {
        vtkPlot* plot = d->shapePlots[i];
        OVL_PRECONDITION("ProfileView::redrawShapes", plot != nullptr, i); // a shape without lines
        if (plot)
            d->showOrHide(plot);
    }
    for (vtkPlot* plot : d->handlePlots)
        if (plot)
            d->showOrHide(plot);
    d->dirty = true;
}

void ProfileView::updateDepthPriority() { }

} // namespace ovl
