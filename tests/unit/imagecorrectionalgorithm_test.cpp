// SPDX-License-Identifier: BSD-3-Clause
#include <support/correctionreference.h>
#include <support/messagewatch.h>
#include <visualization/imagecorrectionalgorithm.h>

#include <vtkCommand.h>
#include <vtkDataArray.h>
#include <vtkDataObject.h>
#include <vtkImageData.h>
#include <vtkInformation.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkPointData.h>
#include <vtkSmartPointer.h>
#include <vtkTrivialProducer.h>

#include <array>
#include <climits>
#include <cstring>
#include <gtest/gtest.h>
#include <mutex>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

using ovl::ImageCorrectionAlgorithm;
using ovl::test::appendCorrectedPixel;
using ovl::test::correctionInputs;
using ovl::test::correctionOutputs;
using ovl::test::correctionSamples;
using ovl::test::CorrectionSettings;
using ovl::test::MessageWatch;
using ovl::test::SampleType;

namespace {

/** The filter with the one operation within reach that the framework calls for each piece. */
class OpenFilter : public ImageCorrectionAlgorithm {
public:
    static OpenFilter* New();
    vtkTypeMacro(OpenFilter, ImageCorrectionAlgorithm)

    void correct(vtkImageData* input, vtkImageData* output, std::array<int, 6> extent, int id = 0)
    {
        vtkImageData* inputs[] = {input};
        vtkImageData** inData[] = {inputs};
        ThreadedRequestData(nullptr, nullptr, nullptr, inData, &output, extent.data(), id);
    }
};
vtkStandardNewMacro(OpenFilter);

using Extent = std::array<int, 6>;
using Bytes = std::vector<std::byte>;

constexpr Extent smallExtent = {0, 36, 0, 2, 0, 0};

std::size_t pixelCount(const Extent& extent)
{
    std::size_t count = 1;
    for (std::size_t axis = 0; axis < 6; axis += 2)
        count *= static_cast<std::size_t>(std::max(0, extent[axis + 1] - extent[axis] + 1));
    return count;
}

vtkSmartPointer<vtkImageData> makeImage(int type, int components, Extent extent)
{
    auto image = vtkSmartPointer<vtkImageData>::New();
    image->SetExtent(extent.data());
    image->AllocateScalars(type, components);
    return image;
}

Bytes bytesOf(vtkImageData* image)
{
    vtkDataArray* array = image->GetPointData()->GetScalars();
    const auto size = static_cast<std::size_t>(array->GetNumberOfValues())
        * static_cast<std::size_t>(array->GetDataTypeSize());
    const auto* first = static_cast<const std::byte*>(array->GetVoidPointer(0));
    return {first, first + size};
}

void fill(vtkImageData* image, const Bytes& bytes)
{
    std::memcpy(image->GetScalarPointer(), bytes.data(), bytes.size());
}

vtkSmartPointer<vtkImageData> makeInput(
    const SampleType& type, int components, Extent extent = smallExtent)
{
    auto image = makeImage(type.code, components, extent);
    fill(image, correctionSamples(type, pixelCount(extent) * static_cast<std::size_t>(components)));
    return image;
}

vtkSmartPointer<vtkImageData> makeMarkedOutput(int type, int components, Extent extent)
{
    auto image = makeImage(type, components, extent);
    fill(image, Bytes(bytesOf(image).size(), std::byte {0xCD}));
    return image;
}

/** The reference on a whole image whose output has `outComponents`, marked where nothing lands. */
Bytes expectedImage(vtkImageData* input, const SampleType& in, const SampleType& out,
    int outComponents, const CorrectionSettings& settings)
{
    const int components = input->GetNumberOfScalarComponents();
    const Bytes source = bytesOf(input);
    const auto inSize = static_cast<std::size_t>(components * in.bytes);
    const auto outSize = static_cast<std::size_t>(outComponents * out.bytes);
    Bytes expected;
    expected.reserve(source.size() / inSize * std::max(outSize, 4 * sizeof(double)));
    for (std::size_t at = 0, end = outSize; at < source.size(); at += inSize, end += outSize) {
        appendCorrectedPixel(expected, &source[at], in, components, out, settings);
        expected.resize(end, std::byte {0xCD});
    }
    return expected;
}

void apply(const CorrectionSettings& settings, ImageCorrectionAlgorithm* filter)
{
    filter->setShift(settings.shift);
    filter->setOutputComponents(settings.expand ? 4 : -1);
    for (int index = 0; index < 8; ++index)
        filter->setMask(index, settings.words.at(static_cast<std::size_t>(index)));
}

CorrectionSettings oddMasks(int shift = 0)
{
    CorrectionSettings settings;
    settings.shift = shift;
    settings.expand = true;
    settings.words = {0x7FFFFFFF, -1, 0x00FFAA5F, static_cast<int>(0x80008080), 0xF0, 0,
        static_cast<int>(0x80018001), 0x7FFFFFFF};
    return settings;
}

const SampleType& typeOf(int code)
{
    for (const SampleType& type : correctionOutputs)
        if (type.code == code)
            return type;
    throw std::out_of_range("no such type");
}

/** What an observer hears of the filter; the workers report too. */
class ErrorRecorder {
public:
    explicit ErrorRecorder(vtkObject* object)
    {
        object->AddObserver(vtkCommand::ErrorEvent, this, &ErrorRecorder::record);
    }

