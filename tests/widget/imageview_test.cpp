// SPDX-License-Identifier: BSD-3-Clause
#include <support/imagefixture.h>
#include <support/messagewatch.h>
#include <support/rendercount.h>
#include <support/residentmemory.h>
#include <visualization/imageview.h>
#include <visualization/precondition.h>
#include <visualization/range.h>

#include <QVTKInteractor.h>
#include <vtkImageAlgorithm.h>
#include <vtkInteractorObserver.h>
#include <vtkPointData.h>
#include <vtkRenderWindow.h>
#include <vtkRendererCollection.h>
#include <vtkSmartPointer.h>

#include <QApplication>

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <numeric>
#include <string>
#include <type_traits>

using ovl::ImageView;
using ovl::Range;
using ovl::test::HostFixture;
using ovl::test::ImageFixture;
using ovl::test::MessageWatch;
using ovl::test::RenderCount;
using ovl::test::residentBytes;
using ovl::test::Vector3;

namespace {

constexpr int kAndAll = 0x7FFFFFFF;

using Bytes = std::vector<unsigned char>;
using Words = std::vector<unsigned short>;

Bytes grey(int count, unsigned char value = 100)
{
    return Bytes(static_cast<std::size_t>(count), value);
}

void expectNear(const Vector3& actual, const Vector3& expected)
{
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-9) << "component " << i;
}

// Life on the widget

TEST(ImageView, LaysItsRendererAndInteractorOnTheWindow)
{
    ImageFixture f;
    EXPECT_EQ(f.window()->GetRenderers()->GetNumberOfItems(), 1);
    auto* interactor = QVTKInteractor::SafeDownCast(f.window()->GetInteractor());
    ASSERT_NE(interactor, nullptr);
    EXPECT_STREQ(interactor->GetInteractorStyle()->GetClassName(), "ImageInteractorStyle");
}

TEST(ImageView, StartsClean)
{
    const ImageFixture f;
    EXPECT_FALSE(f.view->isDirty());
}

TEST(ImageView, DirtyFlagIsWrittenAndRead)
{
    ImageFixture f;
    f.view->setDirty(true);
    EXPECT_TRUE(f.view->isDirty());
    f.view->setDirty(false);
    EXPECT_FALSE(f.view->isDirty());
}

TEST(ImageView, RenderingLeavesTheDirtyFlagToTheHost)
{
    ImageFixture f;
    Bytes pixels = grey(4);
    f.draw(pixels, 2, 1, 0);
    f.render();
    EXPECT_TRUE(f.view->isDirty());
}

TEST(ImageView, CannotBeCopiedOrMoved)
{
    EXPECT_FALSE(std::is_copy_constructible_v<ImageView>);
    EXPECT_FALSE(std::is_copy_assignable_v<ImageView>);
    EXPECT_FALSE(std::is_move_constructible_v<ImageView>);
    EXPECT_FALSE(std::is_move_assignable_v<ImageView>);
}

TEST(ImageView, HoldsNothingButItsPrivateData)
{
    EXPECT_EQ(sizeof(ImageView), 2 * sizeof(void*)); // the virtual table's pointer and the data's
}

TEST(ImageView, DestroyedViewTakesItsRendererOffAndLeavesTheInteractor)
{
    ImageFixture f;
    f.render();
    vtkRenderWindowInteractor* interactor = f.window()->GetInteractor();
    f.view.reset();
    EXPECT_EQ(f.window()->GetRenderers()->GetNumberOfItems(), 0);
    EXPECT_EQ(f.window()->GetInteractor(), interactor);
    f.render();
}

TEST(ImageView, DestroyedViewEmptiesItsRendererAndMarksTheWindowModified)
{
    ImageFixture f;
    f.render();
    const vtkSmartPointer<vtkRenderer> renderer = f.renderer();
    ASSERT_EQ(renderer->GetViewProps()->GetNumberOfItems(), 1);
    const vtkMTimeType before = f.window()->GetMTime();
    f.view.reset();
    EXPECT_EQ(renderer->GetViewProps()->GetNumberOfItems(), 0);
    EXPECT_GT(f.window()->GetMTime(), before);
}

