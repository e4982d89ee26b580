// SPDX-License-Identifier: BSD-3-Clause
#include "cloudpage.h"

namespace ovl::gallery {

CloudPage::CloudPage(Scanner& scanner, QWidget* parent)
    : SpacePageOf<PointCloudView>(scanner, tr("Point cloud"), parent)
{
    // In front of the part and a little to its right, at four times the distance told here.
    panel->add({colourSettings(ColorScheme::None), axisSettings({0.66, 0.92, 2.53}),
        dataSettings([this] { redraw(); })});
    panel->finish();
    showScanner();
}

const HeightMap& CloudPage::scanned() const { return scene().scan().map(); }

QString CloudPage::scannedText() const
{
    return tr("The part under the laser, up to %1 x %2 points")
        .arg(PartScan::kSamples)
        .arg(PartScan::kProfiles);
}

void CloudPage::prepareForPicture() { resetView(); }

} // namespace ovl::gallery
