// SPDX-License-Identifier: BSD-3-Clause
#include "filebytes.h"

#include <QFile>
#include <QFileInfo>

namespace ovl::gallery {
namespace {

constexpr qint64 kPiece = 1 << 22; // bytes that are read at once
constexpr qint64 kLargestFile = qint64(1) << 30;
constexpr qint64 kLargestSide = 1 << 20;
constexpr qint64 kLargestImage = qint64(1) << 30; // bytes

using Failure = Outcome<QByteArray>;

/** In pieces, so that it can be told how far it is, and stopped. */
Outcome<QByteArray> readPieces(QFile& file, qint64 size, const Stage& stage)
{
    QByteArray bytes;
    bytes.reserve(static_cast<int>(size));
    for (QByteArray piece = file.read(kPiece); !piece.isEmpty(); piece = file.read(kPiece)) {
        bytes += piece;
        if (stage.isCancelled())
            return Failure::failure(QString::fromLatin1(kCancelled));
        if (bytes.size() > kLargestFile) // a device, or a file that still grows
            return Failure::failure(QStringLiteral("files above 1 GiB are not read"));
        stage.reach(static_cast<double>(bytes.size()) / static_cast<double>(qMax(size, kPiece)));
    }
    if (file.error() != QFileDevice::NoError)
        return Failure::failure(file.errorString());
    if (bytes.isEmpty())
        return Failure::failure(QStringLiteral("the file is empty"));
    return bytes;
}

} // namespace

Outcome<QByteArray> readFileBytes(const QString& path, const Stage& stage)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Failure::failure(QStringLiteral("there is no such file"));
    if (info.isDir())
        return Failure::failure(QStringLiteral("this is a folder"));
    if (info.size() > kLargestFile)
        return Failure::failure(QStringLiteral("files above 1 GiB are not read"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure::failure(file.errorString());
    return readPieces(file, info.size(), stage);
}

bool isHonestSize(qint64 width, qint64 height, qint64 bytesPerPixel, qint64 fileSize, int bestRatio)
{
    if (width < 1 || height < 1 || width > kLargestSide || height > kLargestSide)
        return false;
    const qint64 bytes = width * height * bytesPerPixel; // at most 2^40 times a few: no overflow
    return bytes <= kLargestImage && bytes <= fileSize * bestRatio;
}

QString dishonestSize(qint64 width, qint64 height)
{
    return QStringLiteral("the header tells %1 x %2 pixels, which the file cannot hold")
        .arg(width)
        .arg(height);
}

} // namespace ovl::gallery
