// SPDX-License-Identifier: BSD-3-Clause
#include <support/correctionreference.h>
#include <visualization/imagecorrectionalgorithm.h>
#include <visualization/imagelookupmapper.h>

#include <vtkColorTransferFunction.h>
#include <vtkImageData.h>
#include <vtkImageMapToColors.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkSmartPointer.h>
#include <vtkTrivialProducer.h>
#include <vtkUnsignedCharArray.h>
#include <vtkVariant.h>

#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using ovl::ImageCorrectionAlgorithm;
using ovl::ImageLookupMapper;
using ovl::test::correctionInputs;
using ovl::test::correctionSamples;
using ovl::test::SampleType;

namespace {

using Bytes = std::vector<std::byte>;

constexpr int kWidth = 67;
constexpr int kHeight = 41;

vtkSmartPointer<vtkImageData> makeImage(
    const SampleType& type, int components, std::uint32_t seed = 1)
{
    auto image = vtkSmartPointer<vtkImageData>::New();
    image->SetDimensions(kWidth, kHeight, 1);
    image->AllocateScalars(type.code, components);
    const Bytes samples = correctionSamples(type,
        static_cast<std::size_t>(kWidth) * kHeight * static_cast<std::size_t>(components), seed);
    std::memcpy(image->GetScalarPointer(), samples.data(), samples.size());
    return image;
}

const SampleType& typeOf(int code)
{
    for (const SampleType& type : correctionInputs)
        if (type.code == code)
            return type;
    throw std::out_of_range("no such type");
}

Bytes bytesOf(vtkImageData* image)
{
    vtkDataArray* array = image->GetPointData()->GetScalars();
    const auto* first = static_cast<const std::byte*>(array->GetVoidPointer(0));
    return {first, first + array->GetNumberOfValues() * array->GetDataTypeSize()};
}

/** Ours beside the framework's filter, both with the same settings, table and input. */
struct Pair {
    explicit Pair(vtkScalarsToColors* table)
    {
        set([&](vtkImageMapToColors* filter) {
            filter->SetLookupTable(table);
            filter->SetInputConnection(producer->GetOutputPort());
        });
    }

    void set(const std::function<void(vtkImageMapToColors*)>& change)
    {
        change(ours);
        change(stock);
    }

    void show(vtkImageData* image) { producer->SetOutput(image); }

    void expectSame(const std::string& what = "")
    {
        SCOPED_TRACE(what);
        ours->Update();
        stock->Update();
        EXPECT_EQ(ours->GetOutput()->GetNumberOfScalarComponents(),
            stock->GetOutput()->GetNumberOfScalarComponents());
        EXPECT_TRUE(bytesOf(ours->GetOutput()) == bytesOf(stock->GetOutput()));
    }

