// SPDX-License-Identifier: BSD-3-Clause
#include "support/galleryfixture.h"
#include <gallery/examplecontents.h>
#include <gallery/jobbar.h>

#include <QAction>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>

#include <stdexcept>

using namespace ovl::gallery;
using ovl::test::kPatience;

namespace {

class Files : public ovl::test::GalleryFixture {
protected:
    /** A grid whose reading and filling take a while. */
    QString writeLargeGrid() const
    {
        const QByteArray row = QByteArray("123.25 ").repeated(900) + '\n';
        return write(
            "large.asc", "ncols 900\nnrows 700\ncellsize 1\n" + QByteArray(row).repeated(700));
    }

    JobBar& job() { return *window.findChild<JobBar*>(); }

    QAction& action(const char* keys)
    {
        for (QAction* each : window.findChildren<QAction*>())
            if (each->shortcut() == QKeySequence(keys))
                return *each;
        throw std::invalid_argument(keys);
    }

    void drop(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(
            QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &enter);
        entered = enter.isAccepted();
        if (!entered)
            return;
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &event);
    }

    bool entered = false;
};

TEST_F(Files, AreShownOnThePagesForTheirKinds)
{
    EXPECT_TRUE(open({writeImage(), writeTable(), writeGrid()}));
    for (const char* name : {"image", "profile", "cloud", "surface"}) {
        EXPECT_TRUE(page(name).showsFile()) << name;
        EXPECT_TRUE(page(name).source().startsWith("a.")) << qPrintable(page(name).source());
    }
    EXPECT_TRUE(label("file").contains("3 of 3")) << qPrintable(label("file"));
}

TEST_F(Files, TurnToAPageOfTheirKindWhenOneIsShownAlone)
{
    const struct {
        QString file;
        const char* page;
    } cases[] = {{writeGrid(), "cloud"}, {writeTable(), "profile"}, {writeImage(), "image"}};
    window.showPage(window.pageNamed("image"));
    for (const auto& wanted : cases) {
        SCOPED_TRACE(wanted.page);
        EXPECT_TRUE(open({wanted.file}));
        EXPECT_EQ(window.currentPage(), &page(wanted.page));
        EXPECT_EQ(window.shownPage(), window.pageNamed(wanted.page));
    }
}

TEST_F(Files, NextAndPreviousWalkThroughThem)
{
    ASSERT_TRUE(open({writeImage(), write("b.pgm", "P5\n2 1\n255\nab")}));
    EXPECT_TRUE(page("image").source().startsWith("b.pgm"));
    action("Alt+Right").trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isOpening(); }, kPatience));
    EXPECT_TRUE(page("image").source().startsWith("a.pgm")) << "round and round";
}

TEST_F(Files, WhatThereIsNothingToDoForIsGrey)
{
    for (const char* keys : {"Alt+Right", "Alt+Left", "Esc", "Ctrl+B"})
        EXPECT_FALSE(action(keys).isEnabled()) << keys;
    window.open({writeImage(), write("b.pgm", "P5\n2 1\n255\nab")});
    EXPECT_TRUE(action("Esc").isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isOpening(); }, kPatience));
    EXPECT_FALSE(action("Esc").isEnabled());
    for (const char* keys : {"Alt+Right", "Alt+Left", "Ctrl+B"})
        EXPECT_TRUE(action(keys).isEnabled()) << keys;
    action("Ctrl+B").trigger();
    EXPECT_FALSE(action("Ctrl+B").isEnabled());
}

TEST_F(Files, AnImageIsFromNoCameraAndOneLeadsBack)
{
    SettingsPanel& panel = *page("image").settings();
    ASSERT_TRUE(open({writeImage()}));
    EXPECT_EQ(panel.value("camera"), -1);
    panel.set("camera", 0);
    EXPECT_FALSE(page("image").showsFile());
    EXPECT_EQ(panel.value("camera"), 0);
}

