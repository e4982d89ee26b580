// SPDX-License-Identifier: BSD-3-Clause
#include "support/galleryfixture.h"
#include <gallery/cloudpage.h>
#include <gallery/imagepage.h>
#include <gallery/profilepage.h>
#include <gallery/surfacepage.h>
#include <visualization/coordinatessender.h>

#include <QAction>
#include <QDockWidget>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSlider>
#include <QTabBar>

#include <map>

using namespace ovl::gallery;
using ovl::test::kPatience;

namespace {

using Window = ovl::test::GalleryFixture;

template <class ViewType> ViewType& viewOf(Page& page)
{
    return static_cast<ovl::hosting::ViewWidget<ViewType>*>(page.viewWidget())->view();
}

TEST_F(Window, TheScannerFeedsAllPagesAtOnce)
{
    show("all");
    std::vector<std::unique_ptr<QSignalSpy>> frames;
    for (int index = 0; index < window.pageCount(); ++index)
        frames.push_back(std::make_unique<QSignalSpy>(window.page(index), &Page::frameTaken));
    window.scanner().moveTo(Conveyor::kPitch + 10); // another part: the surface is new too
    for (int index = 0; index < window.pageCount(); ++index)
        EXPECT_EQ(frames[static_cast<std::size_t>(index)]->count(), 1)
            << qPrintable(window.pageName(index));
    EXPECT_EQ(viewOf<ovl::PointCloudView>(page("cloud")).yResolution(), PartScan::kProfiles / 10);
    EXPECT_EQ(viewOf<ovl::SurfaceView>(page("surface")).yResolution(), PartScan::kProfiles);
}

TEST_F(Window, APageThatWasHiddenShowsTheScannersPresentPlace)
{
    show("image");
    window.scanner().moveTo(0.5 * Conveyor::kPitch);
    EXPECT_NE(viewOf<ovl::PointCloudView>(page("cloud")).yResolution(), PartScan::kProfiles / 2);
    show("cloud");
    EXPECT_EQ(viewOf<ovl::PointCloudView>(page("cloud")).yResolution(), PartScan::kProfiles / 2);
}

TEST_F(Window, RunsUntilItIsPausedAndShowsTheMeasuredRate)
{
    show("image");
    QSignalSpy frames(&page("image"), &Page::frameTaken);
    window.scanner().setRunning(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return frames.count() > 3; }, kPatience));
    EXPECT_TRUE(QTest::qWaitFor([&] { return page("image").frameRate() > 0; }, kPatience));
    window.scanner().setRunning(false);
    frames.clear();
    QTest::qWait(100);
    EXPECT_EQ(frames.count(), 0);
    EXPECT_TRUE(label("rates").contains("Surface \u2013")) << qPrintable(label("rates"));
}

TEST_F(Window, TheScannersControlsReachIt)
{
    auto* run = window.findChild<QPushButton*>("run");
    EXPECT_EQ(run->text(), "Start");
    run->click();
    EXPECT_TRUE(window.scanner().isRunning());
    EXPECT_EQ(run->text(), "Pause");
    run->click();
    EXPECT_FALSE(window.scanner().isRunning());
    window.findChild<QSlider*>("speed")->setValue(77);
    EXPECT_EQ(window.scanner().speed(), 77);
    window.scanner().moveTo(500);
    window.findChild<QPushButton*>("restart")->click();
    EXPECT_DOUBLE_EQ(window.scanner().simulation().position(), ScannerSimulation::kStart);
}

TEST_F(Window, OnePageOrAllAreShown)
{
    show("all");
    EXPECT_EQ(window.shownPage(), MainWindow::kAll);
    for (int index = 0; index < window.pageCount(); ++index)
        EXPECT_TRUE(window.page(index)->isVisible());
    window.findChild<QTabBar*>("pages")->setCurrentIndex(2);
    EXPECT_EQ(window.shownPage(), 1);
    EXPECT_TRUE(page("profile").isVisible());
    EXPECT_FALSE(page("image").isVisible());
    bool known = true;
    EXPECT_EQ(window.pageNamed("nonsense", &known), MainWindow::kAll);
    EXPECT_FALSE(known);
}

