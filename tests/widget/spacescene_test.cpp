// SPDX-License-Identifier: BSD-3-Clause
// What both 3-D views have in common, seen through either of them.
#include <support/coordinatesrecorder.h>
#include <support/hostfixture.h>
#include <support/messagewatch.h>
#include <support/rendercount.h>
#include <support/spaceprobe.h>
#include <visualization/pointcloudview.h>
#include <visualization/spacescene.h>
#include <visualization/surfaceview.h>

#include <QVTKInteractor.h>
#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkColorSeries.h>
#include <vtkCubeAxesActor.h>
#include <vtkLookupTable.h>
#include <vtkMapper.h>
#include <vtkPropCollection.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>
#include <vtkTextProperty.h>

#include <cfloat>
#include <gtest/gtest.h>
#include <limits>

using ovl::ColorScheme;
using ovl::PointCloudView;
using ovl::Range;
using ovl::SurfaceView;
using ovl::test::CoordinatesRecorder;
using ovl::test::MessageWatch;
using ovl::test::RenderCount;
using ovl::test::SpaceProbe;
using ovl::test::Triple;
using ovl::test::ViewFixture;

namespace {

template <class View> class SpaceScene : public ViewFixture<View>, public testing::Test {
public:
    /** Three by three samples, x from 0 to 2, y from 10 to 14, z 5 in the middle, else 1. */
    void fill()
    {
        this->view->setScene(3, 3);
        for (int index = 0; index < 9; ++index)
            this->view->setPoint(
                index, index % 3, 10.0 + 2.0 * (index / 3), index == 4 ? 5.0 : 1.0, index);
    }

    void setRanges()
    {
        this->view->range(0).set(0.0, 2.0);
        this->view->range(1).set(10.0, 14.0);
        this->view->range(2).set(1.0, 5.0);
        this->view->range(3).set(0.0, 8.0);
    }

    void show()
    {
        fill();
        setRanges();
        this->view->drawScene();
        this->view->resetCamera();
        this->render();
    }

    void showFarFromZero()
    {
        fill();
        setRanges();
        this->view->range(1).set(5e9, 5e9 + 10.0);
        this->view->drawScene();
        this->view->resetCamera();
        this->render();
    }

    /** The framework's complaint about an inverted range of colours. */
    static void expectBadTableRange() { MessageWatch::expect("Bad table range"); }

    SpaceProbe probe {*this};
};

Triple directionOf(vtkCamera* camera)
{
    Triple direction;
    camera->GetDirectionOfProjection(direction.data());
    return direction;
}

using Views = testing::Types<PointCloudView, SurfaceView>;
TYPED_TEST_SUITE(SpaceScene, Views);

// ---- Construction ------------------------------------------------------------------------------

TYPED_TEST(SpaceScene, StartsCleanAndKeepsTheFlagThatItIsGiven)
{
    EXPECT_FALSE(this->view->isDirty());
    this->view->setDirty(true);
    EXPECT_TRUE(this->view->isDirty());
    this->view->setDirty(false);
    EXPECT_FALSE(this->view->isDirty());
}

TYPED_TEST(SpaceScene, IsAViewThatCannotBeCopied)
{
    EXPECT_TRUE((std::is_base_of_v<ovl::View, TypeParam>));
    EXPECT_FALSE(std::is_copy_constructible_v<TypeParam>);
    EXPECT_FALSE(std::is_copy_assignable_v<TypeParam>);
    EXPECT_EQ(sizeof(TypeParam), 2 * sizeof(void*)); // the virtual table and one pointer
}

TYPED_TEST(SpaceScene, LaysOneRendererWithAxesAndThenDataOnTheWindow)
{
    EXPECT_EQ(this->window()->GetRenderers()->GetNumberOfItems(), 1);
    EXPECT_EQ(this->probe.renderer()->GetViewProps()->GetNumberOfItems(), 2);
    ASSERT_NE(this->probe.axes(), nullptr);
    ASSERT_NE(this->probe.actor(), nullptr);
    EXPECT_EQ(this->probe.axes()->GetVisibility(), 0);
    EXPECT_EQ(this->probe.actor()->GetVisibility(), 1);
}

TYPED_TEST(SpaceScene, PutsItsInteractorAndStyleOnTheWindow)
{
    vtkRenderWindowInteractor* interactor = this->window()->GetInteractor();
    EXPECT_TRUE(interactor->IsA("QVTKInteractor"));
    EXPECT_TRUE(interactor->GetInteractorStyle()->IsA("VolumeInteractorStyle"));
}

TYPED_TEST(SpaceScene, DrawsGreyLinesAndWhiteTextOnTheAxes)
{
    vtkCubeAxesActor* axes = this->probe.axes();
    EXPECT_TRUE(axes->GetDrawXGridlines());
    EXPECT_TRUE(axes->GetDrawYGridlines());
    EXPECT_TRUE(axes->GetDrawZGridlines());
    EXPECT_EQ(axes->GetGridLineLocation(), 2);
    EXPECT_EQ(axes->GetCamera(), this->probe.camera());
    const auto colorOf = [](auto* property) {
        Triple color;
        property->GetColor(color.data());
        return color;
    };
    EXPECT_EQ(colorOf(axes->GetXAxesGridlinesProperty()), (Triple {0.25, 0.25, 0.25}));
    EXPECT_EQ(colorOf(axes->GetYAxesGridlinesProperty()), (Triple {0.25, 0.25, 0.25}));
    EXPECT_EQ(colorOf(axes->GetZAxesGridlinesProperty()), (Triple {0.25, 0.25, 0.25}));
    EXPECT_EQ(colorOf(axes->GetXAxesLinesProperty()), (Triple {0.5, 0.5, 0.5}));
    EXPECT_EQ(colorOf(axes->GetYAxesLinesProperty()), (Triple {0.5, 0.5, 0.5}));
    EXPECT_EQ(colorOf(axes->GetZAxesLinesProperty()), (Triple {0.5, 0.5, 0.5}));
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(colorOf(axes->GetLabelTextProperty(axis)), (Triple {1.0, 1.0, 1.0}));
        EXPECT_EQ(colorOf(axes->GetTitleTextProperty(axis)), (Triple {1.0, 1.0, 1.0}));
    }
}

