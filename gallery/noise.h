// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_NOISE_H
#define OVL_GALLERY_NOISE_H

#include <cmath>
#include <cstdint>

namespace ovl::gallery {

/** A fast stream of pseudo-random numbers: the same seed gives the same stream everywhere. */
class Noise {
public:
    explicit Noise(std::uint32_t seed)
        : state(seed != 0 ? seed : 1)
    {
    }

    std::uint32_t next()
    {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return state;
    }

    /** Evenly spread from 0 to 1. */
    float unit() { return static_cast<float>(next() >> 8) * (1.0F / 16777216.0F); }

    /** Bell-shaped round 0 with the deviation 1: the sum of four bytes is near enough for a sensor.
     */
    float bell()
    {
        const std::uint32_t bits = next();
        const auto sum
            = (bits & 0xFFU) + (bits >> 8 & 0xFFU) + (bits >> 16 & 0xFFU) + (bits >> 24 & 0xFFU);
        return (static_cast<float>(sum) - 510.0F) * (1.0F / 147.8F);
    }

private:
    std::uint32_t state;
};

/** A value from 0 to 1 that belongs to the grid point (x, y) for ever. */
inline float grain(std::int32_t x, std::int32_t y)
{
    std::uint32_t bits
        = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^ static_cast<std::uint32_t>(y) * 0x85EBCA77U;
    bits ^= bits >> 15;
    bits *= 0x2C1B3C6DU;
    bits ^= bits >> 12;
    return static_cast<float>(bits >> 8) * (1.0F / 16777216.0F);
}

/** grain() along x, drawn out into a smooth line; one value per whole x. */
inline float smoothGrain(float x, std::int32_t row)
{
    const float whole = std::floor(x);
    const float part = x - whole;
    const auto left = static_cast<std::int32_t>(whole);
    const float from = grain(left, row);
    return from + (grain(left + 1, row) - from) * part * part * (3.0F - 2.0F * part);
}

} // namespace ovl::gallery

#endif
