// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_CHARTEVENTFIXTURE_H
#define OVL_TESTS_SUPPORT_CHARTEVENTFIXTURE_H

#include "chartfixture.h"
#include <visualization/plot.h>
#include <visualization/shape.h>

#include <vtkCommand.h>
#include <vtkContextKeyEvent.h>
#include <vtkContextMouseEvent.h>
#include <vtkTooltipItem.h>

#include <deque>
#include <string>
#include <vector>

class vtkIdTypeArray;

namespace ovl::test {

/** A chart that lets a test call its steps and look at its state. */
class OpenChart : public ChartXY {
public:
    static OpenChart* New();

    using ChartXY::BuildTooltipLabel;
    using ChartXY::HitHandlePlot;
    using ChartXY::HitInteractivePlot;
    using ChartXY::HoverDraggableShape;
    using ChartXY::LocatePointInPlots;
    using ChartXY::PickShapeForDrag;
    using ChartXY::PressShapes;
    using ChartXY::ShapeTooltip;

    using ChartXY::Actions;
    using ChartXY::ActionsClick;
    using ChartXY::DrawBox;
    using ChartXY::DrawNearestPoint;
    using ChartXY::DrawSelectionPolygon;
    using ChartXY::LastScenePos;
    using ChartXY::MouseBox;
    using ChartXY::MouseDown;
    using ChartXY::PlotTransformValid;
    using ChartXY::SelectionPolygon;
    using ChartXY::TooltipDefaultLabelFormat;
};

/** The plots that show one shape, as a view makes them. */
struct ShapePlots {
    vtkPlot* lines = nullptr;
    vtkPlot* handles = nullptr;
    Plot* linesPart = nullptr;
    Plot* handlesPart = nullptr;

    double lineValue(int column, int row) const;
    double handleValue(int column, int row) const;
};

/** An event that the chart has raised. */
struct RaisedEvent {
    unsigned long id;
    bool hasData;
    std::string series;
    float x, y;
    int screenX, screenY;
    int index;
};

/**
 * A chart whose plot area is 200 x 150 pixels, from (100, 50) to (300, 200) on the screen, with
 * axes from 0 to 200 and 0 to 150: one unit is one pixel. The chart gets events made up by the
 * test; the positions of these are given in those units.
 */
class ChartEventFixture : public ChartFixture {
public:
    ChartEventFixture();
    ~ChartEventFixture() override;

    static constexpr int kLeft = 100;
    static constexpr int kBottom = 50;
    static constexpr int kWidth = 200;
    static constexpr int kHeight = 150;

    /** An event at a place, in units of corner 0, that came there from the one before. */
    vtkContextMouseEvent event(double x, double y, int button = 0);
    // One event, as the scene would send it.
    bool press(double x, double y, int button = vtkContextMouseEvent::LEFT_BUTTON);
    bool move(double x, double y, int button = 0);
    bool release(double x, double y, int button = vtkContextMouseEvent::LEFT_BUTTON);
    bool wheel(int delta);
    bool key(char code);
    void setModifiers(bool shift, bool control, bool alt = false);

    /** Shows a shape that the test owns. */
    ShapePlots show(Shape* shape, bool dragX = true, bool dragY = true, int corner = 0);
    /** The four lines of a rectangle. */
    static void addRectangle(Shape& shape, double left, double bottom, double right, double top);
    /** Makes the shape follow the mouse as a whole. */
    static void moveAlong(Shape& shape);

    double minimum(int axis);
    double maximum(int axis);
    /** The rows that a plot has selected; -1 when it has no selection at all. */
    static std::vector<vtkIdType> selected(vtkPlot* plot);
    static void select(vtkPlot* plot, const std::vector<vtkIdType>& rows);
    static Plot* part(vtkPlot* plot);
    std::string tooltip();
    bool tooltipShown();

    OpenChart* open;
    ChartCallbacks callbacks;
    int dirty = 0;
    std::vector<CursorType> cursors;
    std::vector<RaisedEvent> raised;

private:
    void send(double x, double y);
    void record(vtkObject*, unsigned long id, void* data);

    vtkVector2i lastScreen {0, 0};
};

} // namespace ovl::test

#endif
