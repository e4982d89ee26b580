// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PROFILESIMULATION_H
#define OVL_GALLERY_PROFILESIMULATION_H

#include "laserprofiler.h"
#include "table.h"

namespace ovl::gallery {

/** The laser's profiles as curves over x: height, smoothed height, intensity. */
class ProfileSimulation {
public:
    enum Column { X, Height, Smoothed, Intensity, ColumnCount };

    explicit ProfileSimulation(LaserProfiler& profiler);

    /** Measures at a place this much further along the belt; no memory is taken. */
    void advance(double millimetres);
    void moveTo(double position);
    double position() const { return belt; }
    const Table& table() const { return curves; }

private:
    void smooth();

    LaserProfiler& laser;
    double belt = 0; // mm
    Table curves;
};

} // namespace ovl::gallery

#endif
