// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_ANYVIEW_H
#define OVL_TESTS_SUPPORT_ANYVIEW_H

#include <memory>

class QOpenGLWidget;

namespace ovl {

class View;

namespace test {

/** The four kinds of views, for tests of what they have in common. */
enum class ViewKind { Image, Profile, PointCloud, Surface };

constexpr ViewKind kViewKinds[]
    = {ViewKind::Image, ViewKind::Profile, ViewKind::PointCloud, ViewKind::Surface};

const char* nameOf(ViewKind kind);

/**
 * A view with something in the middle of its widget for the mouse to find: an image, a shape that
 * can be dragged over curves, points, or a surface. `variant` changes the amount of data.
 */
std::unique_ptr<View> makeView(ViewKind kind, QOpenGLWidget* widget, int variant = 0);

} // namespace test
} // namespace ovl

#endif
