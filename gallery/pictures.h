// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PICTURES_H
#define OVL_GALLERY_PICTURES_H

#include <QString>

namespace ovl::gallery {

class MainWindow;

/** Which pictures are wanted. */
struct Pictures {
    QString folder; // made if need be
    QString page; // only of this one, "all" for all views; empty for every picture there is
    bool examples = true; // the documents' pictures of computed contents and of a drag too
};

/**
 * Writes gallery.png with all views, gallery-image.png and so on with each view alone, and the
 * documents' other pictures. False, and a message on stderr, when one cannot be written.
 */
bool writePictures(MainWindow& window, const Pictures& wanted);

} // namespace ovl::gallery

#endif
