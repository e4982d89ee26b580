// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_MAINWINDOW_H
#define OVL_GALLERY_MAINWINDOW_H

#include "filekind.h"
#include "scannersimulation.h"

#include <QMainWindow>

#include <functional>
#include <vector>

class QAction;
class QLabel;
class QStackedWidget;
class QTabBar;

namespace ovl::gallery {

class NoticeBar;
class Page;

/** The window with its pages, of which one is shown, its menus, and one status line for all. */
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /** Shows a file on the page for its kind. False, and a message, when that does not work. */
    bool open(const QString& path);

    int pageCount() const;
    /** The name by which the command line and the pictures know a page. */
    QString pageName(int index) const;
    int pageNamed(const QString& name) const; // -1 for none
    void showPage(int index);
    Page* currentPage() const;

private:
    /** A page is made when it is shown for the first time, so that the program starts quickly. */
    struct Entry {
        QString name;
        QString title;
        FileKind kind; // of the files that it shows
        std::function<Page*()> make;
        Page* page = nullptr;
        QString source;
        QString file; // to be shown as soon as the page is made
    };

    void addPages();
    void addFileMenu();
    void addViewMenu();
    void addSourceMenu();
    Page* pageAt(int index);
    void connectPage(int index);
    int pageFor(FileKind kind) const;
    void shareWithOthers(int index, const QString& path);
    void chooseFile();
    void savePicture();
    void updateActions();
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    ScannerSimulation scanner; // feeds all pages, and so stands above them
    std::vector<Entry> entries;
    QTabBar* tabs;
    QStackedWidget* stack;
    NoticeBar* notice;
    QLabel* source;
    QLabel* coordinates;
    QAction* play = nullptr;
    QAction* step = nullptr;
    QAction* panel = nullptr;
};

} // namespace ovl::gallery

#endif
