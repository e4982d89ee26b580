// SPDX-License-Identifier: BSD-3-Clause
#include "pictures.h"

#include "mainwindow.h"
#include "page.h"
#include <hosting/viewwidget.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QPixmap>

#include <cstdio>

namespace ovl::gallery {
namespace {

constexpr int kPatience = 20000; // ms; a software renderer may be slow on a busy machine

/** Lets the window come up and its layout settle, until the view can paint itself. */
bool waitForPaint(Page& page)
{
    bool painted = false;
    const auto connection = QObject::connect(
        page.viewWidget(), &hosting::AbstractViewWidget::rendered, [&painted] { painted = true; });
    QElapsedTimer watch;
    watch.start();
    while (!painted && watch.elapsed() < kPatience) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        page.viewWidget()->render(); // without a surface yet, this does nothing
    }
    QObject::disconnect(connection);
    return painted;
}

bool settle(Page& page)
{
    page.setPlaying(false);
    if (!waitForPaint(page)) // the mouse works from the first paint on
        return false;
    page.prepareForPicture();
    QApplication::processEvents();
    page.viewWidget()->render();
    return true;
}

bool fail(const QString& path, const char* problem)
{
    std::fprintf(stderr, "ovl-gallery: %s: %s\n", qUtf8Printable(path), problem);
    return false;
}

} // namespace

bool writePictures(MainWindow& window, const QString& folder, const QString& only)
{
    if (!QDir().mkpath(folder))
        return fail(folder, "the folder cannot be made");
    for (int index = 0; index < window.pageCount(); ++index) {
        if (!only.isEmpty() && window.pageName(index) != only)
            continue;
        const QString path = QDir(folder).filePath(window.pageName(index) + QStringLiteral(".png"));
        window.showPage(index);
        if (!settle(*window.currentPage()))
            return fail(path, "the page did not come up");
        if (!window.grab().toImage().convertToFormat(QImage::Format_RGB888).save(path, "png", 0))
            return fail(path, "the picture could not be written");
    }
    return true;
}

} // namespace ovl::gallery
