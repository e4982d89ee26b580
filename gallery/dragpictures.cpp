// SPDX-License-Identifier: BSD-3-Clause
#include "dragpictures.h"

#include "noise.h"
#include "picturefile.h"
#include "region.h"
#include <hosting/viewwidget.h>
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QMouseEvent>
#include <QOpenGLWidget>

namespace ovl::gallery {
namespace {

constexpr int kPatience = 20000; // ms
constexpr int kRegion = 1; // the shape's identifier
constexpr int kSamples = 600;
const QColor kBlue(0x4d, 0xa6, 0xff);
const QColor kYellow(0xff, 0xcc, 0x4d);

using Widget = hosting::ViewWidget<ProfileView>;

void fillStep(ProfileView& view)
{
    Noise noise(20260805);
    view.setNumberOfValues(kSamples);
    for (int i = 0; i < kSamples; ++i) {
        const double x = 100.0 * i / kSamples;
        view.setValue(0, i, x);
        view.setValue(1, i, (x > 30 && x < 60 ? 50 : 30) + 0.7 * static_cast<double>(noise.bell()));
    }
    view.setTitle(QStringLiteral("Step"));
    view.setPlotTitle(1, QStringLiteral("Height"));
    view.setColor(1, kBlue);
    view.setBottomTitle(QStringLiteral("mm"));
    view.setLeftTitle(QStringLiteral("um"));
    view.setBottomRange(0, 100);
    view.setLeftRange(0, 80);
    view.drawPlots();
    view.resetView();
}

void bringEdges(Shape& shape, const Box& box)
{
    int index = 0;
    for (const Edge& edge : box.edges()) {
        const Place middle {(edge.from.x + edge.to.x) / 2, (edge.from.y + edge.to.y) / 2};
        shape.line(index)->p1()->set(edge.from.x, edge.from.y);
        shape.line(index)->p2()->set(edge.to.x, edge.to.y);
        shape.handle(3 * index)->set(edge.from.x, edge.from.y);
        shape.handle(3 * index + 1)->set(middle.x, middle.y);
        shape.handle(3 * index + 2)->set(edge.to.x, edge.to.y);
        ++index;
    }
}

void addRegion(ProfileView& view, Box& box)
{
    Shape shape;
    shape.setIdentifier(kRegion);
    shape.setTitle(QStringLiteral("Region"));
    shape.setColor(kYellow);
    shape.setHandleColor(kYellow);
    shape.setHandleSize(7);
    shape.setInteractive(true);
    shape.setCanDragAlongX(true);
    shape.setTooltipsVisibility(false);
    shape.setHandleTooltipVisibility(false);
    for (const Edge& edge : box.edges())
        shape.addLine(Point(edge.from.x, edge.from.y), Point(edge.to.x, edge.to.y));
    shape.setXTranslationCallback([&view, &box](double by) {
        box.moveX(by);
        bringEdges(*view.shape(kRegion), box);
    });
    view.addShape(shape);
    view.drawShapes();
}

/** Sends what the mouse would, and lets the view paint. */
void sendMouse(Widget& widget, QEvent::Type type, const QPoint& place, Qt::MouseButtons held)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, button, held, Qt::NoModifier);
    QApplication::sendEvent(widget.surface(), &event);
    widget.render();
}

void dragRight(Widget& widget)
{
    // Into the region, between its handles and above the curve.
    const QPoint from(widget.width() * 30 / 100, widget.height() * 47 / 100);
    sendMouse(widget, QEvent::MouseMove, from, Qt::NoButton);
    sendMouse(widget, QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (int step = 1; step <= 10; ++step)
        sendMouse(widget, QEvent::MouseMove, from + QPoint(13 * step, 0), Qt::LeftButton);
    sendMouse(widget, QEvent::MouseButtonRelease, from + QPoint(130, 0), Qt::NoButton);
}

bool write(Widget& widget, const QDir& folder, const char* name)
{
    widget.render();
    return writePng(widget.grab().toImage(), folder.filePath(QString::fromLatin1(name)));
}

} // namespace

bool writeDragPictures(const QString& folder)
{
    Widget widget(nullptr, 2);
    Box box {10, 25, 20, 45};
    widget.resize(560, 360);
    widget.show();
    bool painted = false;
    QObject::connect(
        &widget, &hosting::AbstractViewWidget::rendered, [&painted] { painted = true; });
    QElapsedTimer watch;
    watch.start();
    while (!painted && watch.elapsed() < kPatience)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    fillStep(widget.view());
    addRegion(widget.view(), box);
    if (!painted || !write(widget, folder, "drag-before.png"))
        return false;
    dragRight(widget);
    return write(widget, folder, "drag-after.png");
}

} // namespace ovl::gallery
