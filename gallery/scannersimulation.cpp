// SPDX-License-Identifier: BSD-3-Clause
#include "scannersimulation.h"

namespace ovl::gallery {
namespace {

constexpr int kCameraWidth = 896; // pixels
constexpr int kCameraHeight = 700; // the pitch of the parts at that width
constexpr int kProfileSamples = 1000;

} // namespace

LineScanCamera& ScannerSimulation::camera(CameraKind kind)
{
    std::unique_ptr<LineScanCamera>& camera = cameras[static_cast<std::size_t>(kind)];
    if (!camera)
        camera = std::make_unique<LineScanCamera>(kCameraWidth, kCameraHeight, kind);
    camera->moveTo(belt);
    return *camera;
}

ProfileSimulation& ScannerSimulation::profile()
{
    if (!line) {
        laser = std::make_unique<LaserProfiler>(kProfileSamples);
        line = std::make_unique<ProfileSimulation>(*laser);
    }
    if (line->position() != belt)
        line->moveTo(belt);
    return *line;
}

PartScan& ScannerSimulation::scan()
{
    if (!partScan)
        partScan = std::make_unique<PartScan>();
    partScan->moveTo(belt);
    return *partScan;
}

} // namespace ovl::gallery
