// SPDX-License-Identifier: BSD-3-Clause
#include <support/coordinatesrecorder.h>
#include <support/hostfixture.h>
#include <support/spaceprobe.h>
#include <visualization/surfaceview.h>

#include <vtkActor.h>
#include <vtkAlgorithm.h>
#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkCubeAxesActor.h>
#include <vtkIdList.h>
#include <vtkMapper.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using ovl::Representation;
using ovl::SurfaceView;
using ovl::test::CoordinatesRecorder;
using ovl::test::SpaceProbe;
using ovl::test::Triple;
using ovl::test::ViewFixture;

namespace {

class Surface : public ViewFixture<SurfaceView>, public testing::Test {
public:
    void setRanges()
    {
        view->range(0).set(0.0, 2.0);
        view->range(1).set(10.0, 14.0);
        view->range(2).set(1.0, 5.0);
        view->range(3).set(0.0, 8.0);
    }

    /** A plane of x from 0, y from 10, in steps of 1, at the height 1, all of the value 4. */
    void fill(int xCount, int yCount)
    {
        for (int index = 0; index < xCount * yCount; ++index)
            view->setPoint(index, index % xCount, 10.0 + index / xCount, 1.0, 4.0);
    }

    void draw(int xCount, int yCount)
    {
        view->setScene(xCount, yCount);
        fill(xCount, yCount);
        setRanges();
        view->drawScene();
    }

    /** A slope over 20 by 10 samples with z = x + 2 y, seen from above. */
    void showSlope()
    {
        view->setScene(20, 10);
        for (int index = 0; index < 200; ++index) {
            const double x = index % 20;
            const double y = index / 20;
            view->setPoint(index, x, y, x + 2.0 * y, x);
        }
        view->range(0).set(0.0, 19.0);
        view->range(1).set(0.0, 9.0);
        view->range(2).set(0.0, 37.0);
        view->range(3).set(0.0, 19.0);
        view->drawScene();
        view->resetCamera();
        probe.camera()->Zoom(4.0);
        render();
    }

    /** What goes into the warp: the host's points as they were stored. */
    vtkPolyData* stored()
    {
        return vtkPolyData::SafeDownCast(
            probe.mapper()->GetInputAlgorithm()->GetInputDataObject(0, 0));
    }

    Triple storedPoint(vtkIdType index)
    {
        Triple point;
        stored()->GetPoint(index, point.data());
        return point;
    }

    SpaceProbe probe {*this};
};

// ---- The grid ----------------------------------------------------------------------------------

TEST_F(Surface, APointIsStoredAtHalfItsHeightAndWarpedToTheWhole)
{
    setRanges();
    view->setScene(3, 3);
    fill(3, 3);
    view->setPoint(4, 3.0, 4.0, 10.0, 7.0);
    view->drawScene();
    EXPECT_EQ(storedPoint(4), (Triple {4.0, 3.0, 5.0}));
    EXPECT_EQ(probe.point(4), (Triple {4.0, 3.0, 10.0}));
    EXPECT_EQ(probe.value(4), 7.0);
}

TEST_F(Surface, ScalesDoNotReachThePoints)
{
    setRanges();
    view->setXScale(3.0);
    view->setZScaleCorrection(2.0);
    view->setScene(3, 3);
    fill(3, 3);
    view->setPoint(0, 3.0, 4.0, 10.0, 7.0);
    view->drawScene();
    EXPECT_EQ(probe.point(0), (Triple {4.0, 3.0, 10.0}));
}

TEST_F(Surface, PositionsAreKeptInSinglePrecisionAndValuesInDouble)
{
    setRanges();
    view->setScene(3, 3);
    fill(3, 3);
    view->setPoint(0, 1000000.1, 0.1, 0.3, 0.1);
    view->drawScene();
    EXPECT_EQ(probe.point(0)[1], static_cast<double>(1000000.1F));
    EXPECT_EQ(probe.point(0)[0], static_cast<double>(0.1F));
    EXPECT_EQ(storedPoint(0)[2], static_cast<double>(static_cast<float>(0.5 * 0.3)));
    EXPECT_EQ(probe.value(0), 0.1);
}

TEST_F(Surface, NeighboursAreJoinedIntoQuadrilateralsAlongTheFirstSideFastest)
{
    draw(4, 3);
    vtkCellArray* quads = probe.data()->GetPolys();
    ASSERT_EQ(quads->GetNumberOfCells(), 6);
    const auto ids = vtkSmartPointer<vtkIdList>::New();
    quads->InitTraversal();
    for (int cell = 0; quads->GetNextCell(ids); ++cell) {
        const vtkIdType corner = cell % 3 + 4 * (cell / 3);
        EXPECT_EQ((std::vector<vtkIdType>(ids->begin(), ids->end())),
            (std::vector<vtkIdType> {corner, corner + 1, corner + 5, corner + 4}));
    }
}

TEST_F(Surface, ANanPointFlowsThroughTheWarp)
{
    setRanges();
    view->setScene(3, 3);
    fill(3, 3);
    view->setNanPoint(4);
    view->drawScene();
    for (const double coordinate : probe.point(4))
        EXPECT_TRUE(std::isnan(coordinate));
    EXPECT_TRUE(std::isnan(probe.value(4)));
    EXPECT_EQ(probe.point(3), (Triple {11.0, 0.0, 1.0}));
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 9);
    render();
}

