// SPDX-License-Identifier: BSD-3-Clause
#include "linescancamera.h"

#include <algorithm>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr float kExposure = 5200.0F; // counts for a white, level spot: highlights reach full scale
constexpr float kDarkLevel = 60.0F; // counts
constexpr float kReadNoise = 5.0F; // counts
constexpr float kShotNoise = 0.55F; // counts for each root of a count
constexpr float kHeightNoise = 0.004F; // mm
constexpr float kSteepest = 2.5F; // mm of height over a mm across; more throws the light away

} // namespace

LineScanCamera::LineScanCamera(int width, int height, CameraKind cameraKind)
    : columns(width)
    , rows(height)
    , kind(cameraKind)
    , channels(kind == CameraKind::Colour ? 3 : 1)
    , line(static_cast<std::size_t>(width))
    , lastHeights(line.size(), 0.0F)
    , lamp(line.size())
    , ring(2 * static_cast<std::size_t>(height) * rowLength())
{
    for (std::size_t column = 0; column < lamp.size(); ++column) {
        const float side
            = 2.0F * static_cast<float>(column) / static_cast<float>(lamp.size()) - 1.0F;
        lamp[column] = (1.0F - 0.28F * side * side) * (1.0F + 0.012F * noise.bell());
    }
    advance(rows);
}

std::size_t LineScanCamera::rowLength() const
{
    return static_cast<std::size_t>(columns) * static_cast<std::size_t>(channels);
}

void LineScanCamera::advance(int count)
{
    const std::size_t mirror = static_cast<std::size_t>(rows) * rowLength();
    for (int i = 0; i < count; ++i) {
        belt += Conveyor::kFieldOfView / columns;
        conveyor.lineAt(belt, line);
        std::uint16_t* row = frame();
        if (kind == CameraKind::Range)
            measure(row);
        else
            expose(row);
        std::copy_n(row, rowLength(), row + mirror);
        oldest = (oldest + 1) % static_cast<std::size_t>(rows);
    }
}

void LineScanCamera::moveTo(double position)
{
    const double pitch = Conveyor::kFieldOfView / columns;
    const double missing = std::floor((position - belt) / pitch + 0.5);
    if (missing < 0 || missing > rows) {
        belt = position - rows * pitch;
        advance(rows);
    } else {
        advance(static_cast<int>(missing));
    }
}

/** Heights as counts; a hole and the flanks that throw the light away give none. */
void LineScanCamera::measure(std::uint16_t* row)
{
    const auto perPitch = static_cast<float>(columns / Conveyor::kFieldOfView);
    for (std::size_t column = 0; column < line.size(); ++column) {
        const Spot& spot = line[column];
        const float next = line[column + 1 < line.size() ? column + 1 : column].height;
        const bool lost = spot.hole || std::abs(next - spot.height) * perPitch > kSteepest;
        const float height = spot.height + kHeightNoise * noise.bell();
        const float counts = height * static_cast<float>(kCountsPerMillimetre);
        row[column] = lost ? std::uint16_t {0}
                           : static_cast<std::uint16_t>(std::clamp(counts, 1.0F, 65535.0F));
    }
}

/** How much light the spot of a column sends up: its slopes against a lamp from the upper left. */
float LineScanCamera::brightness(std::size_t column) const
{
    const Spot& spot = line[column];
    if (spot.hole)
        return 0.02F;
    const auto perPitch = static_cast<float>(columns / Conveyor::kFieldOfView);
    const float left = line[column > 0 ? column - 1 : column].height;
    const float across = std::clamp((spot.height - left) * perPitch, -1.2F, 1.2F);
    const float along = std::clamp((spot.height - lastHeights[column]) * perPitch, -1.2F, 1.2F);
    const float facing = 0.55F * across + 0.65F * along;
    const float highlight = spot.gloss * std::max(0.0F, facing) * 0.5F;
    return std::max(0.08F, 1.0F + 0.55F * facing) + highlight;
}

void LineScanCamera::expose(std::uint16_t* row)
{
    for (std::size_t column = 0; column < line.size(); ++column) {
        const Spot& spot = line[column];
        const float light = kExposure * lamp[column] * brightness(column);
        const float mono = 0.30F * spot.red + 0.59F * spot.green + 0.11F * spot.blue;
        const float share[3] = {channels == 1 ? mono : spot.blue, spot.green, spot.red};
        for (int channel = 0; channel < channels; ++channel) {
            const float counts = kDarkLevel + light * share[channel];
            const float noisy
                = counts + noise.bell() * (kReadNoise + kShotNoise * std::sqrt(counts));
            *row++
                = static_cast<std::uint16_t>(std::clamp(noisy, 0.0F, static_cast<float>(kWhite)));
        }
    }
    for (std::size_t column = 0; column < line.size(); ++column)
        lastHeights[column] = line[column].height;
}

} // namespace ovl::gallery
