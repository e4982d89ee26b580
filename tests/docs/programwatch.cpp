// SPDX-License-Identifier: BSD-3-Clause
// Linked to a program of our documents as it stands there: ends it with 0 as soon as every OpenGL
// widget of its windows shows a picture, and with 1 when that takes too long.
#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QOpenGLWidget>
#include <QTimer>

#include <cstdio>
#include <set>

namespace {

constexpr int kLook = 50; // ms
constexpr int kPatience = 60000; // ms; a sanitizer's build on a busy machine takes its time

/** An empty view shows two colours at most, its background and a black square. */
bool showsSomething(QOpenGLWidget* widget)
{
    const QImage picture = widget->grabFramebuffer().convertToFormat(QImage::Format_RGB32);
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (colours.insert(picture.pixel(x, y)).second && colours.size() > 2)
                return true;
    return false;
}

bool allShowSomething()
{
    int widgets = 0;
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* surface = qobject_cast<QOpenGLWidget*>(widget);
        if (!surface)
            continue;
        ++widgets;
        if (!surface->isVisible() || !surface->isValid() || !showsSomething(surface))
            return false;
    }
    return widgets > 0;
}

void watch()
{
    auto* timer = new QTimer(QCoreApplication::instance());
    auto waited = QElapsedTimer();
    waited.start();
    QObject::connect(timer, &QTimer::timeout, [waited] {
        if (allShowSomething())
            return QCoreApplication::exit(0);
        if (waited.elapsed() > kPatience) {
            std::fprintf(stderr, "a window of the program shows nothing\n");
            QCoreApplication::exit(1);
        }
    });
    timer->start(kLook);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
