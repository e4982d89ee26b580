// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_HEIGHTMAP_H
#define OVL_GALLERY_HEIGHTMAP_H

#include <QString>

#include <cstddef>
#include <vector>

namespace ovl::gallery {

/** The smallest and the largest of some numbers, NaN left out. */
struct Extent {
    double smallest = 0;
    double largest = 0;
};

/** What a step along an axis of a height map means to the user. */
struct Ruler {
    double origin = 0; // at the first column or row
    double step = 1; // from one to the next
    int decimals = 0;
    QString unit;

    QString text(double index) const;
};

/**
 * Heights on a regular grid, row by row, NaN where there is none, each with a value that gives it
 * its colour.
 */
struct HeightMap {
    int columns = 0;
    int rows = 0;
    double xPitch = 1; // from column to column, in the units that the view gets
    double yPitch = 1;
    double zUnit = 1; // the view's units for one unit of height
    std::vector<float> heights;
    std::vector<float> values; // empty when the height is the value
    Ruler x;
    Ruler y;
    Ruler z;

    std::size_t samples() const
    {
        return static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
    }

    const std::vector<float>& colouredBy() const { return values.empty() ? heights : values; }

    /** The sample nearest to a place in the view's units, in words; empty where there is none. */
    QString describe(double viewX, double viewY) const;
};

/** Of the first `count` numbers; 0 to 1 when all of them are NaN. */
Extent extentOf(const std::vector<float>& numbers, std::size_t count);

} // namespace ovl::gallery

#endif
