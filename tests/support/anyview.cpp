// SPDX-License-Identifier: BSD-3-Clause
#include "anyview.h"

#include "charteventfixture.h"
#include <visualization/imageview.h>
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/pointcloudview.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>
#include <visualization/surfaceview.h>

#include <array>

namespace ovl::test {
namespace {

std::unique_ptr<View> makeImage(QOpenGLWidget* widget, int variant)
{
    static std::array<unsigned char, 64 * 64> pixels {}; // in place; longer than any view
    auto view = std::make_unique<ImageView>(widget);
    view->drawScene(pixels.data(), 32 + variant, 24 + variant, {1, 0});
    return view;
}

Shape square(ProfileView* view)
{
    Shape shape;
    shape.setTitle("square");
    shape.setInteractive(true);
    shape.setCanDragAlongX(true);
    ChartEventFixture::addRectangle(shape, 300, 300, 700, 700);
    shape.setXTranslationCallback([view](double dx) {
        Shape* shown = view->shape("square");
        for (int i = 0; i < shown->numberOfLines(); ++i)
            for (Point* end : {shown->line(i)->p1(), shown->line(i)->p2()})
                end->setX(end->x() + dx);
    });
    return shape;
}

std::unique_ptr<View> makeProfile(QOpenGLWidget* widget, int variant)
{
    auto view = std::make_unique<ProfileView>(widget, 2);
    view->setNumberOfValues(10 + variant);
    for (int row = 0; row < view->numberOfValues(); ++row) {
        view->setValue(0, row, 100.0 * row);
        view->setValue(1, row, 50.0 * (row % 7));
    }
    view->drawPlots();
    view->addShape(square(view.get()));
    view->drawShapes();
    view->resetView();
    return view;
}

template <class ViewType> std::unique_ptr<View> makeSpace(QOpenGLWidget* widget, int variant)
{
    auto view = std::make_unique<ViewType>(widget);
    const int columns = 6 + variant;
    constexpr int rows = 5;
    view->setScene(columns, rows);
    for (int i = 0; i < columns * rows; ++i)
        view->setPoint(i, i % columns, i / columns, i % 3, i);
    view->range(0).set(0, columns - 1);
    view->range(1).set(0, rows - 1);
    view->range(2).set(0, 2);
    view->range(3).set(0, columns * rows);
    view->drawScene();
    view->resetCamera();
    return view;
}

} // namespace

const char* nameOf(ViewKind kind)
{
    constexpr const char* names[] = {"ImageView", "ProfileView", "PointCloudView", "SurfaceView"};
    return names[static_cast<int>(kind)];
}

std::unique_ptr<View> makeView(ViewKind kind, QOpenGLWidget* widget, int variant)
{
    switch (kind) {
    case ViewKind::Image:
        return makeImage(widget, variant);
    case ViewKind::Profile:
        return makeProfile(widget, variant);
    case ViewKind::PointCloud:
        return makeSpace<PointCloudView>(widget, variant);
    case ViewKind::Surface:
    default:
        return makeSpace<SurfaceView>(widget, variant);
    }
}

} // namespace ovl::test