TEST(ImageView, TwoViewsOnOneWidgetAddBothRenderersAndTheSecondTakesTheInteractor)
{
    ImageFixture f;
    vtkRenderWindowInteractor* first = f.window()->GetInteractor();
    const ImageView second(f.widget());
    EXPECT_EQ(f.window()->GetRenderers()->GetNumberOfItems(), 2);
    EXPECT_NE(f.window()->GetInteractor(), first);
}

void useMouseAfterDestruction(ImageFixture& f)
{
    f.view.reset();
    f.move({150, 100});
    f.drag({150, 100}, {170, 120}, Qt::LeftButton, 3);
    f.drag({150, 100}, {170, 120}, Qt::RightButton, 3);
    f.wheel({150, 100}, 2);
    f.key(Qt::Key_R, "r");
    f.render();
    f.move({151, 101});
}

TEST(ImageView, MouseGoesOnAfterDestruction)
{
    ImageFixture f;
    Bytes pixels = grey(100);
    f.draw(pixels, 10, 1, 0);
    f.render();
    f.move({150, 100});
    useMouseAfterDestruction(f);
}

TEST(ImageView, MouseGoesOnAfterDestructionInTheMiddleOfADrag)
{
    ImageFixture f;
    Bytes pixels = grey(100);
    f.draw(pixels, 10, 1, 0);
    f.render();
    f.press({150, 100});
    f.move({155, 105});
    useMouseAfterDestruction(f);
}

TEST(ImageView, MouseGoesOnAfterDestructionOfAViewThatWasNeverRendered)
{
    ImageFixture f;
    useMouseAfterDestruction(f);
}

TEST(ImageView, ASecondViewTakesOverTheWidget)
{
    ImageFixture f;
    f.render();
    f.view.reset();
    f.view = std::make_unique<ImageView>(f.widget());
    Bytes pixels = grey(100, 200);
    f.draw(pixels, 10, 1, 0);
    EXPECT_EQ(f.colorOf(5, 5).red(), 200);
    f.view->setDirty(false);
    f.drag({150, 100}, {170, 120});
    EXPECT_TRUE(f.view->isDirty());
}

TEST(ImageView, CanBeMadeOnAWidgetThatIsNotShown)
{
    ovl::compat::HostWidget widget;
    ImageView view(&widget);
    Bytes pixels = grey(100);
    view.drawScene(pixels.data(), 10, 10, {1, 0});
    EXPECT_TRUE(view.isDirty());
}

// Before the first frame

TEST(ImageView, ShowsBlackOnNearlyBlackBeforeTheFirstFrame)
{
    ImageFixture f;
    f.render();
    EXPECT_EQ(f.pixel({150, 100}), QColor(0, 0, 0));
    const double* background = f.renderer()->GetBackground();
    EXPECT_EQ(
        (Vector3 {background[0], background[1], background[2]}), (Vector3 {0.05, 0.05, 0.05}));
    EXPECT_EQ(f.pixel({2, 2}), QColor(13, 13, 13));
}

TEST(ImageView, PlaceholderBacksItsWholeExtent)
{
    ImageFixture f;
    vtkImageData* shown = f.shown();
    ASSERT_NE(shown, nullptr);
    const int* extent = shown->GetExtent();
    EXPECT_EQ(std::vector<int>(extent, extent + 6), (std::vector<int> {0, 9, 0, 9, 0, 0}));
    for (int row = 0; row < 10; ++row)
        for (int column = 0; column < 10; ++column)
            EXPECT_EQ(shown->GetScalarComponentAsDouble(column, row, 0, 0), 0.0);
}

