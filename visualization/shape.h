// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_SHAPE_H
#define OVL_VISUALIZATION_SHAPE_H

#include "export.h"

#include <QColor>
#include <QString>

#include <functional>

namespace ovl {

class Line;
class Point;
class Range;

/** The pattern of a shape's lines. Any other value draws as Solid. */
enum LineType : int { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4 };

/** Kept with a shape for the host; the library draws and picks without it. */
enum PlotStackPriority : int {
    LowPlotStackPriority = 0,
    NormalPlotStackPriority = 1, ///< the default
    HighPlotStackPriority = 2
};

/**
 * A figure laid over a chart: lines, and handles by which the user can take hold of it, in the
 * chart's data coordinates, with a style and the host's callbacks.
 *
 * A shape never moves itself. A drag arrives at one of the translation or resize callbacks; the
 * host moves the points through line() and handle(), and the chart reads them back. A shape without
 * callbacks can be grabbed but does not follow the mouse. Callbacks run on the GUI thread, inside
 * the handling of a mouse event: they may move the shape's points, but add or remove no shapes.
 *
 * A view works on a copy of the shape it is given; see ProfileView::shape(). No setter reaches the
 * screen by itself or marks the view dirty: ProfileView::drawShapes() shows what was set. Callbacks
 * and the priority count from the next mouse event on.
 *
 * A moved-from shape may only be assigned to or destroyed; any other use stops a debug build.
 */
class OVL_EXPORT Shape {
public:
    /** Without lines or callbacks, and with the defaults told below. */
    Shape();

    /** A deep copy: lines, handles and callbacks of its own. */
    Shape(const Shape& other);
    Shape& operator=(const Shape& other);

    /** Takes over the contents of `other`, which is moved-from afterwards. */
    Shape(Shape&& other) noexcept;
    /** A shape that is moved onto itself is moved-from afterwards. */
    Shape& operator=(Shape&& other) noexcept;

    ~Shape();

    /**
     * Appends a line and its three handles: its first end, its centre and its second end. Nothing
     * is shared between lines; a polyline has each inner corner twice. Ends the validity of
     * pointers from line() and handle().
     */
    void addLine(const Point& p1, const Point& p2);
    /** Removes all lines and handles and nothing else. */
    void clear();

    /**
     * The line or handle itself, to be changed at will; good until the next addLine() or clear().
     * Handles of line i are 3i to 3i + 2; line and handles do not follow each other. An index out
     * of range stops a debug build, and gives null in a release build.
     */
    Line* line(int index) const;
    Point* handle(int index) const;

    /** Handles are three times as many as lines. */
    int numberOfLines() const;
    int numberOfHandles() const;

    /**
     * Whether `point` is close to the first end of any line: nearer in x than tolerance() times the
     * length of the x range, or likewise in y; one of the two suffices. Second ends count for
     * nothing. Never, while the ranges are empty.
     */
    bool closeToLine(const Point& point);
    /**
     * What the callback says, if there is one; else whether the ray from `point` towards negative x
     * meets an odd number of lines. The outline need not be closed, and a corner shared by two
     * lines counts once for each.
     */
    bool insidePolygon(const Point& point);

    /** What the tooltip callback says about `point`; empty without one. */
    QString tooltips(const Point& point);
    /** Hand a motion in data units to the matching callback, if there is one. */
    void xTranslate(double distance);
    void yTranslate(double distance);
    /** Hand the grabbed handle's position and its motion to the matching callback, if there is one.
     */
    void xResize(const Point& handle, double distance);
    void yResize(const Point& handle, double distance);
    /** Call the matching callback, if there is one. */
    void onMousePress();
    void onMouseRelease();

    /**
     * Takes over attributes and callbacks, each by value, and leaves geometry: lines, handles and
     * also the tolerance stay this shape's own.
     */
    void shallowCopy(const Shape& other);

