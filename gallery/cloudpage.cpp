// SPDX-License-Identifier: BSD-3-Clause
#include "cloudpage.h"

namespace ovl::gallery {
namespace {

// In front of the part and a little to its right, at four times the distance told here.
constexpr SpacePanel::PerAxis kCameraPlace {0.65, 0.9, 2.42};

} // namespace

CloudPage::CloudPage(ScannerSimulation& simulation, QWidget* parent)
    : SpacePageOf<PointCloudView>(simulation, new SpacePanel(kCameraPlace), kCameraPlace, parent)
{
    panel->finishWithCamera();
}

} // namespace ovl::gallery