TEST(ImageView, FilterStartsWithFourComponentsUntilTheFirstFrame)
{
    ImageFixture f;
    EXPECT_EQ(f.shown()->GetNumberOfScalarComponents(), 4);
    Bytes pixels = grey(100);
    f.draw(pixels, 10, 1, 0);
    EXPECT_EQ(f.shown()->GetNumberOfScalarComponents(), 1);
}

TEST(ImageView, RedrawBeforeTheFirstFrameMarksDirtyAndMovesNothing)
{
    ImageFixture f;
    f.render();
    const Vector3 camera = f.cameraPosition();
    f.view->redraw();
    EXPECT_TRUE(f.view->isDirty());
    EXPECT_EQ(f.cameraPosition(), camera);
    f.render();
    EXPECT_EQ(f.pixel({150, 100}), QColor(0, 0, 0));
}

// Drawing

TEST(ImageView, DrawSceneMarksDirty)
{
    ImageFixture f;
    Bytes pixels = grey(4);
    f.draw(pixels, 2, 1, 0);
    EXPECT_TRUE(f.view->isDirty());
}

TEST(ImageView, NullDataChangesNothing)
{
    ImageFixture f;
    Bytes pixels = grey(16, 77);
    f.draw(pixels, 4, 1, 0);
    f.render();
    f.view->setDirty(false);
    const Vector3 camera = f.cameraPosition();
    f.view->drawScene(nullptr, 2, 2, {3, 2});
    EXPECT_FALSE(f.view->isDirty());
    EXPECT_EQ(f.cameraPosition(), camera);
    EXPECT_EQ(f.colorOf(1, 1), QColor(77, 77, 77));
    f.view->setDirty(true);
    f.view->drawScene(nullptr, 2, 2, {3, 2});
    EXPECT_TRUE(f.view->isDirty());
}

TEST(ImageView, ReadsTheHostsBufferInPlace)
{
    ImageFixture f;
    Bytes pixels = grey(100);
    f.draw(pixels, 10, 1, 0);
    f.shown();
    vtkAlgorithm* correction = f.image()->GetMapper()->GetInputAlgorithm();
    auto* import = vtkImageAlgorithm::SafeDownCast(correction->GetInputAlgorithm());
    ASSERT_NE(import, nullptr);
    EXPECT_EQ(import->GetOutput()->GetScalarPointer(), static_cast<void*>(pixels.data()));
}

TEST(ImageView, RowZeroIsAtTheTopAndColumnsRunToTheRight)
{
    ImageFixture f;
    Bytes pixels = {10, 20, 30, 40, 50, 60};
    f.draw(pixels, 3, 1, 0);
    f.render();
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(f.colorOf(column, row).red(), 10 * (1 + column + 3 * row));
    EXPECT_LT(f.at(0, 0).y(), f.at(0, 1).y());
    EXPECT_LT(f.at(0, 0).x(), f.at(1, 0).x());
}

TEST(ImageView, PixelsAreSquaresNeverSmoothed)
{
    ImageFixture f;
    Bytes pixels = {0, 255, 0, 255, 0, 255, 0, 255, 0};
    f.draw(pixels, 3, 1, 0);
    f.render();
    EXPECT_EQ(f.pixel(f.at(1.4, 1.4)).red(), 0);
    EXPECT_EQ(f.pixel(f.at(1.0, 0.6)).red(), 0);
    EXPECT_EQ(f.pixel(f.at(1.0, 0.4)).red(), 255);
    EXPECT_FALSE(f.image()->GetInterpolate());
}

TEST(ImageView, EachRepaintReadsTheBufferAgainAfterARedraw)
{
    ImageFixture f;
    Bytes pixels = grey(64, 10);
    f.draw(pixels, 8, 1, 0);
    EXPECT_EQ(f.colorOf(4, 4).red(), 10);
    pixels.assign(64, 90);
    f.view->redraw();
    EXPECT_EQ(f.colorOf(4, 4).red(), 90);
}

struct SampleTypeCase {
    int code;
    int scalarType;
};