    std::vector<std::string> texts()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return seen;
    }

private:
    void record(vtkObject*, unsigned long, void* text)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        seen.emplace_back(static_cast<const char*>(text));
    }

    std::mutex mutex;
    std::vector<std::string> seen;
};

template <class In, class Out>
Out correctedSample(int inType, int outType, In sample, int shift, bool expand = false)
{
    auto input = makeImage(inType, 1, {0, 0, 0, 0, 0, 0});
    *static_cast<In*>(input->GetScalarPointer()) = sample;
    vtkNew<ImageCorrectionAlgorithm> filter;
    filter->setShift(shift);
    filter->setOutputScalarType(outType);
    filter->setOutputComponents(expand ? 4 : -1);
    filter->SetInputData(input);
    filter->Update();
    return *static_cast<Out*>(filter->GetOutput()->GetScalarPointer());
}

// Settings

TEST(ImageCorrectionAlgorithm, StartsWithShiftNoneAndMasksThatLeaveSmallSamplesAlone)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    EXPECT_EQ(filter->shift(), 0);
    for (int index = 0; index < 4; ++index)
        EXPECT_EQ(filter->mask(index), 0x7FFFFFFF) << index;
    for (int index = 4; index < 7; ++index)
        EXPECT_EQ(filter->mask(index), 0) << index;
    EXPECT_EQ(filter->mask(7), 0x7FFFFFFF);
}

TEST(ImageCorrectionAlgorithm, KeepsEachMaskWordForItself)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    for (int index = 0; index < 8; ++index)
        filter->setMask(index, -100 * index);
    for (int index = 0; index < 8; ++index)
        EXPECT_EQ(filter->mask(index), -100 * index);
}

TEST(ImageCorrectionAlgorithm, KeepsAnyShiftAsGiven)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    for (int shift : {5, -3, 64, INT_MAX, INT_MIN}) {
        filter->setShift(shift);
        EXPECT_EQ(filter->shift(), shift);
    }
}

#ifdef NDEBUG
TEST(ImageCorrectionAlgorithm, DropsMasksOutsideTheEight)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    for (int index : {-1, 8, INT_MAX, INT_MIN}) {
        filter->setMask(index, 1234);
        EXPECT_EQ(filter->mask(index), 0) << index;
    }
    EXPECT_EQ(filter->shift(), 0);
    EXPECT_EQ(filter->mask(0), 0x7FFFFFFF);
    EXPECT_EQ(filter->mask(7), 0x7FFFFFFF);
}
#else
TEST(ImageCorrectionAlgorithmDeathTest, StopsAtMasksOutsideTheEight)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    EXPECT_DEATH(filter->setMask(8, 0), "ImageCorrectionAlgorithm::setMask.*broken by 8");
    EXPECT_DEATH(filter->setMask(-1, 0), "ImageCorrectionAlgorithm::setMask.*broken by -1");
    EXPECT_DEATH(filter->mask(8), "ImageCorrectionAlgorithm::mask.*broken by 8");
    EXPECT_DEATH(filter->mask(-1), "ImageCorrectionAlgorithm::mask.*broken by -1");
}
#endif

TEST(ImageCorrectionAlgorithm, SettersDoNotMarkTheFilterAsModified)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    const vtkMTimeType before = filter->GetMTime();
    filter->setShift(3);
    filter->setMask(0, 1);
    filter->setOutputComponents(4);
    filter->setOutputScalarType(VTK_INT);
    filter->setOutputScalarTypeToUnsignedChar();
    EXPECT_EQ(filter->GetMTime(), before);
}

TEST(ImageCorrectionAlgorithm, SettingsWaitForTheNextInput)
{
    auto input = makeImage(VTK_UNSIGNED_CHAR, 1, {0, 0, 0, 0, 0, 0});
    auto* sample = static_cast<unsigned char*>(input->GetScalarPointer());
    *sample = 0xF0;
    vtkNew<ImageCorrectionAlgorithm> filter;
    filter->SetInputData(input);
    filter->Update();
    filter->setShift(4);
    filter->Update();
    EXPECT_EQ(*static_cast<unsigned char*>(filter->GetOutput()->GetScalarPointer()), 0xF0);
    input->Modified();
    filter->Update();
    EXPECT_EQ(*static_cast<unsigned char*>(filter->GetOutput()->GetScalarPointer()), 0x0F);
}

// The framework's side

TEST(ImageCorrectionAlgorithm, ClassNameIsPlainAndTheKindsAreKnown)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    EXPECT_STREQ(filter->GetClassName(), "ImageCorrectionAlgorithm");
    EXPECT_TRUE(filter->IsA("ImageCorrectionAlgorithm"));
    EXPECT_TRUE(filter->IsA("vtkThreadedImageAlgorithm"));
    EXPECT_FALSE(filter->IsA("vtkImageShiftScale"));
    EXPECT_EQ(ImageCorrectionAlgorithm::SafeDownCast(filter), filter.GetPointer());
}

TEST(ImageCorrectionAlgorithm, NewInstanceMakesAnotherOfItsKind)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    filter->setShift(7);
    const auto other = vtkSmartPointer<ImageCorrectionAlgorithm>::Take(filter->NewInstance());
    EXPECT_STREQ(other->GetClassName(), "ImageCorrectionAlgorithm");
    EXPECT_EQ(other->shift(), 0);
}

