// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_FILEKIND_H
#define OVL_GALLERY_FILEKIND_H

#include "outcome.h"

#include <QString>

namespace ovl::gallery {

enum class FileKind {
    Image, // PNG, TIFF, PNM
    Table, // comma-separated values
    Grid, // heights on an Esri ASCII grid
};

/** Tells by its contents, and failing that by its name, what a file holds. */
Outcome<FileKind> fileKindOf(const QString& path);

} // namespace ovl::gallery

#endif
