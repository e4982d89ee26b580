// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_THEME_H
#define OVL_GALLERY_THEME_H

class QApplication;

namespace ovl::gallery {

/** Gives the program its dark look, which leaves the stage to the views' black backgrounds. */
void applyTheme(QApplication& application);

} // namespace ovl::gallery

#endif
