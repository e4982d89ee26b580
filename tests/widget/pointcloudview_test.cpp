// SPDX-License-Identifier: BSD-3-Clause
#include <support/coordinatesrecorder.h>
#include <support/hostfixture.h>
#include <support/messagewatch.h>
#include <support/spaceprobe.h>
#include <visualization/pointcloudview.h>

#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkCubeAxesActor.h>
#include <vtkDataArray.h>
#include <vtkIdList.h>
#include <vtkMapper.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using ovl::PointCloudView;
using ovl::Range;
using ovl::test::CoordinatesRecorder;
using ovl::test::MessageWatch;
using ovl::test::SpaceProbe;
using ovl::test::Triple;
using ovl::test::ViewFixture;

namespace {

class PointCloud : public ViewFixture<PointCloudView>, public testing::Test {
public:
    void setRanges()
    {
        view->range(0).set(0.0, 2.0);
        view->range(1).set(10.0, 14.0);
        view->range(2).set(1.0, 5.0);
        view->range(3).set(0.0, 8.0);
    }

    /** The ids of the one cell, in their order. */
    std::vector<vtkIdType> listed()
    {
        const auto ids = vtkSmartPointer<vtkIdList>::New();
        vtkCellArray* cells = probe.data()->GetVerts();
        EXPECT_EQ(cells->GetNumberOfCells(), 1);
        cells->InitTraversal();
        cells->GetNextCell(ids);
        return {ids->begin(), ids->end()};
    }

    /** Three by three points, some twenty pixels apart and big enough to be hit. */
    void showSparsePoints()
    {
        view->setScene(3, 3);
        for (int index = 0; index < 9; ++index)
            view->setPoint(index, 4.0 * (index % 3), 20.0 + 4.0 * (index / 3), 2.0 * index, 1.0);
        view->range(0).set(0.0, 8.0);
        view->range(1).set(20.0, 28.0);
        view->range(2).set(0.0, 16.0);
        view->range(3).set(0.0, 2.0);
        view->setXPositionCorrection(0.3); // off the diagonal: no point hides another
        view->setYPositionCorrection(0.6);
        view->setZPositionCorrection(2.0);
        view->drawScene();
        view->resetCamera();
        probe.actor()->GetProperty()->SetPointSize(5.0);
        render();
    }

    SpaceProbe probe {*this};
};

// ---- Filling a scene ---------------------------------------------------------------------------

TEST_F(PointCloud, APointIsStoredWithTheHostsYFirstAndUnscaled)
{
    setRanges();
    view->setXScale(3.0);
    view->setZScaleCorrection(2.0);
    view->setScene(2, 1);
    view->setPoint(1, 3.0, 4.0, 10.0, 7.0);
    view->setPoint(0, -1.0, -2.0, -3.0, -4.0);
    view->drawScene();
    EXPECT_EQ(probe.point(1), (Triple {4.0, 3.0, 10.0}));
    EXPECT_EQ(probe.value(1), 7.0);
    EXPECT_EQ(probe.point(0), (Triple {-2.0, -1.0, -3.0}));
    EXPECT_EQ(probe.value(0), -4.0);
    EXPECT_EQ(probe.data()->GetPoints()->GetDataType(), VTK_DOUBLE);
}

TEST_F(PointCloud, TheCellListsThePointsInTheOrderOfTheCalls)
{
    setRanges();
    view->setScene(2, 2);
    view->setPoint(3, 0.0, 10.0, 1.0, 0.0);
    view->setNanPoint(0);
    view->setPoint(2, 1.0, 10.0, 1.0, 0.0);
    view->setPoint(1, 2.0, 10.0, 1.0, 0.0);
    view->drawScene();
    EXPECT_EQ(listed(), (std::vector<vtkIdType> {3, 0, 2, 1}));
}

TEST_F(PointCloud, TheCellIsRightInScenesOfOneSizeWhateverTheOrderOfEach)
{
    using Ids = std::vector<vtkIdType>;
    setRanges();
    for (const Ids& order : {Ids {0, 1, 2, 3}, Ids {0, 1, 0}, Ids {0, 1, 2, 3}, Ids {3, 2, 1, 0},
             Ids {0, 1, 2}, Ids {0, 2}, Ids {}, Ids {0, 1, 2, 3, 3, 0}, Ids {0, 1, 2, 3}}) {
        view->setScene(2, 2);
        for (const vtkIdType index : order)
            view->setPoint(static_cast<int>(index), 1.0, 11.0, 2.0, 1.0);
        view->drawScene();
        EXPECT_EQ(listed(), order);
    }
    view->setScene(2, 2);
    Ids soFar;
    for (const int index : {0, 1, 2, 1, 3}) { // drawn while it is filled
        view->setPoint(index, 1.0, 11.0, 2.0, 1.0);
        view->drawScene();
        soFar.push_back(index);
        EXPECT_EQ(listed(), soFar);
    }
}

TEST_F(PointCloud, ANanPointKeepsItsPlaceInTheArraysAndInTheCell)
{
    setRanges();
    view->setScene(3, 1);
    view->setPoint(0, 0.0, 10.0, 1.0, 0.0);
    view->setNanPoint(1);
    view->setPoint(2, 2.0, 14.0, 5.0, 0.0);
    view->drawScene();
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 3);
    for (const double coordinate : probe.point(1))
        EXPECT_TRUE(std::isnan(coordinate));
    EXPECT_TRUE(std::isnan(probe.value(1)));
    EXPECT_EQ(listed(), (std::vector<vtkIdType> {0, 1, 2}));
    render();
}