TYPED_TEST(SpaceScene, StartsWithItsDefaults)
{
    EXPECT_TRUE(this->view->autoRange());
    EXPECT_EQ(this->view->absoluteMaximum(), 65535.0);
    EXPECT_EQ(this->view->colorScheme(), ColorScheme::None);
    EXPECT_EQ(this->view->xResolution(), 0);
    EXPECT_EQ(this->view->yResolution(), 0);
    for (const double one : {this->view->xScale(), this->view->yScale(), this->view->zScale(),
             this->view->xScaleCorrection(), this->view->yScaleCorrection(),
             this->view->zScaleCorrection(), this->view->xPositionCorrection(),
             this->view->yPositionCorrection(), this->view->zPositionCorrection()})
        EXPECT_EQ(one, 1.0);
    for (int index = 0; index < 4; ++index)
        EXPECT_TRUE(this->view->range(index).isEmpty());
    EXPECT_TRUE(this->view->xAxisRange().isEmpty());
    EXPECT_TRUE(this->view->yAxisRange().isEmpty());
    EXPECT_TRUE(this->view->zAxisRange().isEmpty());
    EXPECT_EQ(this->probe.scale(), (Triple {1.0, 1.0, 1.0}));
    EXPECT_EQ(this->probe.mapper()->GetColorMode(), VTK_COLOR_MODE_DEFAULT);
}

// ---- Settings ----------------------------------------------------------------------------------

TYPED_TEST(SpaceScene, KeepsEveryNumberUnderItsOwnName)
{
    TypeParam& numbers = *this->view;
    numbers.setAbsoluteMaximum(255.0);
    numbers.setXScale(2.0);
    numbers.setYScale(3.0);
    numbers.setZScale(4.0);
    numbers.setXScaleCorrection(5.0);
    numbers.setYScaleCorrection(6.0);
    numbers.setZScaleCorrection(7.0);
    numbers.setXPositionCorrection(8.0);
    numbers.setYPositionCorrection(9.0);
    numbers.setZPositionCorrection(10.0);
    EXPECT_EQ(numbers.absoluteMaximum(), 255.0);
    EXPECT_EQ(numbers.xScale(), 2.0);
    EXPECT_EQ(numbers.yScale(), 3.0);
    EXPECT_EQ(numbers.zScale(), 4.0);
    EXPECT_EQ(numbers.xScaleCorrection(), 5.0);
    EXPECT_EQ(numbers.yScaleCorrection(), 6.0);
    EXPECT_EQ(numbers.zScaleCorrection(), 7.0);
    EXPECT_EQ(numbers.xPositionCorrection(), 8.0);
    EXPECT_EQ(numbers.yPositionCorrection(), 9.0);
    EXPECT_EQ(numbers.zPositionCorrection(), 10.0);
}

TYPED_TEST(SpaceScene, KeepsEveryAxisRangeAsACopy)
{
    Range x(1.0, 2.0);
    this->view->setXAxisRange(x);
    this->view->setYAxisRange(Range(3.0, 4.0));
    this->view->setZAxisRange(Range(5.0, 6.0));
    x.set(0.0, 100.0);
    EXPECT_EQ(this->view->xAxisRange().min(), 1.0);
    EXPECT_EQ(this->view->xAxisRange().max(), 2.0);
    EXPECT_EQ(this->view->yAxisRange().min(), 3.0);
    EXPECT_EQ(this->view->yAxisRange().max(), 4.0);
    EXPECT_EQ(this->view->zAxisRange().min(), 5.0);
    EXPECT_EQ(this->view->zAxisRange().max(), 6.0);
}

TYPED_TEST(SpaceScene, HandsOutTheSameRangeEveryTime)
{
    this->view->range(2).accumulate(7.0);
    EXPECT_EQ(&this->view->range(2), &this->view->range(2));
    EXPECT_EQ(this->view->range(2).max(), 7.0);
    EXPECT_TRUE(this->view->range(1).isEmpty());
}