TEST_F(Surface, NewValuesOnTheSameGridReachTheNextDraw)
{
    draw(3, 3);
    view->setPoint(0, 0.0, 10.0, 5.0, 8.0);
    EXPECT_EQ(probe.point(0), (Triple {10.0, 0.0, 1.0}));
    view->drawScene();
    EXPECT_EQ(probe.point(0), (Triple {10.0, 0.0, 5.0}));
    EXPECT_EQ(probe.value(0), 8.0);
}

// Samples in order go past the caches in a grid of this size, the others do not.
TEST_F(Surface, ALargeGridHoldsEverySampleInWhateverOrderTheyCome)
{
    const int side = 930;
    const int count = side * side;
    view->setScene(side, side);
    for (int index = 0; index < count / 2; ++index)
        view->setPoint(index, index % 997, 1.0, 2.0 * (index % 511), index);
    for (int index = count - 1; index >= count / 2; --index)
        view->setPoint(index, index % 997, 1.0, 2.0 * (index % 511), index);
    view->drawScene();
    int wrong = 0;
    for (int index = 0; index < count; ++index) {
        const Triple expected {1.0, 1.0 * (index % 997), 2.0 * (index % 511)};
        wrong += probe.point(index) != expected || probe.value(index) != index;
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(Surface, ALargerGridReplacesTheLastOne)
{
    for (const auto& [x, y] : {std::pair(3, 3), std::pair(20, 7), std::pair(5, 60)}) {
        draw(x, y);
        EXPECT_EQ(probe.data()->GetNumberOfPoints(), x * y);
        EXPECT_EQ(probe.data()->GetNumberOfPolys(), (x - 1) * (y - 1));
        render();
    }
}

TEST_F(Surface, TheSameSizeAgainKeepsTheGridAndWaitsForPoints)
{
    draw(100, 50);
    vtkPoints* points = stored()->GetPoints();
    vtkDataArray* scalars = stored()->GetPointData()->GetScalars();
    vtkCellArray* quads = probe.data()->GetPolys();
    const vtkMTimeType quadsTime = quads->GetMTime();
    view->setDirty(false);
    view->setScene(100, 50);
    view->drawScene();
    EXPECT_FALSE(view->isDirty()); // no point has come since
    EXPECT_EQ(stored()->GetPoints(), points);
    EXPECT_EQ(stored()->GetPointData()->GetScalars(), scalars);
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 5000);
    fill(100, 50);
    view->setPoint(4999, 3.0, 4.0, 10.0, 7.0);
    view->drawScene();
    EXPECT_EQ(probe.point(4999), (Triple {4.0, 3.0, 10.0}));
    EXPECT_EQ(probe.data()->GetNumberOfPolys(), 99 * 49);
    // What the mapper compares before it builds its indices anew.
    EXPECT_EQ(probe.data()->GetPolys(), quads);
    EXPECT_EQ(quads->GetMTime(), quadsTime);
}

// ---- Grids that stay as they are ---------------------------------------------------------------

TEST_F(Surface, AFirstSideThatShrinksByOneKeepsTheGrid)
{
    draw(100, 50);
    view->setScene(99, 20);
    EXPECT_EQ(view->xResolution(), 99);
    EXPECT_EQ(view->yResolution(), 20);
    EXPECT_EQ(stored()->GetNumberOfPoints(), 5000);
    EXPECT_EQ(stored()->GetPointData()->GetScalars()->GetNumberOfTuples(), 5000);
    EXPECT_EQ(stored()->GetNumberOfPolys(), 99 * 49);
}

TEST_F(Surface, ASecondSideThatShrinksByOneKeepsTheGrid)
{
    draw(100, 50);
    view->setScene(30, 49);
    EXPECT_EQ(view->xResolution(), 30);
    EXPECT_EQ(view->yResolution(), 49);
    EXPECT_EQ(stored()->GetNumberOfPoints(), 5000);
}

TEST_F(Surface, AnotherSideThanOneLessBuildsAnew)
{
    draw(100, 50);
    view->setScene(98, 48);
    EXPECT_EQ(stored()->GetNumberOfPoints(), 98 * 48);
    EXPECT_EQ(stored()->GetNumberOfPolys(), 97 * 47);
}

TEST_F(Surface, AGridThatStayedIsWrittenUpToItsOwnSize)
{
    draw(10, 5);
    view->setScene(9, 20); // 180 points announced, 50 there
    view->setPoint(49, 3.0, 4.0, 10.0, 7.0);
    view->setPoint(50, 3.0, 4.0, 10.0, 7.0);
    view->setNanPoint(179);
    view->drawScene();
    EXPECT_EQ(probe.point(49), (Triple {4.0, 3.0, 10.0}));
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 50);
    render();
}

