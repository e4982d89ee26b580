// SPDX-License-Identifier: BSD-3-Clause
#include <support/coordinatesrecorder.h>
#include <support/imagefixture.h>
#include <visualization/imageinteractorstyle.h>

#include <vtkActor.h>
#include <vtkCellPicker.h>
#include <vtkPlaneSource.h>
#include <vtkPolyDataMapper.h>
#include <vtkRenderWindow.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkSmartPointer.h>

#include <cmath>
#include <gtest/gtest.h>

using ovl::ImageInteractorStyle;
using ovl::test::CoordinatesRecorder;
using ovl::test::ImageFixture;
using ovl::test::Vector3;

namespace {

using Pixels = std::vector<std::pair<int, int>>;

constexpr QPointF kMiddle(150, 100);

/** An 8 x 6 image, rendered once, so that the mouse is awake, and clean. */
class ImageMouse : public testing::Test {
protected:
    ImageMouse()
    {
        f.draw(pixels, 8, 1, 0);
        f.render();
        f.view->setDirty(false);
    }

    ImageInteractorStyle* style()
    {
        return static_cast<ImageInteractorStyle*>(
            f.window()->GetInteractor()->GetInteractorStyle());
    }

    double distance()
    {
        const Vector3 focal = f.focalPoint();
        const Vector3 position = f.cameraPosition();
        return std::hypot(focal[0] - position[0], focal[1] - position[1], focal[2] - position[2]);
    }

    bool takeDirty()
    {
        const bool dirty = f.view->isDirty();
        f.view->setDirty(false);
        return dirty;
    }

    void expectPixelsAfterReset()
    {
        f.view->resetCamera();
        f.render();
        recorder.clear();
        f.move(f.on(6, 1));
        EXPECT_EQ(recorder.pixels, (Pixels {{6, 1}}));
    }

