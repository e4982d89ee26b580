// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_HOSTING_VIEWWIDGET_H
#define OVL_HOSTING_VIEWWIDGET_H

#include <visualization/view.h>

#include <QWidget>

#include <memory>
#include <type_traits>
#include <utility>

#if defined(_WIN32)
#if defined(ovl_hosting_EXPORTS)
#define OVL_HOSTING_EXPORT __declspec(dllexport)
#else
#define OVL_HOSTING_EXPORT __declspec(dllimport)
#endif
#else
#define OVL_HOSTING_EXPORT __attribute__((visibility("default")))
#endif

class QOpenGLWidget;

namespace ovl::hosting {

/** Sets what the framework wants of every OpenGL surface; call it once, before QApplication is
 * made.
 */
OVL_HOSTING_EXPORT void prepareApplication();

/**
 * What ViewWidget is without its view: owns the framework's widget and keeps it painted: at the
 * display's pace it looks at the view's isDirty(), and when the flag is up it renders the window
 * and clears the flag.
 *
 * A bare QWidget::update() would only show the last frame again.
 */
class OVL_HOSTING_EXPORT AbstractViewWidget : public QWidget {
    Q_OBJECT

public:
    /** The widget that a view is made on; fills this one. */
    QOpenGLWidget* surface() const;

    /**
     * Renders now, whether the view is dirty or not, and clears its flag. Does nothing, and leaves
     * the flag, while the widget is hidden or has no OpenGL context yet.
     */
    void render();

Q_SIGNALS:
    /** The view has been rendered and its flag cleared. */
    void rendered();

protected:
    /** Makes the surface; nothing is painted before watch(). */
    explicit AbstractViewWidget(QWidget* parent);
    ~AbstractViewWidget() override;

    /** The view on surface() to look after; it is rendered once in any case. Null ends it. Not
     * owned. */
    void watch(View* view);

    /** Mouse events end here, as they would in any widget that uses them. */
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

/**
 * A widget that shows one view and owns it: `ViewWidget<ImageView> widget;`, then
 * `widget.view().drawScene(...)`.
 */
template <class ViewType> class ViewWidget : public AbstractViewWidget {
public:
    /** What the view's constructor takes behind the widget follows the parent. */
    template <class... Arguments>
    explicit ViewWidget(QWidget* parent = nullptr, Arguments&&... arguments)
        : AbstractViewWidget(parent)
        , shown(std::make_unique<ViewType>(surface(), std::forward<Arguments>(arguments)...))
    {
        static_assert(std::is_constructible<ViewType, QOpenGLWidget*, Arguments...>::value,
            "the view wants other arguments behind the parent: ViewWidget<ProfileView>(parent, 2)");
        watch(shown.get());
    }

    ~ViewWidget() override { watch(nullptr); }

    /** The view; lives as long as this widget. */
    ViewType& view() { return *shown; }

private:
    std::unique_ptr<ViewType> shown; // goes before the widget that it stands on
};

} // namespace ovl::hosting

#endif
