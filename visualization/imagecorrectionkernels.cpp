// SPDX-License-Identifier: BSD-3-Clause
#include "imagecorrectionkernels.h"

#include <cstdint>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace ovl::kernels {

#if defined(__x86_64__)

// On every function below that uses 256 bits, instead of a compiler option for this file: what the
// file shares with others must run on any processor.
#define OVL_AVX2 __attribute__((target("avx2")))

namespace {

constexpr std::ptrdiff_t vectorBytes = 32;
constexpr std::ptrdiff_t lineBytes = 64; // of the caches

template <class T> constexpr std::ptrdiff_t samplesPerVector = vectorBytes / sizeof(T);

template <class In, class Out> constexpr int inputVectors = sizeof(In) / sizeof(Out);

OVL_AVX2 inline __m256i load(const void* from)
{
    return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

OVL_AVX2 inline __m256i loadLanes(const void* low, const void* high)
{
    return _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_loadu_si128(static_cast<const __m128i*>(low))),
        _mm_loadu_si128(static_cast<const __m128i*>(high)), 1);
}

template <Stores stores> OVL_AVX2 inline void store(void* to, __m256i vector)
{
    if constexpr (stores == Stores::Streaming)
        _mm256_stream_si256(static_cast<__m256i*>(to), vector);
    else
        _mm256_storeu_si256(static_cast<__m256i*>(to), vector);
}

/** shifted() for a vector of samples; the instructions take a count beyond the width as we do. */
template <class In> class VectorShift {
public:
    OVL_AVX2 explicit VectorShift(int shift)
        : count(_mm_cvtsi32_si128(shift))
        , keptBits(_mm256_set1_epi8(static_cast<char>(shift < 8 ? 0xFF >> shift : 0)))
    {
    }

    OVL_AVX2 __m256i operator()(__m256i samples) const
    {
        if constexpr (sizeof(In) == 4)
            return _mm256_sra_epi32(samples, count);
        else if constexpr (std::is_same_v<In, short>)
            return _mm256_sra_epi16(samples, count);
        else if constexpr (std::is_same_v<In, unsigned short>)
            return _mm256_srl_epi16(samples, count);
        else // there is no shift of bytes: the neighbour's bits come in and are taken off
            return _mm256_and_si256(_mm256_srl_epi16(samples, count), keptBits);
    }

private:
    __m128i count;
    __m256i keptBits;
};

