// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SPACEPAGE_H
#define OVL_GALLERY_SPACEPAGE_H

#include "heightmap.h"
#include "page.h"
#include "setting.h"

#include <array>

namespace ovl::gallery {

/** What both 3-D pages have in common, whichever view they show: data, colours, ranges. */
class SpacePage : public Page {
    Q_OBJECT

public:
    bool canShow(FileKind kind) const override { return kind == FileKind::Grid; }
    using Page::textAt;
    QString textAt(double x, double y, double z) const override;

protected:
    /** What the view is told about the data, in its own units; axes and value, in that order. */
    using Ranges = std::array<Extent, 4>;

    /** Samples on their way to a view. */
    struct Samples {
        const HeightMap* map;
        const std::vector<float>* values;
        double valueUnit;
        Ranges ranges;
    };

    SpacePage(Scanner& scanner, const QString& title, QWidget* parent);

    /** The scanner's part that the page shows: the growing one, or the last whole one. */
    virtual const HeightMap& scanned() const = 0;
    virtual QString scannedText() const = 0;
    QString fileText() const;

    const HeightMap& map() const { return showsFile() ? contents->map : scanned(); }
    Samples samples() const { return samplesOf(contents.get()); }
    /** Of a file, or of the scanner for null. */
    Samples samplesOf(const FileContents* file) const;
    /** Tells what is shown, and scales the heights so that they can be seen. */
    void suitContents();

    /** The colours' fixed range, the values' own or the ranges of the axes. */
    SettingGroup dataSettings(std::function<void()> redraw);
    static QStringList schemeNames();

private:
    void suitScale();
};

} // namespace ovl::gallery

#endif
