// SPDX-License-Identifier: BSD-3-Clause
// What the benchmarks of the profile view share: a view on a host's widget, and what all charts
// that are measured draw.
#ifndef OVL_BENCHMARKS_PROFILERIG_H
#define OVL_BENCHMARKS_PROFILERIG_H

#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>
#include <visualization/vtkcompat.h>

#include <vtkAxis.h>
#include <vtkChart.h>
#include <vtkContextActor.h>
#include <vtkContextScene.h>
#include <vtkPropCollection.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>

#include <QApplication>
#include <QMouseEvent>
#include <QSurfaceFormat>

#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>

namespace ovl::bench {

constexpr QSize kChartSize(800, 600);
constexpr double kExtent = 1000.0; ///< of both axes, from 0
constexpr int kMarkerPixels = 2; ///< the side of the square that is drawn for a point
constexpr int kHandlePixels = 4;

/** Point `row` of the curves; they keep to the upper half, so that a pan may begin below. */
inline double curveX(int row, int points) { return kExtent * (row + 0.5) / points; }
inline double curveY(int curve, int row, int points)
{
    const double turns = 6.28318 * (curve + 1) * row / points;
    return 600.0 + 30.0 * curve + 40.0 * std::sin(turns);
}

/** The corners of box `index` out of `count`, side by side over the whole chart. */
inline std::array<Point, 4> boxCorners(int index, int count)
{
    const int perRow = static_cast<int>(std::ceil(std::sqrt(count)));
    const double pitch = kExtent / perRow;
    const double size = 0.6 * pitch;
    const double x = index % perRow * pitch + 0.2 * pitch;
    const double y = index / perRow * pitch + 0.2 * pitch; // NOLINT: whole rows
    return {Point(x, y), Point(x + size, y), Point(x + size, y + size), Point(x, y + size)};
}

/** A box of four lines and twelve handles that may be dragged. */
inline Shape makeBox(int index, int count)
{
    const auto corners = boxCorners(index, count);
    Shape shape;
    shape.setIdentifier(index);
    shape.setTitle("box");
    shape.setLegendVisible(false);
    shape.setHandleSize(kHandlePixels);
    shape.setColor(QColor(index % 2 ? Qt::yellow : Qt::cyan));
    shape.setInteractive(true);
    shape.setCanDragAlongX(true);
    shape.setCanDragAlongY(true);
    for (std::size_t i = 0; i < corners.size(); ++i)
        shape.addLine(corners[i], corners[(i + 1) % corners.size()]);
    return shape;
}

/** Sends a move with or without the left button to any widget; has been handled on return. */
inline void sendMouse(QWidget& widget, QEvent::Type type, QPointF at, bool held)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons buttons = held ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(
        type, at, QPointF(widget.mapToGlobal(at.toPoint())), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/** A host's widget with a profile view on it, both axes from 0 to kExtent. */
class ProfileRig {
public:
    explicit ProfileRig(int curves = 0, int points = 0)
    {
        widget.resize(kChartSize);
        widget.show();
        QApplication::processEvents();
        view = std::make_unique<ProfileView>(&widget, curves + 1);
        view->setBottomRange(0, static_cast<int>(kExtent));
        view->setLeftRange(0, static_cast<int>(kExtent));
        fill(curves, points);
        view->drawPlots();
        view->resetView();
        render();
    }

    void fill(int curves, int points)
    {
        view->setNumberOfValues(points);
        for (int row = 0; row < points; ++row)
            view->setValue(0, row, curveX(row, points));
        for (int curve = 0; curve < curves; ++curve)
            for (int row = 0; row < points; ++row)
                view->setValue(curve + 1, row, curveY(curve, row, points));
    }

    void addBoxes(int count)
    {
        for (int i = 0; i < count; ++i)
            view->addShape(makeBox(i, count));
    }

    /** Where data lie in the widget; after a render. */
    QPointF position(double x, double y)
    {
        vtkRenderer* renderer = compat::renderWindow(&widget)->GetRenderers()->GetFirstRenderer();
        auto* actor = vtkContextActor::SafeDownCast(renderer->GetViewProps()->GetItemAsObject(0));
        auto* chart = vtkChart::SafeDownCast(actor->GetScene()->GetItem(0));
        const auto place = [](vtkAxis* axis, int coordinate, double value) {
            const double part
                = (value - axis->GetMinimum()) / (axis->GetMaximum() - axis->GetMinimum());
            const float* from = axis->GetPoint1();
            const float* to = axis->GetPoint2();
            return static_cast<double>(from[coordinate])
                + part * static_cast<double>(to[coordinate] - from[coordinate]);
        };
        return {place(chart->GetAxis(vtkAxis::BOTTOM), 0, x),
            kChartSize.height() - 1 - place(chart->GetAxis(vtkAxis::LEFT), 1, y)};
    }

    void render() { compat::renderWindow(&widget)->Render(); }

    compat::HostWidget widget;
    std::unique_ptr<ProfileView> view;
};

/** A rig with many shapes, drawn. */
class BoxRig : public ProfileRig {
public:
    explicit BoxRig(int count)
    {
        addBoxes(count);
        view->drawShapes();
        render();
    }
};

/** The one rig that is kept, of whatever class. */
struct KeptRig {
    std::string key;
    std::shared_ptr<void> rig;
};
inline KeptRig keptRig;

/**
 * A rig made from the arguments. Google Benchmark calls a function several times before it times
 * it; a rig may take longer to make than the time that is measured, so the last one is kept.
 */
template <class Rig, class... Arguments> Rig& rigOf(Arguments... arguments)
{
    std::string key = typeid(Rig).name();
    ((key += ' ' + std::to_string(arguments)), ...);
    if (key != keptRig.key) {
        keptRig = {};
        keptRig = {key, std::make_shared<Rig>(arguments...)};
    }
    return *static_cast<Rig*>(keptRig.rig.get());
}

inline int run(int argc, char** argv)
{
    QSurfaceFormat::setDefaultFormat(compat::HostWidget::defaultFormat());
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    keptRig = {}; // before the application goes
    return 0;
}

} // namespace ovl::bench

#endif