class ImageViewSampleType : public testing::TestWithParam<SampleTypeCase> { };

TEST_P(ImageViewSampleType, ChoosesTheTypeOfTheImport)
{
    ImageFixture f;
    std::vector<double> storage(16, 0.0); // wide enough for any of the types
    f.view->drawScene(storage.data(), 4, 4, {1, GetParam().code});
    vtkAlgorithm* correction = f.image()->GetMapper()->GetInputAlgorithm();
    auto* import = vtkImageAlgorithm::SafeDownCast(correction->GetInputAlgorithm());
    EXPECT_EQ(import->GetOutput()->GetScalarType(), GetParam().scalarType);
}

INSTANTIATE_TEST_SUITE_P(EveryCode, ImageViewSampleType,
    testing::Values(SampleTypeCase {0, VTK_UNSIGNED_CHAR}, SampleTypeCase {1, VTK_SHORT},
        SampleTypeCase {2, VTK_UNSIGNED_SHORT}, SampleTypeCase {3, VTK_INT},
        SampleTypeCase {4, VTK_FLOAT}, SampleTypeCase {5, VTK_DOUBLE},
        SampleTypeCase {6, VTK_UNSIGNED_CHAR}, SampleTypeCase {-1, VTK_UNSIGNED_CHAR},
        SampleTypeCase {1000, VTK_UNSIGNED_CHAR}));

TEST(ImageView, FloatingPointSamplesHaveNoWayToTheScreen)
{
    for (const int code : {4, 5}) {
        ImageFixture f;
        std::vector<double> storage(16, 1.0);
        MessageWatch::expect("ThreadedRequestData: Unknown input ScalarType");
        f.view->drawScene(storage.data(), 4, 4, {1, code});
        f.render();
        EXPECT_TRUE(f.view->isDirty());
    }
}

TEST(ImageView, SixteenBitsShowTheirLowByteWithoutAShift)
{
    ImageFixture f;
    Words samples(64, 0x0ABC);
    f.draw(samples, 8, 1, 2);
    EXPECT_EQ(f.colorOf(4, 4), QColor(0xBC, 0xBC, 0xBC));
}

TEST(ImageView, ShiftFollowedByRedrawChangesThePicture)
{
    ImageFixture f;
    Words samples(64, 0x0ABC);
    f.draw(samples, 8, 1, 2);
    f.render();
    f.view->setDirty(false);
    f.view->setShift(4);
    EXPECT_EQ(f.view->shift(), 4);
    EXPECT_FALSE(f.view->isDirty());
    EXPECT_EQ(f.colorOf(4, 4).red(), 0xBC) << "a stored setting waits for the next draw";
    f.view->redraw();
    EXPECT_TRUE(f.view->isDirty());
    EXPECT_EQ(f.colorOf(4, 4).red(), 0xAB);
}

TEST(ImageView, SignedSamplesShowTheirLowByte)
{
    ImageFixture f;
    std::vector<short> samples(64, -2);
    f.draw(samples, 8, 1, 1);
    EXPECT_EQ(f.colorOf(4, 4).red(), 0xFE);
    std::vector<std::int32_t> wide(64, 0x00123456);
    f.view->setShift(8);
    f.draw(wide, 8, 1, 3);
    EXPECT_EQ(f.colorOf(4, 4).red(), 0x34);
}

TEST(ImageView, ColourComesAsBlueGreenRed)
{
    ImageFixture f;
    const Bytes pixel = {30, 20, 10};
    Bytes pixels;
    for (int i = 0; i < 64; ++i)
        pixels.insert(pixels.end(), pixel.begin(), pixel.end());
    f.draw(pixels, 8, 3, 0);
    EXPECT_EQ(f.colorOf(4, 4), QColor(10, 20, 30));
}

