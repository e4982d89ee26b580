// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_CHARTXY_H
#define OVL_VISUALIZATION_CHARTXY_H

#include "chartcallbacks.h"

#include <vtkChart.h>
#include <vtkContextPolygon.h>
#include <vtkRect.h>
#include <vtkSmartPointer.h>
#include <vtkVector.h>

#include <string>
#include <vector>

class vtkContextTransform;
class vtkSelection;
class vtkTooltipItem;

namespace ovl {

class Point;
class Range;
struct RosterPlot;

/**
 * A chart of up to four corners, each a pair of a horizontal and a vertical axis with the plots
 * that are drawn against it.
 *
 * | Corner | Horizontal axis | Vertical axis |
 * |--------|-----------------|---------------|
 * | 0      | bottom          | left          |
 * | 1      | bottom          | right         |
 * | 2      | top             | right         |
 * | 3      | top             | left          |
 *
 * The axes are numbered 0 left, 1 bottom, 2 right, 3 top. A plot's corner is told by the two axes
 * set on it; no number is stored. Every plot must also be a Plot; that is not checked.
 *
 * The chart knows nothing of the view that shows it. It asks for repaints, for a mouse cursor and
 * for the numbers of tooltips through its ChartCallbacks, and moves a Shape by telling the shape,
 * whose own callbacks do the moving, and then copying its points into the plots' columns.
 */
class ChartXY : public vtkChart {
public:
    vtkTypeMacro(ChartXY, vtkChart)
    static ChartXY* New();

    ChartXY(const ChartXY&) = delete;
    ChartXY& operator=(const ChartXY&) = delete;

    void PrintSelf(ostream& os, vtkIndent indent) override;

    /** Brings plots, legend, selection, bar widths and the axes' visibility up to date. */
    void Update() override;
    /** Answers whether the chart drew. Calls none of the callbacks. */
    bool Paint(vtkContext2D* painter) override;

    /** Whether a press, a move or a release is being handled, which may call the host. */
    bool IsInMouseEvent() const;

    bool Hit(const vtkContextMouseEvent& mouse) override;
    vtkAbstractContextItem* GetPickedItem(const vtkContextMouseEvent& mouse) override;
    bool MouseEnterEvent(const vtkContextMouseEvent& mouse) override;
    bool MouseMoveEvent(const vtkContextMouseEvent& mouse) override;
    bool MouseLeaveEvent(const vtkContextMouseEvent& mouse) override;
    bool MouseButtonPressEvent(const vtkContextMouseEvent& mouse) override;
    bool MouseButtonReleaseEvent(const vtkContextMouseEvent& mouse) override;
    bool MouseWheelEvent(const vtkContextMouseEvent& mouse, int delta) override;
    bool KeyPressEvent(const vtkContextKeyEvent& key) override;

    /** Adds a plot in corner 0 and answers its index, or -1 for null. Shares its ownership. */
    vtkIdType AddPlot(vtkPlot* plot) override;
    /**
     * Makes a plot of one of the framework's plot types, 0 (line) to 6 (area), in the colour
     * series' next colour. The chart owns it. Null for any other type.
     */
    vtkPlot* AddPlot(int type) override;
    /** False when `index` is not below the number of plots. Not to be negative. */
    bool RemovePlot(vtkIdType index) override;
    void ClearPlots() override;
    /** Null when `index` is not below the number of plots. Not to be negative. */
    vtkPlot* GetPlot(vtkIdType index) override;
    vtkIdType GetNumberOfPlots() override;
    /** Null for 4 and more. Not to be negative. */
    vtkAxis* GetAxis(int axisIndex) override;
    vtkIdType GetNumberOfAxes() override;
    /** The next paint puts the plots' bounds on the axes that scale themselves. */
    void RecalculateBounds() override;
    void SetSelectionMethod(int method) override;
    void SetShowLegend(bool visible) override;
    vtkChartLegend* GetLegend() override;

