// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PNGFILE_H
#define OVL_GALLERY_PNGFILE_H

#include "image.h"
#include "outcome.h"

#include <QByteArray>

class QImage;

namespace ovl::gallery {

bool looksLikePng(const QByteArray& beginning);

/** Reads the bytes of a PNG file; the reader takes care of the file's byte order. */
Outcome<Image> readPng(const QByteArray& bytes);

/** The pixels of a decoded image: 16 bits where it has them, grey where it is grey. */
Image imageFrom(const QImage& decoded);

} // namespace ovl::gallery

#endif