TEST_F(PointCloud, ACloudOfNanPointsDrawsNothingAndReportsNothing)
{
    setRanges();
    view->setScene(2, 2);
    for (int index = 0; index < 4; ++index)
        view->setNanPoint(index);
    view->drawScene();
    EXPECT_TRUE(view->isDirty());
    render();
    move({150, 100});
}

TEST_F(PointCloud, APointThatIsSetAgainIsOverwrittenAndListedTwice)
{
    setRanges();
    view->setScene(2, 1);
    view->setPoint(0, 0.0, 10.0, 1.0, 0.0);
    view->setPoint(1, 1.0, 11.0, 2.0, 1.0);
    view->setPoint(0, 2.0, 14.0, 5.0, 8.0);
    view->drawScene();
    EXPECT_EQ(listed(), (std::vector<vtkIdType> {0, 1, 0}));
    EXPECT_EQ(probe.point(0), (Triple {14.0, 2.0, 5.0}));
    EXPECT_EQ(probe.value(0), 8.0);
    render();
}

TEST_F(PointCloud, AnyNumberOfRepeatedPointsStaysInsideTheCell)
{
    setRanges();
    view->setScene(2, 1);
    std::vector<vtkIdType> expected;
    for (int call = 0; call < 1000; ++call) {
        view->setPoint(call % 2, 1.0, 11.0, 2.0, 1.0);
        expected.push_back(call % 2);
    }
    view->drawScene();
    EXPECT_EQ(listed(), expected);
    render();
}

TEST_F(PointCloud, PointsNeverSetAreNotDrawn)
{
    setRanges();
    view->setScene(100, 100);
    view->setPoint(5, 0.0, 10.0, 1.0, 0.0);
    view->setPoint(7, 2.0, 14.0, 5.0, 0.0);
    view->drawScene();
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 10000);
    EXPECT_EQ(listed(), (std::vector<vtkIdType> {5, 7}));
    render();
    move({150, 100});
}

TEST_F(PointCloud, ARepaintAndAMoveInMidFillFindAnEmptyScene)
{
    showSparsePoints();
    view->setScene(200, 200);
    for (int index = 0; index < 100; ++index)
        view->setPoint(index, 1.0, 11.0, 2.0, 1.0);
    CoordinatesRecorder recorder;
    render();
    move({150, 100});
    EXPECT_EQ(recorder.cleared, 1);
    EXPECT_EQ(listed().size(), 0u);
}

TEST_F(PointCloud, ASceneOfTheSameSizeIsEmptyToARepaintAndAMoveToo)
{
    showSparsePoints();
    const QPointF middle = probe.seenAt({24.0, 4.0, 8.0});
    CoordinatesRecorder recorder;
    move(middle);
    EXPECT_EQ(recorder.positions.size(), 1u);
    view->setScene(3, 3);
    move(middle);
    EXPECT_EQ(recorder.cleared, 1);
    render();
    move(middle);
    EXPECT_EQ(recorder.cleared, 2);
    view->setPoint(0, 4.0, 24.0, 8.0, 1.0);
    view->drawScene();
    move(middle);
    EXPECT_EQ(recorder.positions.size(), 2u);
    EXPECT_EQ(listed(), (std::vector<vtkIdType> {0}));
}

