// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SPACEPAGE_H
#define OVL_GALLERY_SPACEPAGE_H

#include "heightmap.h"
#include "page.h"
#include "scannersimulation.h"
#include "spacepanel.h"

#include <optional>

namespace ovl::gallery {

/** What both 3-D pages have in common: a scan that grows, or a height grid from a file. */
class SpacePage : public Page {
    Q_OBJECT

public:
    QString open(const QString& path) override;
    void showSimulation() override;
    bool canPlay() const override;
    bool step() override;
    void prepareForPicture() override;

protected:
    /** What the view is told about the data, in its own units; axes and value, in that order. */
    using Ranges = std::array<Extent, 4>;

    SpacePage(ScannerSimulation& simulation, SpacePanel* settings, QWidget* parent);

    /** Hands the samples to the view and has it draw them. */
    virtual void draw(const HeightMap& map, const std::vector<float>& values, double valueUnit,
        const Ranges& ranges)
        = 0;
    void redraw();
    void connectPanel();
    void showEvent(QShowEvent* event) override;

    SpacePanel* const panel;

private:
    bool showsFile() const { return fileShown; }
    const HeightMap& map();
    Ranges ranges();
    void showFile();
    void suitScale();
    void pointAt(double x, double y);

    ScannerSimulation& scanner;
    std::optional<HeightMap> fileMap; // the last file
    QString fileName;
    bool fileShown = false;
    bool byIntensity = false;
};

} // namespace ovl::gallery

#endif
