// SPDX-License-Identifier: BSD-3-Clause
// One height map in three views of one window: as an image, as a surface, and its row under the
// mouse as a profile. Move the mouse over the image.
#include <hosting/viewwidget.h>
#include <visualization/coordinatessender.h>
#include <visualization/imageview.h>
#include <visualization/profileview.h>
#include <visualization/surfaceview.h>

#include <QApplication>
#include <QGridLayout>

#include <cmath>
#include <vector>

constexpr int kSide = 200; // columns and rows
using Heights = std::vector<unsigned char>;

void drawRow(ovl::ProfileView& view, const Heights& heights, int row)
{
    for (int x = 0; x < kSide; ++x) {
        view.setValue(0, x, x);
        view.setValue(1, x, heights[row * kSide + x]);
    }
    view.drawPlots();
}

void drawSurface(ovl::SurfaceView& view, const Heights& heights)
{
    view.setScene(kSide, kSide);
    for (int i = 0; i < kSide * kSide; ++i)
        view.setPoint(i, i % kSide, i / kSide, heights[i], heights[i]);
    for (int axis : {0, 1}) // x and y
        view.range(axis).set(0, kSide - 1);
    for (int axis : {2, 3}) // z, and the value that gives the colour
        view.range(axis).set(0, 255);
    view.drawScene();
    view.setXPositionCorrection(0.1); // the camera's place, nearer than by default
    view.setYPositionCorrection(0.1);
    view.setZPositionCorrection(0);
    view.resetCamera();
}

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication(); // sets up OpenGL, and so comes first
    QApplication application(argc, argv);
    Heights heights; // outlives the image view, which reads it in place
    for (int i = 0; i < kSide * kSide; ++i)
        heights.push_back(static_cast<unsigned char>(
            128 + 80 * std::sin(i % kSide * 0.05) * std::cos(i / kSide * 0.04)));

    QWidget window;
    QGridLayout layout(&window);
    auto* image = new ovl::hosting::ViewWidget<ovl::ImageView>;
    auto* surface = new ovl::hosting::ViewWidget<ovl::SurfaceView>;
    auto* profile = new ovl::hosting::ViewWidget<ovl::ProfileView>(nullptr, 2); // columns x and y
    layout.addWidget(image, 0, 0);
    layout.addWidget(surface, 0, 1);
    layout.addWidget(profile, 1, 0, 1, 2);

    image->view().drawScene(heights.data(), kSide, kSide, {1, 0}); // one 8-bit sample per pixel
    drawSurface(surface->view(), heights);
    profile->view().setNumberOfValues(kSide);
    profile->view().setBottomRange(0, kSide);
    profile->view().setLeftRange(0, 255);
    profile->view().resetView();
    drawRow(profile->view(), heights, kSide / 2);

    // This signal comes from image views only; the 3-D views have another.
    QObject::connect(ovl::CoordinatesSender::instance(),
        &ovl::CoordinatesSender::signal_sendCoordinates, profile,
        [&](int, int y) { drawRow(profile->view(), heights, y); });
    window.setWindowTitle("Several views");
    window.resize(900, 700);
    window.show();
    return application.exec();
}
