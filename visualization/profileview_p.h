// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what the source files of ProfileView share.
#ifndef OVL_VISUALIZATION_PROFILEVIEW_P_H
#define OVL_VISUALIZATION_PROFILEVIEW_P_H

#include "chartcallbacks.h"
#include "chartxy.h"
#include "plot.h"
#include "point.h"
#include "precondition.h"
#include "profileview.h"
#include "range.h"
#include "shape.h"

#include <vtkContextMapper2D.h>
#include <vtkContextView.h>
#include <vtkPlot.h>
#include <vtkSmartPointer.h>
#include <vtkTable.h>
#include <vtkTypeFloat64Array.h>
#include <vtkWeakPointer.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

class vtkAxis;
class vtkRenderWindow;

namespace ovl {

class OVL_HIDDEN ProfileView::Private {
public:
    using Column = vtkSmartPointer<vtkTypeFloat64Array>;

    /** Points as the chart's plots take them. */
    struct PointTable {
        void setRows(int count);
        void setRow(int row, const Point& point);
        /** Gives the plot the two columns, by the mapper kept if there is one. */
        void feed(vtkPlot* newPlot);
        /** Takes the mapper out of the plot that is about to go. */
        void keepMapper();
        /** Whether nobody else holds any of it or has given it other columns: it may be filled
         * anew. */
        bool isOurs() const;
        /** Puts the columns, which have their names, into a new table. */
        void build();

        vtkSmartPointer<vtkTable> table = vtkSmartPointer<vtkTable>::New();
        Column x = Column::New();
        Column y = Column::New();

    private:
        bool isFed() const;

        vtkWeakPointer<vtkPlot> plot; // the last one that was fed
        vtkSmartPointer<vtkContextMapper2D> mapper; // of a plot that has gone
        vtkMTimeType fedAt = 0; // the mapper's time then; any other hand leaves a later one
        std::string xName; // what the mapper looks for
        std::string yName;
    };

    /** Of each line both ends, one after the other; and of each handle its place. */
    struct ShapeTables {
        /** Names the columns after the shape and makes them its points. */
        void take(const Shape& shape);
        void fill(const Shape& shape);

        PointTable lines;
        PointTable handles;
    };

    struct HomeRange {
        int minimum = 0;
        int maximum = 1000;
    };

    Private(QOpenGLWidget* widget, int numberOfCols);
    ~Private();

    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    void attach();
    void detach();
    void buildPlots(int count);
    void dressChart();
    void dressAxis(int axis, const char* title);
    void connectCallbacks();
    void showCursor(CursorType type);

    /** The cell, or null outside the table. */
    double* cell(int column, int row) const
    {
        const bool inside
            = column >= 0 && column < numberOfCols && row >= 0 && row < numberOfValues;
        return inside ? cells[static_cast<std::size_t>(column)] + row : nullptr;
    }
    /** Null for a column out of range, which stops a debug build. */
    vtkTypeFloat64Array* column(const char* operation, int index) const;
    vtkPlot* plot(const char* operation, int index) const;

    QString axisTitle(int axis) const;
    void setAxisTitle(int axis, const QString& title);
    QColor axisColor(int axis) const;
    void setAxisColor(int axis, const QColor& color);
    void showHome(int axis, const HomeRange& home);

    /** Whether a shape can be used at all: one that was moved away cannot. */
    static bool isUsable(const Shape& shape) { return shape.d != nullptr; }
    /** Whether the shape at `index` is usable; an unusable one stops a debug build. */
    bool hasShape(const char* operation, std::size_t index) const;
    /** The index of the first shape that `matches`, or their number. */
    template <class Predicate> std::size_t find(const char* operation, Predicate matches) const;
    std::size_t find(const char* operation, int identifier) const;
    std::size_t find(const char* operation, const QString& title) const;
    template <class Visit> void forEachShapePart(Visit visit);
    ShapeTables nextTables();
    void append(Shape shape);
    void eraseShape(std::size_t index);
    void update(std::size_t index, const Shape& shape);
    Shape* shapeAt(std::size_t index);
    void keepMappers();
    void removeShapePlots();
    void drawShape(std::size_t index);
    vtkPlot* addHandlePlot(std::size_t index);
    vtkPlot* addLinePlot(std::size_t index);
    /** Gives a plot what lines and handles take over alike, and answers its own part of the rest.
     */
    Plot* dress(vtkPlot* plot, std::size_t index, PointTable& points, const QColor& color);
    void showOrHide(vtkPlot* plot);

    // Released in reverse order: the chart goes before the view of it, the plots with the chart.
    QOpenGLWidget* widget; // the host's
    vtkRenderWindow* renderWindow = nullptr; // the widget's
    vtkSmartPointer<vtkContextView> contextView = vtkSmartPointer<vtkContextView>::New();
    vtkSmartPointer<ChartXY> chart = vtkSmartPointer<ChartXY>::New();
    vtkSmartPointer<vtkTable> table = vtkSmartPointer<vtkTable>::New();
    std::vector<Column> columns; // those of `table`
    std::vector<double*> cells; // the memory of each of them, which only setNumberOfValues() moves
    std::vector<vtkPlot*> plots; // one for each column, the chart's
    std::unique_ptr<ChartCallbacks> callbacks = std::make_unique<ChartCallbacks>();
    std::vector<Shape> shapes;
    std::vector<ShapeTables> shapeTables; // one for each shape, though maybe of another one
    std::vector<ShapeTables> idleTables; // of shapes cleared since the last draw; the first is last
    std::vector<vtkPlot*> shapePlots; // one for each shape drawn, maybe null; the chart's
    std::vector<vtkPlot*> handlePlots; // the same
    std::array<Range, 4> ranges;
    HomeRange bottomRange;
    HomeRange leftRange;
    HomeRange topRange;
    HomeRange rightRange;
    int numberOfValues = 0;
    int numberOfCols;
    bool dirty = false;
    bool detached = false;
};

} // namespace ovl

#endif
