// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/mainwindow.h>
#include <gallery/noticebar.h>
#include <gallery/page.h>
#include <hosting/viewwidget.h>
#include <visualization/coordinatessender.h>

#include <QAction>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QOpenGLWidget>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace ovl::gallery;

namespace {

class Window : public testing::Test {
protected:
    void show(const char* page)
    {
        window.showPage(window.pageNamed(QString::fromLatin1(page)));
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QSignalSpy rendered(
            window.currentPage()->viewWidget(), &ovl::hosting::AbstractViewWidget::rendered);
        window.currentPage()->viewWidget()->render();
        ASSERT_GT(rendered.count(), 0);
    }

    QString write(const char* name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    NoticeBar& notice() { return *window.findChild<NoticeBar*>(); }
    QString noticeText() { return notice().findChild<QLabel*>()->text(); }
    QString coordinates() { return window.findChild<QLabel*>("coordinates")->text(); }

    void moveMouseToMiddle()
    {
        QWidget* surface = window.currentPage()->viewWidget()->surface();
        QMouseEvent event(QEvent::MouseMove, surface->rect().center(), Qt::NoButton, Qt::NoButton,
            Qt::NoModifier);
        QApplication::sendEvent(surface, &event);
    }

    QTemporaryDir folder;
    MainWindow window;
};

TEST_F(Window, ThePageForAFileIsShown)
{
    const QString image = write("a.pgm", "P5\n4 2\n255\nabcdefgh");
    const QString table = write("a.csv", "x,y\n1,2\n3,4\n");
    const QString grid = write("a.asc", "ncols 2\nnrows 2\ncellsize 1\n1 2\n3 4\n");
    const struct {
        QString file;
        const char* page;
    } cases[] = {{grid, "cloud"}, {table, "profile"}, {image, "image"}};
    for (const auto& wanted : cases) {
        SCOPED_TRACE(wanted.page);
        EXPECT_TRUE(window.open(wanted.file));
        Page* page = window.currentPage();
        EXPECT_FALSE(page->canPlay()) << "a file stands still";
        window.showPage(window.pageNamed(QString::fromLatin1(wanted.page)));
        EXPECT_EQ(window.currentPage(), page);
    }
}

TEST_F(Window, ABadFileIsToldAndWhatWasThereStays)
{
    window.showPage(window.pageNamed("image"));
    Page* page = window.currentPage();
    EXPECT_TRUE(notice().isHidden());
    EXPECT_FALSE(window.open(write("bad.pgm", "P5\n")));
    EXPECT_FALSE(notice().isHidden());
    EXPECT_TRUE(noticeText().contains("bad.pgm")) << qPrintable(noticeText());
    EXPECT_TRUE(noticeText().contains("header")) << qPrintable(noticeText());
    EXPECT_EQ(window.currentPage(), page);
    EXPECT_TRUE(page->canPlay()) << "the simulation goes on";
}

TEST_F(Window, ABadGridLeavesTheLastOneShown)
{
    ASSERT_TRUE(window.open(write("a.asc", "ncols 2\nnrows 2\ncellsize 1\n1 2\n3 4\n")));
    QSignalSpy changed(window.currentPage(), &Page::sourceChanged);
    EXPECT_FALSE(window.open(write("b.asc", "ncols 2\nnrows 2\ncellsize 1\n1 2\n3\n")));
    EXPECT_TRUE(noticeText().contains("line 5")) << qPrintable(noticeText());
    EXPECT_EQ(changed.count(), 0);
    EXPECT_FALSE(window.currentPage()->canPlay());
}

TEST_F(Window, RowsLeftOutAreRemarked)
{
    EXPECT_TRUE(window.open(write("a.csv", "x,y\n1,2\noops\n3,4\n")));
    EXPECT_FALSE(notice().isHidden());
    EXPECT_TRUE(noticeText().contains("line 3")) << qPrintable(noticeText());
    EXPECT_TRUE(window.open(write("b.csv", "x,y\n1,2\n3,4\n")));
    EXPECT_TRUE(notice().isHidden()) << "a new file takes the old message away";
}

TEST_F(Window, StatusTellsTheRawSampleUnderTheMouse)
{
    QImage grey(64, 64, QImage::Format_Grayscale16);
    grey.fill(0);
    for (int row = 0; row < 64; ++row)
        for (int column = 0; column < 64; ++column)
            reinterpret_cast<quint16*>(grey.scanLine(row))[column]
                = static_cast<quint16>(1000 * row + column);
    const QString path = folder.filePath("grey.png");
    ASSERT_TRUE(grey.save(path));
    ASSERT_TRUE(window.open(path));
    show("image");
    moveMouseToMiddle();
    const QStringList words = coordinates().split(' ', Qt::SkipEmptyParts);
    ASSERT_EQ(words.size(), 6) << qPrintable(coordinates());
    const int column = words[1].toInt();
    const int row = words[3].toInt();
    EXPECT_NEAR(column, 32, 1);
    EXPECT_NEAR(row, 32, 1);
    EXPECT_EQ(words[5].toInt(), 1000 * row + column);
    ovl::CoordinatesSender::clearCoordinates();
    EXPECT_TRUE(coordinates().isEmpty());
}

TEST_F(Window, StatusTellsTheSampleOfASurfaceEvenOfAFlatOne)
{
    QByteArray text("ncols 20\nnrows 20\nxllcenter 100\nyllcenter 200\ncellsize 1\n");
    for (int row = 0; row < 20; ++row) {
        for (int column = 0; column < 20; ++column)
            text += QByteArray::number(7) + ' ';
        text += '\n';
    }
    ASSERT_TRUE(window.open(write("flat.asc", text)));
    show("surface");
    moveMouseToMiddle();
    EXPECT_TRUE(coordinates().contains("z 7.0")) << qPrintable(coordinates());
}

TEST_F(Window, OnlyThePageOnTheScreenRuns)
{
    show("image");
    Page* image = window.currentPage();
    EXPECT_TRUE(image->isPlaying());
    QSignalSpy rendered(image->viewWidget(), &ovl::hosting::AbstractViewWidget::rendered);
    EXPECT_TRUE(rendered.wait(20000)) << "frames come by themselves";
    show("profile");
    rendered.clear();
    QTest::qWait(150);
    EXPECT_EQ(rendered.count(), 0);
}

TEST_F(Window, PauseHoldsTheFrame)
{
    show("image");
    window.currentPage()->setPlaying(false);
    window.currentPage()->viewWidget()->render();
    QSignalSpy rendered(
        window.currentPage()->viewWidget(), &ovl::hosting::AbstractViewWidget::rendered);
    EXPECT_FALSE(rendered.wait(150));
    window.currentPage()->step();
    EXPECT_TRUE(rendered.wait(20000));
}

TEST_F(Window, EveryPageComesUpAndGoes)
{
    for (const char* page : {"image", "profile", "cloud", "surface"}) {
        SCOPED_TRACE(page);
        show(page);
        window.currentPage()->step();
        window.currentPage()->resetView();
        window.currentPage()->setPanelVisible(false);
    }
    EXPECT_EQ(window.pageNamed("nonsense"), -1);
}

} // namespace