    /**
     * Called when any button is pressed inside the shape and none of a priority as high was met
     * before. A shape that can be dragged along neither axis is not told.
     */
    void setOnMousePressCallback(std::function<void()> callback);
    /**
     * Called at every release of any button, for every plot of the shape: twice, when lines and
     * handles are both drawn.
     */
    void setOnMouseReleaseCallback(std::function<void()> callback);
    /**
     * Called at each move while the shape is dragged along that axis, with the motion since the
     * last event in data units of the bottom or left axis.
     */
    void setXTranslationCallback(std::function<void(double)> callback);
    void setYTranslationCallback(std::function<void(double)> callback);
    /**
     * Called at each move while a handle is dragged along that axis, with the handle's position
     * before this motion, and the motion; both in data units. Of the two calls for one move the
     * second, for y, gets the position that the first has left.
     */
    void setXResizeCallback(std::function<void(const Point&, double)> callback);
    void setYResizeCallback(std::function<void(const Point&, double)> callback);
    /** Replaces the test of insidePolygon() altogether. */
    void setInsidePolygonCallback(std::function<bool(const Point&)> callback);
    /**
     * Asked for the text of a tooltip at each move of the mouse inside the shape, without a button,
     * and given the mouse's position in data units. Only a shape with lines that can be dragged
     * along one axis at least is asked. The tooltip of a point of a curve or a handle goes first.
     */
    void setShapeTooltipCallback(std::function<QString(const Point&)> callback);

    /** Colour of the lines; default white. */
    QColor color() const;
    void setColor(const QColor& color);

    /** Colour of the handles; default white. */
    QColor handleColor() const;
    void setHandleColor(const QColor& color);

    /** Whether the user can drag the shape, along the axes allowed below; default false. */
    bool interactive() const;
    void setInteractive(bool interactive);

    /** Whether the view draws the shape at all; default true. */
    bool hasPlot() const;
    void setHasPlot(bool hasPlot);

    /**
     * Whether the ends of the lines have tooltips, in format(); default true. The text of the
     * tooltip callback is shown either way.
     */
    bool tooltipsVisibility() const;
    void setTooltipsVisibility(bool visible);

    /** Whether handles have tooltips, in the chart's own format; default true. */
    bool handleTooltipVisibility() const;
    void setHandleTooltipVisibility(bool visible);

    /** Whether lines and handles can be dragged along x; default false. */
    bool canDragAlongX() const;
    void setCanDragAlongX(bool allowed);

    /** Whether lines and handles can be dragged along y; default false. */
    bool canDragAlongY() const;
    void setCanDragAlongY(bool allowed);

    /** Names the shape in the legend and is a key to find it by; default empty. */
    QString title() const;
    void setTitle(const QString& title);

    /**
     * The format of the lines' tooltips, see ProfileView::setPlotFormat(); empty (the default) for
     * the chart's own.
     */
    QString format() const;
    void setFormat(const QString& format);

    /**
     * The extent of the axes that tolerance() is a fraction of; empty at first.
     * ProfileView::resetView() and the user's zoom set them, panning does not. After a zoom by band
     * they are those of the top and right axes.
     */
    void setXAxisRange(const Range& range);
    void setYAxisRange(const Range& range);

    /** A key to find the shape by; default -1. */
    int identifier() const;
    void setIdentifier(int identifier);

    /**
     * How near closeToLine() wants a point, as a fraction of the axis ranges; default 0.05, in
     * single precision. Any number is taken; with 0 or less no point is close.
     */
    double tolerance() const;
    void setTolerance(double tolerance);

    /** The pattern of the lines; default Solid. */
    LineType lineType() const;
    void setLineType(LineType type);

    /** Kept for the host and copied along; default NormalPlotStackPriority. */
    PlotStackPriority plotStackPriority() const;
    void setPlotStackPriority(PlotStackPriority priority);

    /** Edge of the square handles in pixels; default 2. Not checked. */
    int handleSize() const;
    void setHandleSize(int size);

    /**
     * Which of several shapes under the mouse is taken: the one of highest priority, among equals
     * the one that was added last; default 0. It does not change the order of painting.
     */
    int priority() const;
    void setPriority(int priority);

    /** Whether handles are drawn; default true. */
    bool handleVisible() const;
    void setHandleVisibility(bool visible);

    /** Whether the legend lists the shape; default true. The getter is spelt so. */
    bool legendVisiblity() const;
    void setLegendVisible(bool visible);

    /** Whether the shape is shown; default true. ProfileView::redrawShapes() takes it over, too. */
    bool visible() const;
    void setVisible(bool visible);

private:
    friend class Outlines;
    friend class ProfileView;

    struct Private;
    Private* d;
};

} // namespace ovl

#endif
