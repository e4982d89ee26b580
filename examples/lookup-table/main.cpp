// SPDX-License-Identifier: BSD-3-Clause
// A 16-bit image of which a slider chooses the samples worth seeing: they fill the grey ramp from
// black to white; what lies above them is red, what lies below is blue.
#include <hosting/viewwidget.h>
#include <visualization/imageview.h>
#include <visualization/range.h>

#include <QApplication>
#include <QSlider>
#include <QVBoxLayout>

#include <cmath>
#include <cstdint>
#include <vector>

constexpr int kWidth = 640;
constexpr int kHeight = 400;
constexpr int kSpan = 12000; // how many different samples the grey ramp shows

/** Stands in for your sensor: two warm spots before a cold background, 0 to 60000. */
std::vector<std::uint16_t> measure()
{
    std::vector<std::uint16_t> samples;
    const auto spot = [](double dx, double dy, double size) {
        return std::exp(-(dx * dx + dy * dy) / (2 * size * size));
    };
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const double heat = spot(x - 220, y - 180, 80) + 0.6 * spot(x - 450, y - 250, 60);
            samples.push_back(static_cast<std::uint16_t>(2000 + 55000 * std::fmin(heat, 1.0)));
        }
    return samples;
}

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication(); // sets up OpenGL, and so comes first
    QApplication application(argc, argv);
    std::vector<std::uint16_t> samples = measure(); // stays ours; the view reads it in place

    // A view is a widget like any other: here it stands in a layout, with a slider under it.
    QWidget window;
    auto* widget = new ovl::hosting::ViewWidget<ovl::ImageView>;
    auto* slider = new QSlider(Qt::Horizontal);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(widget, 1);
    layout->addWidget(slider);

    ovl::ImageView& view = widget->view();
    view.enableLookupTable(true);
    view.setAboveRangeColor(Qt::red);
    view.enableAboveRangeColor(true);
    view.setBelowRangeColor(Qt::blue);
    view.enableBelowRangeColor(true);

    view.drawScene(
        samples.data(), kWidth, kHeight, {1, 2}); // one sample per pixel, unsigned 16 bits

    // Settings are stored. They are seen with the next drawScene() or, on the same buffer,
    // redraw().
    QObject::connect(slider, &QSlider::valueChanged, widget, [&view](int lowest) {
        view.setLookupTableRange(ovl::Range(lowest, lowest + kSpan));
        view.redraw();
    });
    slider->setRange(0, 60000 - kSpan);
    slider->setValue(15000);

    window.setWindowTitle("Lookup table");
    window.resize(kWidth, kHeight + 40);
    window.show();
    return application.exec();
}