TEST(ImageView, EveryNumberOfChannelsLooksAsOnAnActorOfTheFramework)
{
    std::vector<unsigned char> samples(61 * 37 * 4);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<unsigned char>(i * i * 7 + i);
    for (int components = 1; components <= 4; ++components) {
        SCOPED_TRACE(components);
        ImageFixture f;
        f.view->drawScene(samples.data(), 61, 37, {components, 0});
        f.render();
        const QImage picture = f.picture();
        const auto stock = vtkSmartPointer<vtkImageActor>::New();
        stock->InterpolateOff();
        stock->GetMapper()->SetInputConnection(f.image()->GetMapper()->GetInputConnection(0, 0));
        stock->SetPosition(f.image()->GetPosition());
        f.image()->VisibilityOff();
        f.renderer()->AddActor(stock);
        f.render();
        EXPECT_EQ(picture, f.picture());
        f.renderer()->RemoveActor(stock);
    }
}

TEST(ImageView, ComponentsOutsideOneToFourStand)
{
    for (const int components : {5, 6, 0, -1}) {
        SCOPED_TRACE(components);
        if (components < 1)
            MessageWatch::allow("out side of array"); // the framework's, of an image without memory
        ImageFixture f;
        Bytes pixels = grey(6 * 16, 99);
        f.view->drawScene(pixels.data(), 4, 4, {components, 0});
        EXPECT_TRUE(f.view->isDirty());
        f.render();
        f.move({150, 100});
        f.view->drawScene(pixels.data(), 4, 4, {1, 0});
        EXPECT_EQ(f.colorOf(2, 2), QColor(99, 99, 99));
    }
}

TEST(ImageView, SizesOfZeroOrLessPassUncheckedAndStand)
{
    for (const QSize size : {QSize(0, 0), QSize(0, 5), QSize(5, 0), QSize(-3, 4)}) {
        ImageFixture f;
        Bytes pixels = grey(16, 200);
        f.view->drawScene(pixels.data(), size.width(), size.height(), {1, 0});
        f.render();
        f.move({150, 100});
        f.drag({150, 100}, {160, 110});
        EXPECT_TRUE(f.view->isDirty());
        f.draw(pixels, 4, 1, 0);
        EXPECT_EQ(f.colorOf(2, 2), QColor(200, 200, 200));
    }
}

TEST(ImageView, NoOperationRenders)
{
    ImageFixture f;
    f.render();
    const RenderCount renders(f.window());
    Bytes pixels = grey(100);
    f.draw(pixels, 10, 1, 0);
    f.view->redraw();
    f.view->resetCamera();
    f.view->setShift(1);
    f.view->setMask(0, 1);
    f.view->forceColor(true);
    f.view->enableLookupTable(true);
    f.view->setLookupTableRange(Range(0.0, 1.0));
    f.view->setAboveRangeColor(Qt::red);
    f.view->enableAboveRangeColor(true);
    f.view->setBelowRangeColor(Qt::blue);
    f.view->enableBelowRangeColor(true);
    f.view->setDirty(true);
    QApplication::processEvents();
    EXPECT_EQ(renders.count(), 0);
    f.render();
    EXPECT_EQ(renders.count(), 1);
}

// Camera

TEST(ImageView, FirstFrameStandsUprightHalfAPixelOffTheAxis)
{
    ImageFixture f;
    Bytes pixels = grey(8 * 6);
    f.draw(pixels, 8, 1, 0);
    expectNear(f.focalPoint(), {-3.5, -2.5, 0.0});
    expectNear(f.viewUp(), {0.0, -1.0, 0.0});
    EXPECT_TRUE(std::signbit(f.viewUp()[0]) && std::signbit(f.viewUp()[2]));
    expectNear({f.cameraPosition()[0], f.cameraPosition()[1], 0.0}, {-3.5, -2.5, 0.0});
    EXPECT_LT(f.cameraPosition()[2], 0.0);
    expectNear(f.directionOfProjection(), {0.0, 0.0, 1.0});
    // centre of the image: actor + (W - 1) / 2; camera: -(W - 1) / 2; so half a pixel beside it
    expectNear(f.actorPosition(), {-3.5 - 4.0, -2.5 - 3.0, 0.0});
}

