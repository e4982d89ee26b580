// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SCANNERSIMULATION_H
#define OVL_GALLERY_SCANNERSIMULATION_H

#include "laserprofiler.h"
#include "linescancamera.h"
#include "partscan.h"

#include <memory>

namespace ovl::gallery {

/**
 * The simulated scanner that feeds all pages: a belt with parts, cameras and a laser over it.
 *
 * Each sensor is made when it is asked for the first time and lives as long as the simulation.
 */
class ScannerSimulation {
public:
    LineScanCamera& camera(bool colour);
    LaserProfiler& profiler();
    PartScan& scan();

private:
    std::unique_ptr<LineScanCamera> monoCamera;
    std::unique_ptr<LineScanCamera> colourCamera;
    std::unique_ptr<LaserProfiler> laser;
    std::unique_ptr<PartScan> partScan;
};

} // namespace ovl::gallery

#endif
