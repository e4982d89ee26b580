// SPDX-License-Identifier: BSD-3-Clause
// What else a host could draw its curves and boxes with, each in the way in which its own manual
// does it. All have the same operations, so that one benchmark measures them all.
#ifndef OVL_BENCHMARKS_CHARTPEERS_H
#define OVL_BENCHMARKS_CHARTPEERS_H

#include "profilerig.h"

#include <QGraphicsPolygonItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPolygonF>
#include <QVector>

#ifdef OVL_HAVE_QWT
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_item.h>
#include <qwt_plot_shapeitem.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#endif
#ifdef OVL_HAVE_QCUSTOMPLOT
// Its header is written with Qt's keywords, which our build leaves to others.
#define emit
#define foreach Q_FOREACH
#define signals Q_SIGNALS
#define slots Q_SLOTS
#include <qcustomplot.h>
#undef emit
#undef foreach
#undef signals
#undef slots
#endif

namespace ovl::bench {

inline QPolygonF boxPolygon(int index, int count)
{
    QPolygonF polygon;
    for (const Point& corner : boxCorners(index, count))
        polygon << QPointF(corner.x(), corner.y());
    return polygon;
}

struct Samples {
    explicit Samples(int curve, int points)
    {
        for (int row = 0; row < points; ++row) {
            x << curveX(row, points);
            y << curveY(curve, row, points);
        }
    }

    QVector<double> x;
    QVector<double> y;
};

#ifdef OVL_HAVE_QWT
class QwtRig {
public:
    explicit QwtRig(int curves = 0, int points = 0)
    {
        plot.resize(kChartSize);
        // Else a replot only asks for a paint event, which comes after what is measured.
        static_cast<QwtPlotCanvas*>(plot.canvas())
            ->setPaintAttribute(QwtPlotCanvas::ImmediatePaint);
        plot.setAxisScale(QwtPlot::xBottom, 0.0, kExtent);
        plot.setAxisScale(QwtPlot::yLeft, 0.0, kExtent);
        for (int i = 0; i < curves; ++i) {
            const Samples samples(i, points);
            auto* curve = new QwtPlotCurve;
            curve->setStyle(QwtPlotCurve::NoCurve);
            curve->setSymbol(new QwtSymbol(QwtSymbol::Rect, QBrush(Qt::red), QPen(Qt::NoPen),
                QSize(kMarkerPixels, kMarkerPixels)));
            curve->setPaintAttribute(QwtPlotCurve::FilterPoints); // what hides another is left out
            curve->setSamples(samples.x, samples.y);
            curve->attach(&plot);
        }
        plot.show();
        QApplication::processEvents();
        plot.replot();
    }

    /** Boxes without handles: it has none. */
    void addBoxes(int count)
    {
        for (int i = 0; i < count; ++i) {
            auto* item = new QwtPlotShapeItem;
            item->setPolygon(boxPolygon(i, count));
            item->setPen(QPen(i % 2 ? Qt::yellow : Qt::cyan));
            item->attach(&plot);
        }
    }

    void clear() { plot.detachItems(); }

    void shift(double by) { plot.setAxisScale(QwtPlot::xBottom, by, by + kExtent); }
    void render()
    {
        plot.replot();
        plot.axisWidget(QwtPlot::xBottom)->repaint();
    }

    /** What a program writes itself: each curve is asked for its closest point. */
    bool curveAt(const QPoint& at)
    {
        bool found = false;
        for (QwtPlotItem* item : plot.itemList(QwtPlotItem::Rtti_PlotCurve)) {
            double distance = 0.0;
            static_cast<QwtPlotCurve*>(item)->closestPoint(at, &distance);
            found = found || distance < 5.0;
        }
        return found;
    }

    bool boxAt(const QPoint& at)
    {
        const QPointF place(
            plot.invTransform(QwtPlot::xBottom, at.x()), plot.invTransform(QwtPlot::yLeft, at.y()));
        bool found = false;
        for (QwtPlotItem* item : plot.itemList(QwtPlotItem::Rtti_PlotShape)) {
            auto* box = static_cast<QwtPlotShapeItem*>(item);
            found = found || (box->boundingRect().contains(place) && box->shape().contains(place));
        }
        return found;
    }

    QwtPlot plot;
};
#endif

#ifdef OVL_HAVE_QCUSTOMPLOT
class QCustomPlotRig {
public:
    explicit QCustomPlotRig(int curves = 0, int points = 0)
    {
        plot.resize(kChartSize);
        plot.setNotAntialiasedElements(QCP::aeAll); // as its manual advises for speed
        plot.xAxis->setRange(0.0, kExtent);
        plot.yAxis->setRange(0.0, kExtent);
        for (int i = 0; i < curves; ++i) {
            const Samples samples(i, points);
            QCPGraph* graph = plot.addGraph();
            graph->setLineStyle(QCPGraph::lsNone);
            graph->setScatterStyle(
                QCPScatterStyle(QCPScatterStyle::ssSquare, Qt::red, kMarkerPixels));
            graph->setData(samples.x, samples.y, true);
        }
        plot.show();
        QApplication::processEvents();
        render();
    }

    /** Boxes without handles: it has none. */
    void addBoxes(int count)
    {
        for (int i = 0; i < count; ++i) {
            const QRectF box = boxPolygon(i, count).boundingRect();
            auto* item = new QCPItemRect(&plot);
            item->topLeft->setCoords(box.left(), box.bottom());
            item->bottomRight->setCoords(box.right(), box.top());
            item->setPen(QPen(i % 2 ? Qt::yellow : Qt::cyan));
            item->setBrush(QBrush(Qt::white)); // else only its outline is hit
        }
    }

    void clear() { plot.clearItems(); }

    void shift(double by) { plot.xAxis->setRange(by, by + kExtent); }
    void render() { plot.replot(QCustomPlot::rpImmediateRefresh); }
    bool curveAt(const QPoint& at) { return plot.plottableAt(at) != nullptr; }
    bool boxAt(const QPoint& at) { return plot.itemAt(at) != nullptr; }

    QCustomPlot plot;
};
#endif

/** No chart, but what many take for figures that can be grabbed. */
class GraphicsViewRig {
public:
    explicit GraphicsViewRig()
    {
        view.setScene(&scene);
        scene.setSceneRect(0.0, 0.0, kExtent, kExtent);
        view.resize(kChartSize);
        view.show();
        QApplication::processEvents();
    }

    void addBoxes(int count)
    {
        for (int i = 0; i < count; ++i)
            scene.addPolygon(boxPolygon(i, count), QPen(i % 2 ? Qt::yellow : Qt::cyan));
    }

    void clear() { scene.clear(); }
    void render() { view.viewport()->repaint(); }
    bool boxAt(const QPoint& at) { return view.itemAt(at) != nullptr; }

    QGraphicsScene scene;
    QGraphicsView view;
};

/** Any of them with many boxes. */
template <class Rig> class BoxesOf : public Rig {
public:
    explicit BoxesOf(int count)
    {
        this->addBoxes(count);
        this->render();
    }
};

} // namespace ovl::bench

#endif
