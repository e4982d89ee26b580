// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_LASERPROFILER_H
#define OVL_GALLERY_LASERPROFILER_H

#include "conveyor.h"
#include "noise.h"

#include <vector>

namespace ovl::gallery {

/** One line across the belt as a laser and a camera see it. */
struct LaserProfile {
    std::vector<float> heights; // mm above the belt; NaN where nothing came back
    std::vector<float> intensities; // 0 to 100 per cent; NaN there too
};

/** A simulated laser triangulation sensor over the conveyor. */
class LaserProfiler {
public:
    explicit LaserProfiler(int samples);

    /** Measures the line at `position` mm; valid until the next call. */
    const LaserProfile& measure(double position);

    int samples() const { return static_cast<int>(line.size()); }
    /** mm from sample to sample. */
    double pitch() const { return Conveyor::kFieldOfView / samples(); }

private:
    bool isLost(std::size_t sample);

    Conveyor conveyor;
    Noise noise {20260802};
    std::vector<Spot> line;
    LaserProfile profile;
};

} // namespace ovl::gallery

#endif
