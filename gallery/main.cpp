// SPDX-License-Identifier: BSD-3-Clause
#include "commandline.h"
#include "mainwindow.h"
#include "pictures.h"
#include "theme.h"
#include <hosting/viewwidget.h>

#include <QApplication>

#include <cstdio>

namespace {

enum ExitCode { Fine = 0, Failed = 1, FileNotShown = 2 };

int unknownPage(const QString& name)
{
    std::fprintf(stderr, "ovl-gallery: there is no page \"%s\"\n", qUtf8Printable(name));
    return Failed;
}

} // namespace

int main(int argc, char** argv)
{
    using namespace ovl::gallery;
    ovl::hosting::prepareApplication();
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ovl-gallery"));
    QApplication::setApplicationVersion(QStringLiteral(OVL_VERSION));
    const CommandLine wanted = readCommandLine();
    applyTheme(application);

    MainWindow window;
    const int page = window.pageNamed(wanted.page);
    if (page < 0 && !wanted.page.isNull())
        return unknownPage(wanted.page);
    window.showPage(qMax(0, page));
    const bool shown = wanted.file.isNull() || window.open(wanted.file);
    window.show();
    int result = Fine;
    if (wanted.folder.isNull())
        result = QApplication::exec();
    else if (!writePictures(window, wanted.folder, wanted.page))
        result = Failed;
    return result == Fine && !shown ? FileNotShown : result;
}
