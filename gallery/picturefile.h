// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PICTUREFILE_H
#define OVL_GALLERY_PICTUREFILE_H

class QImage;
class QString;

namespace ovl::gallery {

/** A picture in the 256 colours that suit it best, which few eyes can tell from all of them. */
QImage withFewColours(const QImage& picture);

/** Writes a PNG file with a table of colours, a third as large as one without. */
bool writePng(const QImage& picture, const QString& path);

} // namespace ovl::gallery

#endif