TEST(ImageCorrectionAlgorithm, PrintSelfAddsShiftAndOutputTypeBehindTheBase)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    filter->setShift(-12);
    std::ostringstream whole;
    std::ostringstream base;
    filter->PrintSelf(whole, vtkIndent(3));
    filter->vtkThreadedImageAlgorithm::PrintSelf(base, vtkIndent(3));
    EXPECT_EQ(whole.str(), base.str() + "   Shift: -12\n   Output Scalar Type: -1\n");
    filter->setOutputScalarTypeToUnsignedChar();
    std::ostringstream typed;
    filter->PrintSelf(typed, vtkIndent());
    EXPECT_NE(typed.str().find("\nOutput Scalar Type: 3\n"), std::string::npos);
}

struct Announced {
    int type;
    int components;
};

Announced announcedBy(ImageCorrectionAlgorithm* filter, int inType, int inComponents)
{
    auto input = makeImage(inType, inComponents, smallExtent);
    vtkNew<vtkTrivialProducer> producer;
    producer->SetOutput(input);
    filter->SetInputConnection(producer->GetOutputPort());
    filter->UpdateInformation();
    vtkInformation* info = filter->GetOutputInformation(0);
    return {vtkImageData::GetScalarType(info), vtkImageData::GetNumberOfScalarComponents(info)};
}

TEST(ImageCorrectionAlgorithm, WithoutAnOutputTypeTheOutputIsAnnouncedAsTheInput)
{
    for (int components : {-1, 1, 4}) {
        vtkNew<ImageCorrectionAlgorithm> filter;
        filter->setOutputComponents(components);
        const Announced announced = announcedBy(filter, VTK_SHORT, 3);
        EXPECT_EQ(announced.type, VTK_SHORT);
        EXPECT_EQ(announced.components, 3);
    }
}

TEST(ImageCorrectionAlgorithm, AnOutputTypeIsAnnouncedTogetherWithTheComponents)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    filter->setOutputScalarType(VTK_DOUBLE);
    Announced announced = announcedBy(filter, VTK_SHORT, 3);
    EXPECT_EQ(announced.type, VTK_DOUBLE);
    EXPECT_EQ(announced.components, 3);
    filter->setOutputComponents(4);
    filter->setOutputScalarTypeToUnsignedChar();
    announced = announcedBy(filter, VTK_SHORT, 3);
    EXPECT_EQ(announced.type, VTK_UNSIGNED_CHAR);
    EXPECT_EQ(announced.components, 4);
}

// Samples

TEST(ImageCorrectionAlgorithm, ShiftsSixteenBitsIntoEight)
{
    const auto corrected = [](int shift) {
        return correctedSample<unsigned short, unsigned char>(
            VTK_UNSIGNED_SHORT, VTK_UNSIGNED_CHAR, 0x0ABC, shift);
    };
    EXPECT_EQ(corrected(4), 0xAB);
    EXPECT_EQ(corrected(0), 0xBC); // the top bits are lost without a warning
}

TEST(ImageCorrectionAlgorithm, KeepsTheLowBitsOfANegativeSample)
{
    EXPECT_EQ((correctedSample<short, unsigned char>(VTK_SHORT, VTK_UNSIGNED_CHAR, -2, 0)), 0xFE);
}

TEST(ImageCorrectionAlgorithm, DefaultMasksClearTheSignOfInt32WhenExpanding)
{
    EXPECT_EQ((correctedSample<int, int>(VTK_INT, VTK_INT, -1, 0, true)), 0x7FFFFFFF);
    EXPECT_EQ((correctedSample<int, int>(VTK_INT, VTK_INT, -1, 0, false)), -1);
}

TEST(ImageCorrectionAlgorithm, DefaultMasksSpareNegativeSamplesOfNarrowTypes)
{
    EXPECT_EQ((correctedSample<short, int>(VTK_SHORT, VTK_INT, -5, 0, true)), -5);
    EXPECT_EQ((correctedSample<char, int>(VTK_CHAR, VTK_INT, -5, 0, true)), -5);
}

TEST(ImageCorrectionAlgorithm, ShiftBelowZeroCountsAsNone)
{
    for (int shift : {-1, -8, INT_MIN})
        EXPECT_EQ((correctedSample<short, short>(VTK_SHORT, VTK_SHORT, -1234, shift)), -1234);
}

TEST(ImageCorrectionAlgorithm, ShiftBeyondTheWidthLeavesNothingButTheSign)
{
    for (int shift : {32, 33, 63, 64, 65, INT_MAX}) {
        SCOPED_TRACE(shift);
        EXPECT_EQ((correctedSample<short, int>(VTK_SHORT, VTK_INT, -1234, shift)), -1);
        EXPECT_EQ((correctedSample<int, int>(VTK_INT, VTK_INT, INT_MIN, shift)), -1);
        EXPECT_EQ((correctedSample<int, int>(VTK_INT, VTK_INT, INT_MAX, shift)), 0);
        EXPECT_EQ((correctedSample<unsigned, int>(VTK_UNSIGNED_INT, VTK_INT, UINT_MAX, shift)), 0);
    }
}