TEST_F(Surface, AFirstSceneWithASideOfOneLeavesTheGridUnbuilt)
{
    for (const auto& [x, y] : {std::pair(1, 5), std::pair(5, 1), std::pair(1, 1)}) {
        view->setScene(x, y);
        EXPECT_EQ(view->xResolution(), x);
        EXPECT_EQ(view->yResolution(), y);
        EXPECT_EQ(stored()->GetNumberOfPoints(), 0);
    }
    setRanges();
    view->setScene(1, 5);
    for (int index = 0; index < 5; ++index)
        view->setPoint(index, index, 10.0, 1.0, 4.0);
    view->drawScene(); // points have come, so it draws: nothing
    EXPECT_TRUE(view->isDirty());
    EXPECT_EQ(probe.axes()->GetVisibility(), 1);
    render();
    move({150, 100});
}

TEST_F(Surface, ASideOfOneAfterALargerGridGivesALineOfPoints)
{
    draw(7, 5);
    draw(1, 3);
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 3);
    EXPECT_EQ(probe.data()->GetNumberOfPolys(), 0);
    render();
}

TEST_F(Surface, SidesBelowOneGiveAnEmptyGrid)
{
    for (const auto& [x, y] :
        {std::pair(0, 0), std::pair(-3, 7), std::pair(7, -3), std::pair(-5, -5), std::pair(0, 9),
            std::pair(std::numeric_limits<int>::min(), std::numeric_limits<int>::min())}) {
        draw(4, 4);
        view->setScene(x, y);
        EXPECT_EQ(view->xResolution(), x);
        EXPECT_EQ(view->yResolution(), y);
        EXPECT_EQ(stored()->GetNumberOfPoints(), 0);
        EXPECT_EQ(stored()->GetNumberOfPolys(), 0);
        render();
    }
    draw(4, 4);
    EXPECT_EQ(probe.data()->GetNumberOfPolys(), 9);
}

TEST_F(Surface, MorePointsThanAnIntegerHoldsLeaveTheGrid)
{
    draw(4, 4);
    view->setScene(65536, 65536);
    EXPECT_EQ(view->xResolution(), 65536);
    EXPECT_EQ(stored()->GetNumberOfPoints(), 16);
    view->setScene(65537, 65539); // wraps to a small positive number
    EXPECT_EQ(stored()->GetNumberOfPoints(), 16);
}