TYPED_TEST(SpaceScene, ARangeOutsideOfTheFourIsTheCallersFault)
{
#ifndef NDEBUG
    EXPECT_DEATH(this->view->range(4), "View::range: .* 4");
    EXPECT_DEATH(this->view->range(-1), "View::range: .* -1");
#else
    this->view->range(4).set(1.0, 2.0);
    this->view->range(-1).set(1.0, 2.0);
    for (int index = 0; index < 4; ++index)
        EXPECT_TRUE(this->view->range(index).isEmpty());
#endif
}

TYPED_TEST(SpaceScene, OnlyTheOperationsThatSaySoMarkTheViewDirty)
{
    using View = TypeParam;
    struct Row {
        const char* name;
        std::function<void(View&)> call;
        bool dirty;
    };
    const Row rows[] = {
        {"setScene", [](View& v) { v.setScene(3, 3); }, false},
        {"setPoint", [](View& v) { v.setPoint(0, 1.0, 2.0, 3.0, 4.0); }, false},
        {"setNanPoint", [](View& v) { v.setNanPoint(1); }, false},
        {"drawScene", [](View& v) { v.drawScene(); }, true},
        {"resetCamera", [](View& v) { v.resetCamera(); }, true},
        {"isDirty", [](View& v) { static_cast<void>(v.isDirty()); }, false},
        {"setDirty", [](View& v) { v.setDirty(false); }, false},
        {"range", [](View& v) { v.range(0).set(0.0, 3.0); }, false},
        {"autoRange", [](View& v) { v.autoRange(); }, false},
        {"setAutoRange", [](View& v) { v.setAutoRange(true); }, false},
        {"absoluteMaximum", [](View& v) { v.absoluteMaximum(); }, false},
        {"setAbsoluteMaximum", [](View& v) { v.setAbsoluteMaximum(2.0); }, false},
        {"colorScheme", [](View& v) { v.colorScheme(); }, false},
        {"setColorScheme", [](View& v) { v.setColorScheme(ColorScheme::WARM); }, false},
        {"xResolution", [](View& v) { v.xResolution(); }, false},
        {"yResolution", [](View& v) { v.yResolution(); }, false},
        {"xScale", [](View& v) { v.xScale(); }, false},
        {"yScale", [](View& v) { v.yScale(); }, false},
        {"zScale", [](View& v) { v.zScale(); }, false},
        {"setXScale", [](View& v) { v.setXScale(1.0); }, true},
        {"setYScale", [](View& v) { v.setYScale(1.0); }, true},
        {"setZScale", [](View& v) { v.setZScale(1.0); }, true},
        {"xScaleCorrection", [](View& v) { v.xScaleCorrection(); }, false},
        {"yScaleCorrection", [](View& v) { v.yScaleCorrection(); }, false},
        {"zScaleCorrection", [](View& v) { v.zScaleCorrection(); }, false},
        {"setXScaleCorrection", [](View& v) { v.setXScaleCorrection(2.0); }, false},
        {"setYScaleCorrection", [](View& v) { v.setYScaleCorrection(2.0); }, false},
        {"setZScaleCorrection", [](View& v) { v.setZScaleCorrection(2.0); }, false},
        {"xPositionCorrection", [](View& v) { v.xPositionCorrection(); }, false},
        {"yPositionCorrection", [](View& v) { v.yPositionCorrection(); }, false},
        {"zPositionCorrection", [](View& v) { v.zPositionCorrection(); }, false},
        {"setXPositionCorrection", [](View& v) { v.setXPositionCorrection(2.0); }, false},
        {"setYPositionCorrection", [](View& v) { v.setYPositionCorrection(2.0); }, false},
        {"setZPositionCorrection", [](View& v) { v.setZPositionCorrection(2.0); }, false},
        {"xAxisRange", [](View& v) { v.xAxisRange(); }, false},
        {"yAxisRange", [](View& v) { v.yAxisRange(); }, false},
        {"zAxisRange", [](View& v) { v.zAxisRange(); }, false},
        {"setXAxisRange", [](View& v) { v.setXAxisRange(Range(0.0, 1.0)); }, false},
        {"setYAxisRange", [](View& v) { v.setYAxisRange(Range(0.0, 1.0)); }, false},
        {"setZAxisRange", [](View& v) { v.setZAxisRange(Range(0.0, 1.0)); }, false},
    };
    this->setRanges();
    this->render();
    const RenderCount renders(this->window());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        this->view->setDirty(false);
        row.call(*this->view);
        EXPECT_EQ(this->view->isDirty(), row.dirty);
        EXPECT_EQ(renders.count(), 0) << "no view renders by itself";
    }
}

// ---- Axes --------------------------------------------------------------------------------------

/** What the axes were last told, in the order of the world's axes. */
struct AxesRecord {
    std::array<double, 6> bounds;
    std::array<double, 2> x;
    std::array<double, 2> y;
    std::array<double, 2> z;

