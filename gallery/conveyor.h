// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_CONVEYOR_H
#define OVL_GALLERY_CONVEYOR_H

#include "machinedpart.h"

#include <vector>

namespace ovl::gallery {

/**
 * A belt with a part lying on it every kPitch millimetres, each a little turned and off centre.
 *
 * The scene is still; sensors look at the line across the belt that lies at their position.
 */
class Conveyor {
public:
    static constexpr double kPitch = 100.0; // mm from part to part
    static constexpr double kFieldOfView = 128.0; // mm across the belt, centred

    /**
     * Fills `line` with the spots at `position` mm along the belt, evenly spread over the field of
     * view.
     */
    void lineAt(double position, std::vector<Spot>& line) const;

    /** The number of the part that lies at `position`. */
    static int partNumber(double position);
};

} // namespace ovl::gallery

#endif
