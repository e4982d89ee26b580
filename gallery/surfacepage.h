// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SURFACEPAGE_H
#define OVL_GALLERY_SURFACEPAGE_H

#include "spacepageof.h"
#include <visualization/surfaceview.h>

namespace ovl::gallery {

/** The surface view: the part that was finished last, or a height grid from a file. */
class SurfacePage : public SpacePageOf<SurfaceView> {
    Q_OBJECT

public:
    explicit SurfacePage(Scanner& scanner, QWidget* parent = nullptr);

    void prepareForPicture() override;

private:
    const HeightMap& scanned() const override;
    QString scannedText() const override;
    bool takeFrame() override;

    int shownPart = 0; // its number
};

} // namespace ovl::gallery

#endif
