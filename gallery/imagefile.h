// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_IMAGEFILE_H
#define OVL_GALLERY_IMAGEFILE_H

#include "image.h"
#include "outcome.h"
#include "progress.h"

#include <QByteArray>
#include <QString>

namespace ovl::gallery {

/** Reads a PNG, TIFF or PNM file of 8 or 16 bits per sample, grey or colour; alpha is dropped. */
Outcome<Image> readImageFile(const QString& path, Progress* progress = nullptr);

/** Whether a file that begins with these bytes is one of the above. */
bool looksLikeImage(const QByteArray& beginning);

} // namespace ovl::gallery

#endif
