// SPDX-License-Identifier: BSD-3-Clause
// A grid of samples as a surface, with buttons for how it is drawn and how far its heights are
// stretched.
#include <hosting/viewwidget.h>
#include <visualization/surfaceview.h>

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>

#include <cmath>

constexpr int kColumns = 120;
constexpr int kRows = 100;

/** One frame: all points in their order, the four ranges, draw. */
void drawTerrain(ovl::SurfaceView& view)
{
    view.setScene(kColumns, kRows);
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column) {
            const double z = 20 * std::sin(column * 0.06) * std::cos(row * 0.08)
                + 3 * std::sin(column * 0.31 + row * 0.17);
            // The index runs along the first side fastest: it tells which points are neighbours.
            view.setPoint(column + row * kColumns, column, row, z, z); // the last gives the colour
            view.range(2).accumulate(z);
            view.range(3).accumulate(z);
        }
    view.range(0).set(0, kColumns - 1);
    view.range(1).set(0, kRows - 1);
    view.drawScene();
    view.setXPositionCorrection(0.1); // the camera's place; at the default of 1 all is far away
    view.setYPositionCorrection(0.1);
    view.resetCamera();
}

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication(); // sets up OpenGL, and so comes first
    QApplication application(argc, argv);

    QWidget window;
    auto* widget = new ovl::hosting::ViewWidget<ovl::SurfaceView>;
    auto* look = new QComboBox;
    auto* stretch = new QDoubleSpinBox;
    auto* layout = new QGridLayout(&window);
    layout->addWidget(widget, 0, 0, 1, 2);
    layout->addWidget(look, 1, 0);
    layout->addWidget(stretch, 1, 1);
    layout->setRowStretch(0, 1);

    ovl::SurfaceView& view = widget->view();
    drawTerrain(view);

    // Both take effect at once: they mark the view dirty, and its widget repaints it.
    look->addItems({"Surface", "Points", "Wireframe"});
    QObject::connect(look, QOverload<int>::of(&QComboBox::currentIndexChanged), widget,
        [&view](int index) { view.setRepresentation(static_cast<ovl::Representation>(index)); });
    stretch->setRange(0.5, 5);
    stretch->setValue(1);
    stretch->setSingleStep(0.5);
    stretch->setPrefix("heights x ");
    QObject::connect(stretch, QOverload<double>::of(&QDoubleSpinBox::valueChanged), widget,
        [&view](double factor) { view.setZScale(factor); });

    window.setWindowTitle("Surface");
    window.resize(800, 600);
    window.show();
    return application.exec();
}
