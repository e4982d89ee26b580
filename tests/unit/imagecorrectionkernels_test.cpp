// SPDX-License-Identifier: BSD-3-Clause
#include <support/correctionreference.h>
#include <visualization/imagecorrectionkernels.h>

#include <climits>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

using ovl::Stores;
using namespace ovl::kernels;
using ovl::test::appendCorrectedPixel;
using ovl::test::correctionInputs;
using ovl::test::correctionSamples;
using ovl::test::CorrectionSettings;
using ovl::test::SampleType;

namespace {

using Bytes = std::vector<std::byte>;

constexpr int longest = 200; // pixels

template <class T> const SampleType& typeOf()
{
    for (const SampleType& type : correctionInputs)
        if (type.bytes == sizeof(T) && (type.kind == SampleType::Signed) == std::is_signed_v<T>)
            return type;
    throw std::logic_error("no such type");
}

CorrectionSettings oddMasks(bool expand, int shift)
{
    CorrectionSettings settings;
    settings.shift = shift;
    settings.expand = expand;
    settings.words = {0x7FFFFFFF, -2, 0x00FFAA5F, static_cast<int>(0x80F08080), 0xF0, 1,
        static_cast<int>(0x80018001), 0x7FFFFFFF};
    return settings;
}

template <class In> Correction<In> correctionOf(const CorrectionSettings& settings)
{
    int words[8];
    std::copy(settings.words.begin(), settings.words.end(), words);
    return makeCorrection<In>(settings.shift, words);
}

/** One way to correct a span. */
template <class In, class Out> struct Way {
    std::string name;
    SpanFunction<In, Out> span;
};

template <class In, class Out> std::vector<Way<In, Out>> everyWay(int components, bool expand)
{
    std::vector<Way<In, Out>> ways = {{"plain", plainSpan<In, Out>(components, expand)}};
    if (bestLevel() >= Level::Avx2)
        for (Stores stores : {Stores::Cached, Stores::Streaming})
            ways.push_back({stores == Stores::Cached ? "AVX2, cached" : "AVX2, streaming",
                wideSpan<In, Out>(Level::Avx2, components, expand, stores)});
    return ways;
}

template <class Pair> class ImageCorrectionKernels : public testing::Test {
protected:
    using In = typename Pair::first_type;
    using Out = typename Pair::second_type;

    /** The reference on `longest` pixels; a shorter span must give the beginning of it. */
    struct Case {
        int components;
        CorrectionSettings settings;
        Bytes source;
        Bytes expected;

        std::size_t inPixel() const { return static_cast<std::size_t>(components) * sizeof(In); }
        std::size_t outPixel() const { return expected.size() / longest; }
    };

    static Case makeCase(int components, const CorrectionSettings& settings)
    {
        Case made = {components, settings,
            correctionSamples(typeOf<In>(), static_cast<std::size_t>(longest * components)), {}};
        for (std::size_t pixel = 0; pixel < longest; ++pixel)
            appendCorrectedPixel(made.expected, &made.source[pixel * made.inPixel()], typeOf<In>(),
                components, typeOf<Out>(), settings);
        return made;
    }

    /**
     * Corrects the first `pixels` pixels, which end where their memory ends, into a place that
     * stands `offset` samples behind a cache line's border, and looks around that place too.
     */
    static void expectSpan(
        const Case& expected, const Way<In, Out>& way, std::size_t pixels, std::size_t offset)
    {
        const std::size_t before = pixels % 3; // so that the input's alignment differs as well
        const std::size_t samples = pixels * static_cast<std::size_t>(expected.components);
        const std::unique_ptr<In[]> in(new In[before + samples]);
        std::memcpy(in.get() + before, expected.source.data(), samples * sizeof(In));
        alignas(64) static std::byte memory[64 + longest * 4 * sizeof(int) + 2 * 64];
        std::memset(memory, 0xCD, sizeof(memory));
        std::byte* const out = memory + 64 + offset * sizeof(Out);
        way.span(in.get() + before, reinterpret_cast<Out*>(out),
            static_cast<std::ptrdiff_t>(pixels), correctionOf<In>(expected.settings));
        ovl::complete(Stores::Streaming);

        Bytes whole(sizeof(memory), std::byte {0xCD});
        std::copy_n(expected.expected.begin(), pixels * expected.outPixel(),
            whole.begin() + (out - memory));
        EXPECT_EQ(std::memcmp(memory, whole.data(), whole.size()), 0)
            << way.name << ", " << expected.components << " components"
            << (expected.settings.expand ? ", expanded" : "") << ", shift "
            << expected.settings.shift << ", " << pixels << " pixels at " << offset;
    }

    template <class Check> static void forEveryShape(int shift, Check check)
    {
        for (int components = 1; components <= 4; ++components)
            for (bool expand : {false, true}) {
                const Case made = makeCase(components, oddMasks(expand, shift));
                for (const Way<In, Out>& way : everyWay<In, Out>(components, expand)) {
                    ASSERT_NE(way.span, nullptr) << way.name;
                    check(made, way);
                }
            }
    }
};

using Pairs = testing::Types<std::pair<unsigned char, unsigned char>,
    std::pair<short, unsigned char>, std::pair<short, short>,
    std::pair<unsigned short, unsigned char>, std::pair<unsigned short, unsigned short>,
    std::pair<int, unsigned char>, std::pair<int, int>>;
TYPED_TEST_SUITE(ImageCorrectionKernels, Pairs);

TYPED_TEST(ImageCorrectionKernels, EveryLevelAgreesAtEveryShift)
{
    for (int shift : {INT_MIN, -1, 0, 1, 4, 7, 8, 9, 12, 15, 16, 17, 24, 31, 32, 33, 64, INT_MAX})
        this->forEveryShape(shift, [](const auto& made, const auto& way) {
            for (std::size_t pixels : {1, 31, 97, longest})
                TestFixture::expectSpan(made, way, pixels, pixels % 5);
        });
}

TYPED_TEST(ImageCorrectionKernels, EveryLevelAgreesAtEveryLengthAndAlignment)
{
    constexpr std::size_t lineSamples = 64 / sizeof(typename TestFixture::Out);
    this->forEveryShape(3, [](const auto& made, const auto& way) {
        for (std::size_t pixels = 0; pixels <= longest; ++pixels)
            for (std::size_t i = 0; i < 8; ++i)
                TestFixture::expectSpan(
                    made, way, pixels, (pixels * 7 + i * lineSamples / 8) % lineSamples);
    });
}

TYPED_TEST(ImageCorrectionKernels, EveryAlignmentOfALongSpanAgrees)
{
    constexpr std::size_t lineSamples = 64 / sizeof(typename TestFixture::Out);
    this->forEveryShape(1, [](const auto& made, const auto& way) {
        for (std::size_t offset = 0; offset < lineSamples; ++offset)
            TestFixture::expectSpan(made, way, longest, offset);
    });
}

TYPED_TEST(ImageCorrectionKernels, OtherNumbersOfComponentsHaveNoSpan)
{
    using Input = typename TestFixture::In;
    using Output = typename TestFixture::Out;
    for (int components : {-1, 0, 5, 6})
        for (bool expand : {false, true}) {
            EXPECT_EQ((plainSpan<Input, Output>(components, expand)), nullptr);
            EXPECT_EQ((bestSpan<Input, Output>(components, expand, Stores::Cached)), nullptr);
            EXPECT_EQ((wideSpan<Input, Output>(bestLevel(), components, expand, Stores::Streaming)),
                nullptr);
        }
}

TYPED_TEST(ImageCorrectionKernels, ThePlainLevelHasNoHandMadeSpans)
{
    using Input = typename TestFixture::In;
    using Output = typename TestFixture::Out;
    static_assert(hasWideSpans<Input, Output>);
    for (int components = 1; components <= 4; ++components)
        EXPECT_EQ(
            (wideSpan<Input, Output>(Level::Plain, components, false, Stores::Cached)), nullptr);
}

TYPED_TEST(ImageCorrectionKernels, TheBestSpanIsTheHandMadeOneWhereTheProcessorHasIt)
{
    using Input = typename TestFixture::In;
    using Output = typename TestFixture::Out;
    if (bestLevel() == Level::Plain)
        GTEST_SKIP() << "this processor has none of the wide instructions";
    for (int components = 1; components <= 4; ++components)
        EXPECT_EQ((bestSpan<Input, Output>(components, true, Stores::Cached)),
            (wideSpan<Input, Output>(bestLevel(), components, true, Stores::Cached)));
}

TEST(ImageCorrectionKernelChoice, PairsThatNoImageViewAsksForStayPlain)
{
    static_assert(!hasWideSpans<char, char>);
    static_assert(!hasWideSpans<unsigned int, unsigned char>);
    static_assert(!hasWideSpans<short, unsigned short>);
    static_assert(!hasWideSpans<int, double>);
    EXPECT_EQ(
        (bestSpan<int, double>(1, false, Stores::Cached)), (plainSpan<int, double>(1, false)));
}

TEST(ImageCorrectionKernelChoice, OnlyLargeFramesAreStreamed)
{
    EXPECT_EQ(storesFor(0), Stores::Cached);
    EXPECT_EQ(storesFor(1920 * 1080 * 4), Stores::Cached);
    const Stores large = storesFor(std::ptrdiff_t {4096} * 3000 * 3);
    EXPECT_EQ(large, bestLevel() == Level::Plain ? Stores::Cached : Stores::Streaming);
}

TEST(ImageCorrectionKernelChoice, AShiftBelowZeroIsStoredAsNone)
{
    const int words[8] = {};
    EXPECT_EQ(makeCorrection<short>(-1, words).shift, 0);
    EXPECT_EQ(makeCorrection<short>(INT_MIN, words).shift, 0);
    EXPECT_EQ(makeCorrection<short>(INT_MAX, words).shift, INT_MAX);
}

} // namespace
