// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PNMFILE_H
#define OVL_GALLERY_PNMFILE_H

#include "image.h"
#include "outcome.h"

#include <QByteArray>

namespace ovl::gallery {

bool looksLikePnm(const QByteArray& beginning);

/**
 * Reads the bytes of a PNM file (P1 to P6). Grey and colour maps are unpacked here, since the
 * frameworks' readers cut their 16 bits to 8; bitmaps go to the framework.
 */
Outcome<Image> readPnm(const QByteArray& bytes);

} // namespace ovl::gallery

#endif
