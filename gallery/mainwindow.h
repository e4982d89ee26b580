// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_MAINWINDOW_H
#define OVL_GALLERY_MAINWINDOW_H

#include "filecontents.h"
#include "filelist.h"
#include "scanner.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class QAction;
class QDockWidget;
class QGridLayout;
class QKeySequence;
class QLabel;
class QMenu;
class QSettings;
class QStackedWidget;
class QTabBar;

namespace ovl::gallery {

enum class Example;
class FileOpener;
class JobBar;
class NoticeBar;
class Page;

/**
 * The window: four pages fed by one scanner, all side by side or one alone, with their settings in
 * a dock and one status line for what lies under the mouse.
 */
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    static constexpr int kAll = -1; // in place of a page's index: all of them

    /** Remembers its layout in `settings`; null for a window that remembers nothing. */
    explicit MainWindow(std::unique_ptr<QSettings> settings = nullptr);
    ~MainWindow() override;

    /** Opens files one after the other, each on the pages for its kind; returns at once. */
    void open(const QStringList& paths);
    void openExample(Example example);
    bool isOpening() const;
    /** How many files could not be shown so far. */
    int failures() const { return failed; }

    int pageCount() const { return static_cast<int>(pages.size()); }
    /** The name by which the command line and the pictures know a page. */
    QString pageName(int index) const;
    Page* page(int index) const { return pages[static_cast<std::size_t>(index)].page; }
    /** kAll for "all" and for a name that there is not; `known` tells the two apart. */
    int pageNamed(const QString& name, bool* known = nullptr) const;

    void showPage(int index);
    /** The page that is shown alone, or kAll. */
    int shownPage() const { return alone; }
    /** The page to which keys and dock belong. */
    Page* currentPage() const { return page(active); }
    Scanner& scanner() { return feeder; }

Q_SIGNALS:
    /** All files that were to be opened are shown or refused. */
    void openingFinished();

private:
    struct Entry {
        QString name;
        Page* page;
    };

    void addPages();
    void addCentre();
    void addStatusLine();
    void addDock();
    void connectPage(int index);
    void connectOpener();
    void connectSender();

    // The menus.
    QAction* addAction(QMenu* menu, const QString& text, const QKeySequence& keys,
        const std::function<void()>& run);
    void addFileMenu();
    void addExampleMenu(QMenu* menu);
    void addViewMenu();
    void addScannerMenu();
    void updateRecent();
    void updateFileActions();

    void activate(int index);
    void backToScanner();
    void pointAt(int index);
    void tellPlace(std::function<QString(const Page&)> describe);
    void showRates();
    void tellProblem(const QString& path, const QString& problem);
    void takeOpened(const QString& path, const SharedContents& contents);
    void openNeighbour(const QString& path);
    void chooseFiles();
    void savePicture();

    // What is remembered.
    void restoreLayout();
    void saveLayout() const;
    void placeOnScreen();

    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    std::unique_ptr<QSettings> memory;
    Scanner feeder; // feeds all pages, and so stands above them
    std::vector<Entry> pages;
    int active = 0;
    int alone = kAll;
    int pointed = 0; // the page whose view spoke last
    std::function<QString(const Page&)> place; // under the mouse; none where there is nothing
    FileOpener* opener;
    FileList files;
    int failed = 0;
    QTabBar* tabs = nullptr;
    QGridLayout* grid = nullptr;
    NoticeBar* notice = nullptr;
    JobBar* job = nullptr;
    QStackedWidget* panels = nullptr;
    QDockWidget* dock = nullptr;
    QLabel* coordinates = nullptr;
    QLabel* fileLabel = nullptr;
    QLabel* rates = nullptr;
    QMenu* recent = nullptr;
    QAction* nextFile = nullptr;
    QAction* previousFile = nullptr;
    QAction* cancelOpening = nullptr;
    QAction* leaveFiles = nullptr;
    QTimer rateTimer;
};

} // namespace ovl::gallery

#endif
