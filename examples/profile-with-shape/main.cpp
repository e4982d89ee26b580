// SPDX-License-Identifier: BSD-3-Clause
// A profile with a region of interest. Drag the region by its inside to move it, by one of its
// handles to make it wider or narrower; the title tells where it lies.
#include <hosting/viewwidget.h>
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>

#include <QApplication>

#include <array>
#include <cmath>

constexpr int kSamples = 500;
constexpr int kRegion = 1; // any number by which the shape is found again

using Edges = std::array<double, 2>; // the region's left and right

/** Brings the shape's two lines, and the three handles of each, to the edges. */
void place(ovl::Shape& shape, const Edges& edges)
{
    for (int i = 0; i < 2; ++i) {
        shape.line(i)->p1()->set(edges[i], -15);
        shape.line(i)->p2()->set(edges[i], 15);
        for (int end = 0; end < 3; ++end) // lower end, middle, upper end
            shape.handle(3 * i + end)->set(edges[i], 15 * (end - 1));
    }
}

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication(); // sets up OpenGL, and so comes first
    QApplication application(argc, argv);
    ovl::hosting::ViewWidget<ovl::ProfileView> window(nullptr, 2); // a column of x and one of y
    ovl::ProfileView& view = window.view();

    view.setNumberOfValues(kSamples);
    for (int row = 0; row < kSamples; ++row) {
        view.setValue(0, row, row); // column 0 is x
        view.setValue(1, row, 10 * std::sin(row / 30.0) + 3 * std::sin(row / 4.0));
    }
    view.setColor(1, QColor(0x5c, 0xe1, 0x9a));
    view.drawPlots();
    view.setBottomRange(0, kSamples);
    view.setLeftRange(-20, 20);
    view.resetView(); // nothing scales the axes but this and the user

    ovl::Shape shape;
    shape.setIdentifier(kRegion);
    shape.setColor(Qt::yellow);
    shape.setHandleSize(6);
    shape.setInteractive(true);
    shape.setCanDragAlongX(true);
    // A shape never moves itself: the callbacks are told how far the mouse went, in the chart's
    // units, and move the points of the view's copy of it, which shape() finds.
    Edges edges {75, 175};
    const auto update = [&] {
        place(*view.shape(kRegion), edges);
        window.setWindowTitle(QString("%1 to %2").arg(edges[0]).arg(edges[1]));
    };
    shape.setXTranslationCallback([&](double distance) {
        edges[0] += distance;
        edges[1] += distance;
        update();
    });
    shape.setXResizeCallback([&](const ovl::Point& handle, double distance) {
        edges[handle.x() < (edges[0] + edges[1]) / 2 ? 0 : 1] += distance;
        update();
    });
    shape.addLine({}, {});
    shape.addLine({}, {});
    place(shape, edges);
    view.addShape(shape); // makes the copy
    view.drawShapes();
    window.resize(800, 500);
    window.show();
    return application.exec();
}
