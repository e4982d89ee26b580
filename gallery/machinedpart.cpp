// SPDX-License-Identifier: BSD-3-Clause
#include "machinedpart.h"

#include "noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace ovl::gallery {
namespace {

constexpr float kChamfer = 1.0F; // mm, under 45 degrees

/** How far (u, v) lies inside a rectangle with rounded corners; negative outside. */
float depthInside(float u, float v, float halfWidth, float halfLength, float radius)
{
    const float x = std::abs(u) - (halfWidth - radius);
    const float y = std::abs(v) - (halfLength - radius);
    const float outside = std::hypot(std::max(x, 0.0F), std::max(y, 0.0F));
    return radius - outside - std::min(std::max(x, y), 0.0F);
}

float chamfered(float height, float depth) { return height - std::max(0.0F, kChamfer - depth); }

void paint(Spot& spot, float red, float green, float blue, float gloss)
{
    spot.red = red;
    spot.green = green;
    spot.blue = blue;
    spot.gloss = gloss;
}

void shade(Spot& spot, float factor)
{
    spot.red *= factor;
    spot.green *= factor;
    spot.blue *= factor;
}

constexpr int kGlyphRows = 7;
constexpr int kGlyphColumns = 5;
using Glyph = std::array<std::uint8_t, kGlyphRows>; // a row's leftmost dot is bit 4

constexpr std::array<Glyph, 10> kDigits {{
    {14, 17, 19, 21, 25, 17, 14},
    {4, 12, 4, 4, 4, 4, 14},
    {14, 17, 1, 2, 4, 8, 31},
    {31, 2, 4, 2, 1, 17, 14},
    {2, 6, 10, 18, 31, 2, 2},
    {31, 16, 30, 1, 1, 17, 14},
    {6, 8, 16, 30, 17, 17, 14},
    {31, 1, 2, 4, 8, 8, 8},
    {14, 17, 17, 14, 17, 17, 14},
    {14, 17, 17, 15, 1, 2, 12},
}};
constexpr Glyph kLetterO {14, 17, 17, 17, 17, 17, 14};
constexpr Glyph kLetterV {17, 17, 17, 17, 17, 10, 4};
constexpr Glyph kLetterL {16, 16, 16, 16, 16, 16, 31};
constexpr Glyph kDash {0, 0, 0, 31, 0, 0, 0};

/** The glyph at a place of the engraving "OVL-nnn". */
const Glyph& glyph(int place, int serialNumber)
{
    switch (place) {
    case 0:
        return kLetterO;
    case 1:
        return kLetterV;
    case 2:
        return kLetterL;
    case 3:
        return kDash;
    case 4:
        return kDigits[static_cast<std::size_t>(serialNumber / 100 % 10)];
    case 5:
        return kDigits[static_cast<std::size_t>(serialNumber / 10 % 10)];
    default:
        return kDigits[static_cast<std::size_t>(serialNumber % 10)];
    }
}

} // namespace

MachinedPart::MachinedPart(int serial)
    : serialNumber(std::abs(serial))
{
}

Spot MachinedPart::at(float u, float v, bool& onPart) const
{
    Spot spot;
    const float depth = depthInside(u, v, kWidth / 2, kLength / 2, 6.0F);
    onPart = depth > 0;
    if (!onPart)
        return spot;
    // Brushed along u: the streaks are long there and short across.
    const float streak = smoothGrain(u * 0.35F, static_cast<std::int32_t>(std::floor(v * 6.0F)))
        + 0.6F * smoothGrain(u * 1.3F, static_cast<std::int32_t>(std::floor(v * 14.0F)) + 5000);
    const float metal = 0.40F + 0.10F * streak;
    paint(spot, metal, metal * 1.02F, metal * 1.05F, 0.5F);
    spot.height = chamfered(kTop, depth) + 0.002F * streak;
    addMarks(u, v, spot);
    addPads(u, v, spot);
    addSlot(u, v, spot);
    addBoss(u, v, spot);
    addHoles(u, v, spot);
    return spot;
}

void MachinedPart::addBoss(float u, float v, Spot& spot) const
{
    constexpr float kOuter = 20.0F;
    constexpr float kInner = 14.0F;
    constexpr float kBore = 5.0F;
    const float radius = std::hypot(u, v);
    if (radius > kOuter + 1.5F)
        return;
    const float turning = 0.5F + 0.5F * std::sin(radius * 9.0F);
    if (radius > kOuter) { // a groove round the boss
        shade(spot, 0.45F);
        spot.height = kTop - 0.6F;
    } else if (radius > kInner) {
        const float depth = std::min(kOuter - radius, radius - kInner);
        paint(
            spot, 0.66F + 0.08F * turning, 0.40F + 0.05F * turning, 0.24F + 0.03F * turning, 0.9F);
        spot.height = chamfered(11.0F, depth);
    } else if (radius > kBore) {
        const float fan = 0.5F + 0.5F * std::cos(2.0F * std::atan2(v, u)); // turned faces shine so
        const float metal = 0.20F + 0.10F * turning + 0.24F * fan;
        paint(spot, metal, metal, metal * 1.03F, 0.8F);
        spot.height = 5.0F - 0.05F * turning;
    } else {
        spot = Spot {};
        spot.hole = true;
    }
}