TEST_F(Window, TheStatusLineTellsTheRawSampleOfTheViewUnderTheMouse)
{
    QImage grey(64, 64, QImage::Format_Grayscale16);
    for (int row = 0; row < 64; ++row)
        for (int column = 0; column < 64; ++column)
            reinterpret_cast<quint16*>(grey.scanLine(row))[column]
                = static_cast<quint16>(1000 * row + column);
    const QString path = folder.filePath("grey.png");
    ASSERT_TRUE(grey.save(path));
    show("all");
    ASSERT_TRUE(open({path}));
    page("image").viewWidget()->render();
    moveMouseToMiddle(page("image"));
    const QStringList words = coordinates().split(' ', Qt::SkipEmptyParts);
    ASSERT_EQ(words.size(), 8) << qPrintable(coordinates());
    EXPECT_EQ(words[0] + words[1], "Rangeimage");
    const int column = words[3].toInt();
    const int row = words[5].toInt();
    EXPECT_NEAR(column, 32, 1);
    EXPECT_NEAR(row, 32, 1);
    EXPECT_EQ(words[7].toInt(), 1000 * row + column);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(page("image").viewWidget()->surface(), &leave);
    EXPECT_TRUE(coordinates().isEmpty());
}

TEST_F(Window, TheStatusLineTellsTheSampleOfASurfaceEvenOfAFlatOne)
{
    QByteArray text("ncols 20\nnrows 20\nxllcenter 100\nyllcenter 200\ncellsize 1\n");
    for (int row = 0; row < 20; ++row)
        text += QByteArray("7 ").repeated(20) + '\n';
    ASSERT_TRUE(open({write("flat.asc", text)}));
    show("surface");
    moveMouseToMiddle(page("surface"));
    EXPECT_TRUE(coordinates().startsWith("Surface")) << qPrintable(coordinates());
    EXPECT_TRUE(coordinates().contains("z 7.0")) << qPrintable(coordinates());
}

TEST_F(Window, ThePageThatIsPressedHasTheDock)
{
    show("all");
    auto* dock = window.findChild<QDockWidget*>("settings");
    for (const char* name : {"surface", "profile", "image", "cloud"}) {
        SCOPED_TRACE(name);
        QTest::mouseClick(page(name).viewWidget()->surface(), Qt::LeftButton);
        EXPECT_EQ(window.currentPage(), &page(name));
        EXPECT_TRUE(page(name).settings()->isVisible());
        EXPECT_TRUE(dock->windowTitle().contains(page(name).title()));
    }
}

TEST_F(Window, SettingsReachTheImageView)
{
    SettingsPanel& panel = *page("image").settings();
    auto& view = viewOf<ovl::ImageView>(page("image"));
    panel.set("camera", 1);
    EXPECT_EQ(view.shift(), 4);
    panel.set("shift", 6);
    EXPECT_EQ(view.shift(), 6);
    panel.set("table", true);
    EXPECT_TRUE(view.lookupTableEnabled());
    panel.set("darkest", 100);
    panel.set("brightest", 900);
    EXPECT_EQ(view.lookupTableRange().min(), 100);
    EXPECT_EQ(view.lookupTableRange().max(), 900);
    panel.set("above", true);
    EXPECT_TRUE(view.aboveRangeColorEnabled());
    panel.set("below", true);
    EXPECT_TRUE(view.belowRangeColorEnabled());
    panel.set("forced", true);
    EXPECT_TRUE(view.isColorForced());
    EXPECT_FALSE(view.lookupTableEnabled()) << "the view does not combine the two";
    panel.set("and1", 0xff);
    EXPECT_EQ(view.mask(1), 0xff);
    EXPECT_TRUE(view.isDirty());
}

