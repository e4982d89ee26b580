// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_SAMPLESTORE_H
#define OVL_VISUALIZATION_SAMPLESTORE_H

#include "spaceaxes.h"
#include "stores.h"

#include <cstddef>
#include <cstring>

#if defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__)
#define OVL_STREAMS_SAMPLES 1 // the sanitizer does not see such stores
#else
#define OVL_STREAMS_SAMPLES 0
#endif

namespace ovl {

/** Writes `value` past the caches, so that its memory is not read first. */
template <class Value> inline void streamValue(Value* to, Value value)
{
#if OVL_STREAMS_SAMPLES
    static_assert(sizeof(Value) == sizeof(int) || sizeof(Value) == sizeof(long long));
    if constexpr (sizeof(Value) == sizeof(int)) {
        int bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        _mm_stream_si32(reinterpret_cast<int*>(to), bits);
    } else {
        long long bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        _mm_stream_si64(reinterpret_cast<long long*>(to), bits);
    }
#else
    *to = value;
#endif
}

/** Better stores for a scene of so many samples that are written one after the other. */
constexpr Stores storesForSamples(std::size_t samples, std::size_t bytesEach)
{
    // Measured with the next repaint: smaller scenes are still in the caches then.
    constexpr std::size_t streamedBytes = std::size_t(16) << 20;
    return OVL_STREAMS_SAMPLES && samples * bytesEach >= streamedBytes ? Stores::Streaming
                                                                       : Stores::Cached;
}

/** Writes one sample. Streaming takes neighbours: alone, each would be an access to memory. */
template <class Coordinate>
inline void storeSample(
    Stores stores, Coordinate* position, double* scalar, const World<double>& world, double value)
{
    const auto x = static_cast<Coordinate>(world.x);
    const auto y = static_cast<Coordinate>(world.y);
    const auto z = static_cast<Coordinate>(world.z);
    if (stores == Stores::Streaming) {
        streamValue(position, x);
        streamValue(position + 1, y);
        streamValue(position + 2, z);
        streamValue(scalar, value);
    } else {
        position[0] = x;
        position[1] = y;
        position[2] = z;
        *scalar = value;
    }
}

} // namespace ovl

#endif
