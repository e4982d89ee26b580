// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_FILEBYTES_H
#define OVL_GALLERY_FILEBYTES_H

#include "outcome.h"
#include "progress.h"

#include <QByteArray>
#include <QString>

namespace ovl::gallery {

/** The whole of a file, or why it cannot be had: missing, a folder, empty, too large, unreadable.
 */
Outcome<QByteArray> readFileBytes(const QString& path, const Stage& stage = Stage());

/**
 * Whether an image of this many bytes can honestly come out of a file of `fileSize` bytes, when the
 * file's way of packing shrinks by `bestRatio` at most. Nothing is allocated before this is asked.
 */
bool isHonestSize(
    qint64 width, qint64 height, qint64 bytesPerPixel, qint64 fileSize, int bestRatio);

/** The message for an image that fails isHonestSize(). */
QString dishonestSize(qint64 width, qint64 height);

} // namespace ovl::gallery

#endif