TEST(ImageView, AnotherFrameOfTheSameSizeLeavesCameraAndActor)
{
    ImageFixture f;
    Bytes first = grey(100, 10);
    Bytes second = grey(100, 20);
    f.draw(first, 10, 1, 0);
    f.render();
    f.drag({150, 100}, {180, 130});
    f.wheel({150, 100}, 2);
    const Vector3 camera = f.cameraPosition();
    const Vector3 actor = f.actorPosition();
    f.draw(second, 10, 1, 0);
    EXPECT_EQ(f.cameraPosition(), camera);
    EXPECT_EQ(f.actorPosition(), actor);
    EXPECT_EQ(f.colorOf(5, 5).red(), 20);
}

TEST(ImageView, AChangeOfAnyPartOfTheLayoutResetsTheCamera)
{
    struct Change {
        int width, height, components, sampleType;
    };
    for (const Change& change : {Change {9, 10, 1, 0}, Change {10, 9, 1, 0}, Change {10, 10, 3, 0},
             Change {10, 10, 1, 2}}) {
        ImageFixture f;
        Bytes pixels = grey(10 * 10 * 4);
        f.view->drawScene(pixels.data(), 10, 10, {1, 0});
        f.render();
        f.drag({150, 100}, {180, 130});
        const Vector3 dragged = f.cameraPosition();
        f.view->drawScene(
            pixels.data(), change.width, change.height, {change.components, change.sampleType});
        EXPECT_NE(f.cameraPosition(), dragged);
        EXPECT_EQ(f.cameraPosition()[0], f.focalPoint()[0]);
        const Vector3 actor = f.actorPosition();
        EXPECT_EQ(actor[0], f.cameraPosition()[0] - change.width * 0.5);
        EXPECT_EQ(actor[1], f.cameraPosition()[1] - change.height * 0.5);
    }
}

TEST(ImageView, ResetCameraMarksDirtyAndBringsTheImageBack)
{
    ImageFixture f;
    Bytes pixels = grey(100, 50);
    f.draw(pixels, 10, 1, 0);
    f.render();
    const QImage before = f.picture();
    f.drag({150, 100}, {250, 130});
    f.view->setDirty(false);
    f.view->resetCamera();
    EXPECT_TRUE(f.view->isDirty());
    f.render();
    EXPECT_EQ(f.picture(), before);
}

TEST(ImageView, RepeatedResetMovesTheSceneByHalfAPixelAndThePictureNotAtAll)
{
    ImageFixture f;
    Bytes pixels(100);
    std::iota(pixels.begin(), pixels.end(), static_cast<unsigned char>(1));
    f.draw(pixels, 10, 1, 0);
    f.render();
    const QImage before = f.picture();
    const Vector3 camera = f.cameraPosition();
    const Vector3 actor = f.actorPosition();
    for (int repetition = 1; repetition <= 3; ++repetition) {
        f.view->resetCamera();
        const double moved = 0.5 * repetition;
        expectNear({f.cameraPosition()[0], f.cameraPosition()[1], 0.0},
            {camera[0] - moved, camera[1] - moved, 0.0});
        expectNear(f.actorPosition(), {actor[0] - moved, actor[1] - moved, 0.0});
        f.render();
        EXPECT_EQ(f.picture(), before);
    }
}

// Masks and forced colour

TEST(ImageView, MaskAnswersTheAndWordsAndMinusOneForTheOrWords)
{
    ImageFixture f;
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(f.view->mask(index), kAndAll);
        f.view->setMask(index, 16 + index);
        EXPECT_EQ(f.view->mask(index), 16 + index);
    }
    for (int index = 4; index < 8; ++index) {
        f.view->setMask(index, 5);
        EXPECT_EQ(f.view->mask(index), -1);
    }
    EXPECT_EQ(f.view->mask(8), -1);
    EXPECT_EQ(f.view->mask(1000), -1);
    EXPECT_FALSE(f.view->isDirty());
}

