// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PARTSCAN_H
#define OVL_GALLERY_PARTSCAN_H

#include "heightmap.h"
#include "laserprofiler.h"

namespace ovl::gallery {

/**
 * The scan of one part after the other: profiles are laid side by side until a part is through,
 * then the next one begins. The map's memory is taken once.
 */
class PartScan {
public:
    static constexpr int kSamples = 1000; // of a profile
    static constexpr int kProfiles = 300; // of a part

    PartScan();

    /** Adds up to `profiles` of the present part; on a finished one it begins the next. */
    void advance(int profiles);
    bool isComplete() const { return shown.rows == kProfiles; }

    /**
     * What has been scanned so far: the view's units are micrometres, heights are millimetres. Only
     * the first rows() rows count.
     */
    const HeightMap& map() const { return shown; }
    int partNumber() const { return part; }

private:
    LaserProfiler profiler {kSamples};
    HeightMap shown;
    int part = 0;
};

} // namespace ovl::gallery

#endif