    explicit AxesRecord(vtkCubeAxesActor* axes)
    {
        axes->GetBounds(bounds.data());
        axes->GetXAxisRange(x.data());
        axes->GetYAxisRange(y.data());
        axes->GetZAxisRange(z.data());
    }
};

using Pair = std::array<double, 2>;
using Bounds = std::array<double, 6>;

TYPED_TEST(SpaceScene, DrawSceneShowsTheAxesUnderTheHostsTitles)
{
    this->fill();
    this->setRanges();
    EXPECT_EQ(this->probe.axes()->GetVisibility(), 0);
    this->view->drawScene();
    EXPECT_EQ(this->probe.axes()->GetVisibility(), 1);
    EXPECT_STREQ(this->probe.axes()->GetXTitle(), "Y-Axis");
    EXPECT_STREQ(this->probe.axes()->GetYTitle(), "X-Axis");
    EXPECT_STREQ(this->probe.axes()->GetZTitle(), "Z-Axis");
}

TYPED_TEST(SpaceScene, EachScaleShowsTheAxesToo)
{
    using Setter = void (TypeParam::*)(double);
    for (const Setter setScale :
        {&TypeParam::setXScale, &TypeParam::setYScale, &TypeParam::setZScale}) {
        this->setRanges();
        this->probe.axes()->SetVisibility(0);
        ((*this->view).*setScale)(1.0);
        EXPECT_EQ(this->probe.axes()->GetVisibility(), 1);
    }
}

TYPED_TEST(SpaceScene, TheAxesTakeTheRangesOfTheDataByDefault)
{
    this->fill();
    this->setRanges();
    this->view->setXAxisRange(Range(-1.0, 1.0));
    this->view->drawScene();
    const AxesRecord axes(this->probe.axes());
    EXPECT_EQ(axes.x, (Pair {10.0, 14.0}));
    EXPECT_EQ(axes.y, (Pair {0.0, 2.0}));
    EXPECT_EQ(axes.z, (Pair {1.0, 5.0}));
    EXPECT_EQ(axes.bounds, (Bounds {10.0, 14.0, 0.0, 2.0, 1.0, 5.0}));
}

TYPED_TEST(SpaceScene, TheAxesTakeTheHostsAxisRangesWithoutAutoRange)
{
    this->fill();
    this->setRanges();
    this->view->setAutoRange(false);
    this->view->setXAxisRange(Range(-1.0, 1.0));
    this->view->setYAxisRange(Range(-2.0, 2.0));
    this->view->setZAxisRange(Range(-3.0, 3.0));
    this->view->drawScene();
    const AxesRecord axes(this->probe.axes());
    EXPECT_EQ(axes.x, (Pair {-2.0, 2.0}));
    EXPECT_EQ(axes.y, (Pair {-1.0, 1.0}));
    EXPECT_EQ(axes.z, (Pair {-3.0, 3.0}));
    EXPECT_EQ(axes.bounds, (Bounds {-2.0, 2.0, -1.0, 1.0, -3.0, 3.0}));
}

TYPED_TEST(SpaceScene, TheBoxIsScaledAndItsLabelsAreNot)
{
    this->fill();
    this->setRanges();
    this->view->setXScale(2.0);
    this->view->setYScale(3.0);
    this->view->setZScale(0.5);
    const AxesRecord axes(this->probe.axes());
    EXPECT_EQ(axes.x, (Pair {10.0, 14.0}));
    EXPECT_EQ(axes.y, (Pair {0.0, 2.0}));
    EXPECT_EQ(axes.z, (Pair {1.0, 5.0}));
    EXPECT_EQ(axes.bounds, (Bounds {30.0, 42.0, 0.0, 4.0, 0.5, 2.5}));
}

TYPED_TEST(SpaceScene, TheAxesReceiveTheEmptyRangeWithoutAutoRangeAndAxisRanges)
{
    this->fill();
    this->setRanges();
    this->view->setAutoRange(false);
    this->view->drawScene();
    const AxesRecord axes(this->probe.axes());
    EXPECT_EQ(axes.x, (Pair {DBL_MAX, -DBL_MAX}));
    EXPECT_EQ(axes.y, (Pair {DBL_MAX, -DBL_MAX}));
    EXPECT_EQ(axes.z, (Pair {DBL_MAX, -DBL_MAX}));
    EXPECT_EQ(axes.bounds, (Bounds {DBL_MAX, -DBL_MAX, DBL_MAX, -DBL_MAX, DBL_MAX, -DBL_MAX}));
}

TYPED_TEST(SpaceScene, RangesNeverSetArePassedOnAsTheyAre)
{
    this->expectBadTableRange();
    this->fill();
    this->view->drawScene();
    const AxesRecord axes(this->probe.axes());
    EXPECT_EQ(axes.x, (Pair {DBL_MAX, -DBL_MAX}));
    double range[2];
    this->probe.mapper()->GetScalarRange(range);
    EXPECT_EQ(range[0], DBL_MAX);
    EXPECT_EQ(range[1], -DBL_MAX);
    this->probe.renderer()->ResetCamera(this->probe.actor()->GetBounds());
    this->render();
}