    /** The plot's place within its corner, from the bottom; -1 without a corner. */
    virtual vtkIdType GetPlotIndex(vtkPlot* plot);
    /** Both answer the plot's new place within its corner, the old one when nothing was done. */
    virtual vtkIdType StackPlotAbove(vtkPlot* plot, vtkPlot* under);
    virtual vtkIdType StackPlotUnder(vtkPlot* plot, vtkPlot* above);

    virtual void SetTooltip(vtkTooltipItem* tooltip);
    virtual vtkTooltipItem* GetTooltip();

    // Setters mark the chart modified when the value differs, and do nothing else: a value takes
    // effect at the next paint, or at the next event that asks for it. The defaults stand with the
    // members.

    /** Left and bottom axes go through the origin of corner 0. */
    vtkSetMacro(DrawAxesAtOrigin, bool);
    vtkGetMacro(DrawAxesAtOrigin, bool);
    vtkBooleanMacro(DrawAxesAtOrigin, bool);

    /** Shows the axes of the corners that hold visible plots, and no others. */
    vtkSetMacro(AutoAxes, bool);
    vtkGetMacro(AutoAxes, bool);
    vtkBooleanMacro(AutoAxes, bool);

    /** The least margin of each side, in pixels of one tile. */
    vtkSetMacro(HiddenAxisBorder, int);
    vtkGetMacro(HiddenAxisBorder, int);

    /** The plots' bounds become the limits of the axes. */
    vtkSetMacro(ForceAxesToBounds, bool);
    vtkGetMacro(ForceAxesToBounds, bool);
    vtkBooleanMacro(ForceAxesToBounds, bool);

    /** The share of the distance between two values that bars fill, all plots together. */
    vtkSetMacro(BarWidthFraction, float);
    vtkGetMacro(BarWidthFraction, float);

    /** The wheel zooms at all; see GetAxisZoomEnabled() for each axis. */
    vtkSetMacro(ZoomWithMouseWheel, bool);
    vtkGetMacro(ZoomWithMouseWheel, bool);
    vtkBooleanMacro(ZoomWithMouseWheel, bool);

    /** Lifts lower bounds that are not positive on axes that ask for a log scale. */
    vtkSetMacro(AdjustLowerBoundForLogPlot, bool);
    vtkGetMacro(AdjustLowerBoundForLogPlot, bool);
    vtkBooleanMacro(AdjustLowerBoundForLogPlot, bool);

    /** Handles and shapes may be dragged along x. */
    vtkSetMacro(DragPointAlongX, bool);
    vtkGetMacro(DragPointAlongX, bool);
    vtkBooleanMacro(DragPointAlongX, bool);

    /** Handles and shapes may be dragged along y. */
    vtkSetMacro(DragPointAlongY, bool);
    vtkGetMacro(DragPointAlongY, bool);
    vtkBooleanMacro(DragPointAlongY, bool);

    /**
     * Which axes the wheel zooms, in the order of the axes. There is no setter: the last one
     * answers the chart's own flags to be written to.
     */
    virtual void GetAxisZoomEnabled(bool enabled[4]);
    virtual void GetAxisZoomEnabled(bool& left, bool& bottom, bool& right, bool& top);
    virtual bool* GetAxisZoomEnabled();

    /** The idle mouse cursor is a cross. */
    vtkSetMacro(CrosshairCursor, bool);
    vtkGetMacro(CrosshairCursor, bool);

    /** Not owned; must live as long as the chart gets events. */
    vtkSetMacro(Callbacks, ChartCallbacks*);
    vtkGetMacro(Callbacks, ChartCallbacks*);

    /** Fills the tooltip for a point at `plotPos`, in data units, and places it by the mouse. */
    virtual void SetTooltipInfo(const vtkContextMouseEvent& mouse, const vtkVector2d& plotPos,
        vtkIdType seriesIndex, vtkPlot* plot, vtkIdType segmentIndex);