TEST(ImageView, ForcedColourWaitsForAChangeOfLayout)
{
    ImageFixture f;
    Bytes pixels = grey(100, 80);
    f.draw(pixels, 10, 1, 0);
    f.render();
    f.view->setDirty(false);
    f.view->forceColor(true);
    EXPECT_TRUE(f.view->isColorForced());
    EXPECT_FALSE(f.view->isDirty());
    f.view->redraw();
    EXPECT_EQ(f.colorOf(5, 5), QColor(80, 80, 80)) << "an unchanged layout leaves the filter alone";
    f.view->drawScene(pixels.data(), 10, 9, {1, 0});
    EXPECT_EQ(f.colorOf(5, 5), QColor(80, 0, 0)) << "a single channel shows in red alone";
    f.view->forceColor(false);
    EXPECT_FALSE(f.view->isColorForced());
    f.view->redraw();
    EXPECT_EQ(f.colorOf(5, 5), QColor(80, 0, 0));
    f.view->drawScene(pixels.data(), 10, 10, {1, 0});
    EXPECT_EQ(f.colorOf(5, 5), QColor(80, 80, 80));
}

TEST(ImageView, ColourIsNotForcedAndNothingShiftedByDefault)
{
    const ImageFixture f;
    EXPECT_FALSE(f.view->isColorForced());
    EXPECT_EQ(f.view->shift(), 0);
}

TEST(ImageView, MasksWorkOnlyWhileColourIsForced)
{
    ImageFixture f;
    const Bytes pixel = {0x0F, 0x33, 0x55};
    Bytes pixels;
    for (int i = 0; i < 64; ++i)
        pixels.insert(pixels.end(), pixel.begin(), pixel.end());
    f.view->setMask(0, 0x3C); // blue
    f.view->setMask(4, 0xF0);
    f.view->setMask(1, 0x0F); // green
    f.view->setMask(6, 0x80); // red
    f.draw(pixels, 8, 3, 0);
    EXPECT_EQ(f.colorOf(4, 4), QColor(0x55, 0x33, 0x0F));
    f.view->forceColor(true);
    f.view->drawScene(pixels.data(), 8, 7, {3, 0});
    EXPECT_EQ(f.colorOf(4, 4), QColor(0xD5, 0x03, 0x3C)); // (0x0F | 0xF0) & 0x3C = 0x3C
}

#ifndef NDEBUG
TEST(ImageViewDeathTest, MaskIndexOutOfRangeStopsADebugBuild)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    ImageFixture f;
    EXPECT_DEATH(f.view->setMask(8, 1), "setMask.*8");
    EXPECT_DEATH(f.view->setMask(-1, 1), "setMask.*-1");
    EXPECT_DEATH(f.view->mask(-1), "mask.*-1");
}
#else
TEST(ImageView, MaskIndexOutOfRangeTouchesNoMemoryOfOthers)
{
    ImageFixture f;
    f.view->setMask(8, 1);
    f.view->setMask(-1, 1);
    f.view->mask(-1);
    for (int index = 0; index < 4; ++index)
        EXPECT_EQ(f.view->mask(index), kAndAll);
}
#endif

// Memory

TEST(ImageView, AStreamOfFramesKeepsNoMemory)
{
    ImageFixture f;
    Words first(160 * 120, 1);
    Words second(160 * 120, 2);
    const auto show = [&](int frames) {
        for (int frame = 0; frame < frames; ++frame) {
            f.draw(frame % 2 ? first : second, 160, 1, 2);
            f.render();
            f.view->setDirty(false);
        }
    };
    show(50);
    const std::size_t before = residentBytes();
    show(500);
    const std::size_t after = residentBytes();
    EXPECT_LT(after, before + 2 * 1024 * 1024);
}

} // namespace