TEST_F(Window, SettingsReachTheProfileView)
{
    SettingsPanel& panel = *page("profile").settings();
    auto& view = viewOf<ovl::ProfileView>(page("profile"));
    const struct {
        const char* name;
        QString (ovl::ProfileView::*title)() const;
    } titles[] = {{"title", &ovl::ProfileView::title}, {"leftTitle", &ovl::ProfileView::leftTitle},
        {"bottomTitle", &ovl::ProfileView::bottomTitle},
        {"rightTitle", &ovl::ProfileView::rightTitle}, {"topTitle", &ovl::ProfileView::topTitle}};
    for (const auto& each : titles) {
        SCOPED_TRACE(each.name);
        panel.set(each.name, "words");
        EXPECT_EQ((view.*each.title)(), "words");
    }
    panel.set("curve", 1);
    panel.set("visible", false);
    EXPECT_FALSE(view.plotVisibility(2));
    EXPECT_TRUE(view.plotVisibility(1));
    panel.set("format", "%x");
    EXPECT_EQ(view.plotFormat(2), "%x");
    panel.set("corner", 1);
    EXPECT_EQ(view.plotCorner(2), 1);
    panel.set("zoomX", false);
    EXPECT_FALSE(view.horizontalZoomEnabled());
    panel.set("zoomLeft", false);
    EXPECT_FALSE(view.leftVerticalZoomEnabled());
    panel.set("zoomRight", false);
    EXPECT_FALSE(view.rightVerticalZoomEnabled());
    panel.set("crosshair", true);
    EXPECT_TRUE(view.usingCrosshairCursor());
    EXPECT_NE(view.shape(1), nullptr);
    panel.set("tools", false);
    EXPECT_EQ(view.shape(1), nullptr);
}

template <class ViewType> void expectSpaceSettings(Page& page)
{
    SettingsPanel& panel = *page.settings();
    auto& view = viewOf<ViewType>(page);
    panel.set("scheme", 1);
    EXPECT_EQ(view.colorScheme(), ovl::ColorScheme::SPECTRUM);
    panel.set("xScale", 2.5);
    EXPECT_EQ(view.xScale(), 2.5);
    panel.set("yCorrection", 1.5);
    EXPECT_EQ(view.yScaleCorrection(), 1.5);
    panel.set("zPlace", 3.0);
    EXPECT_EQ(view.zPositionCorrection(), 3.0);
    panel.set("autoRange", false);
    EXPECT_FALSE(view.autoRange());
    panel.set("xTo", 1234.0);
    EXPECT_EQ(view.xAxisRange().max(), 1234.0);
    panel.set("fixedColours", true);
    panel.set("colourTo", 4321.0);
    EXPECT_EQ(view.range(3).max(), 4321.0);
}

TEST_F(Window, SettingsReachThePointCloudView)
{
    expectSpaceSettings<ovl::PointCloudView>(page("cloud"));
}

TEST_F(Window, SettingsReachTheSurfaceView)
{
    expectSpaceSettings<ovl::SurfaceView>(page("surface"));
    auto& view = viewOf<ovl::SurfaceView>(page("surface"));
    view.setDirty(false);
    page("surface").settings()->set("representation", 2);
    EXPECT_TRUE(view.isDirty());
}

TEST_F(Window, AFilesViewHasTheSettingsOfTheOneBefore)
{
    SettingsPanel& panel = *page("surface").settings();
    panel.set("scheme", 3);
    panel.set("xCorrection", 0.5);
    ASSERT_TRUE(open({writeGrid()}));
    auto& view = viewOf<ovl::SurfaceView>(page("surface"));
    EXPECT_EQ(view.xResolution(), 2);
    EXPECT_EQ(view.colorScheme(), ovl::ColorScheme::COOL);
    EXPECT_EQ(view.xScaleCorrection(), 0.5);
}

/** Every action of the menus, with the menus that they open. */
QList<QAction*> actionsOf(const QList<QAction*>& top)
{
    QList<QAction*> all;
    for (QAction* action : top) {
        all.append(action);
        if (action->menu())
            all += actionsOf(action->menu()->actions());
    }
    return all;
}

TEST_F(Window, ShortcutsAreUniqueAndShownInTheMenus)
{
    std::map<QString, QString> owners;
    int found = 0;
    for (const QAction* action : actionsOf(window.menuBar()->actions())) {
        if (action->shortcut().isEmpty())
            continue;
        const QString keys = action->shortcut().toString();
        EXPECT_EQ(owners.count(keys), 0U)
            << qPrintable(keys + ": " + owners[keys] + " and " + action->text());
        owners[keys] = action->text();
        EXPECT_TRUE(action->isShortcutVisibleInContextMenu());
        ++found;
    }
    EXPECT_GE(found, 20);
}

} // namespace
