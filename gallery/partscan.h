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

    /** Takes the profiles up to `position` mm along the belt; each part that passes is finished. */
    void moveTo(double position);

    /**
     * What has been scanned so far: the view's units are micrometres, heights are millimetres. Only
     * the first rows() rows count.
     */
    const HeightMap& map() const { return shown; }
    int partNumber() const { return part; }
    /** The part before, whole. */
    const HeightMap& finished() const { return last; }

private:
    void scanUpTo(int profiles);
    void beginPart(int number);

    LaserProfiler profiler {kSamples};
    HeightMap shown;
    HeightMap last;
    int part = 0;
};

} // namespace ovl::gallery

#endif