TEST(ImageCorrectionAlgorithm, ShiftsLongSamplesAtTheirFullWidth)
{
    if (sizeof(long) < 8)
        GTEST_SKIP() << "long has 32 bits here";
    const auto corrected = [](auto sample, int type, int shift) {
        return correctedSample<decltype(sample), decltype(sample)>(type, type, sample, shift);
    };
    EXPECT_EQ(corrected(0x7123456789ABCDEFL, VTK_LONG, 40), 0x712345L);
    EXPECT_EQ(corrected(0xF123456789ABCDEFUL, VTK_UNSIGNED_LONG, 40), 0xF12345UL);
    EXPECT_EQ(corrected(LONG_MIN, VTK_LONG, 63), -1L);
    EXPECT_EQ(corrected(ULONG_MAX, VTK_UNSIGNED_LONG, 63), 1UL);
    EXPECT_EQ(corrected(LONG_MIN, VTK_LONG, 64), -1L);
    EXPECT_EQ(corrected(ULONG_MAX, VTK_UNSIGNED_LONG, 64), 0UL);
}

TEST(ImageCorrectionAlgorithm, AlphaOfACharImageIsMinusOne)
{
    auto input = makeInput(typeOf(VTK_CHAR), 3);
    const auto alpha = [&](int type) {
        vtkNew<ImageCorrectionAlgorithm> filter;
        filter->setOutputScalarType(type);
        filter->setOutputComponents(4);
        filter->SetInputData(input);
        filter->Update();
        return filter->GetOutput()->GetScalarComponentAsDouble(0, 0, 0, 3);
    };
    EXPECT_EQ(alpha(VTK_UNSIGNED_CHAR), 0xFF);
    EXPECT_EQ(alpha(VTK_UNSIGNED_SHORT), 0xFFFF);
    EXPECT_EQ(alpha(VTK_SHORT), -1.0);
    EXPECT_EQ(alpha(VTK_FLOAT), -1.0);
    EXPECT_EQ(alpha(VTK_DOUBLE), -1.0);
    input = makeInput(typeOf(VTK_SHORT), 3);
    EXPECT_EQ(alpha(VTK_UNSIGNED_CHAR), 0xFF);
    EXPECT_EQ(alpha(VTK_CHAR), -1.0);
    EXPECT_EQ(alpha(VTK_DOUBLE), 255.0);
}

TEST(ImageCorrectionAlgorithm, CopiesASingleComponentExactlyByDefault)
{
    for (const SampleType& type : correctionInputs) {
        SCOPED_TRACE(type.name);
        auto input = makeInput(type, 1);
        vtkNew<ImageCorrectionAlgorithm> filter;
        filter->SetInputData(input);
        filter->Update();
        EXPECT_EQ(filter->GetOutput()->GetScalarType(), type.code);
        EXPECT_EQ(bytesOf(filter->GetOutput()), bytesOf(input));
    }
}

TEST(ImageCorrectionAlgorithm, ReversesThreeChannelsButNotTwo)
{
    const auto corrected = [](int components, bool expand) {
        auto input = makeImage(VTK_UNSIGNED_CHAR, components, {0, 0, 0, 0, 0, 0});
        for (int channel = 0; channel < components; ++channel)
            input->SetScalarComponentFromDouble(0, 0, 0, channel, 10 * (channel + 1));
        vtkNew<ImageCorrectionAlgorithm> filter;
        filter->setOutputScalarTypeToUnsignedChar();
        filter->setOutputComponents(expand ? 4 : -1);
        filter->SetInputData(input);
        filter->Update();
        std::vector<int> result;
        for (const std::byte value : bytesOf(filter->GetOutput()))
            result.push_back(std::to_integer<int>(value));
        return result;
    };
    EXPECT_EQ(corrected(3, false), (std::vector<int> {30, 20, 10}));
    EXPECT_EQ(corrected(3, true), (std::vector<int> {30, 20, 10, 255}));
    EXPECT_EQ(corrected(2, false), (std::vector<int> {10, 20}));
    EXPECT_EQ(corrected(2, true), (std::vector<int> {10, 20, 0, 255}));
    EXPECT_EQ(corrected(1, true), (std::vector<int> {10, 0, 0, 255}));
    EXPECT_EQ(corrected(4, false), (std::vector<int> {30, 20, 10, 40}));
    EXPECT_EQ(corrected(4, true), (std::vector<int> {30, 20, 10, 255}));
}

TEST(ImageCorrectionAlgorithm, OrWordSetsBitsOnlyWhenExpanding)
{
    const auto corrected = [](bool expand) {
        auto input = makeImage(VTK_UNSIGNED_CHAR, 1, {0, 0, 0, 0, 0, 0});
        input->SetScalarComponentFromDouble(0, 0, 0, 0, 0x0F);
        vtkNew<ImageCorrectionAlgorithm> filter;
        filter->setMask(4, 0xF0);
        filter->setOutputScalarTypeToUnsignedChar();
        filter->setOutputComponents(expand ? 4 : -1);
        filter->SetInputData(input);
        filter->Update();
        return filter->GetOutput()->GetScalarComponentAsDouble(0, 0, 0, 0);
    };
    EXPECT_EQ(corrected(true), 0xFF);
    EXPECT_EQ(corrected(false), 0x0F);
}