    /** Sets margins, axes and legend. Answers whether a margin changed. Needs a scene. */
    virtual bool UpdateLayout(vtkContext2D* painter);
    /** The margin that the legend needs on the side of that axis, in pixels. */
    virtual int GetLegendBorder(vtkContext2D* painter, int axisPosition);
    /** Places a legend of the size of `rect`. */
    virtual void SetLegendPosition(const vtkRectf& rect);

    /** Warns, and does nothing else, when `corner` is not 0 to 3. */
    void SetPlotCorner(vtkPlot* plot, int corner);
    /** 4 for a plot on no known pair of axes. */
    int GetPlotCorner(vtkPlot* plot);
    /** Puts the plot under all others of its corner and answers its new place there. */
    vtkIdType LowerPlot(vtkPlot* plot);
    /** LowerPlot for each in turn, so that the last is lowest, in linear time. Null is passed over.
     */
    void LowerPlots(const std::vector<vtkPlot*>& plots);
    /** RemovePlotInstance for each, in linear time. Null and strangers are passed over. */
    void RemovePlots(const std::vector<vtkPlot*>& plots);

protected:
    ChartXY();
    ~ChartXY() override;

    // Hit tests and tooltips: chartxytooltip.cpp
    bool LocatePointInPlots(const vtkContextMouseEvent& mouse, int invokeEvent);
    bool HitInteractivePlot(const vtkContextMouseEvent& mouse);
    bool HitHandlePlot(const vtkContextMouseEvent& mouse);
    bool HoverDraggableShape(const vtkContextMouseEvent& mouse);
    void PressShapes(const vtkContextMouseEvent& mouse);
    bool PickShapeForDrag(const vtkContextMouseEvent& mouse);
    std::string ShapeTooltip(const vtkContextMouseEvent& mouse);
    /** What a move without a button does. */
    void Hover(const vtkContextMouseEvent& mouse);
    std::string BuildTooltipLabel(
        vtkPlot* plot, const vtkVector2d& plotPos, vtkIdType seriesIndex, vtkIdType segmentIndex);

    vtkSmartPointer<vtkChartLegend> Legend;
    vtkSmartPointer<vtkTooltipItem> Tooltip;
    bool PlotTransformValid = false;
    vtkRectf MouseBox {0, 0, 0, 0}; ///< the rubber band: where it began, and the drag so far
    bool DrawBox = false;
    vtkContextPolygon SelectionPolygon; ///< in scene units
    bool DrawSelectionPolygon = false;
    bool DrawNearestPoint = false; ///< the mouse is inside the chart
    bool DrawAxesAtOrigin = false;
    bool AutoAxes = true;
    int HiddenAxisBorder = 20;
    float BarWidthFraction = 0.8F;
    bool ForceAxesToBounds = false;
    bool ZoomWithMouseWheel = true;
    bool AdjustLowerBoundForLogPlot = false;
    bool DragPointAlongX = true;
    bool DragPointAlongY = true;
    bool AxisZoomEnabled[4] = {true, true, true, true};
    bool CrosshairCursor = false;
    std::string TooltipDefaultLabelFormat = "%l: %x,  %y";
    ChartCallbacks* Callbacks = nullptr;
    bool MouseDown = false; ///< follows the button, decides nothing
    vtkVector2f LastScenePos {0, 0}; ///< of the last press or move

private:
    class Private;

    // Plots and corners: chartxy.cpp
    bool RemovePlotFromCorners(vtkPlot* plot);
    void ForgetSibling(vtkPlot* plot);
    vtkContextTransform* CornerOfPlot(vtkPlot* plot);

