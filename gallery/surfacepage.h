// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SURFACEPAGE_H
#define OVL_GALLERY_SURFACEPAGE_H

#include "spacepageof.h"
#include <visualization/surfaceview.h>

namespace ovl::gallery {

/** The surface view. */
class SurfacePage : public SpacePageOf<SurfaceView> {
    Q_OBJECT

public:
    explicit SurfacePage(ScannerSimulation& simulation, QWidget* parent = nullptr);
};

} // namespace ovl::gallery

#endif
