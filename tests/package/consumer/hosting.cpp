// SPDX-License-Identifier: BSD-3-Clause
// Every public header at once, an object of each class, and all views in widgets of ovl::hosting.
#include <hosting/viewwidget.h>
#include <visualization/bufferdescriptor.h>
#include <visualization/colorscheme.h>
#include <visualization/coordinatessender.h>
#include <visualization/export.h>
#include <visualization/imageview.h>
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/pointcloudview.h>
#include <visualization/profileview.h>
#include <visualization/range.h>
#include <visualization/representation.h>
#include <visualization/shape.h>
#include <visualization/surfaceview.h>
#include <visualization/view.h>

#include <QApplication>
#include <QHBoxLayout>

#include <vector>

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication();
    QApplication application(argc, argv);

    std::vector<unsigned char> pixels(64, 128);
    QWidget window;
    ovl::hosting::ViewWidget<ovl::ImageView> image(&window);
    image.view().drawScene(pixels.data(), 8, 8, {1, 0});
    image.view().setLookupTableRange(ovl::Range(0, 255));

    ovl::hosting::ViewWidget<ovl::ProfileView> profile(&window, 2);
    ovl::Shape shape;
    shape.addLine(ovl::Point(0, 0), ovl::Line({1, 1}, {3, 3}).center());
    profile.view().addShape(shape);
    profile.view().drawShapes();

    ovl::hosting::ViewWidget<ovl::PointCloudView> cloud;
    cloud.view().setColorScheme(ovl::ColorScheme::WARM);
    ovl::hosting::ViewWidget<ovl::SurfaceView> surface;
    surface.view().setRepresentation(ovl::Representation::Wireframe);

    int rendered = 0;
    const auto count = [&] {
        if (++rendered == 2)
            application.quit();
    };
    QObject::connect(&image, &ovl::hosting::AbstractViewWidget::rendered, count);
    QObject::connect(&profile, &ovl::hosting::AbstractViewWidget::rendered, count);
    QHBoxLayout layout(&window);
    layout.addWidget(&image);
    layout.addWidget(&profile);
    window.resize(640, 240);
    window.show();
    const int result = application.exec();
    return ovl::CoordinatesSender::instance() && !image.view().isDirty() ? result : 1;
}