TEST_F(Files, GapsAreToldWhereThereAreAny)
{
    ASSERT_TRUE(open({writeGrid()}));
    EXPECT_EQ(page("cloud").source(), "a.asc, 2 x 2 samples");
    ASSERT_TRUE(
        open({write("b.asc", "ncols 2\nnrows 2\ncellsize 1\nNODATA_value -1\n1 -1\n3 4\n")}));
    EXPECT_EQ(page("cloud").source(), "b.asc, 2 x 2 samples, 1 without data");
}

TEST_F(Files, ALongNameDoesNotWidenTheWindow)
{
    window.resize(900, 600);
    show("profile");
    const QByteArray name = QByteArray(200, 'n') + ".csv";
    ASSERT_TRUE(open({write(name.constData(), "x,y\n1,2\n3,4\n")}));
    EXPECT_FALSE(open({write(name.constData(), "x\n")}));
    EXPECT_TRUE(notice().findChild<QLabel*>()->toolTip().contains(name));
    QApplication::processEvents();
    EXPECT_EQ(window.width(), 900);
}

TEST_F(Files, ABadOneIsToldAndWhatWasThereStays)
{
    ASSERT_TRUE(open({writeGrid()}));
    const QString before = page("cloud").source();
    const ovl::hosting::AbstractViewWidget* view = page("cloud").viewWidget();
    EXPECT_FALSE(open({write("b.asc", "ncols 2\nnrows 2\ncellsize 1\n1 2\n3\n")}));
    EXPECT_FALSE(notice().isHidden());
    EXPECT_TRUE(noticeText().contains("b.asc: line 5")) << qPrintable(noticeText());
    EXPECT_EQ(page("cloud").source(), before);
    EXPECT_EQ(page("cloud").viewWidget(), view);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "nothing has to be answered";
}

TEST_F(Files, ABadOneDoesNotKeepTheNextFromBeingShown)
{
    EXPECT_FALSE(open({folder.filePath("nowhere.png"), writeTable()}));
    EXPECT_TRUE(noticeText().contains("no such file")) << qPrintable(noticeText());
    EXPECT_TRUE(page("profile").showsFile());
    EXPECT_TRUE(open({writeImage()}));
    EXPECT_TRUE(notice().isHidden()) << "a new file takes the old message away";
}

TEST_F(Files, OnlyAsManySamplesAreJoinedAsCanBeDrawn)
{
    const auto rows = [](int count) { return "x,y,z\n" + QByteArray("1,2,3\n").repeated(count); };
    EXPECT_TRUE(open({write("few.csv", rows(20000))}));
    EXPECT_TRUE(page("profile").settings()->editor("join")->isEnabled());
    EXPECT_TRUE(open({write("many.csv", rows(20001))}));
    EXPECT_FALSE(page("profile").settings()->editor("join")->isEnabled());
}

TEST_F(Files, RowsLeftOutAreRemarked)
{
    EXPECT_TRUE(open({write("a.csv", "x,y\n1,2\noops\n3,4\n")}));
    EXPECT_FALSE(notice().isHidden());
    EXPECT_TRUE(noticeText().contains("line 3")) << qPrintable(noticeText());
}

TEST_F(Files, ALongOneShowsItsProgressAndTheWindowLives)
{
    show("image"); // painting the others would take the window's time
    QSignalSpy moved(&window.scanner(), &Scanner::moved);
    window.scanner().setRunning(true);
    window.open({writeLargeGrid()});
    auto* bar = job().findChild<QProgressBar*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return job().isVisible() && bar->value() > 0; }, kPatience));
    EXPECT_FALSE(page("surface").showsFile()) << "nothing is seen of it before the end";
    moved.clear();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isOpening(); }, kPatience));
    EXPECT_GT(moved.count(), 0) << "the scanner goes on meanwhile";
    EXPECT_TRUE(page("surface").showsFile());
    EXPECT_FALSE(job().isVisible());
}

