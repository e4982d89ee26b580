// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_CORRECTIONREFERENCE_H
#define OVL_TESTS_SUPPORT_CORRECTIONREFERENCE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovl::test {

__extension__ using Integer = __int128; // holds every sample of every integer type

/** A sample type of the framework by its code, size and kind. */
struct SampleType {
    int code;
    const char* name;
    int bytes;
    enum Kind { Signed, Unsigned, Floating } kind;
};

/** The eight types that the correction reads. */
extern const std::array<SampleType, 8> correctionInputs;
/** The fourteen types that the correction writes. */
extern const std::array<SampleType, 14> correctionOutputs;

struct CorrectionSettings {
    int shift = 0;
    bool expand = false; // four components out of any number
    std::array<int, 8> words {0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0, 0, 0, 0x7FFFFFFF};
};

/**
 * What the image correction makes of one pixel, told by arithmetic on whole numbers instead of
 * machine types: a shift is a division that rounds down, a cast a remainder.
 *
 * Appends the bytes of the pixel's components in the type `out`; none if nothing is to be written.
 */
void appendCorrectedPixel(std::vector<std::byte>& bytes, const std::byte* pixel,
    const SampleType& in, int components, const SampleType& out,
    const CorrectionSettings& settings);

/**
 * `count` samples of the type: its least and greatest value, those near 0 and near the borders of
 * narrower types, then noise. The same each time.
 */
std::vector<std::byte> correctionSamples(
    const SampleType& type, std::size_t count, std::uint32_t seed = 1);

} // namespace ovl::test

#endif
