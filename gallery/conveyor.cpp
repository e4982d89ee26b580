// SPDX-License-Identifier: BSD-3-Clause
#include "conveyor.h"

#include "noise.h"

#include <cmath>
#include <cstdint>

namespace ovl::gallery {
namespace {

/** Dark rubber with a coarse weave and some dust. */
Spot beltAt(float across, double along)
{
    const auto x = static_cast<std::int32_t>(std::floor(across * 1.6F));
    const auto y = static_cast<std::int32_t>(std::floor(along * 1.6));
    const float weave = ((x ^ y) & 1) != 0 ? 1.0F : 0.72F;
    const float dust = grain(static_cast<std::int32_t>(std::floor(across * 5.0F)),
        static_cast<std::int32_t>(std::floor(along * 5.0)));
    const float grey = 0.060F * weave + (dust > 0.997F ? 0.12F : 0.02F * dust);
    Spot spot;
    spot.red = grey;
    spot.green = grey * 1.05F;
    spot.blue = grey * 1.15F;
    spot.height = 0.05F * weave;
    return spot;
}

} // namespace

int Conveyor::partNumber(double position)
{
    return static_cast<int>(std::floor(position / kPitch));
}

void Conveyor::lineAt(double position, std::vector<Spot>& line) const
{
    const int number = partNumber(position);
    const MachinedPart part(number + 101);
    const float turn = 0.10F * (grain(number, 1) - 0.5F); // radians
    const float offset = 6.0F * (grain(number, 2) - 0.5F);
    const float cosine = std::cos(turn);
    const float sine = std::sin(turn);
    const auto along = static_cast<float>(position - (number + 0.5) * kPitch);
    const auto step = static_cast<float>(kFieldOfView / static_cast<double>(line.size()));
    float across = static_cast<float>(-kFieldOfView / 2) + step / 2;
    for (Spot& spot : line) {
        const float from = across - offset;
        bool onPart = false;
        spot = part.at(cosine * from + sine * along, cosine * along - sine * from, onPart);
        if (!onPart)
            spot = beltAt(across, position);
        across += step;
    }
}

} // namespace ovl::gallery
