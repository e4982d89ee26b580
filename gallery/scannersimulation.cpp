// SPDX-License-Identifier: BSD-3-Clause
#include "scannersimulation.h"

namespace ovl::gallery {
namespace {

constexpr int kCameraWidth = 896; // pixels
constexpr int kCameraHeight = 700; // the pitch of the parts at that width
constexpr int kProfileSamples = 1000;

} // namespace

LineScanCamera& ScannerSimulation::camera(bool colour)
{
    std::unique_ptr<LineScanCamera>& camera = colour ? colourCamera : monoCamera;
    if (!camera)
        camera = std::make_unique<LineScanCamera>(kCameraWidth, kCameraHeight, colour);
    return *camera;
}

LaserProfiler& ScannerSimulation::profiler()
{
    if (!laser)
        laser = std::make_unique<LaserProfiler>(kProfileSamples);
    return *laser;
}

PartScan& ScannerSimulation::scan()
{
    if (!partScan)
        partScan = std::make_unique<PartScan>();
    return *partScan;
}

} // namespace ovl::gallery