TEST(ImageCorrectionAlgorithm, AndWordComesBehindTheOrWord)
{
    auto input = makeImage(VTK_UNSIGNED_CHAR, 3, {0, 0, 0, 0, 0, 0});
    for (int channel = 0; channel < 3; ++channel)
        input->SetScalarComponentFromDouble(0, 0, 0, channel, 0x55);
    vtkNew<ImageCorrectionAlgorithm> filter;
    filter->setOutputScalarTypeToUnsignedChar();
    filter->setOutputComponents(4);
    filter->setMask(4, 0xF0);
    filter->setMask(0, 0x3C); // belongs to the input's channel, which lands in the third place
    filter->SetInputData(input);
    filter->Update();
    EXPECT_EQ(filter->GetOutput()->GetScalarComponentAsDouble(0, 0, 0, 0), 0x55);
    EXPECT_EQ(filter->GetOutput()->GetScalarComponentAsDouble(0, 0, 0, 1), 0x55);
    EXPECT_EQ(filter->GetOutput()->GetScalarComponentAsDouble(0, 0, 0, 2), 0x34);
}

// Every pair of types

class ImageCorrectionPairs : public testing::TestWithParam<SampleType> {
protected:
    const SampleType& in = GetParam();

    void expectCorrected(
        const SampleType& out, int components, const CorrectionSettings& settings) const
    {
        expectFitted(out, components, settings.expand ? 4 : components, settings);
    }

    void expectFitted(const SampleType& out, int components, int outComponents,
        const CorrectionSettings& settings) const
    {
        auto input = makeInput(in, components);
        auto output = makeMarkedOutput(out.code, outComponents, smallExtent);
        vtkNew<OpenFilter> filter;
        apply(settings, filter);
        filter->correct(input, output, smallExtent);
        EXPECT_EQ(bytesOf(output), expectedImage(input, in, out, outComponents, settings))
            << in.name << " to " << out.name << ", " << components << " components into "
            << outComponents << ", shift " << settings.shift
            << (settings.expand ? ", expanded" : "");
    }
};

constexpr int everyShift[]
    = {INT_MIN, -1, 0, 1, 4, 7, 8, 9, 15, 16, 24, 31, 32, 33, 48, 63, 64, 65, INT_MAX};

TEST_P(ImageCorrectionPairs, PassesChannelsThroughIntoEveryOutput)
{
    CorrectionSettings settings = oddMasks(); // the words play no part
    settings.expand = false;
    for (const SampleType& out : correctionOutputs)
        for (int components = 1; components <= 4; ++components)
            for (int shift : everyShift) {
                settings.shift = shift;
                expectCorrected(out, components, settings);
            }
}

TEST_P(ImageCorrectionPairs, ExpandsIntoEveryOutputWithTheDefaultMasks)
{
    CorrectionSettings settings;
    settings.expand = true;
    for (const SampleType& out : correctionOutputs)
        for (int components = 1; components <= 4; ++components)
            for (int shift : {0, 5}) {
                settings.shift = shift;
                expectCorrected(out, components, settings);
            }
}

TEST_P(ImageCorrectionPairs, ExpandsIntoEveryOutputWithOddMasks)
{
    for (const SampleType& out : correctionOutputs)
        for (int components = 1; components <= 4; ++components)
            for (int shift : everyShift)
                expectCorrected(out, components, oddMasks(shift));
}

TEST_P(ImageCorrectionPairs, RunsInThePipelineWithAndWithoutAnOutputType)
{
    auto input = makeInput(in, 3);
    vtkNew<ImageCorrectionAlgorithm> filter;
    const CorrectionSettings settings = oddMasks(3);
    apply(settings, filter);
    filter->SetInputData(input);
    for (const SampleType& out : correctionOutputs) {
        filter->setOutputScalarType(out.code);
        input->Modified();
        filter->Update();
        EXPECT_EQ(filter->GetOutput()->GetNumberOfScalarComponents(), 4);
        EXPECT_EQ(filter->GetOutput()->GetScalarType(), out.code);
        EXPECT_EQ(bytesOf(filter->GetOutput()), expectedImage(input, in, out, 4, settings))
            << in.name << " to " << out.name;
    }
}

TEST_P(ImageCorrectionPairs, OtherNumbersOfComponentsWriteNothing)
{
    for (const SampleType& out : correctionOutputs)
        for (int components : {5, 6, 9})
            for (int branch : {-1, 4}) {
                auto input = makeInput(in, components);
                auto output = makeMarkedOutput(out.code, components, smallExtent);
                const Bytes before = bytesOf(output);
                vtkNew<OpenFilter> filter;
                filter->setOutputComponents(branch);
                filter->correct(input, output, smallExtent);
                EXPECT_EQ(bytesOf(output), before) << in.name << " to " << out.name;
            }
}

TEST_P(ImageCorrectionPairs, StoresAsManyComponentsAsTheOutputHas)
{
    for (const SampleType& out : correctionOutputs)
        for (int components = 1; components <= 4; ++components)
            for (int outComponents = 1; outComponents <= 6; ++outComponents)
                expectFitted(out, components, outComponents, oddMasks(2));
}

INSTANTIATE_TEST_SUITE_P(Inputs, ImageCorrectionPairs, testing::ValuesIn(correctionInputs),
    [](const testing::TestParamInfo<SampleType>& type) {
        std::string name = type.param.name;
        for (char& letter : name)
            letter = letter == ' ' ? '_' : letter;
        return name;
    });