TEST_F(Surface, AnIndexOutsideOfTheSceneIsTheCallersFault)
{
    view->setScene(3, 3);
#ifndef NDEBUG
    EXPECT_DEATH(view->setPoint(9, 0.0, 0.0, 0.0, 0.0), "SurfaceView::setPoint: .* 9");
    EXPECT_DEATH(view->setPoint(-1, 0.0, 0.0, 0.0, 0.0), "SurfaceView::setPoint: .* -1");
    EXPECT_DEATH(view->setNanPoint(9), "SurfaceView::setNanPoint: .* 9");
#else
    fill(3, 3);
    for (const int index :
        {9, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        view->setPoint(index, 0.0, 0.0, 0.0, 0.0);
        view->setNanPoint(index);
    }
    setRanges();
    view->drawScene();
    EXPECT_EQ(probe.point(0), (Triple {10.0, 0.0, 1.0}));
    EXPECT_EQ(probe.point(8), (Triple {12.0, 2.0, 1.0}));
#endif
}

// ---- When it draws -----------------------------------------------------------------------------

TEST_F(Surface, DrawSceneWithoutAPointChangesNothing)
{
    setRanges();
    view->setScene(3, 3);
    const vtkMTimeType actor = probe.actor()->GetMTime();
    const vtkMTimeType mapper = probe.mapper()->GetMTime();
    view->drawScene();
    EXPECT_FALSE(view->isDirty());
    EXPECT_EQ(probe.axes()->GetVisibility(), 0);
    EXPECT_EQ(probe.actor()->GetMTime(), actor);
    EXPECT_EQ(probe.mapper()->GetMTime(), mapper);
}

TEST_F(Surface, ASceneOfNanPointsAloneDoesNotDraw)
{
    setRanges();
    view->setScene(3, 3);
    for (int index = 0; index < 9; ++index)
        view->setNanPoint(index);
    view->drawScene();
    EXPECT_FALSE(view->isDirty());
    EXPECT_EQ(probe.axes()->GetVisibility(), 0);
}

TEST_F(Surface, DrawSceneMayBeRepeatedUntilTheNextScene)
{
    draw(3, 3);
    view->setDirty(false);
    view->drawScene();
    EXPECT_TRUE(view->isDirty());
    view->setDirty(false);
    view->setScene(3, 3);
    view->drawScene();
    EXPECT_FALSE(view->isDirty());
}

TEST_F(Surface, ARepaintAndAMoveInMidFillStayInsideTheMemory)
{
    draw(3, 3);
    render();
    view->setScene(200, 200);
    fill(200, 100);
    render();
    move({150, 100});
    view->setScene(2, 3);
    render();
    move({151, 100});
}

// ---- Representation ----------------------------------------------------------------------------

struct RepresentationRow {
    int number;
    int framework;
};

class SurfaceRepresentation : public Surface,
                              public testing::WithParamInterface<RepresentationRow> { };

TEST_P(SurfaceRepresentation, IsHandedToTheActorAndMarksTheViewDirtyEveryTime)
{
    for (int start = VTK_POINTS; start <= VTK_SURFACE; ++start) {
        probe.actor()->GetProperty()->SetRepresentation(start);
        view->setDirty(false);
        view->setRepresentation(static_cast<Representation>(GetParam().number));
        EXPECT_EQ(probe.actor()->GetProperty()->GetRepresentation(), GetParam().framework);
        EXPECT_TRUE(view->isDirty());
    }
}

INSTANTIATE_TEST_SUITE_P(Numbers, SurfaceRepresentation,
    testing::Values(RepresentationRow {0, VTK_SURFACE}, RepresentationRow {1, VTK_POINTS},
        RepresentationRow {2, VTK_WIREFRAME}, RepresentationRow {3, VTK_SURFACE},
        RepresentationRow {-1, VTK_SURFACE}));

TEST(RepresentationNumbers, AreFixed)
{
    EXPECT_EQ(static_cast<int>(Representation::Surface), 0);
    EXPECT_EQ(static_cast<int>(Representation::Points), 1);
    EXPECT_EQ(static_cast<int>(Representation::Wireframe), 2);
}

// ---- Scale and camera --------------------------------------------------------------------------

TEST_F(Surface, ACorrectionGoesWithTheScaleOfItsOwnLetter)
{
    view->setXScaleCorrection(2.0);
    EXPECT_EQ(probe.scale(), (Triple {1.0, 2.0, 1.0}));
    view->setYScaleCorrection(3.0);
    EXPECT_EQ(probe.scale(), (Triple {3.0, 2.0, 1.0}));
    view->setZScaleCorrection(4.0);
    EXPECT_EQ(probe.scale(), (Triple {3.0, 2.0, 4.0}));
}

TEST_F(Surface, ScalesAndCorrectionsMeetUncrossed)
{
    setRanges();
    view->setXScaleCorrection(7.0);
    view->setYScaleCorrection(11.0);
    view->setZScaleCorrection(13.0);
    view->setXScale(2.0);
    EXPECT_EQ(probe.scale(), (Triple {11.0, 14.0, 13.0}));
    EXPECT_EQ(probe.focalPoint()[1], 1.0 * 2.0 * 7.0);
    view->setYScale(3.0);
    EXPECT_EQ(probe.scale(), (Triple {33.0, 14.0, 13.0}));
    EXPECT_EQ(probe.focalPoint()[0], 12.0 * 3.0 * 11.0);
    view->setZScale(5.0);
    EXPECT_EQ(probe.scale(), (Triple {33.0, 14.0, 65.0}));
    EXPECT_EQ(probe.focalPoint()[2], 3.0 * 5.0 * 13.0);
}

void expectNear(const Triple& seen, const Triple& expected)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(seen[axis], expected[axis], 1e-9) << "axis " << axis;
}