    // Layout: chartxylayout.cpp
    void RecalculatePlotBounds();
    void RecalculatePlotTransforms();
    void UpdateBars();
    void UpdateAxisVisibility();
    bool UpdateBorders(vtkContext2D* painter, const vtkVector2i& hiddenBorder);
    int WithTitle(vtkContext2D* painter, int topBorder);
    void PlaceAxesAtOrigin(const vtkVector2i& hiddenBorder);
    void PlaceAxesAtEdges(vtkContext2D* painter);
    vtkVector2f InlineLegendPoint(const vtkRectf& rect);
    vtkVector2f OutsideLegendPoint(const vtkRectf& rect);

    // Painting: chartxypaint.cpp
    bool FillScene();
    void UpdateGeometry(vtkContext2D* painter, bool resized);
    void UpdateClip();
    void DrawBackground(vtkContext2D* painter);
    void DrawTitle(vtkContext2D* painter);

    // Mouse: chartxymouse.cpp
    void NotifyDirty();
    void MarkSceneDirty();
    void HideTooltip();
    /** Whether a corner has taken the event; none does as long as it is not made interactive. */
    bool OfferToCorners(const vtkContextMouseEvent& mouse,
        bool (vtkAbstractContextItem::*handler)(const vtkContextMouseEvent&));
    void ShowCursor(const vtkContextMouseEvent& mouse);
    void PressPan(const vtkContextMouseEvent& mouse);
    void PressClickAndDrag(const vtkContextMouseEvent& mouse);
    void StartMouseBox(const vtkContextMouseEvent& mouse, bool draw);
    void StretchMouseBox(const vtkContextMouseEvent& mouse);
    void CollapseMouseBox();
    bool IsClick() const;
    bool IsMouseBoxFlat() const;
    void StartPolygon(const vtkContextMouseEvent& mouse);
    void MovePan(const vtkContextMouseEvent& mouse);
    void MoveBox(const vtkContextMouseEvent& mouse);
    void MovePolygon(const vtkContextMouseEvent& mouse);
    void DragHandles(const vtkContextMouseEvent& mouse);
    void DragHandle(const RosterPlot& entry, int coordinate, double delta);
    /** Calls `drag` with each plot that has selected rows and each coordinate it may go along. */
    template <class Drag> void DragSelected(Drag drag);
    void DragShapes(const vtkContextMouseEvent& mouse);
    void MarkInputsModified();
    void DragColumns(const vtkContextMouseEvent& mouse);
    void PanAxes(const vtkContextMouseEvent& mouse);
    void ZoomAxes(const vtkContextMouseEvent& mouse);
    void ReleaseShapes();
    bool ReleaseClick(const vtkContextMouseEvent& mouse);
    void ZoomOnRelease(const vtkContextMouseEvent& mouse);
    bool EndDrag();
    void ZoomInAxes(vtkAxis* x, vtkAxis* y, const vtkVector2f& origin, const vtkVector2f& corner);
    void PushRangesToShapes(const Range& xRange, const Range& yRange);
    void ClearPlotSelections();

    // Hit tests and tooltips: chartxytooltip.cpp
    /** Strictly: the edge is outside. */
    bool InsidePlotArea(const vtkContextMouseEvent& mouse) const;
    template <class Accepts> bool HitPlot(const vtkContextMouseEvent& mouse, Accepts accepts);
    void ReportPoint(const vtkContextMouseEvent& mouse, const RosterPlot& found, int invokeEvent);
    Point MouseOnCornerZero(const vtkContextMouseEvent& mouse) const;

    // Selection: chartxyselection.cpp
    struct SelectionRun;
    void SelectOnRelease(const vtkContextMouseEvent& mouse);
    void SelectInCorners(const vtkContextMouseEvent& mouse, bool polygon, int mode);
    /** Gives the plots what the annotation link has selected. */
    void UpdateSelectionFromLink();
    void TakeRows(vtkSelection* selection);
    void TakePlots(vtkSelection* selection);
    void TakeColumns(vtkSelection* selection);

    Private* ChartPrivate;
    bool DragPoint = false; ///< the press landed on a point of an interactive plot
    bool DragShape = false; ///< the press picked a shape
};

} // namespace ovl

#endif
