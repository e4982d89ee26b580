// SPDX-License-Identifier: BSD-3-Clause
#include "pictures.h"

#include "dragpictures.h"
#include "examplecontents.h"
#include "mainwindow.h"
#include "page.h"
#include "picturefile.h"
#include <hosting/viewwidget.h>
#include <visualization/coordinatessender.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QMouseEvent>
#include <QOpenGLWidget>
#include <QPixmap>

#include <cstdio>

namespace ovl::gallery {
namespace {

constexpr int kPatience = 20000; // ms; a software renderer may be slow on a busy machine
constexpr double kBeltAt = 278; // mm: three quarters of a part, under boss, slot and pads

struct ExamplePicture {
    const char* file;
    const char* page;
    Example example;
};

constexpr ExamplePicture kExamplePictures[] = {{"cloud-terrain.png", "cloud", Example::Terrain},
    {"surface-terrain.png", "surface", Example::Terrain},
    {"profile-eeg.png", "profile", Example::Recording}};

bool fail(const QString& path, const char* problem)
{
    std::fprintf(stderr, "ovl-gallery: %s: %s\n", qUtf8Printable(path), problem);
    return false;
}

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

/** As a user would ask what lies in the middle of a view. */
void pointAtMiddle(Page& page)
{
    QWidget* surface = page.viewWidget()->surface();
    const QPoint place(surface->width() * 2 / 5, surface->height() / 2);
    QMouseEvent event(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(surface, &event);
}

bool settle(MainWindow& window)
{
    for (int index = 0; index < window.pageCount(); ++index) {
        Page& page = *window.page(index);
        if (!page.isVisibleTo(&window))
            continue;
        if (!waitForPaint(page)) // the mouse works from the first paint on
            return false;
        page.prepareForPicture();
        QApplication::processEvents();
        page.viewWidget()->render();
    }
    pointAtMiddle(*window.currentPage());
    QApplication::processEvents();
    window.currentPage()->viewWidget()->render();
    // The status line may have changed in the meantime, and would be cut at its old width.
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return true;
}

bool writePicture(MainWindow& window, int page, const QString& path)
{
    window.showPage(page);
    if (!settle(window))
        return fail(path, "the page did not come up");
    return writePng(window.grab().toImage(), path)
        || fail(path, "the picture could not be written");
}

bool writeExamples(MainWindow& window, const QDir& folder)
{
    for (const ExamplePicture& picture : kExamplePictures) {
        window.openExample(picture.example);
        while (window.isOpening())
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        const QString path = folder.filePath(QString::fromLatin1(picture.file));
        if (!writePicture(window, window.pageNamed(QString::fromLatin1(picture.page)), path))
            return false;
    }
    return true;
}

bool writePages(MainWindow& window, const QDir& folder, const QString& only)
{
    for (int index = MainWindow::kAll; index < window.pageCount(); ++index) {
        const QString name
            = index == MainWindow::kAll ? QStringLiteral("all") : window.pageName(index);
        if (!only.isEmpty() && only != name)
            continue;
        const QString file = index == MainWindow::kAll ? QStringLiteral("gallery.png")
                                                       : QStringLiteral("gallery-%1.png").arg(name);
        if (!writePicture(window, index, folder.filePath(file)))
            return false;
    }
    return true;
}

} // namespace

bool writePictures(MainWindow& window, const Pictures& wanted)
{
    if (!QDir().mkpath(wanted.folder))
        return fail(wanted.folder, "the folder cannot be made");
    const QDir folder(wanted.folder);
    window.scanner().setRunning(false);
    window.scanner().moveTo(kBeltAt);
    if (!writePages(window, folder, wanted.page))
        return false;
    if (!wanted.page.isEmpty() || !wanted.examples)
        return true;
    window.scanner().moveTo(kBeltAt - 36); // another place of the part
    const QString line = folder.filePath(QStringLiteral("profile-laser-line.png"));
    return writePicture(window, window.pageNamed(QStringLiteral("profile")), line)
        && writeExamples(window, folder)
        && (writeDragPictures(folder.path())
            || fail(folder.path(), "the pictures of a drag could not be written"));
}

} // namespace ovl::gallery
