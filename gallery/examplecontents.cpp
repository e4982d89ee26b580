// SPDX-License-Identifier: BSD-3-Clause
#include "examplecontents.h"

#include "noise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr int kTerrainColumns = 360;
constexpr int kTerrainRows = 300;
constexpr float kCell = 30.0F; // metres
constexpr float kLowest = 236.0F;
constexpr float kRelief = 840.0F;

/** Smooth noise over the plane, from 0 to 1, one bump per unit. */
float bump(float x, float y, std::int32_t seed)
{
    const float row = std::floor(y);
    const float part = y - row;
    const auto below = static_cast<std::int32_t>(row) * 131 + seed * 7919;
    const float from = smoothGrain(x, below);
    const float to = smoothGrain(x, below + 131);
    return from + (to - from) * part * part * (3.0F - 2.0F * part);
}

/** Ridges with ever finer ones on their slopes. */
float mountains(float x, float y)
{
    float height = 0;
    float weight = 0.5F;
    float size = 1.0F;
    for (std::int32_t octave = 0; octave < 6; ++octave) {
        const float ridge = 1.0F - std::abs(2.0F * bump(x * size, y * size, octave) - 1.0F);
        height += weight * ridge * ridge;
        weight *= 0.5F;
        size *= 2.03F;
    }
    return height;
}

void makeTerrain(FileContents& contents)
{
    contents.name = QStringLiteral("Terrain");
    contents.kind = FileKind::Grid;
    HeightMap& map = contents.map;
    map.columns = kTerrainColumns;
    map.rows = kTerrainRows;
    map.heights.reserve(map.samples());
    for (int row = 0; row < map.rows; ++row)
        for (int column = 0; column < map.columns; ++column) {
            const float x = static_cast<float>(column) / 80.0F;
            const float y = static_cast<float>(row) / 80.0F;
            const float rise = 0.45F + 0.55F * bump(0.55F * x, 0.55F * y, 40);
            const float height = std::max(0.19F, mountains(x, y) * rise); // a lake lies in the low
            map.heights.push_back(kLowest + kRelief * height);
        }
    const QString metres = QStringLiteral("m");
    map.x = {0, kCell, 0, metres};
    map.y = {0, kCell, 0, metres};
    map.z = {0, 1, 1, metres};
}

constexpr int kRecorded = 800; // samples
constexpr double kInterval = 0.0125; // s
constexpr int kChannels = 4;

void makeRecording(FileContents& contents)
{
    contents.name = QStringLiteral("Recording");
    contents.kind = FileKind::Table;
    Table& table = contents.table;
    table.titles = QStringList {QStringLiteral("Time [s]"), QStringLiteral("Channel 1"),
        QStringLiteral("Channel 2"), QStringLiteral("Channel 3"), QStringLiteral("Channel 4")};
    table.columns.assign(kChannels + 1, std::vector<double>(kRecorded));
    Noise noise(20260803);
    for (std::size_t i = 0; i < kRecorded; ++i) {
        const double time = static_cast<double>(i) * kInterval;
        table.columns[0][i] = time;
        for (int channel = 0; channel < kChannels; ++channel) {
            const auto place = static_cast<float>(time);
            const double slow = 2.4 * bump(1.3F * place, 0.5F, 60 + channel) - 1.2;
            const double swell = 0.3 + 1.2 * bump(0.7F * place, 0.5F, 80 + channel);
            const double wave = swell * std::sin((8.3 + 1.1 * channel) * 2 * time + channel);
            const double away = (time - 6.7 - 0.02 * channel) / 0.06;
            const double spike = (channel == 0 ? 4.6 : 2.2) * std::exp(-away * away);
            table.columns[static_cast<std::size_t>(channel) + 1][i]
                = slow + 0.8 * wave + spike + 0.12 * static_cast<double>(noise.bell());
        }
    }
}

constexpr int kSliceSide = 512;

/** An ellipse that adds to the signal of what it lies in; lengths are shares of half the side. */
struct Ellipse {
    float x;
    float y;
    float width;
    float height;
    float turn; // radians
    float signal; // counts
};

constexpr std::array<Ellipse, 11> kTissues {{
    {0.0F, 0.0F, 0.70F, 0.93F, 0.0F, 30000.0F}, // skin
    {0.0F, 0.0F, 0.66F, 0.89F, 0.0F, -24000.0F}, // bone
    {0.0F, 0.015F, 0.62F, 0.84F, 0.0F, 14000.0F},
    {0.22F, 0.02F, 0.11F, 0.31F, -0.31F, -12000.0F}, // ventricles
    {-0.22F, 0.02F, 0.13F, 0.35F, 0.31F, -12000.0F},
    {0.0F, -0.36F, 0.23F, 0.26F, 0.0F, 5200.0F},
    {0.0F, -0.10F, 0.046F, 0.046F, 0.0F, 9000.0F},
    {0.0F, 0.12F, 0.046F, 0.046F, 0.0F, 9000.0F},
    {-0.08F, 0.60F, 0.046F, 0.023F, 0.0F, 12000.0F},
    {0.06F, 0.60F, 0.023F, 0.046F, 0.0F, 12000.0F},
    {0.36F, -0.42F, 0.07F, 0.10F, 0.6F, 9000.0F},
}};

float sliceSignal(float x, float y)
{
    float signal = 400.0F;
    for (const Ellipse& tissue : kTissues) {
        const float right = x - tissue.x;
        const float down = y - tissue.y;
        const float along = right * std::cos(tissue.turn) + down * std::sin(tissue.turn);
        const float across = down * std::cos(tissue.turn) - right * std::sin(tissue.turn);
        if (std::hypot(along / tissue.width, across / tissue.height) < 1)
            signal += tissue.signal;
    }
    return signal;
}

void makeSlice(FileContents& contents)
{
    contents.name = QStringLiteral("Slice");
    contents.kind = FileKind::Image;
    Image& image = contents.image;
    image = {kSliceSide, kSliceSide, 1, true, {}};
    image.allocate();
    constexpr float kHalf = kSliceSide / 2.0F;
    Noise noise(20260804);
    std::size_t at = 0;
    for (int row = 0; row < kSliceSide; ++row)
        for (int column = 0; column < kSliceSide; ++column) {
            const float x = (static_cast<float>(column) - kHalf) / kHalf;
            const float y = (static_cast<float>(row) - kHalf) / kHalf;
            const float folds = 0.88F + 0.24F * bump(14.0F * x, 14.0F * y, 90);
            const float signal = sliceSignal(x, y) * folds + 350.0F * noise.bell();
            image.setSample(at++, static_cast<std::uint16_t>(std::clamp(signal, 0.0F, 65535.0F)));
        }
}

} // namespace

SharedContents exampleContents(Example example)
{
    auto contents = std::make_shared<FileContents>();
    switch (example) {
    case Example::Terrain:
        makeTerrain(*contents);
        break;
    case Example::Recording:
        makeRecording(*contents);
        break;
    case Example::Slice:
        makeSlice(*contents);
        break;
    }
    summarise(*contents);
    return contents;
}

} // namespace ovl::gallery
