// SPDX-License-Identifier: BSD-3-Clause
#include "spacepage.h"

#include "settingspanel.h"
#include <visualization/colorscheme.h>

#include <algorithm>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr double kHighest = 12; // mm; no part is higher
constexpr double kBrightest = 70; // per cent of the laser's light
constexpr double kHeightShare = 0.22; // of the longer side, for heights to be seen well

Extent scaled(const Extent& extent, double unit)
{
    return {extent.smallest * unit, extent.largest * unit};
}

/** A flat map needs a box too, or the camera would look at its edge. */
Extent withRoom(const Extent& extent)
{
    return extent.smallest < extent.largest ? extent
                                            : Extent {extent.smallest - 1, extent.largest + 1};
}

/** Two digits are enough for a number that somebody is to read. */
double rounded(double value)
{
    const double unit = std::pow(10.0, std::floor(std::log10(value)) - 1);
    return std::round(value / unit) * unit;
}

QString unitText(double unit)
{
    return unit == 1 ? QString() : QStringLiteral(", heights x %1").arg(unit);
}

/** A family of series that differ in the number of their colours only. */
struct Family {
    const char* name;
    int most; // colours of the first series; each one after has one less
};

constexpr Family kFamilies[] = {{QT_TR_NOOP("Purple to orange"), 11}, {QT_TR_NOOP("Spectral"), 11},
    {QT_TR_NOOP("Brown to blue-green"), 11}, {QT_TR_NOOP("Blue to green"), 9},
    {QT_TR_NOOP("Yellow to brown"), 9}, {QT_TR_NOOP("Blue to purple"), 9}};
constexpr int kFewest = 3;

} // namespace

SpacePage::SpacePage(Scanner& scanner, const QString& title, QWidget* parent)
    : Page(scanner, title,
        {tr("Left drag: turn"), tr("middle drag: pan"), tr("wheel or right drag: nearer"),
            tr("the status line tells the sample")},
        parent)
{
}

/** In the order of ColorScheme, None first. */
QStringList SpacePage::schemeNames()
{
    QStringList names {tr("Smooth rainbow"), tr("Spectrum"), tr("Warm"), tr("Cool"), tr("Blues"),
        tr("Wild flower"), tr("Citrus")};
    for (const Family& family : kFamilies)
        for (int colours = family.most; colours >= kFewest; --colours)
            names.append(tr("%1, %2").arg(tr(family.name)).arg(colours));
    names << tr("Accent") << tr("Dark") << tr("Set 2") << tr("Pastel 2") << tr("Pastel 1")
          << tr("Set 1") << tr("Paired") << tr("Set 3");
    return names;
}

SettingGroup SpacePage::dataSettings(std::function<void()> redraw)
{
    const auto again = [redraw = std::move(redraw)](const QVariant&) { redraw(); };
    const auto ends = [again](const char* from, const char* to) {
        return std::vector<Setting> {real(QString::fromLatin1(from), 0, again).ofPage(),
            real(QString::fromLatin1(to), 1, again).ofPage()};
    };
    return {tr("Ranges"),
        {{tr("Colour by"), {choice("value", {tr("height"), tr("intensity")}, 0, again).ofPage()}},
            {{},
                {check("fixedColours", tr("Colours over a range of my own"), false, again)
                        .ofPage()
                        .withTip(tr("In the units that the view gets"))}},
            {tr("Colours"), ends("colourFrom", "colourTo")},
            {{}, {check("autoRange", tr("Axes over the data"), true, again).ofPage()}},
            {tr("X axis"), ends("xFrom", "xTo")}, {tr("Y axis"), ends("yFrom", "yTo")},
            {tr("Z axis"), ends("zFrom", "zTo")}}};
}

SpacePage::Samples SpacePage::samplesOf(const FileContents* file) const
{
    const HeightMap& shown = file ? file->map : scanned();
    const bool intensity = !file && panel->whole("value") == 1 && !shown.values.empty();
    // A growing scan keeps the box of the whole part.
    const int rows = file ? shown.rows : PartScan::kProfiles;
    const Extent height
        = scaled(file ? withRoom(file->heights) : Extent {0, kHighest}, shown.zUnit);
    Extent value = intensity ? Extent {0, kBrightest} : height;
    if (panel->isOn("fixedColours") && panel->real("colourFrom") < panel->real("colourTo"))
        value = {panel->real("colourFrom"), panel->real("colourTo")};
    return {&shown, intensity ? &shown.values : &shown.heights, intensity ? 1 : shown.zUnit,
        {{{0, (shown.columns - 1) * shown.xPitch}, {0, (rows - 1) * shown.yPitch}, height, value}}};
}

void SpacePage::suitContents()
{
    panel->enable("value", !showsFile());
    panel->show("fixedColours", false);
    panel->show("autoRange", true);
    const Ranges box = samples().ranges;
    const char* const ends[4][2]
        = {{"xFrom", "xTo"}, {"yFrom", "yTo"}, {"zFrom", "zTo"}, {"colourFrom", "colourTo"}};
    for (std::size_t axis = 0; axis < box.size(); ++axis) {
        panel->show(ends[axis][0], box[axis].smallest);
        panel->show(ends[axis][1], box[axis].largest);
    }
    suitScale();
    setSource(showsFile() ? fileText() : scannedText());
}

QString SpacePage::fileText() const
{
    const QString text = tr("%1, %2 x %3 samples")
                             .arg(contents->name)
                             .arg(contents->map.columns)
                             .arg(contents->map.rows);
    const QString gaps
        = contents->gaps > 0 ? tr(", %1 without data").arg(contents->gaps) : QString();
    return text + gaps + unitText(contents->map.zUnit);
}

/** Exaggerates or flattens the heights so that they can be seen. */
void SpacePage::suitScale()
{
    const Ranges box = samples().ranges;
    const double side = std::max(box[0].largest, box[1].largest);
    const double height = box[2].largest - box[2].smallest;
    panel->show("zScale", rounded(kHeightShare * side / height));
}

QString SpacePage::textAt(double x, double y, double) const { return map().describe(x, y); }

} // namespace ovl::gallery