TEST_F(PointCloud, ASceneOfTheSameSizeIsFilledIntoTheMemoryOfTheLast)
{
    setRanges();
    view->setScene(2, 1);
    for (int call = 0; call < 1000; ++call)
        view->setPoint(0, 1.0, 11.0, 2.0, 1.0);
    view->drawScene();
    vtkCellArray* cells = probe.data()->GetVerts();
    const vtkIdType roomBefore = ovl::compat::onlyCellCapacity(cells);
    EXPECT_GE(roomBefore, 1000);
    view->setScene(2, 1);
    EXPECT_EQ(ovl::compat::onlyCellCapacity(cells), roomBefore);
    view->setScene(3, 1);
    EXPECT_LT(ovl::compat::onlyCellCapacity(cells), roomBefore);
}

// Points in order go past the caches in a scene of this size, the others do not.
TEST_F(PointCloud, ALargeSceneHoldsEverySampleInWhateverOrderTheyCome)
{
    const int side = 750;
    const int count = side * side;
    setRanges();
    const auto fill = [this](int index, double offset) {
        view->setPoint(index, index % 997, offset, index / 31.0, offset + index);
    };
    view->setScene(side, side);
    for (int index = 0; index < count / 2; ++index)
        fill(index, 1.0);
    for (int index = count - 1; index >= count / 2; --index)
        fill(index, 1.0);
    fill(12345, 2.0);
    view->drawScene();
    int wrong = 0;
    for (int index = 0; index < count; ++index) {
        const double offset = index == 12345 ? 2.0 : 1.0;
        const Triple expected {offset, static_cast<double>(index % 997), index / 31.0};
        wrong += probe.point(index) != expected || probe.value(index) != offset + index;
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(PointCloud, SetSceneLosesTheSceneThatWasDrawn)
{
    showSparsePoints();
    EXPECT_EQ(listed().size(), 9u);
    view->setScene(3, 3);
    EXPECT_EQ(listed().size(), 0u);
    view->drawScene();
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 9);
    EXPECT_EQ(listed().size(), 0u);
}

TEST_F(PointCloud, DrawSceneMayBeRepeatedAndGoesOnWithTheSameScene)
{
    setRanges();
    view->setScene(2, 1);
    view->setPoint(0, 0.0, 10.0, 1.0, 0.0);
    view->drawScene();
    view->drawScene();
    EXPECT_EQ(listed(), (std::vector<vtkIdType> {0}));
    view->setPoint(1, 2.0, 14.0, 5.0, 8.0);
    view->drawScene();
    EXPECT_EQ(listed(), (std::vector<vtkIdType> {0, 1}));
}

TEST_F(PointCloud, DrawSceneRunsWithoutAnyScene)
{
    setRanges();
    view->drawScene();
    EXPECT_TRUE(view->isDirty());
    EXPECT_EQ(probe.axes()->GetVisibility(), 1);
    render();
}

TEST_F(PointCloud, FramesOfChangingSizeFollowEachOther)
{
    setRanges();
    for (const int side : {3, 50, 1, 0, 20, 20}) {
        SCOPED_TRACE(side);
        view->setScene(side, side);
        for (int index = 0; index < side * side; ++index)
            view->setPoint(index, 1.0, 11.0, 2.0, index);
        view->drawScene();
        render();
        EXPECT_EQ(probe.data()->GetNumberOfPoints(), side * side);
        EXPECT_EQ(listed().size(), static_cast<std::size_t>(side * side));
    }
}

TEST_F(PointCloud, TheResolutionsAreKeptAsGivenAndNegativeCountsAreEmptyScenes)
{
    setRanges();
    for (const auto& [x, y] : {std::pair(-3, 4), std::pair(46341, 46341), std::pair(0, 7)}) {
        view->setScene(x, y);
        EXPECT_EQ(view->xResolution(), x);
        EXPECT_EQ(view->yResolution(), y);
        view->drawScene();
        EXPECT_EQ(probe.data()->GetNumberOfPoints(), 0);
        render();
    }
}

TEST_F(PointCloud, AnIndexOutsideOfTheSceneIsTheCallersFault)
{
    setRanges();
    view->setScene(2, 2);
#ifndef NDEBUG
    EXPECT_DEATH(view->setPoint(4, 0.0, 0.0, 0.0, 0.0), "PointCloudView::setPoint: .* 4");
    EXPECT_DEATH(view->setPoint(-1, 0.0, 0.0, 0.0, 0.0), "PointCloudView::setPoint: .* -1");
    EXPECT_DEATH(view->setNanPoint(4), "PointCloudView::setNanPoint: .* 4");
#else
    for (const int index :
        {4, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        view->setPoint(index, 0.0, 0.0, 0.0, 0.0);
        view->setNanPoint(index);
    }
    view->drawScene();
    EXPECT_EQ(listed().size(), 0u);
#endif
}

TEST_F(PointCloud, APointBeforeAnySceneIsTheCallersFault)
{
#ifndef NDEBUG
    EXPECT_DEATH(view->setPoint(0, 0.0, 0.0, 0.0, 0.0), "PointCloudView::setPoint: .* 0");
#else
    view->setPoint(0, 0.0, 0.0, 0.0, 0.0);
    EXPECT_FALSE(view->isDirty());
#endif
}

// ---- Scale and camera --------------------------------------------------------------------------

TEST_F(PointCloud, ACorrectionStretchesTheWorldAxisOfItsOwnLetter)
{
    view->setXScaleCorrection(2.0);
    EXPECT_EQ(probe.scale(), (Triple {2.0, 1.0, 1.0}));
    view->setYScaleCorrection(3.0);
    EXPECT_EQ(probe.scale(), (Triple {2.0, 3.0, 1.0}));
    view->setZScaleCorrection(4.0);
    EXPECT_EQ(probe.scale(), (Triple {2.0, 3.0, 4.0}));
}

TEST_F(PointCloud, ScalesAndCorrectionsMeetCrossed)
{
    setRanges();
    view->setXScaleCorrection(7.0);
    view->setYScaleCorrection(11.0);
    view->setZScaleCorrection(13.0);
    view->setXScale(2.0);
    EXPECT_EQ(probe.scale(), (Triple {7.0, 22.0, 13.0}));
    EXPECT_EQ(probe.focalPoint()[1], 1.0 * 2.0 * 11.0);
    view->setYScale(3.0);
    EXPECT_EQ(probe.scale(), (Triple {21.0, 22.0, 13.0}));
    EXPECT_EQ(probe.focalPoint()[0], 12.0 * 3.0 * 7.0);
    view->setZScale(5.0);
    EXPECT_EQ(probe.scale(), (Triple {21.0, 22.0, 65.0}));
    EXPECT_EQ(probe.focalPoint()[2], 3.0 * 5.0 * 13.0);
}

TEST_F(PointCloud, FocalPointsAreMultipliedInTheirOrder)
{
    for (int index = 0; index < 3; ++index)
        view->range(index).set(0.1, 0.1);
    view->setYScaleCorrection(0.3);
    view->setXScale(0.2);
    EXPECT_EQ(probe.focalPoint()[1], (0.1 * 0.2) * 0.3);
    view->resetCamera();
    EXPECT_EQ(probe.focalPoint()[1], (0.2 * 0.3) * 0.1);
    ASSERT_NE((0.1 * 0.2) * 0.3, (0.2 * 0.3) * 0.1);
}

void expectNear(const Triple& seen, const Triple& expected)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(seen[axis], expected[axis], 1e-9) << "axis " << axis;
}

TEST_F(PointCloud, ResetCameraStandsFourTimesAsFarAsTheUpperEndOfTheRanges)
{
    setRanges();
    view->resetCamera();
    // Middle (12, 1, 3), upper end (14, 2, 5) in the world.
    EXPECT_EQ(probe.focalPoint(), (Triple {12.0, 1.0, 3.0}));
    expectNear(probe.cameraPosition(), {20.0, 5.0, 11.0});
    EXPECT_NEAR(probe.camera()->GetDistance(), 4.0 * 3.0, 1e-9);
}

TEST_F(PointCloud, ResetCameraTakesScalesAndPositionCorrections)
{
    setRanges();
    view->setXScale(2.0);
    view->setYScale(3.0);
    view->setZScale(5.0);
    view->setXScaleCorrection(7.0);
    view->setYScaleCorrection(11.0);
    view->setZScaleCorrection(13.0);
    view->setXPositionCorrection(0.5);
    view->setYPositionCorrection(0.25);
    view->setZPositionCorrection(2.0);
    view->resetCamera();
    // Scale (21, 22, 65); position 11, 1, 9 unscaled, so (231, 22, 585); middle (252, 22, 195).
    EXPECT_EQ(probe.focalPoint(), (Triple {252.0, 22.0, 195.0}));
    expectNear(probe.cameraPosition(), {168.0, 22.0, 1755.0});
}

TEST_F(PointCloud, ResetCameraResetsTheClippingRange)
{
    showSparsePoints();
    probe.camera()->SetClippingRange(1.0, 2.0);
    view->resetCamera();
    EXPECT_GT(probe.camera()->GetClippingRange()[1], probe.camera()->GetDistance());
}

// ---- Picking and the picture -------------------------------------------------------------------

TEST_F(PointCloud, EveryPointPublishesTheHostsPosition)
{
    showSparsePoints();
    CoordinatesRecorder recorder;
    std::vector<Triple> expected;
    for (int index = 0; index < 9; ++index) {
        expected.push_back({4.0 * (index % 3), 20.0 + 4.0 * (index / 3), 2.0 * index});
        move(probe.seenAt({expected.back()[1], expected.back()[0], expected.back()[2]}));
    }
    EXPECT_EQ(recorder.positions, expected);
    EXPECT_EQ(recorder.cleared, 0);
}

TEST_F(PointCloud, ScalesAndCorrectionsAreTakenOutOfWhatIsPublished)
{
    showSparsePoints();
    view->setXScale(2.0);
    view->setYScale(0.5);
    view->setXScaleCorrection(4.0);
    view->setZScaleCorrection(1.5);
    view->resetCamera();
    // The point 5 at x 8, y 24, z 10, under the scale (2, 2, 1.5).
    CoordinatesRecorder recorder;
    move(probe.seenAt({48.0, 16.0, 15.0}));
    EXPECT_EQ(recorder.positions, (std::vector<Triple> {{8.0, 24.0, 10.0}}));
}

TEST_F(PointCloud, ADragThatLeavesThePointsStaysDirtyAndClears)
{
    showSparsePoints();
    CoordinatesRecorder recorder;
    const QPointF start = probe.seenAt({24.0, 4.0, 8.0});
    press(start);
    move(start);
    EXPECT_EQ(recorder.positions, (std::vector<Triple> {{4.0, 24.0, 8.0}}));
    view->setDirty(false);
    move({2, 2});
    EXPECT_EQ(recorder.cleared, 1);
    EXPECT_TRUE(view->isDirty());
    view->setDirty(false);
    move({3, 3});
    EXPECT_EQ(recorder.cleared, 2);
    EXPECT_TRUE(view->isDirty());
}

TEST_F(PointCloud, NewPointsArePickedAfterDrawSceneWithoutARepaint)
{
    showSparsePoints();
    const QPointF middle = probe.seenAt({24.0, 4.0, 8.0});
    CoordinatesRecorder recorder;
    view->setScene(1, 1);
    view->setPoint(0, 0.0, 20.0, 0.0, 1.0);
    view->drawScene();
    move(middle);
    EXPECT_EQ(recorder.cleared, 1);
    move(probe.seenAt({20.0, 0.0, 0.0}));
    EXPECT_EQ(recorder.positions, (std::vector<Triple> {{0.0, 20.0, 0.0}}));
}

TEST_F(PointCloud, PointsAreDrawnInTheColourOfTheirValue)
{
    view->setColorScheme(ovl::ColorScheme::WARM); // the first of six: 121, 23, 23
    showSparsePoints();
    view->setScene(1, 1);
    view->setPoint(0, 4.0, 24.0, 8.0, 0.0);
    view->drawScene();
    probe.actor()->GetProperty()->SetPointSize(9.0);
    probe.actor()->GetProperty()->LightingOff();
    const QColor color = pixel(probe.seenAt({24.0, 4.0, 8.0}));
    EXPECT_EQ(color, QColor(121, 23, 23));
}

TEST_F(PointCloud, ANanPointIsNotSeen)
{
    showSparsePoints();
    view->setScene(1, 1);
    view->setNanPoint(0);
    view->drawScene();
    probe.axes()->SetVisibility(0);
    render();
    const QImage drawn = picture();
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x)
            ASSERT_EQ(drawn.pixelColor(x, y), QColor(Qt::black)) << x << ' ' << y;
}

} // namespace
