// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_HOSTFIXTURE_H
#define OVL_TESTS_SUPPORT_HOSTFIXTURE_H

#include <visualization/vtkcompat.h>

#include <QColor>
#include <QEvent>
#include <QImage>
#include <QPointF>
#include <QSize>

#include <memory>

class vtkRenderer;

namespace ovl::test {

/**
 * A real host widget on the (virtual) screen, driven by real Qt events.
 *
 * Events go straight to the widget and have been handled on return. Positions are Qt's: pixels from
 * the widget's upper left corner.
 */
class HostFixture {
public:
    explicit HostFixture(QSize size = {300, 200});
    virtual ~HostFixture();

    HostFixture(const HostFixture&) = delete;
    HostFixture& operator=(const HostFixture&) = delete;

    compat::HostWidget* widget() { return host.get(); }
    vtkRenderWindow* window() { return compat::renderWindow(host.get()); }
    /** The renderer that was put on the window first; null when there is none. */
    vtkRenderer* renderer();

    void resize(QSize size);
    /** Deletes the widget, as a host might do before its view. */
    void destroyWidget();

    /** Renders the window: the only thing that draws, and the first time wakes the interactor. */
    void render();
    /** What the last render() drew. */
    QImage picture();
    /** Renders, then answers the colour at `at`. */
    QColor pixel(QPointF at);

    void press(QPointF at, Qt::MouseButton button = Qt::LeftButton,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /** A move with the buttons that are down since their press(). */
    void move(QPointF to, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void release(QPointF at, Qt::MouseButton button = Qt::LeftButton,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClick(QPointF at, Qt::MouseButton button = Qt::LeftButton);
    /** Press at `from`, `steps` equal moves to `to`, release there. */
    void drag(QPointF from, QPointF to, Qt::MouseButton button = Qt::LeftButton, int steps = 1,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /** Turns the wheel by so many notches, forward (away from the user) for positive numbers. */
    void wheel(QPointF at, int notches);
    void key(int key, const QString& text);

private:
    void mouse(
        QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);

    std::unique_ptr<compat::HostWidget> host;
    Qt::MouseButtons held = Qt::NoButton;
};

/** A host widget with a view on it. The view goes first, as it must. */
template <class ViewType> class ViewFixture : public HostFixture {
public:
    template <class... Arguments>
    explicit ViewFixture(QSize size = {300, 200}, Arguments&&... arguments)
        : HostFixture(size)
        , view(std::make_unique<ViewType>(widget(), std::forward<Arguments>(arguments)...))
    {
    }

    std::unique_ptr<ViewType> view;
};

} // namespace ovl::test

#endif