TEST(ImageCorrectionAlgorithm, AnyComponentCountButMinusOneExpands)
{
    auto input = makeInput(typeOf(VTK_UNSIGNED_SHORT), 3);
    for (int count : {-2, 0, 1, 2, 3, 5}) {
        vtkNew<OpenFilter> filter;
        const CorrectionSettings settings = oddMasks(1);
        apply(settings, filter);
        filter->setOutputComponents(count);
        auto output = makeMarkedOutput(VTK_UNSIGNED_CHAR, 4, smallExtent);
        filter->correct(input, output, smallExtent);
        EXPECT_EQ(bytesOf(output),
            expectedImage(
                input, typeOf(VTK_UNSIGNED_SHORT), typeOf(VTK_UNSIGNED_CHAR), 4, settings))
            << count;
    }
}

TEST(ImageCorrectionAlgorithm, OddComponentCountsRunSafelyInThePipeline)
{
    for (int count : {0, 1, 2, 3, 5}) {
        auto input = makeInput(typeOf(VTK_UNSIGNED_SHORT), 3);
        vtkNew<ImageCorrectionAlgorithm> filter;
        filter->setOutputScalarTypeToUnsignedChar();
        filter->setOutputComponents(count);
        filter->SetInputData(input);
        filter->Update();
        EXPECT_EQ(filter->GetOutput()->GetNumberOfPoints(), input->GetNumberOfPoints()) << count;
    }
}

TEST(ImageCorrectionAlgorithm, ExpandingWithoutAnOutputTypeKeepsTheInputsComponents)
{
    for (const SampleType& type : correctionInputs)
        for (int components = 1; components <= 4; ++components) {
            SCOPED_TRACE(std::string(type.name) + ", " + std::to_string(components));
            auto input = makeInput(type, components);
            vtkNew<ImageCorrectionAlgorithm> filter;
            const CorrectionSettings settings = oddMasks(1);
            apply(settings, filter);
            filter->SetInputData(input);
            filter->Update();
            EXPECT_EQ(filter->GetOutput()->GetNumberOfScalarComponents(), components);
            EXPECT_EQ(bytesOf(filter->GetOutput()),
                expectedImage(input, type, type, components, settings));
        }
}

// Extents and pieces

/** The samples of `image` inside and outside of `extent`. */
struct Divided {
    Bytes inside;
    Bytes outside;
};

Divided divide(vtkImageData* image, const Extent& extent)
{
    const Bytes all = bytesOf(image);
    const auto pixelSize = all.size() / static_cast<std::size_t>(image->GetNumberOfPoints());
    Divided divided;
    for (vtkIdType point = 0; point < image->GetNumberOfPoints(); ++point) {
        int at[3];
        double place[3];
        image->GetPoint(point, place);
        bool inside = true;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            at[axis] = static_cast<int>(place[axis]);
            inside = inside && at[axis] >= extent[2 * axis] && at[axis] <= extent[2 * axis + 1];
        }
        const auto first = all.begin() + static_cast<std::ptrdiff_t>(pixelSize) * point;
        Bytes& part = inside ? divided.inside : divided.outside;
        part.insert(part.end(), first, first + static_cast<std::ptrdiff_t>(pixelSize));
    }
    return divided;
}

TEST(ImageCorrectionAlgorithm, WritesOnlyInsideThePieceItIsGiven)
{
    const Extent whole = {-5, 60, 2, 12, -1, 2};
    const SampleType& in = typeOf(VTK_UNSIGNED_SHORT);
    const SampleType& out = typeOf(VTK_UNSIGNED_CHAR);
    for (const Extent& part : {whole, Extent {0, 50, 3, 11, 0, 1}, Extent {-5, 60, 4, 4, 1, 1},
             Extent {7, 7, 2, 12, -1, 2}, Extent {60, 60, 12, 12, 2, 2}})
        for (int components = 1; components <= 4; ++components)
            for (bool expand : {false, true}) {
                CorrectionSettings settings = oddMasks(4);
                settings.expand = expand;
                auto input = makeInput(in, components, whole);
                const int outComponents = expand ? 4 : components;
                auto output = makeMarkedOutput(out.code, outComponents, whole);
                auto expected = makeMarkedOutput(out.code, outComponents, whole);
                const Bytes untouched = divide(output, part).outside;
                fill(expected, expectedImage(input, in, out, outComponents, settings));
                vtkNew<OpenFilter> filter;
                apply(settings, filter);
                filter->correct(input, output, part);
                EXPECT_EQ(divide(output, part).inside, divide(expected, part).inside);
                EXPECT_EQ(divide(output, part).outside, untouched);
            }
}

// Rows that follow each other without a gap in both images may be corrected in one go, others not.
TEST(ImageCorrectionAlgorithm, RowsMayHaveGapsInEitherImageAlone)
{
    const Extent part = {3, 63, 1, 9, 0, 1};
    const Extent wider = {0, 70, 1, 9, 0, 1};
    const SampleType& type = typeOf(VTK_SHORT);
    auto wide = makeInput(type, 3, wider);
    auto narrow = makeImage(type.code, 3, part);
    fill(narrow, divide(wide, part).inside);
    auto expected = makeImage(type.code, 3, part);
    fill(expected, expectedImage(narrow, type, type, 3, {}));
    vtkNew<OpenFilter> filter;
    for (const auto& [input, outside] : {std::pair(wide, part), std::pair(narrow, wider)}) {
        auto output = makeMarkedOutput(type.code, 3, outside);
        filter->correct(input, output, part);
        EXPECT_EQ(divide(output, part).inside, bytesOf(expected));
        for (std::byte byte : divide(output, part).outside)
            ASSERT_EQ(byte, std::byte {0xCD});
    }
}