/** The low bits of as many input vectors as fill one of the output, in their order. */
template <class In, class Out>
OVL_AVX2 inline __m256i narrowed(const __m256i (&in)[inputVectors<In, Out>])
{
    if constexpr (inputVectors<In, Out> == 1) {
        return in[0];
    } else if constexpr (inputVectors<In, Out> == 2) {
        const __m256i low = _mm256_set1_epi16(0xFF);
        const __m256i packed
            = _mm256_packus_epi16(_mm256_and_si256(in[0], low), _mm256_and_si256(in[1], low));
        return _mm256_permute4x64_epi64(packed, 0xD8); // packing works on each half for itself
    } else {
        const __m256i low = _mm256_set1_epi32(0xFF);
        const __m256i first
            = _mm256_packus_epi32(_mm256_and_si256(in[0], low), _mm256_and_si256(in[1], low));
        const __m256i second
            = _mm256_packus_epi32(_mm256_and_si256(in[2], low), _mm256_and_si256(in[3], low));
        return _mm256_permutevar8x32_epi32(
            _mm256_packus_epi16(first, second), _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
    }
}

// A shape tells how the vectors of a block of pixels are made. It may read up to `before` pixels in
// front of the block and `after` pixels behind it.

/** Sample after sample; one or two components passed through. */
template <class InType, class OutType> class SampleShape {
public:
    using In = InType;
    using Out = OutType;
    static constexpr int components = 1;
    static constexpr int outComponents = 1;
    static constexpr int blockVectors = 1;
    static constexpr int before = 0;
    static constexpr int after = 0;

    OVL_AVX2 explicit SampleShape(const Correction<In>& correction)
        : shift(correction.shift)
    {
    }

    OVL_AVX2 __m256i vector(const In* block, int) const
    {
        __m256i in[inputVectors<In, Out>];
        for (int i = 0; i < inputVectors<In, Out>; ++i)
            in[i] = shift(load(block + i * samplesPerVector<In>));
        return narrowed<In, Out>(in);
    }

private:
    VectorShift<In> shift;
};

/**
 * Where the bytes of a vector of reversed triples stand in what is loaded two samples before its
 * place and two samples behind it. The pattern returns after three vectors; each half of one is
 * shuffled for itself.
 */
template <class T> struct TripleShuffle {
    alignas(vectorBytes) std::int8_t before[3][vectorBytes] {};
    alignas(vectorBytes) std::int8_t behind[3][vectorBytes] {};

    constexpr TripleShuffle()
    {
        constexpr int size = sizeof(T);
        constexpr int whole = vectorBytes;
        constexpr int half = whole / 2;
        for (int vector = 0; vector < 3; ++vector)
            for (int byte = 0; byte < whole; ++byte) {
                const int channel = (vector * whole + byte) / size % 3;
                const int place = byte % half + 2 * size * (1 - channel);
                const int fromBefore = place + 2 * size;
                const bool reached = fromBefore < half;
                // A negative place makes 0.
                before[vector][byte] = static_cast<std::int8_t>(reached ? fromBefore : -1);
                behind[vector][byte] = static_cast<std::int8_t>(reached ? -1 : place - 2 * size);
            }
    }
};

/** Three components passed through in reversed order. */
template <class InType, class OutType> class ReversedShape {
public:
    using In = InType;
    using Out = OutType;
    static constexpr int components = 3;
    static constexpr int outComponents = 3;
    static constexpr int blockVectors = 3;
    static constexpr int before = 1;
    static constexpr int after = 1;

    OVL_AVX2 explicit ReversedShape(const Correction<In>& correction)
        : shift(correction.shift)
    {
        static constexpr TripleShuffle<In> shuffle;
        for (int i = 0; i < 3; ++i) {
            fromBefore[i] = load(shuffle.before[i]);
            fromBehind[i] = load(shuffle.behind[i]);
        }
    }

    OVL_AVX2 __m256i vector(const In* block, int index) const
    {
        __m256i in[inputVectors<In, Out>];
        for (int i = 0; i < inputVectors<In, Out>; ++i) {
            const int place = index * inputVectors<In, Out> + i;
            in[i] = shift(reversed(block + place * samplesPerVector<In>, place % 3));
        }
        return narrowed<In, Out>(in);
    }

private:
    OVL_AVX2 __m256i reversed(const In* at, int phase) const
    {
        return _mm256_or_si256(_mm256_shuffle_epi8(load(at - 2), fromBefore[phase]),
            _mm256_shuffle_epi8(load(at + 2), fromBehind[phase]));
    }

    VectorShift<In> shift;
    __m256i fromBefore[3];
    __m256i fromBehind[3];
};

/** Where the bytes of 16 of the output stand among the input's samples, once these are narrowed. */
template <class Out, int components> struct FourShuffle {
    alignas(16) std::int8_t places[16] {};

    constexpr FourShuffle()
    {
        constexpr int size = sizeof(Out);
        constexpr int channels[4] = {components < 3 ? 0 : 2, 1, components < 3 ? 2 : 0, 3};
        for (int byte = 0; byte < 16; ++byte) {
            const int pixel = byte / (4 * size);
            const int channel = channels[byte / size % 4];
            const int sample = pixel * components + channel;
            places[byte] = static_cast<std::int8_t>(
                channel < components ? sample * size + byte % size : -1); // -1 makes 0
        }
    }
};

/** Four components out of any number, or passed through. Masks are set after the narrowing. */
template <class InType, class OutType, int inComponents, bool expand> class FourShape {
public:
    using In = InType;
    using Out = OutType;
    static constexpr int components = inComponents;
    static constexpr int outComponents = 4;
    static constexpr int blockVectors = 1;
    static constexpr int before = 0;
    static constexpr int halfPixels = 4 / sizeof(Out);
    // Each half of a vector is loaded as if it were to be consumed whole.
    static constexpr int after = (halfPixels * (4 - components) + components - 1) / components;

    OVL_AVX2 explicit FourShape(const Correction<In>& correction)
        : shift(correction.shift)
    {
        static constexpr FourShuffle<Out, components> table;
        shuffle = _mm256_broadcastsi128_si256(
            _mm_load_si128(reinterpret_cast<const __m128i*>(table.places)));
        setWords(correction);
    }

    OVL_AVX2 __m256i vector(const In* block, int) const
    {
        __m256i in[inputVectors<In, Out>];
        loadHalves(in, block, block + halfPixels * components);
        for (__m256i& samples : in)
            samples = shift(samples);
        const __m256i pixels = _mm256_shuffle_epi8(narrowed<In, Out>(in), shuffle);
        if constexpr (expand)
            return _mm256_and_si256(_mm256_or_si256(pixels, orWords), andWords);
        else
            return pixels;
    }

private:
    OVL_AVX2 static void loadHalves(
        __m256i (&in)[inputVectors<In, Out>], const In* low, const In* high)
    {
        if constexpr (inputVectors<In, Out> == 1) {
            in[0] = loadLanes(low, high);
        } else {
            constexpr int half = inputVectors<In, Out> / 2;
            for (int i = 0; i < half; ++i) {
                in[i] = load(low + i * samplesPerVector<In>);
                in[half + i] = load(high + i * samplesPerVector<In>);
            }
        }
    }

    OVL_AVX2 void setWords(const Correction<In>& correction)
    {
        alignas(16) Out ors[16 / sizeof(Out)] {};
        alignas(16) Out ands[16 / sizeof(Out)] {};
        for (std::size_t i = 0; i < 16 / sizeof(Out); ++i) {
            const std::size_t place = i % 4;
            const std::size_t channel = components >= 3 && place < 3 ? 2 - place : place;
            if (channel < components) {
                ors[i] = static_cast<Out>(correction.orWords[channel]);
                ands[i] = static_cast<Out>(correction.andWords[channel]);
            } else if (place == 3) {
                ors[i] = ands[i] = static_cast<Out>(static_cast<In>(255));
            }
        }
        orWords = broadcast(ors);
        andWords = broadcast(ands);
    }

    OVL_AVX2 static __m256i broadcast(const Out* sixteenBytes)
    {
        return _mm256_broadcastsi128_si256(
            _mm_load_si128(reinterpret_cast<const __m128i*>(sixteenBytes)));
    }

    VectorShift<In> shift;
    __m256i shuffle;
    __m256i orWords;
    __m256i andWords;
};

/** What is still to do of a span. */
template <class Shape> struct Rest {
    const typename Shape::In* in;
    typename Shape::Out* out;
    std::ptrdiff_t pixels;

    void skip(std::ptrdiff_t count)
    {
        in += count * Shape::components;
        out += count * Shape::outComponents;
        pixels -= count;
    }

    /** How many pixels to go until `out` stands on a multiple of `bytes`; 0 if it never does. */
    template <std::uintptr_t bytes> std::ptrdiff_t pixelsToBorder() const
    {
        constexpr std::uintptr_t pixelBytes = Shape::outComponents * sizeof(*out);
        constexpr std::uintptr_t odd = pixelBytes % 3 == 0 ? 3 : 1;
        constexpr std::uintptr_t unit = pixelBytes / odd;
        // The number that undoes a multiplication by `odd`: 3 * 43 is 1 more than 2 * 64.
        constexpr std::uintptr_t inverse = odd == 3 ? 43 : 1;
        static_assert(64 % bytes == 0 && bytes % unit == 0);
        const auto address = reinterpret_cast<std::uintptr_t>(out);
        if (address % unit != 0)
            return 0;
        return static_cast<std::ptrdiff_t>((0 - address) / unit * inverse % (bytes / unit));
    }
};

template <class Shape>
constexpr std::ptrdiff_t blockPixels
    = Shape::blockVectors* samplesPerVector<typename Shape::Out> / Shape::outComponents;

template <Stores stores, class Shape>
OVL_AVX2 inline void correctBlock(const Shape& shape, const Rest<Shape>& rest)
{
    for (int i = 0; i < Shape::blockVectors; ++i)
        store<stores>(
            rest.out + i * samplesPerVector<typename Shape::Out>, shape.vector(rest.in, i));
}

/** The blocks that fit into the next `pixels` pixels. */
template <Stores stores, class Shape>
OVL_AVX2 inline void correctBlocks(const Shape& shape, Rest<Shape>& rest, std::ptrdiff_t pixels)
{
    for (; pixels >= blockPixels<Shape>; pixels -= blockPixels<Shape>) {
        correctBlock<stores>(shape, rest);
        rest.skip(blockPixels<Shape>);
    }
}

/**
 * Asks for the input of `pixels` pixels well before its turn. The processor does so by itself only
 * within a page, and streaming stores leave it too little time at each page's beginning. Asking
 * for what lies behind the input does no harm.
 */
template <std::ptrdiff_t pixels, class Shape>
OVL_AVX2 inline void fetchAhead(const Rest<Shape>& rest)
{
    constexpr std::ptrdiff_t distance = 4096; // 1 KiB gained less, 8 KiB no more
    constexpr std::ptrdiff_t bytes = pixels * Shape::components * sizeof(*rest.in);
    const char* const ahead = reinterpret_cast<const char*>(rest.in) + distance;
    for (std::ptrdiff_t offset = 0; offset < bytes; offset += lineBytes)
        _mm_prefetch(ahead + offset, _MM_HINT_T0);
}

/**
 * Streams whole cache lines and nothing else: a line written in part by the one and in part by the
 * other kind of store costs more than streaming gains, and each row of an image has two ends.
 */
template <class Shape>
OVL_AVX2 void streamLines(const Shape& shape, Rest<Shape>& rest,
    SpanFunction<typename Shape::In, typename Shape::Out> plain,
    const Correction<typename Shape::In>& correction)
{
    constexpr std::ptrdiff_t linePixels = 2 * blockPixels<Shape>;
    static_assert(2 * vectorBytes == lineBytes);
    const std::ptrdiff_t lead = std::min(rest.template pixelsToBorder<lineBytes>(), rest.pixels);
    plain(rest.in, rest.out, lead, correction);
    rest.skip(lead);
    if (reinterpret_cast<std::uintptr_t>(rest.out) % lineBytes == 0)
        for (std::ptrdiff_t lines = (rest.pixels - Shape::after) / linePixels; lines > 0; --lines) {
            fetchAhead<linePixels>(rest);
            correctBlocks<Stores::Streaming>(shape, rest, linePixels);
        }
    correctBlocks<Stores::Cached>(shape, rest, rest.pixels - Shape::after);
}

/**
 * For at least one block. The first and the last one may overlap their neighbours: what is written
 * twice is the same both times.
 */
template <class Shape> OVL_AVX2 void fillBlocks(const Shape& shape, Rest<Shape>& rest)
{
    correctBlock<Stores::Cached>(shape, rest);
    rest.skip(rest.template pixelsToBorder<vectorBytes>());
    correctBlocks<Stores::Cached>(shape, rest, rest.pixels - Shape::after);
    rest.skip(rest.pixels - Shape::after - blockPixels<Shape>);
    correctBlock<Stores::Cached>(shape, rest);
    rest.skip(blockPixels<Shape>);
}

/** Blocks as far as they reach, the plain loop at the ends and for what is short. */
template <class Shape, bool expand, Stores stores>
OVL_AVX2 void wideSpanOf(const typename Shape::In* in, typename Shape::Out* out,
    std::ptrdiff_t pixels, const Correction<typename Shape::In>& correction)
{
    const auto plain
        = plainSpan<typename Shape::In, typename Shape::Out>(Shape::components, expand);
    Rest<Shape> rest = {in, out, pixels};
    if (pixels >= Shape::before + blockPixels<Shape> + Shape::after) {
        const Shape shape(correction);
        plain(rest.in, rest.out, Shape::before, correction);
        rest.skip(Shape::before);
        if constexpr (stores == Stores::Streaming)
            streamLines(shape, rest, plain, correction);
        else
            fillBlocks(shape, rest);
    }
    plain(rest.in, rest.out, rest.pixels, correction);
}

/** One or two components are no more than a row of samples. */
template <class In, class Out, int components, Stores stores>
OVL_AVX2 void wideSamples(
    const In* in, Out* out, std::ptrdiff_t pixels, const Correction<In>& correction)
{
    wideSpanOf<SampleShape<In, Out>, false, stores>(in, out, pixels * components, correction);
}

template <class In, class Out, Stores stores>
SpanFunction<In, Out> avx2Span(int components, bool expand)
{
    switch (components) {
    case 1:
        return expand ? wideSpanOf<FourShape<In, Out, 1, true>, true, stores>
                      : wideSamples<In, Out, 1, stores>;
    case 2:
        return expand ? wideSpanOf<FourShape<In, Out, 2, true>, true, stores>
                      : wideSamples<In, Out, 2, stores>;
    case 3:
        return expand ? wideSpanOf<FourShape<In, Out, 3, true>, true, stores>
                      : wideSpanOf<ReversedShape<In, Out>, false, stores>;
    case 4:
        return expand ? wideSpanOf<FourShape<In, Out, 4, true>, true, stores>
                      : wideSpanOf<FourShape<In, Out, 4, false>, false, stores>;
    default:
        return nullptr;
    }
}

} // namespace

