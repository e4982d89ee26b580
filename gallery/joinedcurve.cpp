// SPDX-License-Identifier: BSD-3-Clause
#include "joinedcurve.h"

#include <visualization/point.h>

#include <QColor>

#include <cmath>

namespace ovl::gallery {

Shape joinedCurve(
    const Table& table, std::size_t column, double xFactor, double yFactor, const QColor& colour)
{
    Shape shape;
    shape.setColor(colour.darker(170));
    shape.setHandleVisibility(false);
    shape.setLegendVisible(false);
    shape.setTooltipsVisibility(false);
    const std::vector<double>& x = table.columns.front();
    const std::vector<double>& y = table.columns[column];
    for (std::size_t row = 1; row < x.size(); ++row)
        if (!std::isnan(y[row - 1]) && !std::isnan(y[row]))
            shape.addLine(Point(x[row - 1] * xFactor, y[row - 1] * yFactor),
                Point(x[row] * xFactor, y[row] * yFactor));
    return shape;
}

} // namespace ovl::gallery