TEST(ImageCorrectionAlgorithm, AnEmptyPieceWritesNothing)
{
    auto input = makeInput(typeOf(VTK_SHORT), 1);
    auto output = makeMarkedOutput(VTK_SHORT, 1, smallExtent);
    const Bytes before = bytesOf(output);
    vtkNew<OpenFilter> filter;
    for (const Extent& empty : {Extent {0, -1, 0, 4, 0, 0}, Extent {0, 36, 3, 2, 0, 0},
             Extent {0, 36, 0, 4, 0, -1}, Extent {0, -1, 0, -1, 0, -1}})
        filter->correct(input, output, empty);
    EXPECT_EQ(bytesOf(output), before);
}

TEST(ImageCorrectionAlgorithm, AnEmptyImageRaisesNothing)
{
    vtkNew<vtkImageData> input;
    input->SetExtent(0, -1, 0, -1, 0, -1);
    input->AllocateScalars(VTK_SHORT, 1);
    vtkNew<ImageCorrectionAlgorithm> filter;
    filter->SetInputData(input);
    filter->Update();
    EXPECT_EQ(filter->GetOutput()->GetNumberOfPoints(), 0);
}

TEST(ImageCorrectionAlgorithm, AnswersAPartOfTheImageInTheSameWay)
{
    const SampleType& type = typeOf(VTK_SHORT);
    auto input = makeInput(type, 3, {0, 99, 0, 49, 0, 0});
    vtkNew<ImageCorrectionAlgorithm> filter;
    filter->setShift(2);
    filter->SetInputData(input);
    Extent part = {10, 61, 7, 30, 0, 0};
    filter->UpdateExtent(part.data());
    CorrectionSettings settings;
    settings.shift = 2;
    auto expected = makeMarkedOutput(type.code, 3, {0, 99, 0, 49, 0, 0});
    fill(expected, expectedImage(input, type, type, 3, settings));
    EXPECT_EQ(bytesOf(filter->GetOutput()), divide(expected, part).inside);
}

struct Splitting {
    bool smp;
    int threads;
    int mode; // slab, beam, block
};

std::ostream& operator<<(std::ostream& out, const Splitting& way)
{
    return out << way.threads << " threads, mode " << way.mode << (way.smp ? ", SMP" : "");
}

class ImageCorrectionSplitting : public testing::TestWithParam<Splitting> { };

TEST_P(ImageCorrectionSplitting, GivesTheSamePictureInAnyNumberOfPieces)
{
    const SampleType& in = typeOf(VTK_UNSIGNED_SHORT);
    const SampleType& out = typeOf(VTK_UNSIGNED_CHAR);
    for (int components = 1; components <= 4; ++components)
        for (bool expand : {false, true}) {
            CorrectionSettings settings = oddMasks(4);
            settings.expand = expand;
            auto input = makeInput(in, components, {0, 210, 0, 90, 0, 1});
            vtkNew<ImageCorrectionAlgorithm> filter;
            apply(settings, filter);
            filter->setOutputScalarTypeToUnsignedChar();
            filter->SetEnableSMP(GetParam().smp);
            filter->SetNumberOfThreads(GetParam().threads);
            filter->SetSplitMode(GetParam().mode);
            filter->SetMinimumPieceSize(1, 1, 1);
            filter->SetDesiredBytesPerPiece(700);
            filter->SetInputData(input);
            filter->Update();
            EXPECT_EQ(bytesOf(filter->GetOutput()),
                expectedImage(input, in, out, expand ? 4 : components, settings));
        }
}

INSTANTIATE_TEST_SUITE_P(Ways, ImageCorrectionSplitting,
    testing::Values(Splitting {false, 1, 0}, Splitting {false, 2, 0}, Splitting {false, 5, 1},
        Splitting {false, 4, 2}, Splitting {true, 1, 0}, Splitting {true, 2, 1},
        Splitting {true, 2, 2}));

TEST(ImageCorrectionAlgorithm, ALargeFrameComesOutLikeASmallOne)
{
    constexpr int width = 4095; // so that no row ends on a border of the caches
    constexpr int height = 3001;
    auto input = makeImage(VTK_UNSIGNED_SHORT, 1, {0, width - 1, 0, height - 1, 0, 0});
    auto* samples = static_cast<unsigned short*>(input->GetScalarPointer());
    for (int i = 0; i < width * height; ++i)
        samples[i] = static_cast<unsigned short>(i * 40503U);
    for (bool smp : {false, true}) {
        vtkNew<ImageCorrectionAlgorithm> filter;
        filter->SetEnableSMP(smp);
        filter->setShift(4);
        filter->setOutputScalarTypeToUnsignedChar();
        filter->SetInputData(input);
        filter->Update();
        const auto* corrected
            = static_cast<unsigned char*>(filter->GetOutput()->GetScalarPointer());
        int wrong = 0;
        for (int i = 0; i < width * height; ++i)
            wrong += corrected[i] == samples[i] / 16 % 256 ? 0 : 1;
        EXPECT_EQ(wrong, 0);
    }
}