    vtkNew<vtkTrivialProducer> producer;
    vtkNew<ImageLookupMapper> ours;
    vtkNew<vtkImageMapToColors> stock;
};

vtkSmartPointer<vtkLookupTable> makeTable(double first, double last)
{
    auto table = vtkSmartPointer<vtkLookupTable>::New();
    table->SetRange(first, last);
    table->SetAlphaRange(0.25, 1.0);
    table->Build();
    return table;
}

/** Ranges around and beyond those of all types, and odd ones. */
const std::vector<std::pair<double, double>> ranges = {{0, 255}, {-128, 127}, {10, 20},
    {-32768, 32767}, {0, 65535}, {1000.25, 1000.75}, {7, 7}, {-1e9, 1e9}, {70000, 80000}};

class ImageLookupMapperTypes : public testing::TestWithParam<SampleType> { };

TEST_P(ImageLookupMapperTypes, AgreesOverEveryRangeAndFormat)
{
    auto image = makeImage(GetParam(), 1);
    for (const auto& [first, last] : ranges) {
        auto table = makeTable(first, last);
        Pair pair(table);
        pair.show(image);
        for (int format : {VTK_RGBA, VTK_RGB, VTK_LUMINANCE_ALPHA, VTK_LUMINANCE}) {
            pair.set([&](auto* filter) { filter->SetOutputFormat(format); });
            pair.expectSame("from " + std::to_string(first) + ", format " + std::to_string(format));
        }
    }
}

TEST_P(ImageLookupMapperTypes, AgreesWithColoursOfTheirOwnOutsideTheRange)
{
    auto table = makeTable(20, 90);
    table->SetAboveRangeColor(1.0, 0.5, 0.0, 0.75);
    table->SetBelowRangeColor(0.0, 0.25, 1.0, 0.5);
    Pair pair(table);
    pair.show(makeImage(GetParam(), 1));
    for (bool above : {false, true})
        for (bool below : {false, true}) {
            table->SetUseAboveRangeColor(above);
            table->SetUseBelowRangeColor(below);
            pair.expectSame(std::to_string(above) + std::to_string(below));
        }
}

TEST_P(ImageLookupMapperTypes, AgreesOnALogarithmicScale)
{
    for (const auto& [first, last] : {std::pair(1.0, 1000.0), std::pair(-100.0, -1.0)}) {
        auto table = makeTable(first, last);
        table->SetScaleToLog10();
        Pair pair(table);
        pair.show(makeImage(GetParam(), 1));
        pair.expectSame(std::to_string(first));
    }
}

TEST_P(ImageLookupMapperTypes, AgreesOnIndexedLookup)
{
    auto table = makeTable(0, 255);
    table->SetNumberOfTableValues(3);
    table->SetTableValue(0, 1, 0, 0, 0.5);
    table->SetTableValue(1, 0, 1, 0, 1);
    table->SetTableValue(2, 0, 0, 1, 1);
    table->SetNanColor(0.5, 0.25, 0.75, 1.0);
    table->IndexedLookupOn();
    table->SetAnnotation(vtkVariant(0), "zero");
    table->SetAnnotation(vtkVariant(17), "seventeen");
    Pair pair(table);
    pair.show(makeImage(GetParam(), 1));
    pair.expectSame();
    table->SetAnnotation(vtkVariant(1), "one");
    pair.expectSame("one more");
}

TEST_P(ImageLookupMapperTypes, AgreesOnATranslucentTable)
{
    auto table = makeTable(0, 200);
    Pair pair(table);
    pair.show(makeImage(GetParam(), 1));
    for (double alpha : {0.0, 0.3, 1.0}) {
        table->SetAlpha(alpha);
        pair.expectSame(std::to_string(alpha));
    }
}

TEST_P(ImageLookupMapperTypes, AgreesOnSeveralComponentsAndTheirAlpha)
{
    auto table = makeTable(0, 200);
    for (int components = 1; components <= 4; ++components) {
        Pair pair(table);
        pair.show(makeImage(GetParam(), components));
        for (int active = 0; active < components; ++active)
            for (bool passAlpha : {false, true}) {
                pair.set([&](auto* filter) {
                    filter->SetActiveComponent(active);
                    filter->SetPassAlphaToOutput(passAlpha);
                });
                pair.expectSame(std::to_string(active) + " of " + std::to_string(components));
            }
    }
}

TEST_P(ImageLookupMapperTypes, AgreesWithAnyVectorModeAndNanColour)
{
    auto table = makeTable(0, 200);
    table->SetNanColor(0.1, 0.9, 0.4, 0.7);
    Pair pair(table);
    pair.show(makeImage(GetParam(), 1));
    for (int mode : {vtkScalarsToColors::MAGNITUDE, vtkScalarsToColors::COMPONENT,
             vtkScalarsToColors::RGBCOLORS}) {
        table->SetVectorMode(mode);
        table->SetVectorComponent(1);
        pair.expectSame(std::to_string(mode));
    }
}

TEST_P(ImageLookupMapperTypes, AgreesWithTablesOfAnotherKind)
{
    vtkNew<vtkColorTransferFunction> table;
    table->AddRGBPoint(0, 1, 0, 0);
    table->AddRGBPoint(100, 0, 1, 0.5);
    Pair pair(table);
    pair.show(makeImage(GetParam(), 1));
    pair.expectSame();
    table->AddRGBPoint(50, 0, 0, 1);
    pair.expectSame("one more point");
}

INSTANTIATE_TEST_SUITE_P(
    Inputs, ImageLookupMapperTypes, testing::ValuesIn(correctionInputs), [](const auto& instance) {
        std::string name = instance.param.name;
        for (char& letter : name)
            letter = letter == ' ' ? '_' : letter;
        return name;
    });

TEST(ImageLookupMapper, FollowsEveryChangeOfTheTable)
{
    auto table = makeTable(0, 60000);
    Pair pair(table);
    pair.show(makeImage(typeOf(VTK_UNSIGNED_SHORT), 1));
    pair.expectSame("first");
    table->SetRange(100, 200);
    pair.expectSame("range");
    table->SetTableValue(5, 0.1, 0.2, 0.3, 0.4);
    pair.expectSame("one value");
    table->SetHueRange(0.2, 0.4);
    table->ForceBuild();
    pair.expectSame("built again");
    table->SetNumberOfColors(16);
    table->ForceBuild();
    pair.expectSame("fewer colours");
    table->SetScaleToLog10();
    pair.expectSame("scale");
    auto other = makeTable(100, 200);
    pair.set([&](auto* filter) { filter->SetLookupTable(other); });
    pair.expectSame("another table");
}

TEST(ImageLookupMapper, FollowsATableWrittenInPlaceWithTheNextImage)
{
    auto table = makeTable(0, 60000);
    Pair pair(table);
    auto image = makeImage(typeOf(VTK_UNSIGNED_SHORT), 1);
    pair.show(image);
    pair.expectSame("first");
    table->GetPointer(0)[0] = 77;
    table->GetPointer(100)[2] = 78;
    image->Modified();
    pair.expectSame("written in place");
}

TEST(ImageLookupMapper, FollowsEveryChangeOfTheImage)
{
    auto table = makeTable(0, 1000);
    Pair pair(table);
    for (int type : {VTK_UNSIGNED_SHORT, VTK_INT, VTK_SHORT, VTK_UNSIGNED_CHAR, VTK_UNSIGNED_SHORT})
        for (int components : {1, 3}) {
            pair.show(makeImage(typeOf(type), components, static_cast<std::uint32_t>(type)));
            pair.expectSame(std::to_string(type));
        }
    vtkNew<vtkImageData> larger;
    larger->SetExtent(-3, 300, 5, 8, 0, 2);
    larger->AllocateScalars(VTK_SHORT, 1);
    std::memset(larger->GetScalarPointer(), 1, 304 * 4 * 3 * sizeof(short));
    pair.show(larger);
    pair.expectSame("larger");
}

TEST(ImageLookupMapper, AgreesOnFloatingPoint)
{
    vtkNew<vtkImageData> image;
    image->SetDimensions(4, 2, 1);
    image->AllocateScalars(VTK_FLOAT, 1);
    const float samples[8] = {0.0F, 0.4F, 1.0F, -1.0F, 300.0F, 1e30F, 0.5F, 254.9F};
    std::memcpy(image->GetScalarPointer(), samples, sizeof(samples));
    auto table = makeTable(0, 255);
    Pair pair(table);
    pair.show(image);
    pair.expectSame();
}

TEST(ImageLookupMapper, AnswersAPartOfTheImageInTheSameWay)
{
    auto table = makeTable(0, 1000);
    Pair pair(table);
    pair.show(makeImage(typeOf(VTK_SHORT), 1));
    pair.set([](auto* filter) {
        int part[6] = {3, 50, 7, 30, 0, 0};
        filter->UpdateExtent(part);
    });
    EXPECT_TRUE(bytesOf(pair.ours->GetOutput()) == bytesOf(pair.stock->GetOutput()));
    EXPECT_EQ(pair.ours->GetOutput()->GetDimensions()[0], 48);
}

TEST(ImageLookupMapper, GivesTheSamePictureInAnyNumberOfPieces)
{
    auto table = makeTable(0, 1000);
    for (bool smp : {false, true})
        for (int threads : {1, 3}) {
            Pair pair(table);
            pair.show(makeImage(typeOf(VTK_UNSIGNED_SHORT), 1));
            pair.set([&](auto* filter) {
                filter->SetEnableSMP(smp);
                filter->SetNumberOfThreads(threads);
                filter->SetMinimumPieceSize(1, 1, 1);
                filter->SetDesiredBytesPerPiece(500);
            });
            pair.expectSame(std::to_string(threads));
        }
}

TEST(ImageLookupMapper, PassesTheInputOnWithoutATable)
{
    Pair pair(nullptr);
    pair.show(makeImage(typeOf(VTK_UNSIGNED_CHAR), 4));
    pair.expectSame();
    auto table = makeTable(0, 255);
    pair.set([&](auto* filter) { filter->SetLookupTable(table); });
    pair.expectSame("then with one");
}

// Behind a correction that leaves its shift to the look-up.

/** The correction and the look-up as an image view has them, beside the same without deferring. */
struct Chain {
    explicit Chain(vtkScalarsToColors* table)
    {
        for (auto* correction : {deferring.Get(), usual.Get()})
            correction->SetInputConnection(producer->GetOutputPort());
        deferring->setShiftDeferred(true);
        ours->SetLookupTable(table);
        ours->SetInputConnection(deferring->GetOutputPort());
        stock->SetLookupTable(table);
        stock->SetInputConnection(usual->GetOutputPort());
    }

