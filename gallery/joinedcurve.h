// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_JOINEDCURVE_H
#define OVL_GALLERY_JOINEDCURVE_H

#include "table.h"
#include <visualization/shape.h>

class QColor;

namespace ovl::gallery {

/**
 * The samples of a column, joined by lines that stop at gaps: the view draws curves as markers
 * only. The shape lies under the mouse without being felt. Factors lead from the table's numbers to
 * the view's.
 */
Shape joinedCurve(
    const Table& table, std::size_t column, double xFactor, double yFactor, const QColor& colour);

} // namespace ovl::gallery

#endif
