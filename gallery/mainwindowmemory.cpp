// SPDX-License-Identifier: BSD-3-Clause
#include "mainwindow.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

namespace ovl::gallery {
namespace {

constexpr int kLayoutVersion = 1; // of docks; another one is not restored
constexpr QSize kUsualSize(1280, 800);

const QString kGeometry = QStringLiteral("window/geometry");
const QString kLayout = QStringLiteral("window/layout");
const QString kPage = QStringLiteral("window/page");
const QString kSpeed = QStringLiteral("scanner/speed");
const QString kRecent = QStringLiteral("files/recent");

} // namespace

void MainWindow::restoreLayout()
{
    resize(kUsualSize.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    if (!memory)
        return;
    restoreGeometry(memory->value(kGeometry).toByteArray());
    placeOnScreen();
    restoreState(memory->value(kLayout).toByteArray(), kLayoutVersion);
    showPage(pageNamed(memory->value(kPage).toString()));
    feeder.setSpeed(memory->value(kSpeed, Scanner::kUsualSpeed).toInt());
    files.setRecent(memory->value(kRecent).toStringList());
    updateRecent();
}

/** The screen of the last time may be gone, or be smaller now. */
void MainWindow::placeOnScreen()
{
    const QScreen* screen = QGuiApplication::screenAt(geometry().center());
    if (screen)
        return;
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    resize(kUsualSize.boundedTo(room.size()));
    move(room.center() - rect().center());
}

void MainWindow::saveLayout() const
{
    if (!memory)
        return;
    memory->setValue(kGeometry, saveGeometry());
    memory->setValue(kLayout, saveState(kLayoutVersion));
    memory->setValue(kPage, alone == kAll ? QStringLiteral("all") : pageName(alone));
    memory->setValue(kSpeed, feeder.speed());
    memory->setValue(kRecent, files.recent());
    memory->sync();
}

} // namespace ovl::gallery
