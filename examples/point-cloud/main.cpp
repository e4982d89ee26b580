// SPDX-License-Identifier: BSD-3-Clause
// A scanner's samples as a cloud of points, coloured by height. Left drag turns, middle drag pans,
// right drag and wheel come nearer; the title tells the sample under the mouse.
#include <hosting/viewwidget.h>
#include <visualization/coordinatessender.h>
#include <visualization/pointcloudview.h>

#include <QApplication>

#include <cmath>

constexpr int kColumns = 300;
constexpr int kRows = 300;

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication(); // sets up OpenGL, and so comes first
    QApplication application(argc, argv);
    ovl::hosting::ViewWidget<ovl::PointCloudView> window;
    ovl::PointCloudView& view = window.view();

    // Every point of the scene is set: its place, and the value that gives its colour. The view
    // computes no range; we grow them as we go: 0 to 2 are x, y and z, 3 is the value.
    view.setScene(kColumns, kRows);
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column) {
            const int index = column + row * kColumns;
            const double x = column * 0.5; // millimetres
            const double y = row * 0.5;
            const double radius = std::hypot(x - 75, y - 75);
            if (radius < 12) {
                view.setNanPoint(index); // a hole: the scanner saw nothing there
                continue;
            }
            const double z = 30 * std::exp(-radius / 40) * (1 + std::cos(radius / 4));
            view.setPoint(index, x, y, z, z);
            view.range(2).accumulate(z);
            view.range(3).accumulate(z);
        }
    view.range(0).set(0, kColumns * 0.5);
    view.range(1).set(0, kRows * 0.5);
    view.drawScene();
    view.setZPositionCorrection(3); // the camera stands higher than at the default of 1
    view.resetCamera(); // only when the scene is to be framed anew; the user may have turned it

    // One sender serves all views. It tells the sample in our own units, rounded to whole numbers.
    const ovl::CoordinatesSender* mouse = ovl::CoordinatesSender::instance();
    QObject::connect(mouse, &ovl::CoordinatesSender::signal_sendSpaceCoordinates, &window,
        [&](double x, double y, double z) {
            window.setWindowTitle(QString("x %1, y %2, z %3").arg(x).arg(y).arg(z));
        });
    QObject::connect(mouse, &ovl::CoordinatesSender::signal_clearCoordinates, &window,
        [&] { window.setWindowTitle("Point cloud"); });

    window.setWindowTitle("Point cloud");
    window.resize(800, 600);
    window.show();
    return application.exec();
}
