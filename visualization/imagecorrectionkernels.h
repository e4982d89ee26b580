// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: the inner loops of ImageCorrectionAlgorithm, on raw spans.
#ifndef OVL_VISUALIZATION_IMAGECORRECTIONKERNELS_H
#define OVL_VISUALIZATION_IMAGECORRECTIONKERNELS_H

#include "stores.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <type_traits>

namespace ovl::kernels {

/** The settings of the filter in the terms of the input's type, gathered once for each piece. */
template <class In> struct Correction {
    int shift = 0; // at least 0
    std::array<In, 4> andWords {};
    std::array<In, 4> orWords {};
};

template <class In> Correction<In> makeCorrection(int shift, const int (&maskWords)[8])
{
    Correction<In> correction;
    correction.shift = std::max(shift, 0);
    for (std::size_t channel = 0; channel < 4; ++channel) {
        correction.andWords[channel] = static_cast<In>(maskWords[channel]);
        correction.orWords[channel] = static_cast<In>(maskWords[channel + 4]);
    }
    return correction;
}

/** Corrects `pixels` pixels; `in` and `out` do not overlap. */
template <class In, class Out>
using SpanFunction
    = void (*)(const In* in, Out* out, std::ptrdiff_t pixels, const Correction<In>& correction);

/** `sample` at its full width, int at least; a shift beyond that width acts like an endless one. */
template <class In> auto shifted(In sample, int shift)
{
    using Wide = decltype(+sample);
    constexpr int last = static_cast<int>(sizeof(Wide)) * 8 - 1;
    if constexpr (std::is_signed_v<Wide>)
        return static_cast<Wide>(sample >> std::min(shift, last));
    else
        return shift <= last ? sample >> shift : Wide {0};
}

template <class In> In masked(In sample, const Correction<In>& correction, std::size_t channel)
{
    In value = static_cast<In>(shifted(sample, correction.shift));
    value = static_cast<In>(value | correction.orWords[channel]);
    return static_cast<In>(value & correction.andWords[channel]);
}

/** Channels passed through, blue-green-red turned into red-green-blue. */
template <class In, class Out, int Components>
void passSpan(const In* __restrict in, Out* __restrict out, std::ptrdiff_t pixels,
    const Correction<In>& correction)
{
    const int shift = correction.shift;
    const auto sample = [=](const In* pixel, int channel) {
        return static_cast<Out>(shifted(pixel[channel], shift));
    };
    for (std::ptrdiff_t i = 0; i < pixels; ++i, in += Components, out += Components) {
        if constexpr (Components == 1) {
            out[0] = sample(in, 0);
        } else if constexpr (Components == 2) {
            out[0] = sample(in, 0);
            out[1] = sample(in, 1);
        } else {
            out[0] = sample(in, 2);
            out[1] = sample(in, 1);
            out[2] = sample(in, 0);
            if constexpr (Components == 4)
                out[3] = sample(in, 3);
        }
    }
}

/** Four components out of any number, each channel masked; alpha is full where there is none. */
template <class In, class Out, int Components>
void expandSpan(const In* __restrict in, Out* __restrict out, std::ptrdiff_t pixels,
    const Correction<In>& settings)
{
    // Through the input's type, so that a char image has the alpha -1. This is how it is meant.
    constexpr In full = static_cast<In>(255);
    constexpr auto fullAlpha = static_cast<Out>(+full);
    const Correction<In> correction = settings; // a copy that no store to `out` can change
    const auto sample = [&](const In* pixel, std::size_t channel) {
        return static_cast<Out>(masked(pixel[channel], correction, channel));
    };
    for (std::ptrdiff_t i = 0; i < pixels; ++i, in += Components, out += 4) {
        if constexpr (Components <= 2) {
            out[0] = sample(in, 0);
            out[1] = Out {0};
            if constexpr (Components == 2)
                out[1] = sample(in, 1);
            out[2] = Out {0};
        } else {
            out[0] = sample(in, 2);
            out[1] = sample(in, 1);
            out[2] = sample(in, 0);
        }
        if constexpr (Components == 4)
            out[3] = sample(in, 3);
        else
            out[3] = fullAlpha;
    }
}

/** The plain loop for pixels of `components` samples; null where nothing is to be written. */
template <class In, class Out> SpanFunction<In, Out> plainSpan(int components, bool expand)
{
    switch (components) {
    case 1:
        return expand ? expandSpan<In, Out, 1> : passSpan<In, Out, 1>;
    case 2:
        return expand ? expandSpan<In, Out, 2> : passSpan<In, Out, 2>;
    case 3:
        return expand ? expandSpan<In, Out, 3> : passSpan<In, Out, 3>;
    case 4:
        return expand ? expandSpan<In, Out, 4> : passSpan<In, Out, 4>;
    default:
        return nullptr;
    }
}

/** The instructions that a loop may use beyond those that every processor of the kind has. */
enum class Level { Plain, Avx2 };

/** The best that this processor offers. */
Level bestLevel();

/** The better one for a frame of so many bytes, those read and those written. */
Stores storesFor(std::ptrdiff_t frameBytes);

template <class T, class... Others> constexpr bool isOneOf = (std::is_same_v<T, Others> || ...);

/** The pairs with hand-made loops: those that an image view asks for. */
template <class In, class Out>
constexpr bool hasWideSpans
    = (isOneOf<In, unsigned char, short, unsigned short, int>)&&(isOneOf<Out, unsigned char, In>);

/** The hand-made loop of such a pair; null where there is none for the level or the components. */
template <class In, class Out>
SpanFunction<In, Out> wideSpan(Level level, int components, bool expand, Stores stores);

/** The fastest loop that gives the same results as plainSpan(). */
template <class In, class Out>
SpanFunction<In, Out> bestSpan(int components, bool expand, [[maybe_unused]] Stores stores)
{
    if constexpr (hasWideSpans<In, Out>)
        if (const auto wide = wideSpan<In, Out>(bestLevel(), components, expand, stores))
            return wide;
    return plainSpan<In, Out>(components, expand);
}

/** Pixels of `in` and `out` of a span, and how many components `whole` makes of one. */
struct PixelLayout {
    int inComponents = 0;
    int outComponents = 0;
    int made = 0;

    bool fits() const { return made == outComponents; }
};

/** Runs `whole` for an output of fewer or more components than it makes; stores those that fit. */
template <class In, class Out>
void correctFittedSpan(SpanFunction<In, Out> whole, PixelLayout layout, const In* in, Out* out,
    std::ptrdiff_t pixels, const Correction<In>& correction)
{
    constexpr std::ptrdiff_t blockPixels = 64;
    Out block[4 * blockPixels];
    const int stored = std::min(layout.made, layout.outComponents);
    while (pixels > 0) {
        const std::ptrdiff_t count = std::min(pixels, blockPixels);
        whole(in, block, count, correction);
        for (std::ptrdiff_t i = 0; i < count; ++i, out += layout.outComponents)
            std::copy_n(block + i * layout.made, stored, out);
        in += count * layout.inComponents;
        pixels -= count;
    }
}

} // namespace ovl::kernels

#endif