TEST(ImageCorrectionAlgorithm, ReportsProgressBetweenNothingAndAll)
{
    for (int branch : {-1, 4}) {
        vtkNew<ImageCorrectionAlgorithm> filter;
        filter->setOutputComponents(branch);
        filter->setOutputScalarTypeToUnsignedChar();
        filter->SetEnableSMP(false);
        filter->SetNumberOfThreads(1);
        filter->SetInputData(makeInput(typeOf(VTK_SHORT), 1, {0, 3, 0, 499, 0, 0}));
        struct Progress {
            int partly = 0;
            void record(vtkObject* object, unsigned long, void*)
            {
                const double progress = static_cast<vtkAlgorithm*>(object)->GetProgress();
                EXPECT_GE(progress, 0.0);
                EXPECT_LE(progress, 1.0);
                partly += progress > 0.0 && progress < 1.0 ? 1 : 0;
            }
        } progress;
        filter->AddObserver(vtkCommand::ProgressEvent, &progress, &Progress::record);
        filter->Update();
        EXPECT_GT(progress.partly, 0) << branch;
    }
}

// Failures

void expectAllAre(const std::vector<std::string>& texts, const std::string& message)
{
    EXPECT_FALSE(texts.empty());
    for (const std::string& text : texts) {
        EXPECT_NE(text.find(message), std::string::npos) << text;
        EXPECT_NE(text.find("imagecorrectionalgorithm"), std::string::npos) << text;
        EXPECT_NE(text.find("ImageCorrectionAlgorithm (0x"), std::string::npos) << text;
    }
}

constexpr const char* unknownInput = "ThreadedRequestData: Unknown input ScalarType";
constexpr const char* unknownOutput = "ThreadedRequestData: Unknown output ScalarType";

TEST(ImageCorrectionAlgorithm, FloatingPointAndOtherImagesHaveNoWayIn)
{
    for (int type : {VTK_FLOAT, VTK_DOUBLE, VTK_SIGNED_CHAR, VTK_ID_TYPE, VTK_LONG_LONG,
             VTK_UNSIGNED_LONG_LONG}) {
        SCOPED_TRACE(type);
        vtkNew<ImageCorrectionAlgorithm> filter;
        ErrorRecorder errors(filter);
        filter->setOutputScalarTypeToUnsignedChar();
        filter->SetInputData(makeImage(type, 1, smallExtent));
        filter->Update();
        expectAllAre(errors.texts(), unknownInput);
        EXPECT_EQ(filter->GetOutput()->GetScalarType(), VTK_UNSIGNED_CHAR); // goes on, unwritten
        EXPECT_EQ(filter->GetOutput()->GetNumberOfPoints(), 111);
    }
}

TEST(ImageCorrectionAlgorithm, AnUnknownInputLeavesTheOutputUnwritten)
{
    vtkNew<OpenFilter> filter;
    ErrorRecorder errors(filter);
    auto output = makeMarkedOutput(VTK_UNSIGNED_CHAR, 1, smallExtent);
    filter->correct(makeImage(VTK_FLOAT, 1, smallExtent), output, smallExtent);
    EXPECT_EQ(bytesOf(output), Bytes(111, std::byte {0xCD}));
    EXPECT_EQ(errors.texts().size(), 1U); // one for the one piece
    EXPECT_NE(errors.texts().front().find(unknownInput), std::string::npos);
}

TEST(ImageCorrectionAlgorithm, AnUnknownOutputIsReportedForEveryInput)
{
    for (const SampleType& type : correctionInputs) {
        SCOPED_TRACE(type.name);
        vtkNew<OpenFilter> filter;
        ErrorRecorder errors(filter);
        filter->correct(makeInput(type, 1), makeImage(VTK_BIT, 1, smallExtent), smallExtent);
        ASSERT_EQ(errors.texts().size(), 1U);
        EXPECT_NE(errors.texts().front().find(unknownOutput), std::string::npos);
    }
}

TEST(ImageCorrectionAlgorithm, AnUnknownInputIsReportedInFrontOfAnUnknownOutput)
{
    vtkNew<OpenFilter> filter;
    ErrorRecorder errors(filter);
    filter->correct(
        makeImage(VTK_DOUBLE, 1, smallExtent), makeImage(VTK_BIT, 1, smallExtent), smallExtent);
    ASSERT_EQ(errors.texts().size(), 1U);
    EXPECT_NE(errors.texts().front().find(unknownInput), std::string::npos);
}

TEST(ImageCorrectionAlgorithm, WithoutAnObserverErrorsGoToTheOutputWindow)
{
    MessageWatch::expect(unknownInput);
    vtkNew<OpenFilter> filter;
    filter->correct(makeImage(VTK_FLOAT, 1, smallExtent),
        makeMarkedOutput(VTK_UNSIGNED_CHAR, 1, smallExtent), smallExtent);
}

TEST(ImageCorrectionAlgorithm, FiveComponentsInThePipelineRaiseNothing)
{
    vtkNew<ImageCorrectionAlgorithm> filter;
    ErrorRecorder errors(filter);
    filter->SetInputData(makeInput(typeOf(VTK_UNSIGNED_CHAR), 5));
    filter->Update();
    EXPECT_TRUE(errors.texts().empty());
    EXPECT_EQ(filter->GetOutput()->GetNumberOfScalarComponents(), 5);
}

} // namespace
