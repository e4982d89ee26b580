// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_CSVFILE_H
#define OVL_GALLERY_CSVFILE_H

#include "outcome.h"
#include "progress.h"
#include "table.h"

#include <QString>

namespace ovl::gallery {

/**
 * Reads a table whose first line names the columns and whose first column is x. Comma, semicolon
 * and tabulator separate, whichever the header has most of; fields may stand in quotes; an empty
 * field or "nan" is a gap. Rows that do not fit are left out and listed.
 */
Outcome<Table> readCsvFile(const QString& path, Progress* progress = nullptr);

/** "lines 3, 7 and 9 are left out", for the user; empty when there are none. */
QString badLinesText(const Table& table);

} // namespace ovl::gallery

#endif
