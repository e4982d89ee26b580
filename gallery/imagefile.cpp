// SPDX-License-Identifier: BSD-3-Clause
#include "imagefile.h"

#include "filebytes.h"
#include "pngfile.h"
#include "pnmfile.h"
#include "tifffile.h"

namespace ovl::gallery {

bool looksLikeImage(const QByteArray& beginning)
{
    return looksLikePng(beginning) || looksLikeTiff(beginning) || looksLikePnm(beginning);
}

Outcome<Image> readImageFile(const QString& path, Progress* progress)
{
    constexpr double kReadShare = 0.5; // of the time; decoding cannot be stopped
    Outcome<QByteArray> bytes = readFileBytes(path, Stage(progress, 0, kReadShare));
    if (!bytes)
        return Outcome<Image>::failure(bytes.problem());
    if (looksLikePng(bytes.value()))
        return readPng(bytes.value());
    if (looksLikePnm(bytes.value()))
        return readPnm(bytes.value());
    if (looksLikeTiff(bytes.value()))
        return readTiff(path, bytes.value());
    return Outcome<Image>::failure(QStringLiteral("this is no PNG, TIFF or PNM image"));
}

} // namespace ovl::gallery
