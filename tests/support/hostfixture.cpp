// SPDX-License-Identifier: BSD-3-Clause
#include "hostfixture.h"

#include "patience.h"

#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace ovl::test {

HostFixture::HostFixture(QSize size)
    : host(std::make_unique<compat::HostWidget>())
{
    host->resize(size);
    host->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(host.get(), kPatience));
}

HostFixture::~HostFixture() = default;

vtkRenderer* HostFixture::renderer() { return window()->GetRenderers()->GetFirstRenderer(); }

void HostFixture::resize(QSize size) { host->resize(size); }

void HostFixture::destroyWidget() { host.reset(); }

void HostFixture::render() { window()->Render(); }

QImage HostFixture::picture() { return host->grabFramebuffer(); }

QColor HostFixture::pixel(QPointF at)
{
    render();
    return picture().pixelColor(at.toPoint());
}

void HostFixture::mouse(
    QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, at, QPointF(host->mapToGlobal(at.toPoint())), button, held, modifiers);
    QApplication::sendEvent(host.get(), &event);
}

void HostFixture::press(QPointF at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    held |= button;
    mouse(QEvent::MouseButtonPress, at, button, modifiers);
}

void HostFixture::move(QPointF to, Qt::KeyboardModifiers modifiers)
{
    mouse(QEvent::MouseMove, to, Qt::NoButton, modifiers);
}

void HostFixture::release(QPointF at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    held &= ~Qt::MouseButtons(button);
    mouse(QEvent::MouseButtonRelease, at, button, modifiers);
}

void HostFixture::doubleClick(QPointF at, Qt::MouseButton button)
{
    press(at, button);
    release(at, button);
    held |= button;
    mouse(QEvent::MouseButtonDblClick, at, button, Qt::NoModifier);
}

void HostFixture::drag(
    QPointF from, QPointF to, Qt::MouseButton button, int steps, Qt::KeyboardModifiers modifiers)
{
    press(from, button, modifiers);
    for (int step = 1; step <= steps; ++step)
        move(from + (to - from) * step / steps, modifiers);
    release(to, button, modifiers);
}

void HostFixture::wheel(QPointF at, int notches)
{
    const QPoint global = host->mapToGlobal(at.toPoint());
    for (int notch = 0; notch < std::abs(notches); ++notch) {
        QWheelEvent event(at, global, QPoint(), QPoint(0, notches > 0 ? 120 : -120), held,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(host.get(), &event);
    }
}

void HostFixture::key(int key, const QString& text)
{
    QKeyEvent pressed(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(host.get(), &pressed);
    QKeyEvent released(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(host.get(), &released);
}

} // namespace ovl::test
