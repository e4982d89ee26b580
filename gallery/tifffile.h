// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_TIFFFILE_H
#define OVL_GALLERY_TIFFFILE_H

#include "image.h"
#include "outcome.h"

#include <QByteArray>
#include <QString>

namespace ovl::gallery {

bool looksLikeTiff(const QByteArray& beginning);

/** Reads a TIFF file's first image; `bytes` are the file's. */
Outcome<Image> readTiff(const QString& path, const QByteArray& bytes);

} // namespace ovl::gallery

#endif