    std::vector<unsigned char> pixels = std::vector<unsigned char>(8 * 6, 90);
    ImageFixture f;
    CoordinatesRecorder recorder;
};

// The class

TEST_F(ImageMouse, StyleHasItsName)
{
    EXPECT_STREQ(style()->GetClassName(), "ImageInteractorStyle");
    EXPECT_TRUE(style()->IsA("ImageInteractorStyle"));
    EXPECT_TRUE(style()->IsA("vtkInteractorStyleImage"));
    EXPECT_TRUE(style()->IsA("vtkInteractorStyleTrackballCamera"));
    EXPECT_FALSE(style()->IsA("vtkInteractorStyleUser"));
}

// Pixel under the mouse

TEST_F(ImageMouse, EveryPixelIsTold)
{
    for (int row = 0; row < 6; ++row)
        for (int column = 0; column < 8; ++column) {
            recorder.clear();
            f.move(f.on(column, row));
            EXPECT_EQ(recorder.pixels, (Pixels {{column, row}}));
            EXPECT_EQ(recorder.cleared, 0);
        }
    EXPECT_FALSE(f.view->isDirty()) << "a move without a button leaves the view clean";
}

TEST_F(ImageMouse, PixelStaysRightAfterPanDollyAndResize)
{
    f.drag(kMiddle, {170, 90});
    f.render();
    f.wheel(kMiddle, 1);
    f.render();
    f.resize({260, 240});
    f.render();
    recorder.clear();
    f.move(f.at(3, 4));
    f.move(f.at(6, 1));
    EXPECT_EQ(recorder.pixels, (Pixels {{3, 4}, {6, 1}}));
}

TEST_F(ImageMouse, PixelStaysRightAfterAChangeOfSizeAndARepeatedReset)
{
    f.draw(pixels, 4, 1, 0);
    f.view->resetCamera();
    f.view->resetCamera();
    f.render();
    f.move(f.on(3, 11));
    EXPECT_EQ(recorder.pixels, (Pixels {{3, 11}}));
}

TEST_F(ImageMouse, OffTheImageEveryMoveClears)
{
    f.move({1, 1});
    f.move({2, 2});
    f.move({3, 3});
    EXPECT_EQ(recorder.cleared, 3);
    EXPECT_TRUE(recorder.pixels.empty());
    f.move(kMiddle);
    EXPECT_EQ(recorder.cleared, 3);
    EXPECT_EQ(recorder.pixels.size(), 1u);
}

TEST_F(ImageMouse, BackgroundWhilePanningClearsToo)
{
    f.press({5, 5});
    f.move({7, 5});
    EXPECT_EQ(recorder.cleared, 1);
    EXPECT_TRUE(takeDirty());
}

TEST_F(ImageMouse, WithoutAPickerMovesClearAndNotifyNobody)
{
    style()->setPicker(nullptr);
    f.press(kMiddle);
    f.move({155, 100});
    EXPECT_EQ(recorder.cleared, 1);
    EXPECT_TRUE(recorder.pixels.empty());
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ImageMouse, WithoutAnActorMovesClearAndNotifyNobody)
{
    style()->setPickedActor(nullptr);
    f.press(kMiddle);
    f.move({155, 100});
    EXPECT_EQ(recorder.cleared, 1);
    EXPECT_TRUE(recorder.pixels.empty());
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ImageMouse, PickerLooksAtTheImageAloneWithHalfATolerance)
{
    // Half a pixel beyond the outermost centres the image ends; the tolerance does not widen it.
    f.move(f.at(-0.45, 2));
    EXPECT_TRUE(recorder.pixels.empty());
    f.move(f.at(0.2, 2));
    EXPECT_EQ(recorder.pixels, (Pixels {{0, 2}}));
}

TEST_F(ImageMouse, WhatStandsInFrontOfTheImageIsNotPicked)
{
    const auto quad = vtkSmartPointer<vtkPlaneSource>::New();
    const auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
    mapper->SetInputConnection(quad->GetOutputPort());
    const auto actor = vtkSmartPointer<vtkActor>::New();
    actor->SetMapper(mapper);
    actor->SetScale(100.0);
    const Vector3 image = f.actorPosition();
    const QPointF place = f.at(3, 4);
    actor->SetPosition(image[0], image[1], -1.0); // the camera stands at negative z
    f.renderer()->AddActor(actor);
    f.renderer()->ResetCameraClippingRange();
    f.move(place);
    EXPECT_EQ(recorder.pixels, (Pixels {{3, 4}}));
}

// Buttons

TEST_F(ImageMouse, LeftDragPansAndMarksDirty)
{
    const QPointF before = f.at(2, 2);
    f.press(kMiddle);
    EXPECT_FALSE(f.view->isDirty());
    f.move({160, 107});
    EXPECT_TRUE(takeDirty());
    EXPECT_NEAR(f.at(2, 2).x(), before.x() + 10, 0.01);
    EXPECT_NEAR(f.at(2, 2).y(), before.y() + 7, 0.01);
    f.release({160, 107});
    const Vector3 camera = f.cameraPosition();
    f.move({180, 120});
    EXPECT_EQ(f.cameraPosition(), camera) << "the release ends the gesture";
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ImageMouse, TheSameMoveWithoutAPressPansNothing)
{
    const Vector3 camera = f.cameraPosition();
    f.move(kMiddle);
    f.move({160, 107});
    EXPECT_EQ(f.cameraPosition(), camera);
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ImageMouse, MiddleDragPansLikeTheLeft)
{
    f.drag(kMiddle, {160, 107}, Qt::LeftButton);
    const Vector3 left = f.cameraPosition();
    f.view->resetCamera();
    f.view->resetCamera(); // framed as at first, but half a pixel on
    const QPointF before = f.at(2, 2);
    takeDirty();
    f.drag(kMiddle, {160, 107}, Qt::MiddleButton);
    EXPECT_TRUE(takeDirty());
    EXPECT_NEAR(f.at(2, 2).x(), before.x() + 10, 0.01);
    EXPECT_NEAR(f.at(2, 2).y(), before.y() + 7, 0.01);
    EXPECT_NE(left, f.cameraPosition());
}

TEST_F(ImageMouse, RightDragDollies)
{
    const double before = distance();
    const Vector3 focal = f.focalPoint();
    f.drag(kMiddle, {150, 60}, Qt::RightButton);
    EXPECT_TRUE(takeDirty());
    EXPECT_LT(distance(), before);
    EXPECT_EQ(f.focalPoint(), focal);
    f.drag(kMiddle, {150, 180}, Qt::RightButton);
    EXPECT_GT(distance(), before * 0.9);
}

TEST_F(ImageMouse, NoGestureTurnsTheImage)
{
    const Vector3 direction = f.directionOfProjection();
    const Vector3 up = f.viewUp();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton})
        for (const Qt::KeyboardModifier modifier :
            {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
            f.drag(kMiddle, {190, 60}, button, 3, modifier);
            for (std::size_t i = 0; i < 3; ++i) {
                EXPECT_NEAR(f.directionOfProjection()[i], direction[i], 1e-12);
                EXPECT_EQ(f.viewUp()[i], up[i]);
            }
        }
}

TEST_F(ImageMouse, ShiftDoesNotKeepTheRightDragFromDollying)
{
    const double before = distance();
    f.drag(kMiddle, {150, 60}, Qt::RightButton, 1, Qt::ShiftModifier);
    EXPECT_LT(distance(), before);
    EXPECT_TRUE(f.view->isDirty());
}

TEST_F(ImageMouse, TheShiftKeyIsOnlyHiddenFromThePress)
{
    f.press(kMiddle, Qt::RightButton, Qt::ShiftModifier);
    EXPECT_NE(f.window()->GetInteractor()->GetShiftKey(), 0);
}

TEST_F(ImageMouse, EachButtonHoldsFromItsPressToItsRelease)
{
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        f.press(kMiddle, button);
        EXPECT_FALSE(takeDirty());
        f.move({152, 100});
        EXPECT_TRUE(takeDirty());
        f.release({152, 100}, button);
        takeDirty();
        f.move({154, 100});
        EXPECT_FALSE(takeDirty());
    }
}