TEST_F(Files, CancelKeepsWhatWasShownWhereverItComes)
{
    ASSERT_TRUE(open({writeGrid()}));
    const QString before = page("surface").source();
    const QString large = writeLargeGrid();
    auto* bar = job().findChild<QProgressBar*>();
    for (const int reached : {0, 100, 700}) { // before, while it is read, while it is filled
        SCOPED_TRACE(reached);
        window.open({large, writeTable()});
        ASSERT_TRUE(QTest::qWaitFor([&] { return bar->value() >= reached; }, kPatience));
        ASSERT_TRUE(window.isOpening());
        job().findChild<QPushButton*>("cancel")->click();
        EXPECT_FALSE(window.isOpening());
        QTest::qWait(60);
        EXPECT_EQ(page("surface").source(), before);
        EXPECT_EQ(page("cloud").source(), before);
        EXPECT_FALSE(page("profile").showsFile()) << "those that waited are left too";
    }
    EXPECT_TRUE(open({writeImage()})) << "and the next one is opened as ever";
}

TEST_F(Files, TheWindowMayGoWhileOneIsRead)
{
    auto other = std::make_unique<MainWindow>();
    other->open({writeLargeGrid()});
    other.reset();
}

TEST_F(Files, AreDroppedOnTheWindow)
{
    drop({QUrl::fromLocalFile(writeImage()), QUrl::fromLocalFile(writeTable())});
    EXPECT_TRUE(entered);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isOpening(); }, kPatience));
    EXPECT_TRUE(page("image").showsFile());
    EXPECT_TRUE(page("profile").showsFile());
}

TEST_F(Files, WhatIsNoLocalFileCannotBeDropped)
{
    drop({QUrl("https://example.org/a.png")});
    EXPECT_FALSE(entered);
    drop({});
    EXPECT_FALSE(entered);
}

TEST_F(Files, ExamplesAreShownLikeFilesAndTheScannerComesBack)
{
    for (const Example example : {Example::Terrain, Example::Recording, Example::Slice}) {
        window.openExample(example);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isOpening(); }, kPatience));
    }
    for (const char* name : {"image", "profile", "cloud", "surface"})
        EXPECT_TRUE(page(name).showsFile()) << name;
    action("Ctrl+B").trigger();
    for (const char* name : {"image", "profile", "cloud", "surface"})
        EXPECT_FALSE(page(name).showsFile()) << name;
}

class Memory : public testing::Test {
protected:
    std::unique_ptr<QSettings> settings() const
    {
        return std::make_unique<QSettings>(folder.filePath("layout.ini"), QSettings::IniFormat);
    }

    QTemporaryDir folder;
};

TEST_F(Memory, TheLayoutIsRestored)
{
    {
        MainWindow window(settings());
        window.resize(1100, 700);
        window.showPage(window.pageNamed("cloud"));
        window.scanner().setSpeed(55);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, kPatience));
        window.findChild<QDockWidget*>("settings")->hide();
        window.close();
    }
    MainWindow window(settings());
    EXPECT_EQ(window.size(), QSize(1100, 700));
    EXPECT_EQ(window.shownPage(), window.pageNamed("cloud"));
    EXPECT_EQ(window.scanner().speed(), 55);
    EXPECT_TRUE(window.findChild<QDockWidget*>("settings")->isHidden());
}

TEST_F(Memory, AWindowOnAVanishedScreenComesBackToThisOne)
{
    {
        MainWindow window(settings());
        window.setGeometry(20000, 15000, 800, 600);
        window.close();
    }
    MainWindow window(settings());
    EXPECT_NE(QGuiApplication::screenAt(window.geometry().center()), nullptr);
}

TEST_F(Memory, NonsenseIsAsGoodAsNothing)
{
    {
        QFile file(folder.filePath("layout.ini"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[window]\ngeometry=nonsense\nlayout=@ByteArray(x)\npage=nowhere\n[scanner]\n"
                   "speed=fast\n");
    }
    MainWindow window(settings());
    EXPECT_EQ(window.shownPage(), MainWindow::kAll);
    EXPECT_EQ(window.scanner().speed(), Scanner::kSlowest);
    EXPECT_GT(window.width(), 300);
}

} // namespace
