// SPDX-License-Identifier: BSD-3-Clause
#include "spacepage.h"

#include "gridfile.h"
#include "sourcecontrols.h"
#include <visualization/coordinatessender.h>

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr int kFrameInterval = 100; // ms; each frame hands over all points
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

} // namespace

SpacePage::SpacePage(ScannerSimulation& simulation, SpacePanel* settings, QWidget* parent)
    : Page(kFrameInterval, parent)
    , panel(settings)
    , scanner(simulation)
{
}

void SpacePage::connectPanel()
{
    connectSource(panel->source());
    connect(&panel->source(), &SourceControls::sourceChosen, this, &SpacePage::showSimulation);
    connect(&panel->source(), &SourceControls::fileChosen, this, &SpacePage::showFile);
    connect(panel, &SpacePanel::resetCameraWanted, this, &Page::resetView);
    connect(panel, &SpacePanel::intensityChosen, this, [this](bool intensity) {
        byIntensity = intensity;
        redraw();
    });
    const CoordinatesSender* sender = CoordinatesSender::instance();
    connect(sender, &CoordinatesSender::signal_sendSpaceCoordinates, this,
        [this](double x, double y, double) { pointAt(x, y); });
    connect(sender, &CoordinatesSender::signal_clearCoordinates, this, [this] {
        if (isVisible())
            Q_EMIT coordinatesChanged(QString());
    });
}

QString SpacePage::open(const QString& path)
{
    Outcome<HeightMap> read = readGridFile(path);
    if (!read)
        return read.problem();
    fileMap = std::move(read.value());
    fileName = QFileInfo(path).fileName();
    showFile();
    return QString();
}

void SpacePage::showFile()
{
    fileShown = true;
    panel->source().showFile(fileName);
    panel->setIntensityPossible(false);
    redraw();
    suitScale();
    resetView();
    const auto missing = std::count_if(fileMap->heights.begin(), fileMap->heights.end(),
        [](float height) { return std::isnan(height); });
    Q_EMIT sourceChanged(tr("%1, %2 x %3 samples, %4 without data")
                             .arg(fileName)
                             .arg(fileMap->columns)
                             .arg(fileMap->rows)
                             .arg(missing));
}

void SpacePage::showSimulation()
{
    fileShown = false;
    panel->source().showSource(0);
    panel->setIntensityPossible(true);
    redraw();
    suitScale();
    resetView();
    Q_EMIT sourceChanged(tr("Simulated laser scan, %1 profiles of %2 samples")
                             .arg(PartScan::kProfiles)
                             .arg(PartScan::kSamples));
}

bool SpacePage::canPlay() const { return !showsFile(); }

bool SpacePage::step()
{
    scanner.advance(panel->source().speed() * Conveyor::kPitch / PartScan::kProfiles);
    redraw();
    return true;
}

void SpacePage::prepareForPicture()
{
    if (!showsFile())
        scanner.moveTo(0.999 * Conveyor::kPitch);
    redraw();
    const HeightMap& shown = map();
    const int column = shown.columns / 3;
    const int row = shown.rows / 2;
    pointAt(column * shown.xPitch, row * shown.yPitch);
}

void SpacePage::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    if (!showsFile())
        redraw(); // the other page may have gone on with the scan
}

const HeightMap& SpacePage::map() { return showsFile() ? *fileMap : scanner.scan().map(); }

SpacePage::Ranges SpacePage::ranges()
{
    const HeightMap& shown = map();
    // A growing scan keeps the box of the whole part.
    const int rows = showsFile() ? shown.rows : PartScan::kProfiles;
    Extent height {0, kHighest};
    if (showsFile())
        height = withRoom(extentOf(shown.heights, shown.samples()));
    height = scaled(height, shown.zUnit);
    return {{{0, (shown.columns - 1) * shown.xPitch}, {0, (rows - 1) * shown.yPitch}, height,
        byIntensity ? Extent {0, kBrightest} : height}};
}

void SpacePage::redraw()
{
    const HeightMap& shown = map();
    const bool intensity = byIntensity && !shown.values.empty();
    draw(shown, intensity ? shown.values : shown.heights, intensity ? 1 : shown.zUnit, ranges());
}

/** Exaggerates or flattens the heights so that they can be seen. */
void SpacePage::suitScale()
{
    const Ranges box = ranges();
    const double side = std::max(box[0].largest, box[1].largest);
    const double height = box[2].largest - box[2].smallest;
    panel->setHeightScale(rounded(kHeightShare * side / height));
}

void SpacePage::pointAt(double x, double y)
{
    if (isVisible()) // all views share one sender
        Q_EMIT coordinatesChanged(map().describe(x, y));
}

} // namespace ovl::gallery
