// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_CLOUDPAGE_H
#define OVL_GALLERY_CLOUDPAGE_H

#include "spacepageof.h"
#include <visualization/pointcloudview.h>

namespace ovl::gallery {

/** The point cloud view: the part under the laser as it grows, or a height grid from a file. */
class CloudPage : public SpacePageOf<PointCloudView> {
    Q_OBJECT

public:
    explicit CloudPage(Scanner& scanner, QWidget* parent = nullptr);

    void prepareForPicture() override;

private:
    const HeightMap& scanned() const override;
    QString scannedText() const override;
};

} // namespace ovl::gallery

#endif