    void setShift(int shift)
    {
        for (auto* correction : {deferring.Get(), usual.Get()})
            correction->setShift(shift);
    }

    void show(vtkImageData* image)
    {
        producer->SetOutput(image);
        producer->Modified();
    }

    void expectSame(const std::string& what)
    {
        ours->Update();
        stock->Update();
        EXPECT_TRUE(bytesOf(ours->GetOutput()) == bytesOf(stock->GetOutput())) << what;
    }

    void expectSameCorrection(const std::string& what)
    {
        EXPECT_EQ(deferring->GetOutput()->GetScalarType(), usual->GetOutput()->GetScalarType());
        EXPECT_TRUE(bytesOf(deferring->GetOutput()) == bytesOf(usual->GetOutput())) << what;
    }

    vtkNew<vtkTrivialProducer> producer;
    vtkNew<ImageCorrectionAlgorithm> deferring;
    vtkNew<ImageCorrectionAlgorithm> usual;
    vtkNew<ImageLookupMapper> ours;
    vtkNew<vtkImageMapToColors> stock;
};

TEST_P(ImageLookupMapperTypes, ShiftsOnTheWay)
{
    auto table = makeTable(-20, 100);
    for (int components : {1, 3})
        for (int shift : {-3, 0, 1, 4, 7, 8, 15, 16, 31, 32, 100}) {
            Chain chain(table);
            chain.setShift(shift);
            chain.show(makeImage(GetParam(), components));
            chain.expectSame(std::to_string(shift));
        }
}

TEST(ImageLookupMapper, ANewShiftWaitsForTheNextImage)
{
    auto table = makeTable(0, 1000);
    Chain chain(table);
    chain.show(makeImage(typeOf(VTK_UNSIGNED_SHORT), 1));
    chain.expectSame("first");
    chain.setShift(5);
    chain.expectSame("not yet");
    table->SetRange(10, 20);
    chain.expectSame("not even where the table has changed");
    chain.show(makeImage(typeOf(VTK_UNSIGNED_SHORT), 1, 2));
    chain.expectSame("now");
}

TEST(ImageLookupMapper, ADeferredShiftIsAppliedWhenItIsAskedFor)
{
    auto table = makeTable(0, 1000);
    for (int type : {VTK_UNSIGNED_CHAR, VTK_SHORT, VTK_UNSIGNED_SHORT}) {
        Chain chain(table);
        chain.setShift(3);
        auto image = makeImage(typeOf(type), 1);
        const Bytes before = bytesOf(image);
        chain.show(image);
        chain.expectSame("first");
        EXPECT_EQ(chain.deferring->deferredShift(), 3);
        chain.setShift(6); // too late
        chain.deferring->applyDeferredShift();
        EXPECT_EQ(chain.deferring->deferredShift(), 0);
        chain.expectSameCorrection("made up for");
        EXPECT_TRUE(bytesOf(image) == before) << "the input belongs to somebody else";
        chain.expectSame("the table shows the same");
        chain.deferring->applyDeferredShift();
        chain.expectSameCorrection("only once");
        chain.show(makeImage(typeOf(type), 1, 2));
        chain.expectSame("next");
        EXPECT_EQ(chain.deferring->deferredShift(), 6);
    }
}

TEST(ImageLookupMapper, ADeferredShiftIsLeftAloneOnceThereIsANewImage)
{
    auto table = makeTable(0, 1000);
    Chain chain(table);
    chain.setShift(3);
    chain.show(makeImage(typeOf(VTK_SHORT), 1));
    chain.expectSame("first");
    chain.show(makeImage(typeOf(VTK_UNSIGNED_SHORT), 1));
    chain.producer->Update();
    chain.deferring->applyDeferredShift();
    EXPECT_EQ(chain.deferring->deferredShift(), 3);
    chain.expectSame("next");
}

TEST(ImageLookupMapper, AnOutputTypeThatWasAnnouncedBeforeTheSettingStands)
{
    auto table = makeTable(0, 1000);
    for (int type : {VTK_SHORT, VTK_UNSIGNED_SHORT}) {
        Chain chain(table);
        chain.setShift(3);
        for (auto* correction : {chain.deferring.Get(), chain.usual.Get()})
            correction->setOutputScalarTypeToUnsignedChar();
        chain.show(makeImage(typeOf(type), 1));
        for (auto* correction : {chain.deferring.Get(), chain.usual.Get()}) {
            correction->UpdateInformation();
            correction->setOutputScalarType(-1);
        }
        chain.expectSame("bytes");
        chain.expectSameCorrection("bytes");
        EXPECT_EQ(chain.deferring->GetOutput()->GetScalarType(), VTK_UNSIGNED_CHAR);
        chain.show(makeImage(typeOf(type), 1, 2));
        chain.expectSame("the input's type");
        EXPECT_EQ(chain.deferring->deferredShift(), 3);
    }
}

TEST(ImageLookupMapper, TheInputIsNeverWrittenToWhenSharingEnds)
{
    auto table = makeTable(0, 1000);
    Chain chain(table);
    auto image = makeImage(typeOf(VTK_UNSIGNED_CHAR), 1);
    const Bytes before = bytesOf(image);
    chain.show(image);
    chain.expectSame("shared");
    EXPECT_EQ(chain.deferring->GetOutput()->GetScalarPointer(), image->GetScalarPointer());
    for (auto* correction : {chain.deferring.Get(), chain.usual.Get()}) {
        correction->setOutputScalarTypeToUnsignedChar();
        correction->setShift(4);
    }
    chain.show(image);
    chain.expectSame("corrected");
    EXPECT_NE(chain.deferring->GetOutput()->GetScalarPointer(), image->GetScalarPointer());
    EXPECT_TRUE(bytesOf(image) == before);
}

TEST(ImageLookupMapper, MemoryThatTheInputHasLeftIsNotWrittenTo)
{
    auto table = makeTable(0, 1000);
    Chain chain(table);
    auto image = makeImage(typeOf(VTK_UNSIGNED_CHAR), 1);
    Bytes hosts = bytesOf(image);
    const Bytes before = hosts;
    auto samples = vtkSmartPointer<vtkUnsignedCharArray>::New();
    samples->SetVoidArray(hosts.data(), static_cast<vtkIdType>(hosts.size()), 1);
    image->GetPointData()->SetScalars(samples);
    samples = nullptr;
    chain.show(image);
    chain.expectSame("shared");
    image->DeepCopy(makeImage(typeOf(VTK_UNSIGNED_CHAR), 1, 2));
    for (auto* correction : {chain.deferring.Get(), chain.usual.Get()})
        correction->setOutputScalarTypeToUnsignedChar();
    chain.show(image);
    chain.expectSame("the next one");
    EXPECT_TRUE(hosts == before) << "only the output of the frame before still knew of it";
}

TEST(ImageLookupMapper, FallsBackWhereTheBaseClassIsNeededBehindADeferredShift)
{
    auto table = makeTable(0, 100);
    Chain chain(table);
    chain.setShift(2);
    chain.show(makeImage(typeOf(VTK_UNSIGNED_SHORT), 1));
    chain.ours->SetActiveComponent(1); // the pixel's right neighbour
    int part[6] = {0, kWidth - 1, 0, kHeight - 2, 0, 0};
    chain.ours->UpdateExtent(part);
    EXPECT_EQ(chain.deferring->deferredShift(), 0);
    chain.usual->Update();
    chain.expectSameCorrection("shifted");
}

} // namespace