// The framework's own box would lay lines in number as the scale: memory was full before the end.
TYPED_TEST(SpaceScene, ARangeOfOneValueUnderALargeScaleIsPainted)
{
    this->fill();
    this->setRanges();
    this->view->range(0).set(41.0, 41.0);
    this->view->setXScale(1e5);
    this->view->drawScene();
    vtkCamera* camera = this->probe.camera();
    camera->SetViewUp(0.0, 0.0, 1.0); // the scale has moved it along its own upward direction
    camera->SetPosition(0.0, 41e5, 30.0);
    camera->SetFocalPoint(12.0, 41e5, 3.0);
    this->probe.renderer()->ResetCameraClippingRange();
    this->render();
    const AxesRecord axes(this->probe.axes());
    EXPECT_EQ(axes.y, (Pair {41.0, 41.0}));
    EXPECT_EQ(axes.bounds, (Bounds {10.0, 14.0, 41e5, 41e5, 1.0, 5.0}));
}

// As of the coordinates of a site in millimetres: the framework counts steps in 32 bits.
TYPED_TEST(SpaceScene, ANarrowRangeFarFromZeroIsPainted)
{
    this->showFarFromZero();
    const AxesRecord axes(this->probe.axes());
    EXPECT_EQ(axes.x, (Pair {5e9, 5e9 + 10.0}));
    EXPECT_EQ(axes.bounds, (Bounds {5e9, 5e9 + 10.0, 0.0, 2.0, 1.0, 5.0}));
}

TYPED_TEST(SpaceScene, ChangedRangesReachTheAxesOnlyAtTheNextDraw)
{
    this->show();
    this->view->range(0).set(-50.0, 50.0);
    this->view->setAutoRange(false);
    this->view->setYAxisRange(Range(7.0, 9.0));
    EXPECT_EQ(AxesRecord(this->probe.axes()).y, (Pair {0.0, 2.0}));
    this->view->setAutoRange(true);
    this->view->drawScene();
    EXPECT_EQ(AxesRecord(this->probe.axes()).y, (Pair {-50.0, 50.0}));
}

// ---- Scale -------------------------------------------------------------------------------------

TYPED_TEST(SpaceScene, AScaleStretchesTheOtherLettersAxisOfTheWorld)
{
    this->setRanges();
    this->view->setXScale(2.0);
    EXPECT_EQ(this->probe.scale(), (Triple {1.0, 2.0, 1.0}));
    this->view->setYScale(3.0);
    EXPECT_EQ(this->probe.scale(), (Triple {3.0, 2.0, 1.0}));
    this->view->setZScale(4.0);
    EXPECT_EQ(this->probe.scale(), (Triple {3.0, 2.0, 4.0}));
    this->fill();
    this->view->drawScene();
    EXPECT_EQ(this->probe.scale(), (Triple {3.0, 2.0, 4.0}));
}

TYPED_TEST(SpaceScene, AScaleCarriesTheCameraAlongWithTheDatasMiddle)
{
    this->show(); // the middle of the data: 12, 1, 3
    this->probe.camera()->SetPosition(100.0, 200.0, 300.0);
    this->probe.camera()->SetFocalPoint(1.0, 2.0, 3.5);
    this->view->setXScale(3.0);
    EXPECT_EQ(this->probe.cameraPosition(), (Triple {100.0, 202.0, 300.0}));
    EXPECT_EQ(this->probe.focalPoint(), (Triple {1.0, 3.0, 3.5}));
    this->view->setYScale(2.0);
    EXPECT_EQ(this->probe.cameraPosition(), (Triple {112.0, 202.0, 300.0}));
    EXPECT_EQ(this->probe.focalPoint(), (Triple {24.0, 3.0, 3.5}));
    this->view->setZScale(0.5);
    EXPECT_EQ(this->probe.cameraPosition(), (Triple {112.0, 202.0, 298.5}));
    EXPECT_EQ(this->probe.focalPoint(), (Triple {24.0, 3.0, 1.5}));
}

TYPED_TEST(SpaceScene, AScaleResetsTheClippingRange)
{
    this->show();
    this->probe.camera()->SetClippingRange(1.0, 2.0);
    this->view->setZScale(2.0);
    EXPECT_NE(this->probe.camera()->GetClippingRange()[1], 2.0);
}

TYPED_TEST(SpaceScene, AScaleMarksCameraAndActorModified)
{
    this->show();
    const vtkMTimeType camera = this->probe.camera()->GetMTime();
    const vtkMTimeType actor = this->probe.actor()->GetMTime();
    this->view->setXScale(1.0);
    EXPECT_GT(this->probe.camera()->GetMTime(), camera);
    EXPECT_GT(this->probe.actor()->GetMTime(), actor);
}