Stores storesFor(std::ptrdiff_t frameBytes)
{
    // Measured with the output read again afterwards: a frame of 16 MiB took a fifth longer when
    // streamed and smaller ones up to four times as long, one of 32 MiB a fifth less at best and
    // the same at worst.
    constexpr std::ptrdiff_t streamedBytes = 32 << 20;
    return bestLevel() != Level::Plain && frameBytes >= streamedBytes ? Stores::Streaming
                                                                      : Stores::Cached;
}

Level bestLevel()
{
    static const Level level = __builtin_cpu_supports("avx2") ? Level::Avx2 : Level::Plain;
    return level;
}

template <class In, class Out>
SpanFunction<In, Out> wideSpan(Level level, int components, bool expand, Stores stores)
{
    if (level == Level::Plain)
        return nullptr;
    return stores == Stores::Streaming ? avx2Span<In, Out, Stores::Streaming>(components, expand)
                                       : avx2Span<In, Out, Stores::Cached>(components, expand);
}

#else // any other processor takes the plain loops

Level bestLevel() { return Level::Plain; }

Stores storesFor(std::ptrdiff_t) { return Stores::Cached; }

template <class In, class Out> SpanFunction<In, Out> wideSpan(Level, int, bool, Stores)
{
    return nullptr;
}

#endif

template SpanFunction<unsigned char, unsigned char> wideSpan(Level, int, bool, Stores);
template SpanFunction<short, unsigned char> wideSpan(Level, int, bool, Stores);
template SpanFunction<short, short> wideSpan(Level, int, bool, Stores);
template SpanFunction<unsigned short, unsigned char> wideSpan(Level, int, bool, Stores);
template SpanFunction<unsigned short, unsigned short> wideSpan(Level, int, bool, Stores);
template SpanFunction<int, unsigned char> wideSpan(Level, int, bool, Stores);
template SpanFunction<int, int> wideSpan(Level, int, bool, Stores);

} // namespace ovl::kernels
