// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PICTURES_H
#define OVL_GALLERY_PICTURES_H

class QString;

namespace ovl::gallery {

class MainWindow;

/**
 * Writes a picture of each page, as the window shows it, into `folder`, which is made if need be:
 * image.png, profile.png and so on; only of the page called `only`, if that is not empty. False,
 * and a message on stderr, when one cannot be written.
 */
bool writePictures(MainWindow& window, const QString& folder, const QString& only);

} // namespace ovl::gallery

#endif
