// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_PROFILEVIEW_H
#define OVL_VISUALIZATION_PROFILEVIEW_H

#include "export.h"
#include "view.h"

#include <functional>

class QColor;
class QOpenGLWidget;
class QString;

namespace ovl {

class Range;
class Shape;

/**
 * Shows curves in an XY chart: one shared column of x values against any number of columns of y.
 *
 * The host writes numbers into a table, cell by cell, and calls drawPlots(); the repaint after it
 * shows them. Column 0 holds the x values of every curve; column i from 1 on holds the y values of
 * curve i. Column 0 has a curve too, itself against itself, which is hidden at first: n curves take
 * n + 1 columns. A curve is a row of small square markers; a NaN leaves a gap in it.
 *
 * The user pans with the left button, zooms with the right button or the wheel, and reads values
 * from tooltips; all of that marks the view dirty. Shapes may be laid over the curves, for the user
 * to grab, move and resize.
 *
 * Of the calls only drawPlots(), resetView(), drawShapes() and redrawShapes() mark the view dirty.
 * Titles, colours and switches act on the chart at once, unless told otherwise, and are seen at the
 * next repaint, for which the host calls setDirty(true). What is written into the table is seen
 * after drawPlots().
 *
 * Shapes are kept as copies of the host's. addShape(), updateShape() and the removals change the
 * copies; drawShapes() makes them seen. Until then the chart holds pointers to the old ones: call
 * it before the next mouse event. Within a shape's callback only shape() may be called. Curves are
 * painted over shapes, handles over lines, and an earlier shape over a later one.
 *
 * A column, row, axis or index out of range is the caller's fault: it stops a debug build, except
 * in value() and setValue() where told; a release build ignores it and answers an empty value.
 */
class OVL_EXPORT ProfileView : public View {
public:
    /**
     * Attaches to `widget`, which must be the framework's Qt/OpenGL widget (not checked), must not
     * carry another view, and must outlive this one. The number of columns counts the x column, is
     * at least 1, and never changes. The axes show a range of the framework's until resetView().
     */
    ProfileView(QOpenGLWidget* widget, int numberOfCols);
    /** Takes the view off the widget, which lives on. */
    ~ProfileView() override;

    ProfileView(const ProfileView&) = delete;
    ProfileView& operator=(const ProfileView&) = delete;

    void setDirty(bool dirty) override;
    bool isDirty() const override;

    // Data.

    /** How many columns the constructor made, the x column among them. */
    int numberOfCols() const;
    /** How many rows each column has; 0 at first. */
    int numberOfValues() const;
    /**
     * Sizes all columns; `count` is 0 or more. What the cells hold then is unspecified: write every
     * one of them, also those of the x column.
     */
    void setNumberOfValues(int count);
    /**
     * Writes one cell; a NaN leaves a gap. A column out of range does nothing, in a debug build
     * too. The x column need not be sorted, but a NaN in it makes tooltips miss points.
     */
    void setValue(int column, int row, double value);
    /** As setValue() with a NaN. */
    void setNanValue(int column, int row);
    /** Reads one cell; 0 outside the table, in a debug build too. */
    double value(int column, int row) const;
    /** Shows the table as it is now, at the scale that the axes have. Marks the view dirty. */
    void drawPlots();

    // Curves.

    /**
     * The column's name, which the legend shows; "plot0", "plot1" and so on at first. Only ASCII is
     * sure to come back as it was set; what Latin-1 does not have becomes a question mark. A new
     * title takes effect at the next drawPlots(), until which the curve finds no data. Of two
     * columns with one title both curves show the first.
     */
    QString plotTitle(int column) const;
    void setPlotTitle(int column, const QString& title);

    /**
     * The format of the curve's tooltips: text with the codes %x and %y for the point, %a and %b
     * for what the custom tooltip functions make of it, %h for y in hexadecimal, %j for the row and
     * %l for the title. Not checked: an unknown code is shown as it stands. Empty (the default)
     * stands for "%l: %x,  %y". Does not change how the curve is drawn.
     */
    QString plotFormat(int column) const;
    void setPlotFormat(int column, const QString& format);

    /**
     * Whether the curve is shown; default true, but false for column 0. The chart shows the axes of
     * corners with a visible curve only.
     */
    bool plotVisibility(int column) const;
    void setPlotVisibily(int column, bool visible);

    /**
     * The pair of axes that the curve is drawn against: 0 bottom and left (the default), 1 bottom
     * and right, 2 top and right, 3 top and left. Any other is warned of and changes nothing.
     */
    int plotCorner(int column);
    void setPlotCorner(int column, int corner);

    /** Not what setColor() was given: black, or #000001 for a curve whose blue is full. */
    QColor color(int column) const;
    /**
     * The colour of the curve, its alpha left out. At first the columns take the seven colours of
     * the framework's first series in turn, of which the first is black, as is the background: give
     * columns 7, 14 and so on a colour of their own.
     */
    void setColor(int column, const QColor& color);

    /**
     * Give the functions behind the tooltip codes %a and %b: from the row of the point under the
     * mouse and its x or y to the number to print. They serve all curves, and are called when a
     * tooltip is made, from within the handling of a mouse event. An empty function (the default)
     * prints nothing.
     */
    void xCustomTooltip(std::function<double(int, double)> function);
    void yCustomTooltip(std::function<double(int, double)> function);

