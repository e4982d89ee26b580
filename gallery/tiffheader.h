// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_TIFFHEADER_H
#define OVL_GALLERY_TIFFHEADER_H

#include "outcome.h"

#include <QByteArray>

namespace ovl::gallery {

/** What a TIFF file says of its first image. */
struct TiffHeader {
    qint64 width = 0;
    qint64 height = 0;
    int bitsPerSample = 1;
    int samplesPerPixel = 1;
    int compression = 1; // 1 is none
};

/**
 * Reads the first directory and checks it against the file, before a decoder is let loose on it:
 * every strip or tile lies within the file, and together they can hold the image.
 */
Outcome<TiffHeader> readTiffHeader(const QByteArray& bytes);

} // namespace ovl::gallery

#endif
