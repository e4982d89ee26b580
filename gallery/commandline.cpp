// SPDX-License-Identifier: BSD-3-Clause
#include "commandline.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

namespace ovl::gallery {

CommandLine readCommandLine()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows what the views of ovl can do, on a simulated scanner or on files.\n"
                       "Ends with 2 when a file of the command line cannot be shown."));
    const QCommandLineOption open(QStringLiteral("open"),
        QStringLiteral("Shows a file: PNG, TIFF, PNM, CSV or ASC. More may follow."),
        QStringLiteral("file"));
    const QCommandLineOption grab(QStringLiteral("grab"),
        QStringLiteral("Writes a picture of each page into a folder and ends."),
        QStringLiteral("folder"));
    const QCommandLineOption page(QStringLiteral("page"),
        QStringLiteral(
            "Begins with a page, or grabs only this one: all, image, profile, cloud, surface."),
        QStringLiteral("name"));
    const QCommandLineOption settings(QStringLiteral("settings"),
        QStringLiteral("Remembers the window's layout in this file and not in the user's."),
        QStringLiteral("file"));
    parser.addOptions({open, grab, page, settings});
    parser.addPositionalArgument(QStringLiteral("files"),
        QStringLiteral("Files to be opened one after the other."), QStringLiteral("[files...]"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(*QCoreApplication::instance());
    CommandLine wanted {parser.values(open) + parser.positionalArguments(), parser.value(grab),
        parser.value(page), parser.value(settings)};
    for (QString& file : wanted.files)
        file = QFileInfo(file).absoluteFilePath();
    if (wanted.settings.isEmpty())
        wanted.settings = qEnvironmentVariable("OVL_GALLERY_SETTINGS");
    return wanted;
}

} // namespace ovl::gallery
