// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_TABLE_H
#define OVL_GALLERY_TABLE_H

#include <QStringList>

#include <vector>

namespace ovl::gallery {

/** Columns of numbers under titles; the first is x. All columns are of one length. */
struct Table {
    QStringList titles;
    std::vector<std::vector<double>> columns; // NaN where there is no value, but never in x
    std::vector<int> badLines; // left out, counted from 1

    std::size_t rows() const { return columns.empty() ? 0 : columns.front().size(); }
};

} // namespace ovl::gallery

#endif
