// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_GALLERYFIXTURE_H
#define OVL_TESTS_SUPPORT_GALLERYFIXTURE_H

#include "patience.h"
#include <gallery/mainwindow.h>
#include <gallery/noticebar.h>
#include <gallery/page.h>
#include <gallery/settingspanel.h>
#include <hosting/viewwidget.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMouseEvent>
#include <QOpenGLWidget>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace ovl::test {

/** The gallery's window on the virtual screen, its scanner at rest, and a folder for files. */
class GalleryFixture : public testing::Test {
protected:
    GalleryFixture() { window.scanner().setRunning(false); }

    gallery::Page& page(const char* name)
    {
        return *window.page(window.pageNamed(QString::fromLatin1(name)));
    }

    /** Shows a page alone, or "all" of them, until it is painted. */
    void show(const char* name)
    {
        window.showPage(window.pageNamed(QString::fromLatin1(name)));
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, kPatience));
        for (int index = 0; index < window.pageCount(); ++index) {
            hosting::AbstractViewWidget& shown = *window.page(index)->viewWidget();
            if (!shown.isVisible())
                continue;
            QSignalSpy rendered(&shown, &hosting::AbstractViewWidget::rendered);
            shown.render();
            ASSERT_GT(rendered.count(), 0);
        }
    }

    QString write(const char* name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QString writeImage() const { return write("a.pgm", "P5\n4 2\n255\nabcdefgh"); }
    QString writeTable() const { return write("a.csv", "x,y\n1,2\n3,4\n"); }
    QString writeGrid() const { return write("a.asc", "ncols 2\nnrows 2\ncellsize 1\n1 2\n3 4\n"); }

    /** Opens files and waits until they are shown or refused; whether all are shown. */
    bool open(const QStringList& paths)
    {
        const int before = window.failures();
        window.open(paths);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window.isOpening(); }, kPatience));
        return window.failures() == before;
    }

    gallery::NoticeBar& notice() { return *window.findChild<gallery::NoticeBar*>(); }
    QString noticeText() { return notice().findChild<QLabel*>()->text(); }
    QString label(const char* name) { return window.findChild<QLabel*>(name)->text(); }
    QString coordinates() { return label("coordinates"); }

    static void moveMouseToMiddle(gallery::Page& over)
    {
        QWidget* surface = over.viewWidget()->surface();
        QMouseEvent event(QEvent::MouseMove, surface->rect().center(), Qt::NoButton, Qt::NoButton,
            Qt::NoModifier);
        QApplication::sendEvent(surface, &event);
    }

    QTemporaryDir folder;
    gallery::MainWindow window;
};

} // namespace ovl::test

#endif
