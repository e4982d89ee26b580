// SPDX-License-Identifier: BSD-3-Clause
// A camera's frames, 12 bits in 16-bit samples, shown as they come. The title tells the pixel under
// the mouse. Left drag pans, right drag and wheel zoom; none of it disturbs the stream.
#include <hosting/viewwidget.h>
#include <visualization/coordinatessender.h>
#include <visualization/imageview.h>

#include <QApplication>
#include <QTimer>

#include <array>
#include <cstdint>
#include <vector>

constexpr int kWidth = 640;
constexpr int kHeight = 480;
using Frame = std::vector<std::uint16_t>;

/** Stands in for your camera: rings that travel outwards. */
void expose(Frame& frame, int number)
{
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const int dx = x - kWidth / 2;
            const int dy = y - kHeight / 2;
            const int phase = (dx * dx + dy * dy) / 8 - number * 64;
            frame[y * kWidth + x] = static_cast<std::uint16_t>(phase & 0xfff);
        }
}

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication(); // sets up OpenGL, and so comes first
    QApplication application(argc, argv);

    // The view reads a frame in place whenever it is repainted. So the camera fills one buffer
    // while the other one is shown. Declared before the window, they outlive the view in it.
    std::array<Frame, 2> frames {Frame(kWidth * kHeight), Frame(kWidth * kHeight)};
    int number = 0;

    ovl::hosting::ViewWidget<ovl::ImageView> window;
    ovl::ImageView& view = window.view();
    view.setShift(4); // of 12 bits the screen gets the upper 8

    QTimer camera;
    QObject::connect(&camera, &QTimer::timeout, [&] {
        Frame& frame = frames[number % 2];
        expose(frame, number++);
        view.drawScene(
            frame.data(), kWidth, kHeight, {1, 2}); // one sample per pixel, unsigned 16 bits
    });
    camera.start(20); // milliseconds

    // One sender serves all views. It tells column and row, counted from 0 at the top left.
    const ovl::CoordinatesSender* mouse = ovl::CoordinatesSender::instance();
    QObject::connect(
        mouse, &ovl::CoordinatesSender::signal_sendCoordinates, &window, [&](int x, int y) {
            const Frame& shown = frames[(number + 1) % 2];
            const int sample = shown[y * kWidth + x];
            window.setWindowTitle(QString("(%1, %2): %3").arg(x).arg(y).arg(sample));
        });
    QObject::connect(mouse, &ovl::CoordinatesSender::signal_clearCoordinates, &window,
        [&] { window.setWindowTitle("Image stream"); });

    window.setWindowTitle("Image stream");
    window.resize(kWidth, kHeight);
    window.show();
    return application.exec();
}
