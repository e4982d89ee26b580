// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_FILECONTENTS_H
#define OVL_GALLERY_FILECONTENTS_H

#include "displayrange.h"
#include "filekind.h"
#include "heightmap.h"
#include "image.h"
#include "outcome.h"
#include "progress.h"
#include "table.h"

#include <memory>

namespace ovl::gallery {

/** What was read from a file. Only the members of its kind are filled. */
struct FileContents {
    QString name; // for the user
    FileKind kind = FileKind::Image;
    QString remark; // what the user should know about the file; mostly empty

    Image image;
    DisplayRange range; // that suits the image

    Table table;

    HeightMap map;
    Extent heights; // of the map
    std::size_t gaps = 0; // samples of the map without a height
};

/** Pages and views read it in place; it goes with the last of them. */
using SharedContents = std::shared_ptr<FileContents>;

/** Reads a file, whatever its kind, with all that has to be counted in it. For any thread. */
Outcome<SharedContents> readContents(const QString& path, Progress* progress = nullptr);

/** Counts what the pages have to know about a map. */
void summarise(FileContents& contents);

} // namespace ovl::gallery

#endif
