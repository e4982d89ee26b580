// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_DRAGPICTURES_H
#define OVL_GALLERY_DRAGPICTURES_H

class QString;

namespace ovl::gallery {

/** Writes drag-before.png and drag-after.png: a region on a profile, moved by the mouse. */
bool writeDragPictures(const QString& folder);

} // namespace ovl::gallery

#endif
