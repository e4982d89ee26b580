// SPDX-License-Identifier: BSD-3-Clause
#include "mainwindow.h"

#include "cloudpage.h"
#include "imagepage.h"
#include "noticebar.h"
#include "profilepage.h"
#include "surfacepage.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>

namespace ovl::gallery {

MainWindow::MainWindow()
    : tabs(new QTabBar)
    , stack(new QStackedWidget)
    , notice(new NoticeBar(this))
    , source(new QLabel)
    , coordinates(new QLabel)
{
    setWindowTitle(tr("ovl gallery"));
    setAcceptDrops(true);
    tabs->setObjectName(QStringLiteral("pages"));
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    coordinates->setObjectName(QStringLiteral("coordinates"));
    coordinates->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(source, 1);
    statusBar()->addPermanentWidget(coordinates);
    source->setContentsMargins(10, 0, 0, 0);
    source->setTextFormat(Qt::PlainText);

    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tabs);
    layout->addWidget(notice);
    layout->addWidget(stack, 1);
    setCentralWidget(centre);

    addPages();
    addFileMenu();
    addViewMenu();
    addSourceMenu();
    for (const Entry& entry : entries)
        tabs->addTab(entry.title);
    connect(tabs, &QTabBar::currentChanged, this, &MainWindow::showPage);
    resize(1280, 800);
}

MainWindow::~MainWindow()
{
    delete takeCentralWidget(); // the views read the scanner's memory until they go
}

void MainWindow::addPages()
{
    const auto add = [this](const char* name, const QString& title, FileKind kind, auto make) {
        entries.push_back(
            {QString::fromLatin1(name), title, kind, make, nullptr, QString(), QString()});
    };
    add("image", tr("Image"), FileKind::Image, [this] { return new ImagePage(scanner); });
    add("profile", tr("Profile"), FileKind::Table, [this] { return new ProfilePage(scanner); });
    add("cloud", tr("Point cloud"), FileKind::Grid, [this] { return new CloudPage(scanner); });
    add("surface", tr("Surface"), FileKind::Grid, [this] { return new SurfacePage(scanner); });
}

void MainWindow::addFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->addAction(tr("&Open..."), this, &MainWindow::chooseFile, QKeySequence::Open);
    menu->addAction(
        tr("&Back to the simulation"), this, [this] { currentPage()->showSimulation(); },
        QKeySequence(tr("Ctrl+B")));
    menu->addAction(tr("&Save picture..."), this, &MainWindow::savePicture, QKeySequence::Save);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence(tr("Ctrl+Q")));
}

void MainWindow::addViewMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    for (int index = 0; index < pageCount(); ++index)
        menu->addAction(
            entries[static_cast<std::size_t>(index)].title, this,
            [this, index] { showPage(index); },
            QKeySequence(QStringLiteral("Ctrl+%1").arg(index + 1)));
    menu->addSeparator();
    menu->addAction(
        tr("&Reset view"), this, [this] { currentPage()->resetView(); },
        QKeySequence(tr("Ctrl+R")));
    panel = menu->addAction(tr("Settings &panel"));
    panel->setCheckable(true);
    panel->setChecked(true);
    panel->setShortcut(QKeySequence(Qt::Key_F9));
    connect(
        panel, &QAction::toggled, this, [this](bool on) { currentPage()->setPanelVisible(on); });
    QAction* full = menu->addAction(tr("&Full screen"));
    full->setCheckable(true);
    full->setShortcut(QKeySequence(Qt::Key_F11));
    connect(full, &QAction::toggled, this, [this](bool on) {
        setWindowState(
            on ? windowState() | Qt::WindowFullScreen : windowState() & ~Qt::WindowFullScreen);
    });
}

void MainWindow::addSourceMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Scanner"));
    play = menu->addAction(tr("&Play"));
    play->setCheckable(true);
    play->setShortcut(QKeySequence(tr("Ctrl+P")));
    connect(play, &QAction::triggered, this, [this](bool on) { currentPage()->setPlaying(on); });
    step = menu->addAction(
        tr("&Next frame"), this,
        [this] {
            currentPage()->setPlaying(false);
            currentPage()->step();
        },
        QKeySequence(tr("Ctrl+N")));
}

int MainWindow::pageCount() const { return static_cast<int>(entries.size()); }

