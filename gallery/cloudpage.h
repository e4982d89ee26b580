// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_CLOUDPAGE_H
#define OVL_GALLERY_CLOUDPAGE_H

#include "spacepageof.h"
#include <visualization/pointcloudview.h>

namespace ovl::gallery {

/** The point cloud view. */
class CloudPage : public SpacePageOf<PointCloudView> {
    Q_OBJECT

public:
    explicit CloudPage(ScannerSimulation& simulation, QWidget* parent = nullptr);
};

} // namespace ovl::gallery

#endif
