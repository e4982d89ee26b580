// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SCANNERSIMULATION_H
#define OVL_GALLERY_SCANNERSIMULATION_H

#include "laserprofiler.h"
#include "linescancamera.h"
#include "partscan.h"
#include "profilesimulation.h"

#include <array>
#include <memory>

namespace ovl::gallery {

/**
 * The simulated scanner that feeds all pages: a belt with parts, cameras and a laser over it.
 *
 * There is one belt, and every sensor looks at the same place of it. A sensor is made when it is
 * asked for the first time, and takes its lines when it is asked: what nobody looks at costs
 * nothing.
 */
class ScannerSimulation {
public:
    /** Where the belt stands at first, in mm: with some of a part under the laser. */
    static constexpr double kStart = 28;

    void advance(double millimetres) { belt += millimetres; }
    void moveTo(double millimetres) { belt = millimetres; }
    void restart() { belt = kStart; }
    /** Under the laser, in mm along the belt. */
    double position() const { return belt; }

    // The sensors, each with what lies under it now.
    LineScanCamera& camera(CameraKind kind);
    ProfileSimulation& profile();
    PartScan& scan();

private:
    double belt = kStart;
    std::array<std::unique_ptr<LineScanCamera>, 3> cameras;
    std::unique_ptr<LaserProfiler> laser;
    std::unique_ptr<ProfileSimulation> line;
    std::unique_ptr<PartScan> partScan;
};

} // namespace ovl::gallery

#endif
