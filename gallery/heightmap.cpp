// SPDX-License-Identifier: BSD-3-Clause
#include "heightmap.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovl::gallery {

QString Ruler::text(double index) const
{
    const QString number = QString::number(origin + index * step, 'f', decimals);
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

QString HeightMap::describe(double viewX, double viewY) const
{
    const double column = std::round(viewX / xPitch);
    const double row = std::round(viewY / yPitch);
    if (!(column >= 0 && column < columns && row >= 0 && row < rows))
        return QString();
    const std::size_t index = static_cast<std::size_t>(row) * static_cast<std::size_t>(columns)
        + static_cast<std::size_t>(column);
    const double height = static_cast<double>(heights[index]);
    const QString heightText = std::isnan(height) ? QStringLiteral("-") : z.text(height);
    return QStringLiteral("x %1   y %2   z %3").arg(x.text(column), y.text(row), heightText);
}

Extent extentOf(const std::vector<float>& numbers, std::size_t count)
{
    float smallest = std::numeric_limits<float>::infinity();
    float largest = -smallest;
    for (std::size_t i = 0; i < count; ++i) { // a NaN loses every comparison
        smallest = numbers[i] < smallest ? numbers[i] : smallest;
        largest = numbers[i] > largest ? numbers[i] : largest;
    }
    if (smallest > largest)
        return {0, 1};
    return {static_cast<double>(smallest), static_cast<double>(largest)};
}

} // namespace ovl::gallery
