// SPDX-License-Identifier: BSD-3-Clause
#include "surfacepage.h"

#include <visualization/representation.h>

namespace ovl::gallery {

SurfacePage::SurfacePage(Scanner& scanner, QWidget* parent)
    : SpacePageOf<SurfaceView>(scanner, tr("Surface"), parent)
{
    // This view counts from the lower ends of x and y, away from the data, and from the upper end
    // of z: below 0 the camera stands in front of the part, as on the point cloud's page.
    SettingGroup colours = colourSettings(ColorScheme::BREWER_DIVERGING_BROWN_BLUE_GREEN_11);
    colours.rows.push_back({tr("Drawn as"),
        {choice("representation", {tr("surface"), tr("points"), tr("wireframe")},
            static_cast<int>(Representation::Surface), [this](const QVariant& index) {
                view().setRepresentation(static_cast<Representation>(index.toInt()));
            })}});
    panel->add({colours, axisSettings({-0.66, -0.92, 1.53}), dataSettings([this] { redraw(); })});
    panel->finish();
    showScanner();
}

const HeightMap& SurfacePage::scanned() const { return scene().scan().finished(); }

QString SurfacePage::scannedText() const
{
    return tr("The part scanned last, %1 x %2 samples")
        .arg(PartScan::kSamples)
        .arg(PartScan::kProfiles);
}

bool SurfacePage::takeFrame()
{
    const int part = scene().scan().partNumber();
    if (part == shownPart)
        return false; // no other part is finished
    shownPart = part;
    redraw();
    return true;
}

void SurfacePage::prepareForPicture() { resetView(); }

} // namespace ovl::gallery
