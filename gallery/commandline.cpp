// SPDX-License-Identifier: BSD-3-Clause
#include "commandline.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace ovl::gallery {

CommandLine readCommandLine()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows what the views of ovl can do, on a simulated scanner or on files.\n"
                       "Ends with 2 when a file of the command line cannot be shown."));
    const QCommandLineOption open(QStringLiteral("open"),
        QStringLiteral("Shows a file: PNG, TIFF, PNM, CSV or ASC."), QStringLiteral("file"));
    const QCommandLineOption grab(QStringLiteral("grab"),
        QStringLiteral("Writes a picture of each page into a folder and ends."),
        QStringLiteral("folder"));
    const QCommandLineOption page(QStringLiteral("page"),
        QStringLiteral(
            "Begins with a page, or grabs only this one: image, profile, cloud, surface."),
        QStringLiteral("name"));
    parser.addOptions({open, grab, page});
    parser.addPositionalArgument(
        QStringLiteral("file"), QStringLiteral("The same as --open."), QStringLiteral("[file]"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(*QCoreApplication::instance());
    CommandLine wanted {parser.value(open), parser.value(grab), parser.value(page)};
    if (wanted.file.isNull() && !parser.positionalArguments().isEmpty())
        wanted.file = parser.positionalArguments().constFirst();
    return wanted;
}

} // namespace ovl::gallery