TEST_F(ImageMouse, ReleasingEitherOfTwoButtonsEndsTheHold)
{
    f.press(kMiddle, Qt::LeftButton);
    f.press(kMiddle, Qt::RightButton);
    f.move({152, 100});
    EXPECT_TRUE(takeDirty());
    f.release({152, 100}, Qt::RightButton);
    takeDirty();
    f.move({154, 100});
    EXPECT_FALSE(takeDirty()) << "the left button is still down, yet no count exists";
}

TEST_F(ImageMouse, DoubleClickBeginsADragLikeAnyPress)
{
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        f.doubleClick(kMiddle, button);
        takeDirty();
        const Vector3 camera = f.cameraPosition();
        f.move({160, 92});
        EXPECT_TRUE(takeDirty());
        EXPECT_NE(f.cameraPosition(), camera);
        f.release({160, 92}, button);
    }
}

TEST_F(ImageMouse, AReleaseWithoutAPressStands)
{
    const Vector3 camera = f.cameraPosition();
    f.release(kMiddle, Qt::LeftButton);
    f.release(kMiddle, Qt::RightButton);
    f.move({160, 100});
    EXPECT_EQ(f.cameraPosition(), camera);
    EXPECT_FALSE(f.view->isDirty());
}

// Wheel and keys

TEST_F(ImageMouse, WheelDolliesMarksDirtyAndTellsNoPixel)
{
    const double before = distance();
    f.wheel(kMiddle, 1);
    EXPECT_TRUE(takeDirty());
    const double nearer = distance();
    EXPECT_LT(nearer, before);
    f.wheel(kMiddle, -1);
    EXPECT_TRUE(takeDirty());
    EXPECT_GT(distance(), nearer);
    EXPECT_TRUE(recorder.pixels.empty());
    EXPECT_EQ(recorder.cleared, 0);
}

TEST_F(ImageMouse, TheWheelStopsWhereTheCameraWouldLoseItsDirection)
{
    const auto turn = [this](int times, int notches) {
        for (int i = 0; i < times; ++i)
            f.wheel(kMiddle, notches);
    };
    turn(330, 1);
    EXPECT_GT(distance(), 1e-12);
    EXPECT_LT(distance(), 1e-11); // of an image some pixels large
    f.render();
    EXPECT_TRUE(takeDirty());
    turn(1, 1);
    EXPECT_TRUE(takeDirty()) << "a notch counts, even if nothing moves any more";
    turn(215, -1);
    f.render();
    EXPECT_EQ(f.directionOfProjection(), (Vector3 {0.0, 0.0, 1.0}));
    EXPECT_GT(distance(), 1.0);
    expectPixelsAfterReset();
}

TEST_F(ImageMouse, TheWheelStopsFarAwayToo)
{
    for (int i = 0; i < 900; ++i)
        f.wheel(kMiddle, -1);
    EXPECT_LT(distance(), 1.1e30);
    expectPixelsAfterReset();
}

TEST_F(ImageMouse, NoKeyChangesAnything)
{
    f.wheel(kMiddle, 2);
    f.render();
    takeDirty();
    const Vector3 camera = f.cameraPosition();
    const QImage picture = f.picture();
    for (int key = Qt::Key_A; key <= Qt::Key_Z; ++key)
        f.key(key, QString(QChar('a' + (key - Qt::Key_A))));
    for (int key = Qt::Key_0; key <= Qt::Key_9; ++key)
        f.key(key, QString(QChar('0' + (key - Qt::Key_0))));
    f.render();
    EXPECT_EQ(f.cameraPosition(), camera);
    EXPECT_EQ(f.picture(), picture);
    EXPECT_FALSE(f.view->isDirty());
}

// Notifier

TEST_F(ImageMouse, WithoutANotifierOnlyTheDirtyMarkIsMissing)
{
    style()->setDirtyNotifier({});
    const Vector3 camera = f.cameraPosition();
    f.drag(kMiddle, {160, 107});
    EXPECT_NE(f.cameraPosition(), camera);
    const double before = distance();
    f.wheel(kMiddle, 1);
    EXPECT_LT(distance(), before);
    EXPECT_FALSE(f.view->isDirty());
    EXPECT_EQ(recorder.pixels.size(), 1u);
}

TEST_F(ImageMouse, NotifierIsReplacedAndCalledBeforeThePixelIsTold)
{
    std::vector<std::size_t> toldSoFar;
    style()->setDirtyNotifier([&](bool dirty) {
        EXPECT_TRUE(dirty);
        toldSoFar.push_back(recorder.pixels.size());
    });
    f.press(kMiddle);
    f.move({151, 100});
    EXPECT_EQ(toldSoFar, (std::vector<std::size_t> {0}));
    EXPECT_EQ(recorder.pixels.size(), 1u);
    EXPECT_FALSE(f.view->isDirty()) << "the view's own notifier is gone";
}

} // namespace
