// SPDX-License-Identifier: BSD-3-Clause
#include "surfacepage.h"

namespace ovl::gallery {
namespace {

// This view counts from the lower ends of x and y, away from the data, and from the upper end of z:
// below 0 the camera stands in front of the part, as on the point cloud's page.
constexpr SpacePanel::PerAxis kCameraPlace {-0.65, -0.9, 1.46};

} // namespace

SurfacePage::SurfacePage(ScannerSimulation& simulation, QWidget* parent)
    : SpacePageOf<SurfaceView>(simulation, new SpacePanel(kCameraPlace), kCameraPlace, parent)
{
    panel->addRepresentation();
    panel->finishWithCamera();
    connect(panel, &SpacePanel::representationChosen, this,
        [this](Representation representation) { view().setRepresentation(representation); });
    panel->chooseScheme(ColorScheme::BREWER_DIVERGING_BROWN_BLUE_GREEN_11);
}

} // namespace ovl::gallery