TEST_F(Surface, ResetCameraStandsOneLengthOffTheNearCornerAndAboveTheData)
{
    setRanges();
    view->resetCamera();
    // Middle (12, 1, 3); one length off: (6, -2, 9); at four times the distance.
    EXPECT_EQ(probe.focalPoint(), (Triple {12.0, 1.0, 3.0}));
    expectNear(probe.cameraPosition(), {-12.0, -11.0, 27.0});
}

TEST_F(Surface, ResetCameraTakesScalesAndPositionCorrections)
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
    // Scale (33, 14, 65); position 9, -1, 13 unscaled, so (297, -14, 845); middle (396, 14, 195).
    EXPECT_EQ(probe.focalPoint(), (Triple {396.0, 14.0, 195.0}));
    expectNear(probe.cameraPosition(), {0.0, -98.0, 2795.0});
}

// ---- Picking and the picture -------------------------------------------------------------------

TEST_F(Surface, APickPublishesTheHostsPositionOnTheWarpedSurface)
{
    showSlope();
    CoordinatesRecorder recorder;
    for (const auto& [x, y] : {std::pair(5.0, 3.0), std::pair(12.0, 2.0), std::pair(9.0, 7.0)}) {
        recorder.clear();
        move(probe.seenAt({y, x, x + 2.0 * y}));
        ASSERT_EQ(recorder.positions.size(), 1u);
        EXPECT_EQ(recorder.positions[0], (Triple {x, y, x + 2.0 * y}));
    }
}

TEST_F(Surface, ScalesAreTakenOutOfWhatIsPublished)
{
    showSlope();
    view->setXScale(2.0);
    view->setYScale(3.0);
    view->setZScaleCorrection(0.5);
    view->resetCamera();
    CoordinatesRecorder recorder;
    move(probe.seenAt({21.0, 18.0, 11.5})); // x 9, y 7, z 23
    EXPECT_EQ(recorder.positions, (std::vector<Triple> {{9.0, 7.0, 23.0}}));
}

TEST_F(Surface, APickIsRoundedToTheNearerWholeNumbers)
{
    showSlope();
    CoordinatesRecorder recorder;
    move(probe.seenAt({3.2, 5.3, 5.3 + 6.4})); // z 11.7
    move(probe.seenAt({3.8, 5.7, 5.7 + 7.6})); // z 13.3
    EXPECT_EQ(recorder.positions, (std::vector<Triple> {{5.0, 3.0, 12.0}, {6.0, 4.0, 13.0}}));
}

TEST_F(Surface, ADragThatLeavesTheDataStaysDirtyAndClears)
{
    showSlope();
    CoordinatesRecorder recorder;
    const QPointF inside = probe.seenAt({5.0, 9.0, 19.0});
    press(inside);
    move(inside);
    EXPECT_EQ(recorder.positions.size(), 1u);
    for (const QPointF outside : {QPointF(2, 2), QPointF(3, 3), QPointF(-20, 3)}) {
        recorder.clear();
        view->setDirty(false);
        move(outside);
        EXPECT_EQ(recorder.cleared, 1);
        EXPECT_TRUE(view->isDirty());
    }
}

TEST_F(Surface, TheSurfaceIsDrawnInTheColourOfItsValues)
{
    showSlope();
    view->setColorScheme(ovl::ColorScheme::WARM);
    for (int index = 0; index < 200; ++index)
        view->setPoint(index, index % 20, index / 20, 0.0, 0.0);
    view->drawScene();
    probe.actor()->GetProperty()->LightingOff();
    probe.axes()->SetVisibility(0);
    EXPECT_EQ(pixel(probe.seenAt({5.0, 9.0, 0.0})), QColor(121, 23, 23)); // the first of six
}

} // namespace