TYPED_TEST(SpaceScene, ACorrectionLeavesCameraAndAxesWhereTheyAre)
{
    this->show();
    const Triple position = this->probe.cameraPosition();
    const Triple focus = this->probe.focalPoint();
    const Bounds bounds = AxesRecord(this->probe.axes()).bounds;
    this->view->setXScaleCorrection(2.0);
    this->view->setYScaleCorrection(2.0);
    this->view->setZScaleCorrection(2.0);
    EXPECT_EQ(this->probe.scale(), (Triple {2.0, 2.0, 2.0}));
    EXPECT_EQ(this->probe.cameraPosition(), position);
    EXPECT_EQ(this->probe.focalPoint(), focus);
    EXPECT_EQ(AxesRecord(this->probe.axes()).bounds, bounds);
    this->view->drawScene();
    EXPECT_EQ(AxesRecord(this->probe.axes()).bounds, (Bounds {20.0, 28.0, 0.0, 4.0, 2.0, 10.0}));
}

// ---- Camera ------------------------------------------------------------------------------------

TYPED_TEST(SpaceScene, ResetCameraLooksAtTheMiddleWithZUpwards)
{
    this->show();
    this->view->setXScale(2.0);
    this->view->setYScale(3.0);
    this->view->setZScale(5.0);
    this->view->resetCamera();
    EXPECT_EQ(this->probe.focalPoint(), (Triple {36.0, 2.0, 15.0}));
    EXPECT_EQ(this->probe.viewUp(), (Triple {0.0, 0.0, 1.0}));
}

TYPED_TEST(SpaceScene, PositionCorrectionsWaitForResetCamera)
{
    this->show();
    const Triple position = this->probe.cameraPosition();
    this->view->setXPositionCorrection(2.0);
    this->view->setYPositionCorrection(2.0);
    this->view->setZPositionCorrection(2.0);
    this->view->drawScene();
    EXPECT_EQ(this->probe.cameraPosition(), position);
    this->view->resetCamera();
    EXPECT_NE(this->probe.cameraPosition(), position);
}

// ---- Colours -----------------------------------------------------------------------------------

TYPED_TEST(SpaceScene, TheMapperColoursOverTheValuesRangeAsOfTheLastDraw)
{
    this->show();
    double range[2];
    this->probe.mapper()->GetScalarRange(range);
    EXPECT_EQ(range[0], 0.0);
    EXPECT_EQ(range[1], 8.0);
    this->view->range(3).set(2.0, 3.0);
    this->probe.mapper()->GetScalarRange(range);
    EXPECT_EQ(range[1], 8.0);
    this->view->drawScene();
    this->probe.mapper()->GetScalarRange(range);
    EXPECT_EQ(range[0], 2.0);
    EXPECT_EQ(range[1], 3.0);
}

TYPED_TEST(SpaceScene, EverySchemeGivesTheSeriesOwnOrdinalTable)
{
    for (int scheme = 0; scheme < vtkColorSeries::CUSTOM; ++scheme) {
        SCOPED_TRACE(scheme);
        this->view->setColorScheme(static_cast<ColorScheme>(scheme));
        EXPECT_EQ(static_cast<int>(this->view->colorScheme()), scheme);
        const auto series = vtkSmartPointer<vtkColorSeries>::New();
        series->SetColorScheme(scheme);
        auto* table = vtkLookupTable::SafeDownCast(this->probe.mapper()->GetLookupTable());
        ASSERT_NE(table, nullptr);
        ASSERT_EQ(table->GetNumberOfTableValues(), series->GetNumberOfColors());
        EXPECT_FALSE(table->GetIndexedLookup());
        EXPECT_EQ(table->GetReferenceCount(), 1); // the mapper's: nothing leaks
        for (int index = 0; index < series->GetNumberOfColors(); ++index) {
            const vtkColor3ub color = series->GetColor(index);
            const unsigned char* shown = table->GetPointer(index);
            EXPECT_EQ(shown[0], color.GetRed());
            EXPECT_EQ(shown[1], color.GetGreen());
            EXPECT_EQ(shown[2], color.GetBlue());
        }
    }
}

TYPED_TEST(SpaceScene, ThePresentSchemeAgainDoesNothing)
{
    const vtkMTimeType untouched = this->probe.mapper()->GetMTime();
    this->view->setColorScheme(ColorScheme::None);
    EXPECT_EQ(this->probe.mapper()->GetMTime(), untouched);
    this->view->setColorScheme(ColorScheme::COOL);
    vtkScalarsToColors* table = this->probe.mapper()->GetLookupTable();
    this->view->setColorScheme(ColorScheme::COOL);
    EXPECT_EQ(this->probe.mapper()->GetLookupTable(), table);
}

TYPED_TEST(SpaceScene, NoSchemeLeavesTheMapperToItsOwnTable)
{
    const int ownColors = 256;
    this->view->setColorScheme(ColorScheme::COOL);
    this->view->setColorScheme(ColorScheme::None);
    auto* table = vtkLookupTable::SafeDownCast(this->probe.mapper()->GetLookupTable());
    EXPECT_EQ(table->GetNumberOfTableValues(), ownColors);
}

TYPED_TEST(SpaceScene, ASeriesThatDoesNotExistIsReportedAndTheFirstOneUsed)
{
    MessageWatch::expect("Scheme 62 out of range");
    this->view->setColorScheme(ColorScheme::CUSTOM);
    EXPECT_EQ(this->view->colorScheme(), ColorScheme::CUSTOM);
    auto* table = vtkLookupTable::SafeDownCast(this->probe.mapper()->GetLookupTable());
    EXPECT_EQ(table->GetNumberOfTableValues(), 7);
}

