// SPDX-License-Identifier: BSD-3-Clause
#include "commandline.h"
#include "mainwindow.h"
#include "pictures.h"
#include "theme.h"
#include <hosting/viewwidget.h>

#include <QApplication>
#include <QEventLoop>
#include <QSettings>

#include <cstdio>

namespace {

using namespace ovl::gallery;

enum ExitCode { Fine = 0, Failed = 1, FileNotShown = 2 };

int unknownPage(const QString& name)
{
    std::fprintf(stderr, "ovl-gallery: there is no page \"%s\"\n", qUtf8Printable(name));
    return Failed;
}

/** Pictures are the same whatever the user's window looked like last. */
std::unique_ptr<QSettings> memoryFor(const CommandLine& wanted)
{
    if (!wanted.settings.isEmpty())
        return std::make_unique<QSettings>(wanted.settings, QSettings::IniFormat);
    return wanted.folder.isEmpty()
        ? std::make_unique<QSettings>(QStringLiteral("ovl"), QStringLiteral("gallery"))
        : nullptr;
}

int grab(MainWindow& window, const CommandLine& wanted)
{
    if (window.isOpening()) {
        QEventLoop opening;
        QObject::connect(&window, &MainWindow::openingFinished, &opening, &QEventLoop::quit);
        opening.exec();
    }
    Pictures pictures {wanted.folder, wanted.page, wanted.files.isEmpty()};
    return writePictures(window, pictures) ? Fine : Failed;
}

} // namespace

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication();
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ovl-gallery"));
    QApplication::setApplicationVersion(QStringLiteral(OVL_VERSION));
    const CommandLine wanted = readCommandLine();
    applyTheme(application);

    MainWindow window(memoryFor(wanted));
    bool known = true;
    const int page = window.pageNamed(wanted.page, &known);
    if (!known && !wanted.page.isEmpty())
        return unknownPage(wanted.page);
    if (!wanted.page.isEmpty())
        window.showPage(page);
    window.open(wanted.files);
    window.show();
    const int result = wanted.folder.isEmpty() ? QApplication::exec() : grab(window, wanted);
    return result == Fine && window.failures() > 0 ? FileNotShown : result;
}
