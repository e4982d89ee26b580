// SPDX-License-Identifier: BSD-3-Clause
#include "examplecontents.h"
#include "fileopener.h"
#include "mainwindow.h"
#include "noticebar.h"
#include "page.h"

#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>
#include <QMenuBar>

#include <algorithm>

namespace ovl::gallery {
namespace {

constexpr int kSpeedStep = 5; // mm a second

} // namespace

QAction* MainWindow::addAction(
    QMenu* menu, const QString& text, const QKeySequence& keys, const std::function<void()>& run)
{
    QAction* action = menu->addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, run);
    return action;
}

void MainWindow::addFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    addAction(menu, tr("&Open..."), QKeySequence::Open, [this] { chooseFiles(); });
    recent = menu->addMenu(tr("Open &recent"));
    nextFile = addAction(
        menu, tr("&Next file"), tr("Alt+Right"), [this] { openNeighbour(files.next()); });
    previousFile = addAction(
        menu, tr("&Previous file"), tr("Alt+Left"), [this] { openNeighbour(files.previous()); });
    addExampleMenu(menu->addMenu(tr("&Examples")));
    cancelOpening = addAction(menu, tr("&Cancel opening"), tr("Esc"), [this] { opener->cancel(); });
    leaveFiles
        = addAction(menu, tr("&Back to the scanner"), tr("Ctrl+B"), [this] { backToScanner(); });
    menu->addSeparator();
    addAction(menu, tr("&Save picture..."), QKeySequence::Save, [this] { savePicture(); });
    menu->addSeparator();
    addAction(menu, tr("&Quit"), tr("Ctrl+Q"), [this] { close(); });
    updateRecent();
    updateFileActions();
}

/** What there is nothing to do for is grey. */
void MainWindow::updateFileActions()
{
    nextFile->setEnabled(!files.next().isEmpty());
    previousFile->setEnabled(!files.previous().isEmpty());
    cancelOpening->setEnabled(opener->isBusy());
    leaveFiles->setEnabled(opener->isBusy()
        || std::any_of(pages.begin(), pages.end(),
            [](const Entry& entry) { return entry.page->showsFile(); }));
}

void MainWindow::addExampleMenu(QMenu* menu)
{
    const struct {
        QString text;
        QString keys;
        Example example;
    } examples[] = {{tr("&Slice, an image of 16 bits"), tr("Ctrl+Shift+1"), Example::Slice},
        {tr("&Recording, a table"), tr("Ctrl+Shift+2"), Example::Recording},
        {tr("&Terrain, a grid of heights"), tr("Ctrl+Shift+3"), Example::Terrain}};
    for (const auto& each : examples)
        addAction(
            menu, each.text, each.keys, [this, example = each.example] { openExample(example); });
}

void MainWindow::addViewMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    addAction(menu, tr("&All views"), tr("Ctrl+0"), [this] { showPage(kAll); });
    for (int index = 0; index < pageCount(); ++index)
        addAction(menu, page(index)->title(), QStringLiteral("Ctrl+%1").arg(index + 1),
            [this, index] { showPage(index); });
    menu->addSeparator();
    addAction(menu, tr("&Reset view"), tr("Ctrl+R"), [this] { currentPage()->resetView(); });
    QAction* panel = dock->toggleViewAction();
    panel->setText(tr("&Settings"));
    panel->setShortcut(QKeySequence(Qt::Key_F9));
    menu->addAction(panel);
    QAction* full = addAction(menu, tr("&Full screen"), QKeySequence(Qt::Key_F11),
        [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
    full->setCheckable(true);
}

void MainWindow::addScannerMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Scanner"));
    QAction* run = addAction(
        menu, tr("&Run"), tr("Ctrl+P"), [this] { feeder.setRunning(!feeder.isRunning()); });
    run->setCheckable(true);
    connect(&feeder, &Scanner::runningChanged, run, &QAction::setChecked);
    addAction(menu, tr("&Next frame"), tr("Ctrl+N"), [this] {
        feeder.setRunning(false);
        feeder.step();
    });
    addAction(menu, tr("Res&tart"), tr("Ctrl+T"), [this] { feeder.restart(); });
    menu->addSeparator();
    addAction(menu, tr("&Faster"), tr("Ctrl++"),
        [this] { feeder.setSpeed(feeder.speed() + kSpeedStep); });
    addAction(menu, tr("&Slower"), tr("Ctrl+-"),
        [this] { feeder.setSpeed(feeder.speed() - kSpeedStep); });
}

void MainWindow::updateRecent()
{
    recent->clear();
    for (const QString& path : files.recent()) {
        QString name = QFileInfo(path).fileName();
        QAction* action = recent->addAction(name.replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setToolTip(path);
        connect(action, &QAction::triggered, this, [this, path] { open({path}); });
    }
    recent->setToolTipsVisible(true);
    recent->setEnabled(!recent->isEmpty());
}

void MainWindow::chooseFiles()
{
    const QString folder = QFileInfo(files.recent().value(0)).absolutePath();
    open(QFileDialog::getOpenFileNames(this, tr("Open"), folder,
        tr("Everything that can be shown (*.png *.tif *.tiff *.pnm *.pgm *.ppm *.pbm *.csv *.tsv "
           "*.asc *.grd);;Images (*.png *.tif *.tiff *.pnm *.pgm *.ppm *.pbm);;Tables (*.csv "
           "*.tsv);;Height grids (*.asc *.grd);;All files (*)")));
}

void MainWindow::savePicture()
{
    const QPixmap picture = grab();
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save picture"), QStringLiteral("gallery.png"), tr("PNG images (*.png)"));
    if (!path.isEmpty() && !picture.save(path, "png"))
        notice->showProblem(tr("%1: the picture could not be written").arg(path));
}

} // namespace ovl::gallery