// ---- Mouse -------------------------------------------------------------------------------------

TYPED_TEST(SpaceScene, ADragAndTheWheelMarkTheViewDirtyAndAMoveDoesNot)
{
    this->show();
    this->view->setDirty(false);
    this->move({100, 100});
    EXPECT_FALSE(this->view->isDirty());
    this->press({100, 100});
    EXPECT_FALSE(this->view->isDirty());
    this->move({110, 100});
    EXPECT_TRUE(this->view->isDirty());
    this->release({110, 100});
    this->view->setDirty(false);
    this->wheel({110, 100}, 1);
    EXPECT_TRUE(this->view->isDirty());
}

TYPED_TEST(SpaceScene, TheWheelStopsWhereTheCameraWouldLoseItsDirection)
{
    this->show();
    const Triple before = directionOf(this->probe.camera());
    for (int i = 0; i < 400; ++i)
        this->wheel({150, 100}, 1);
    for (int i = 0; i < 200; ++i)
        this->wheel({150, 100}, -1);
    const Triple after = directionOf(this->probe.camera());
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_NEAR(after[i], before[i], 1e-3);
    EXPECT_GT(this->probe.camera()->GetDistance(), 1.0);
    this->render();
}

TYPED_TEST(SpaceScene, TheWheelReachesDetailsOfASceneThatIsFarFromZero)
{
    this->showFarFromZero();
    for (int i = 0; i < 60; ++i)
        this->wheel({150, 100}, 1);
    EXPECT_LT(this->probe.camera()->GetDistance(), 0.1);
}

TYPED_TEST(SpaceScene, AMoveOverAStillSceneRendersNothing)
{
    this->show();
    this->move({100, 100});
    const RenderCount renders(this->window());
    CoordinatesRecorder recorder;
    for (int x = 0; x < 300; x += 10)
        this->move({static_cast<double>(x), 100});
    EXPECT_EQ(renders.count(), 0);
    EXPECT_EQ(recorder.cleared + static_cast<int>(recorder.positions.size()), 30);
}

TYPED_TEST(SpaceScene, AMoveBesideTheDataClearsTheCoordinates)
{
    this->show();
    CoordinatesRecorder recorder;
    this->move({1, 1});
    EXPECT_EQ(recorder.cleared, 1);
    EXPECT_TRUE(recorder.positions.empty());
}

TYPED_TEST(SpaceScene, AMoveBeforeAnySceneClearsTheCoordinates)
{
    this->render();
    CoordinatesRecorder recorder;
    this->move({150, 100});
    EXPECT_EQ(recorder.cleared, 1);
}

// ---- Destruction -------------------------------------------------------------------------------

template <class View> void stirTheWidget(ViewFixture<View>& fixture)
{
    fixture.move({100, 100});
    fixture.drag({100, 100}, {120, 110}, Qt::LeftButton, 3);
    fixture.drag({100, 100}, {120, 110}, Qt::MiddleButton, 3);
    fixture.drag({100, 100}, {120, 110}, Qt::RightButton, 3);
    fixture.wheel({100, 100}, 2);
    fixture.render();
    fixture.move({101, 101});
}

TYPED_TEST(SpaceScene, DestructionTakesTheRendererOffTheWindow)
{
    this->show();
    this->view.reset();
    EXPECT_EQ(this->window()->GetRenderers()->GetNumberOfItems(), 0);
    EXPECT_NE(this->window()->GetInteractor(), nullptr);
}

TYPED_TEST(SpaceScene, DestructionEmptiesTheRendererAndMarksTheWindowModified)
{
    this->show();
    const vtkSmartPointer<vtkRenderer> renderer = this->probe.renderer();
    const vtkMTimeType before = this->window()->GetMTime();
    this->view.reset();
    EXPECT_EQ(renderer->GetViewProps()->GetNumberOfItems(), 0);
    EXPECT_GT(this->window()->GetMTime(), before);
}

TYPED_TEST(SpaceScene, TheMouseDoesNothingAfterDestruction)
{
    this->show();
    this->view.reset();
    CoordinatesRecorder recorder;
    stirTheWidget(*this);
    EXPECT_EQ(recorder.cleared, 0);
    EXPECT_TRUE(recorder.positions.empty());
}

TYPED_TEST(SpaceScene, TheMouseDoesNothingAfterDestructionInMidDrag)
{
    this->show();
    this->press({150, 100});
    this->move({155, 100});
    this->view.reset();
    CoordinatesRecorder recorder;
    this->move({160, 100});
    this->release({160, 100});
    stirTheWidget(*this);
    EXPECT_EQ(recorder.cleared, 0);
}

TYPED_TEST(SpaceScene, TheMouseDoesNothingAfterDestructionOfAViewThatWasNeverRendered)
{
    this->view.reset();
    CoordinatesRecorder recorder;
    stirTheWidget(*this);
    EXPECT_EQ(recorder.cleared, 0);
}