QString MainWindow::pageName(int index) const
{
    return entries[static_cast<std::size_t>(index)].name;
}

int MainWindow::pageNamed(const QString& name) const
{
    const auto found = std::find_if(
        entries.begin(), entries.end(), [&](const Entry& entry) { return entry.name == name; });
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

int MainWindow::pageFor(FileKind kind) const
{
    const int current = tabs->currentIndex();
    if (current >= 0 && entries[static_cast<std::size_t>(current)].kind == kind)
        return current; // several pages may show a kind
    const auto found = std::find_if(
        entries.begin(), entries.end(), [&](const Entry& entry) { return entry.kind == kind; });
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

Page* MainWindow::currentPage() const { return qobject_cast<Page*>(stack->currentWidget()); }

Page* MainWindow::pageAt(int index)
{
    Entry& entry = entries[static_cast<std::size_t>(index)];
    if (!entry.page) {
        entry.page = entry.make();
        stack->addWidget(entry.page);
        connectPage(index);
        entry.page->showSimulation();
        if (!entry.file.isNull())
            entry.page->open(entry.file);
    }
    return entry.page;
}

void MainWindow::connectPage(int index)
{
    Page* page = entries[static_cast<std::size_t>(index)].page;
    connect(page, &Page::coordinatesChanged, this, [this, page](const QString& text) {
        if (page == currentPage())
            coordinates->setText(text);
    });
    connect(page, &Page::sourceChanged, this, [this, index](const QString& text) {
        entries[static_cast<std::size_t>(index)].source = text;
        updateActions();
    });
    connect(page, &Page::playingChanged, this, &MainWindow::updateActions);
    connect(page, &Page::remarked, this, [this](const QString& text) {
        std::fprintf(stderr, "ovl-gallery: %s\n", qUtf8Printable(text));
        notice->showRemark(text);
    });
}

void MainWindow::showPage(int index)
{
    Page* page = pageAt(index);
    tabs->setCurrentIndex(index);
    stack->setCurrentWidget(page);
    page->setPanelVisible(panel->isChecked());
    coordinates->clear();
    updateActions();
}

void MainWindow::updateActions()
{
    const Page* page = currentPage();
    if (!page)
        return;
    play->setEnabled(page->canPlay());
    step->setEnabled(page->canPlay());
    play->setChecked(page->isPlaying());
    source->setText(entries[static_cast<std::size_t>(tabs->currentIndex())].source);
}

bool MainWindow::open(const QString& path)
{
    Outcome<FileKind> kind = fileKindOf(path);
    QString problem = kind.problem();
    if (kind) {
        const int index = pageFor(kind.value());
        notice->hide();
        problem = index < 0 ? tr("no page shows this kind of file") : pageAt(index)->open(path);
        if (problem.isEmpty()) {
            shareWithOthers(index, path);
            showPage(index);
            return true;
        }
    }
    const QString message = QStringLiteral("%1: %2").arg(path, problem);
    std::fprintf(stderr, "ovl-gallery: %s\n", qUtf8Printable(message));
    notice->showProblem(message);
    return false;
}

/** All pages for a kind show the same file; those that do not exist yet will. */
void MainWindow::shareWithOthers(int index, const QString& path)
{
    const Entry& shown = entries[static_cast<std::size_t>(index)];
    for (Entry& entry : entries) {
        if (&entry == &shown || entry.kind != shown.kind)
            continue;
        if (entry.page)
            entry.page->open(path);
        else
            entry.file = path;
    }
}

void MainWindow::chooseFile()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open"), QString(),
        tr("Everything that can be shown (*.png *.tif *.tiff *.pnm *.pgm *.ppm *.pbm *.csv *.tsv "
           "*.asc *.grd);;Images (*.png *.tif *.tiff *.pnm *.pgm *.ppm *.pbm);;Tables (*.csv "
           "*.tsv);;Height grids (*.asc *.grd);;All files (*)"));
    if (!path.isEmpty())
        open(path);
}

void MainWindow::savePicture()
{
    const QPixmap picture = grab();
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save picture"), QStringLiteral("gallery.png"), tr("PNG images (*.png)"));
    if (!path.isEmpty() && !picture.save(path, "png"))
        notice->showProblem(tr("%1: the picture could not be written").arg(path));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!urls.isEmpty())
        open(urls.constFirst().toLocalFile());
}

} // namespace ovl::gallery
