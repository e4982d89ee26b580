// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_GRIDFILE_H
#define OVL_GALLERY_GRIDFILE_H

#include "heightmap.h"
#include "outcome.h"
#include "progress.h"

#include <QString>

namespace ovl::gallery {

/**
 * Reads an Esri ASCII grid: header lines (ncols, nrows, xllcorner or xllcenter, yllcorner or
 * yllcenter, cellsize and, optionally, NODATA_value), then one line for each row from north to
 * south. Samples without data become NaN. A line that does not fit is named.
 */
Outcome<HeightMap> readGridFile(const QString& path, Progress* progress = nullptr);

} // namespace ovl::gallery

#endif