TYPED_TEST(SpaceScene, ASecondViewOnTheWidgetWorksAfterTheFirstsDestruction)
{
    this->show();
    this->view.reset();
    this->view = std::make_unique<TypeParam>(this->widget());
    this->show();
    CoordinatesRecorder recorder;
    this->move({1, 1});
    EXPECT_EQ(recorder.cleared, 1);
    EXPECT_EQ(this->window()->GetRenderers()->GetNumberOfItems(), 1);
}

TYPED_TEST(SpaceScene, ASecondViewMadeBeforeTheFirstsDestructionWorks)
{
    this->show();
    this->view.reset(new TypeParam(this->widget())); // the new one is made first
    this->show();
    CoordinatesRecorder recorder;
    stirTheWidget(*this);
    EXPECT_GT(recorder.cleared + static_cast<int>(recorder.positions.size()), 0);
    this->view.reset();
    recorder.clear();
    stirTheWidget(*this);
    EXPECT_EQ(recorder.cleared, 0);
}

// ---- Numbers -----------------------------------------------------------------------------------

TEST(ColorSchemeNumbers, AreTheFrameworksWithMinusOneForNone)
{
    EXPECT_EQ(static_cast<int>(ColorScheme::None), -1);
#define EXPECT_SAME(name)                                                                          \
    EXPECT_EQ(static_cast<int>(ColorScheme::name), static_cast<int>(vtkColorSeries::name))
    EXPECT_SAME(SPECTRUM);
    EXPECT_SAME(WARM);
    EXPECT_SAME(COOL);
    EXPECT_SAME(BLUES);
    EXPECT_SAME(WILD_FLOWER);
    EXPECT_SAME(CITRUS);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_11);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_10);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_9);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_8);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_7);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_6);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_5);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_4);
    EXPECT_SAME(BREWER_DIVERGING_PURPLE_ORANGE_3);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_11);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_10);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_9);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_8);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_7);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_6);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_5);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_4);
    EXPECT_SAME(BREWER_DIVERGING_SPECTRAL_3);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_11);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_10);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_9);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_8);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_7);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_6);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_5);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_4);
    EXPECT_SAME(BREWER_DIVERGING_BROWN_BLUE_GREEN_3);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_GREEN_9);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_GREEN_8);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_GREEN_7);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_GREEN_6);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_GREEN_5);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_GREEN_4);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_GREEN_3);
    EXPECT_SAME(BREWER_SEQUENTIAL_YELLOW_ORANGE_BROWN_9);
    EXPECT_SAME(BREWER_SEQUENTIAL_YELLOW_ORANGE_BROWN_8);
    EXPECT_SAME(BREWER_SEQUENTIAL_YELLOW_ORANGE_BROWN_7);
    EXPECT_SAME(BREWER_SEQUENTIAL_YELLOW_ORANGE_BROWN_6);
    EXPECT_SAME(BREWER_SEQUENTIAL_YELLOW_ORANGE_BROWN_5);
    EXPECT_SAME(BREWER_SEQUENTIAL_YELLOW_ORANGE_BROWN_4);
    EXPECT_SAME(BREWER_SEQUENTIAL_YELLOW_ORANGE_BROWN_3);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_PURPLE_9);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_PURPLE_8);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_PURPLE_7);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_PURPLE_6);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_PURPLE_5);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_PURPLE_4);
    EXPECT_SAME(BREWER_SEQUENTIAL_BLUE_PURPLE_3);
    EXPECT_SAME(BREWER_QUALITATIVE_ACCENT);
    EXPECT_SAME(BREWER_QUALITATIVE_DARK2);
    EXPECT_SAME(BREWER_QUALITATIVE_SET2);
    EXPECT_SAME(BREWER_QUALITATIVE_PASTEL2);
    EXPECT_SAME(BREWER_QUALITATIVE_PASTEL1);
    EXPECT_SAME(BREWER_QUALITATIVE_SET1);
    EXPECT_SAME(BREWER_QUALITATIVE_PAIRED);
    EXPECT_SAME(BREWER_QUALITATIVE_SET3);
    EXPECT_SAME(CUSTOM);
#undef EXPECT_SAME
}

TEST(GridPoints, AreTheProductOfTheSides)
{
    EXPECT_EQ(ovl::gridPoints(0, 0), 0);
    EXPECT_EQ(ovl::gridPoints(3, 4), 12);
    EXPECT_EQ(ovl::gridPoints(46340, 46340), 2147395600);
}

TEST(GridPoints, WrapAtThirtyTwoBitsAndAreNoneWhereThatIsNegative)
{
    EXPECT_EQ(ovl::gridPoints(-3, 4), 0);
    EXPECT_EQ(ovl::gridPoints(46341, 46341), 0);
    EXPECT_EQ(ovl::gridPoints(65536, 65536), 0);
    EXPECT_EQ(ovl::gridPoints(65537, 65537), 131073);
    EXPECT_EQ(ovl::gridPoints(-3, -4), 12);
    EXPECT_EQ(ovl::gridPoints(std::numeric_limits<int>::min(), -1), 0);
}

} // namespace
