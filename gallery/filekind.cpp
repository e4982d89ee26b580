// SPDX-License-Identifier: BSD-3-Clause
#include "filekind.h"

#include "imagefile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace ovl::gallery {
namespace {

using Failure = Outcome<FileKind>;

bool isOneOf(const QString& suffix, const char* list)
{
    return QString::fromLatin1(list).split(QLatin1Char(' ')).contains(suffix);
}

} // namespace

Outcome<FileKind> fileKindOf(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Failure::failure(QStringLiteral("there is no such file"));
    if (info.isDir())
        return Failure::failure(QStringLiteral("this is a folder"));
    if (!info.isFile()) // which might never end, or never begin
        return Failure::failure(QStringLiteral("this is no file but a device or a pipe"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure::failure(file.errorString());
    const QByteArray beginning = file.read(64);
    if (beginning.isEmpty())
        return Failure::failure(QStringLiteral("the file is empty"));
    const QString suffix = info.suffix().toLower();
    if (looksLikeImage(beginning) || isOneOf(suffix, "png tif tiff pnm pgm ppm pbm"))
        return FileKind::Image;
    if (beginning.trimmed().toLower().startsWith("ncols") || isOneOf(suffix, "asc grd"))
        return FileKind::Grid;
    if (isOneOf(suffix, "csv tsv"))
        return FileKind::Table;
    return Failure::failure(QStringLiteral("this kind of file cannot be shown; images (PNG, TIFF, "
                                           "PNM), tables (CSV) and height grids (ASC) can"));
}

} // namespace ovl::gallery