void MachinedPart::addHoles(float u, float v, Spot& spot) const
{
    const float radius = std::hypot(std::abs(u) - 41.0F, std::abs(v) - 26.0F);
    if (radius < 3.2F) {
        spot = Spot {};
        spot.hole = true;
    } else if (radius < 6.0F) {
        paint(spot, 0.30F, 0.31F, 0.33F, 0.7F);
        spot.height = 6.0F + std::max(0.0F, radius - 5.4F);
    } else if (radius < 6.6F) {
        shade(spot, 1.35F);
        spot.height = kTop - (6.6F - radius);
    }
}

void MachinedPart::addSlot(float u, float v, Spot& spot) const
{
    const float depth = depthInside(u + 32.0F, v, 3.6F, 14.0F, 3.6F);
    if (depth <= 0)
        return;
    const float anodised = 0.9F + 0.1F * smoothGrain(v * 2.0F, 77);
    paint(spot, 0.07F * anodised, 0.22F * anodised, 0.50F * anodised, 0.3F);
    spot.height = kTop - std::min(3.0F, depth * 3.0F);
}

void MachinedPart::addPads(float u, float v, Spot& spot) const
{
    constexpr std::array<float, 4> kSteps {8.5F, 9.0F, 9.5F, 10.0F}; // mm above the belt
    for (std::size_t index = 0; index < kSteps.size(); ++index) {
        const float centre = -15.0F + 10.0F * static_cast<float>(index);
        const float depth = depthInside(u - 32.0F, v - centre, 6.0F, 3.6F, 0.8F);
        if (depth <= 0)
            continue;
        const float gold
            = 0.95F + 0.1F * smoothGrain(u * 3.0F, static_cast<std::int32_t>(v * 9.0F));
        paint(spot, 0.72F * gold, 0.56F * gold, 0.22F * gold, 0.9F);
        spot.height = std::min(kSteps[index], kTop + depth * 2.0F);
        return;
    }
}

void MachinedPart::addMarks(float u, float v, Spot& spot) const
{
    if (isEngraved(u, v)) {
        shade(spot, 0.30F);
        spot.height -= 0.2F;
    } else if (isCode(u, v)) {
        shade(spot, 0.16F);
    } else if (isScratched(u, v)) {
        shade(spot, 1.7F);
        spot.height -= 0.15F;
    }
}

bool MachinedPart::isEngraved(float u, float v) const
{
    constexpr float kDot = 1.0F; // mm
    constexpr int kAdvance = kGlyphColumns + 1;
    const auto column = static_cast<int>(std::floor((u + 31.0F) / kDot));
    const auto row = static_cast<int>(std::floor((v + 31.5F) / kDot));
    const int place = column / kAdvance;
    if (row < 0 || row >= kGlyphRows || column < 0 || place > 6
        || column % kAdvance == kGlyphColumns)
        return false;
    const unsigned dots = glyph(place, serialNumber)[static_cast<std::size_t>(row)];
    return (dots >> (kGlyphColumns - 1 - column % kAdvance) & 1U) != 0;
}

bool MachinedPart::isCode(float u, float v) const
{
    constexpr int kCells = 10;
    const auto column = static_cast<int>(std::floor((u - 14.0F) / 1.1F));
    const auto row = static_cast<int>(std::floor((v - 20.5F) / 1.1F));
    if (column < 0 || column >= kCells || row < 0 || row >= kCells)
        return false;
    if (column == 0 || row == kCells - 1)
        return true; // the finder's full sides, then its dotted ones
    if (row == 0 || column == kCells - 1)
        return (row + column) % 2 == 0;
    return grain(column + 16 * serialNumber, row) > 0.5F;
}

bool MachinedPart::isScratched(float u, float v) const
{
    if (serialNumber % 3 != 1 || u < -26.0F || u > 24.0F)
        return false;
    const float middle = 24.5F + 0.10F * u + 0.8F * std::sin(u * 0.11F);
    return std::abs(v - middle) < 0.22F * smoothGrain(u * 0.9F, serialNumber);
}

} // namespace ovl::gallery