    // The frame.

    /** The chart's title; default "Chart". */
    QString title() const;
    void setTitle(const QString& title);

    /** The axes' titles; default "Left", "Bottom", "Right" and "Top". */
    QString leftTitle() const;
    void setLeftTitle(const QString& title);
    QString bottomTitle() const;
    void setBottomTitle(const QString& title);
    QString rightTitle() const;
    void setRightTitle(const QString& title);
    QString topTitle() const;
    void setTopTitle(const QString& title);

    /**
     * The colour of an axis's title, its labels excepted; default white. The getters do not give
     * back what was set: each channel is 1 of 255 where it is full, and else 0.
     */
    QColor leftColorTitle() const;
    void setLeftColorTitle(const QColor& color);
    QColor bottomColorTitle() const;
    void setBottomColorTitle(const QColor& color);
    QColor rightColorTitle() const;
    void setRightColorTitle(const QColor& color);
    QColor topColorTitle() const;
    void setTopColorTitle(const QColor& color);

    /**
     * Setters show or hide the whole axis until the next repaint, which shows the axes of all
     * corners with a visible curve, and no others. Getters tell another flag, which stays true.
     */
    bool leftAxisVisibility() const;
    void setleftAxisVisibility(bool visible);
    bool bottomAxisVisibility() const;
    void setBottomAxisVisibility(bool visible);
    bool RightAxisVisibility() const;
    void setRightAxisVisibility(bool visible);
    bool topAxisVisibility() const;
    void setTopAxisVisibility(bool visible);

    /**
     * The home ranges in data units, which resetView() shows; default 0 to 1000. Any two numbers
     * will do, also equal or reversed ones. Nothing moves before resetView().
     */
    void setLeftRange(int minimum, int maximum);
    void setBottomRange(int minimum, int maximum);
    void setRightRange(int minimum, int maximum);
    void setTopRange(int minimum, int maximum);

    /**
     * Four ranges, 0 to 3, for the host's own use; the view neither reads nor writes them. A
     * release build answers the first one for an index out of range.
     */
    Range& range(int index);

    /**
     * Whether the wheel zooms the bottom, left or right axis; default true. The top axis has no
     * switch and always zooms. The band of the right button zooms all four.
     */
    void enableHorizontalZoom(bool enabled);
    bool horizontalZoomEnabled() const;
    void enabledLeftVerticalZoom(bool enabled);
    bool leftVerticalZoomEnabled() const;
    void enabledRightVerticalZoom(bool enabled);
    bool rightVerticalZoomEnabled() const;

    /**
     * Whether the mouse cursor over the chart is a cross; default false. Takes effect with the next
     * move of the mouse. Over a shape that can be dragged it is four arrows either way.
     */
    void setCrosshairCursor(bool crosshair);
    bool usingCrosshairCursor() const;

    /**
     * Shows the home ranges, and tells them to the shapes. In a window of w by h pixels that is
     * wider than high the bottom axis grows on either side by half of |L h / w - L|, where L is the
     * length of the left range; in one that is higher than wide the left axis by half of
     * |B w / h - B|, of the bottom range. The result is cut to whole numbers. The top and right
     * axes and the home ranges stay. Call it again when the window's size has changed. Marks the
     * view dirty.
     */
    void resetView();

    // Shapes.

    /** Appends a copy. Titles and identifiers need not be unique. Ends the validity of pointers
     * from shape(). */
    void addShape(const Shape& shape);

    /**
     * Replaces the first shape with that identifier (the argument's own in the first form) or
     * title, in its place; does nothing when there is none. New points are seen at the next
     * repaint, anything else after drawShapes().
     */
    void updateShape(const Shape& shape);
    void updateShape(int identifier, const Shape& shape);
    void updateShape(const QString& title, const Shape& shape);

    /**
     * Removes the first shape with that identifier; does nothing when there is none. Its plots stay
     * in the chart until drawShapes(). Prefer it to removal by title.
     */
    void removeShape(int identifier);
    /**
     * Removes one shape of that title. It is exact for the last shape only: the shapes behind the
     * removed one take over their predecessors' points until they are updated. With several shapes
     * of that title, one goes, and others may be left unusable, which the next drawShapes() stops
     * at in a debug build and leaves out in a release build.
     */
    void removeShape(const QString& title);
    /** Removes all shapes, from the chart too; seen at the next repaint. */
    void clearShape();

    /**
     * The first shape with that title or identifier, -1 for one whose identifier was never set; or
     * null. Good until the next addShape() or removal.
     */
    Shape* shape(const QString& title);
    Shape* shape(int identifier);

    /** Builds all shapes anew as they are now. Marks the view dirty. */
    void drawShapes();
    /**
     * Takes over the visibility of the shapes drawn, and nothing else. Marks the view dirty. Every
     * shape drawn must have a line, and none may have been added or removed since.
     */
    void redrawShapes();
    /** Does nothing; kept for hosts that call it. */
    void updateDepthPriority();

private:
    class Private;
    Private* d;
};

} // namespace ovl

#endif
