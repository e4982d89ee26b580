// SPDX-License-Identifier: BSD-3-Clause
#include "mainwindow.h"

#include "cloudpage.h"
#include "examplecontents.h"
#include "fileopener.h"
#include "imagepage.h"
#include "jobbar.h"
#include "noticebar.h"
#include "profilepage.h"
#include "scannerbar.h"
#include "settingspanel.h"
#include "surfacepage.h"
#include <visualization/coordinatessender.h>

#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QMimeData>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabBar>

#include <cmath>
#include <cstdio>

namespace ovl::gallery {
namespace {

constexpr int kRateInterval = 500; // ms
constexpr int kColumns = 2; // of pages

QStringList localFiles(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    return paths;
}

} // namespace

MainWindow::MainWindow(std::unique_ptr<QSettings> settings)
    : memory(std::move(settings))
    , opener(nullptr)
{
    setWindowTitle(tr("ovl gallery"));
    setAcceptDrops(true);
    setDockOptions(AnimatedDocks);
    addCentre();
    addDock();
    addPages();
    addStatusLine();
    connectOpener();
    connectSender();
    addFileMenu();
    addViewMenu();
    addScannerMenu();
    restoreLayout();
    feeder.setRunning(true);
}

MainWindow::~MainWindow()
{
    feeder.setRunning(false);
    delete opener; // its fillings point at the pages
    for (const Entry& entry : pages) {
        entry.page->disconnect(this);
        delete entry.page; // the views read the scanner's memory until they go
    }
}

void MainWindow::addCentre()
{
    auto* centre = new QWidget;
    tabs = new QTabBar;
    tabs->setObjectName(QStringLiteral("pages"));
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    auto* top = new QWidget;
    auto* strip = new QHBoxLayout(top);
    strip->setContentsMargins(0, 0, 0, 0);
    strip->addWidget(tabs);
    strip->addStretch(1);
    strip->addWidget(new ScannerBar(feeder));
    notice = new NoticeBar(centre);
    job = new JobBar(centre);
    grid = new QGridLayout;
    grid->setSpacing(1);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(top);
    column->addWidget(notice);
    column->addWidget(job);
    column->addLayout(grid, 1);
    setCentralWidget(centre);
}

void MainWindow::addPages()
{
    pages = {{QStringLiteral("image"), new ImagePage(feeder)},
        {QStringLiteral("profile"), new ProfilePage(feeder)},
        {QStringLiteral("cloud"), new CloudPage(feeder)},
        {QStringLiteral("surface"), new SurfacePage(feeder)}};
    tabs->addTab(tr("All views"));
    for (int index = 0; index < pageCount(); ++index) {
        grid->addWidget(page(index), index / kColumns, index % kColumns);
        panels->addWidget(page(index)->settings());
        connectPage(index);
        tabs->addTab(page(index)->title());
    }
    connect(tabs, &QTabBar::currentChanged, this, [this](int tab) { showPage(tab - 1); });
    showPage(kAll);
}

void MainWindow::connectPage(int index)
{
    Page* const shown = page(index);
    connect(shown, &Page::activated, this, [this, index] { activate(index); });
    connect(shown, &Page::maximiseWanted, this,
        [this, index] { showPage(alone == kAll ? index : kAll); });
    connect(shown, &Page::pointedAt, this, [this, index] { pointAt(index); });
    connect(shown, &Page::sourceChanged, this, &MainWindow::updateFileActions);
    connect(shown, &Page::pointerLeft, this, [this] { tellPlace({}); });
    connect(shown, &Page::frameTaken, this, [this, index] {
        if (index == pointed)
            tellPlace(place); // another sample lies there now
    });
}

void MainWindow::addDock()
{
    panels = new QStackedWidget;
    dock = new QDockWidget(tr("Settings"));
    dock->setObjectName(QStringLiteral("settings"));
    dock->setWidget(panels);
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    addDockWidget(Qt::RightDockWidgetArea, dock);
}

void MainWindow::addStatusLine()
{
    const QFont even = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    coordinates = new QLabel;
    coordinates->setObjectName(QStringLiteral("coordinates"));
    coordinates->setFont(even);
    coordinates->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    fileLabel = new QLabel;
    fileLabel->setObjectName(QStringLiteral("file"));
    rates = new QLabel;
    rates->setObjectName(QStringLiteral("rates"));
    // Not by the style sheet, whose padding the status bar leaves out of its reckoning.
    for (QLabel* label : {fileLabel, rates})
        label->setContentsMargins(12, 4, 16, 4);
    rates->setToolTip(tr("Frames really painted in a second, view by view"));
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(coordinates, 1);
    statusBar()->addPermanentWidget(fileLabel);
    statusBar()->addPermanentWidget(rates);
    connect(&rateTimer, &QTimer::timeout, this, &MainWindow::showRates);
    rateTimer.start(kRateInterval);
    showRates();
}

void MainWindow::connectOpener()
{
    opener = new FileOpener([this](const SharedContents& contents) {
        std::vector<std::unique_ptr<Filling>> fillings;
        for (const Entry& entry : pages)
            if (entry.page->canShow(contents->kind))
                fillings.push_back(entry.page->fill(contents));
        return fillings;
    });
    connect(job, &JobBar::cancelWanted, opener, &FileOpener::cancel);
    connect(opener, &FileOpener::started, job,
        [this](const QString& name) { job->begin(tr("Opening %1").arg(name)); });
    connect(opener, &FileOpener::started, this, &MainWindow::updateFileActions);
    connect(opener, &FileOpener::progressed, job, &JobBar::setShare);
    connect(opener, &FileOpener::opened, this, &MainWindow::takeOpened);
    connect(opener, &FileOpener::failed, this, &MainWindow::tellProblem);
    connect(opener, &FileOpener::finished, this, [this] {
        job->end();
        updateFileActions();
        Q_EMIT openingFinished();
    });
}

/** There is one sender for all views; the page that saw the mouse last is the one that speaks. */
void MainWindow::connectSender()
{
    const CoordinatesSender* sender = CoordinatesSender::instance();
    connect(sender, &CoordinatesSender::signal_sendCoordinates, this, [this](int column, int row) {
        tellPlace([column, row](const Page& shown) { return shown.textAt(column, row); });
    });
    connect(sender, &CoordinatesSender::signal_sendSpaceCoordinates, this,
        [this](double x, double y, double z) {
            tellPlace([x, y, z](const Page& shown) { return shown.textAt(x, y, z); });
        });
    connect(sender, &CoordinatesSender::signal_clearCoordinates, this, [this] { tellPlace({}); });
}

void MainWindow::pointAt(int index)
{
    if (index != pointed)
        tellPlace({});
    pointed = index;
}

void MainWindow::tellPlace(std::function<QString(const Page&)> describe)
{
    place = std::move(describe);
    const Page& shown = *page(pointed);
    const QString text = place ? place(shown) : QString();
    coordinates->setText(
        text.isEmpty() ? text : QStringLiteral("%1   %2").arg(shown.title(), text));
}

void MainWindow::showRates()
{
    QStringList texts;
    for (const Entry& entry : pages) {
        const double rate = entry.page->frameRate();
        texts.append(QStringLiteral("%1 %2").arg(entry.page->title(),
            rate > 0 ? QString::number(rate, 'f', rate < 9.95 ? 1 : 0) : QStringLiteral("\u2013")));
    }
    rates->setText(tr("%1   frames/s").arg(texts.join(QStringLiteral("   \u00b7   "))));
}

QString MainWindow::pageName(int index) const
{
    return pages[static_cast<std::size_t>(index)].name;
}

int MainWindow::pageNamed(const QString& name, bool* known) const
{
    if (known)
        *known = true;
    for (int index = 0; index < pageCount(); ++index)
        if (pageName(index) == name)
            return index;
    if (known)
        *known = name == QLatin1String("all");
    return kAll;
}

void MainWindow::showPage(int index)
{
    alone = index;
    for (int each = 0; each < pageCount(); ++each) {
        const bool shown = index == kAll || index == each;
        page(each)->setVisible(shown);
        // A row and a column whose pages are hidden take no room.
        grid->setRowStretch(
            each / kColumns, index == kAll || index / kColumns == each / kColumns ? 1 : 0);
        grid->setColumnStretch(
            each % kColumns, index == kAll || index % kColumns == each % kColumns ? 1 : 0);
    }
    tabs->setCurrentIndex(index + 1);
    activate(index == kAll ? active : index);
}

void MainWindow::activate(int index)
{
    active = index;
    panels->setCurrentWidget(currentPage()->settings());
    dock->setWindowTitle(tr("Settings: %1").arg(currentPage()->title()));
    for (int each = 0; each < pageCount(); ++each)
        page(each)->setActive(alone == kAll && each == index);
}

void MainWindow::backToScanner()
{
    opener->cancel();
    for (const Entry& entry : pages)
        if (entry.page->showsFile())
            entry.page->showScanner();
}

void MainWindow::open(const QStringList& paths)
{
    if (paths.isEmpty())
        return;
    if (!opener->isBusy())
        notice->hide();
    files.add(paths);
    opener->open(paths);
}

void MainWindow::openExample(Example example) { opener->show(exampleContents(example)); }

bool MainWindow::isOpening() const { return opener->isBusy(); }

void MainWindow::openNeighbour(const QString& path)
{
    if (!path.isEmpty())
        open({path});
}

void MainWindow::takeOpened(const QString& path, const SharedContents& contents)
{
    if (!path.isEmpty()) {
        files.setCurrent(path);
        fileLabel->setText(files.count() > 1
                ? tr("File %1 of %2").arg(files.place()).arg(files.count())
                : QString());
        updateRecent();
    }
    if (!contents->remark.isEmpty()) {
        const QString text = QStringLiteral("%1: %2").arg(path, contents->remark);
        std::fprintf(stderr, "ovl-gallery: %s\n", qUtf8Printable(text));
        notice->showRemark(text);
    }
    if (currentPage()->canShow(contents->kind))
        return showPage(alone == kAll ? kAll : active); // several pages may show a kind
    for (int index = 0; index < pageCount(); ++index)
        if (page(index)->canShow(contents->kind)) {
            if (alone == kAll)
                activate(index);
            else
                showPage(index);
            return;
        }
}

void MainWindow::tellProblem(const QString& path, const QString& problem)
{
    ++failed;
    const QString message = QStringLiteral("%1: %2").arg(path, problem);
    std::fprintf(stderr, "ovl-gallery: %s\n", qUtf8Printable(message));
    notice->showProblem(message);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    open(localFiles(*event->mimeData()));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    saveLayout();
    opener->cancel();
    QMainWindow::closeEvent(event);
}

} // namespace ovl::gallery
