// SPDX-License-Identifier: BSD-3-Clause
// What the guide says about views where it leads into the framework, and no other test looks.
#include <support/imagefixture.h>
#include <support/profilefixture.h>
#include <support/spaceprobe.h>
#include <visualization/point.h>
#include <visualization/range.h>
#include <visualization/shape.h>
#include <visualization/surfaceview.h>

#include <vtkActor.h>
#include <vtkAxis.h>
#include <vtkPlot.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace ovl::test {
namespace {

TEST(ImageGuide, TheLookupTableSeesTheFirstChannelShownWhichIsRed)
{
    ImageFixture f;
    std::vector<std::uint16_t> pixels;
    for (int i = 0; i < 4 * 4; ++i)
        pixels.insert(pixels.end(), {10, 100, 200}); // blue, green, red
    f.view->enableLookupTable(true);
    f.draw(pixels, 4, 3, 2);
    EXPECT_EQ(f.colorOf(1, 1), QColor(200, 200, 200));
}

TEST(ImageGuide, WithTheLookupTableBlueOf8BitsIsOpacity)
{
    ImageFixture f;
    std::vector<unsigned char> pixels;
    for (int i = 0; i < 4 * 4; ++i)
        pixels.insert(pixels.end(), {0, 100, 200});
    f.view->enableLookupTable(true);
    f.draw(pixels, 4, 3, 0);
    EXPECT_EQ(f.colorOf(1, 1), QColor(13, 13, 13)) << "the background";
}

TEST(ImageGuide, ColoursBesideTheRangeAreWhiteAndBlackAtFirst)
{
    ImageFixture f;
    std::vector<unsigned char> pixels(4 * 4, 50);
    std::fill(pixels.begin() + 8, pixels.end(), static_cast<unsigned char>(210));
    f.view->enableLookupTable(true);
    f.view->setLookupTableRange(Range(100, 200));
    f.view->enableAboveRangeColor(true);
    f.view->enableBelowRangeColor(true);
    f.draw(pixels, 4, 1, 0);
    EXPECT_EQ(f.colorOf(1, 0), QColor(0, 0, 0));
    EXPECT_EQ(f.colorOf(1, 3), QColor(255, 255, 255));
}

TEST(ProfileGuide, EverySeventhCurveIsBlackAtFirst)
{
    ProfileFixture f(15);
    for (int column = 0; column < 15; ++column) {
        SCOPED_TRACE(column);
        std::array<double, 3> rgb {};
        f.plot(column)->GetColor(rgb.data());
        EXPECT_EQ((rgb == std::array<double, 3> {}), column % 7 == 0);
    }
}

/** A square of which a drag along x is told to `moves`. */
Shape square(int identifier, int& moves)
{
    Shape shape;
    shape.setIdentifier(identifier);
    shape.addLine({20, 20}, {80, 20});
    shape.addLine({80, 20}, {80, 80});
    shape.addLine({80, 80}, {20, 80});
    shape.addLine({20, 80}, {20, 20});
    shape.setInteractive(true);
    shape.setCanDragAlongX(true);
    shape.setXTranslationCallback([&moves](double) { ++moves; });
    return shape;
}

TEST(ProfileGuide, OfEqualPrioritiesTheShapeAddedLastIsGrabbed)
{
    ProfileFixture f(2, {300, 300});
    int movesOfFirst = 0;
    int movesOfLast = 0;
    f.view->addShape(square(1, movesOfFirst));
    f.view->addShape(square(2, movesOfLast));
    f.view->setBottomRange(0, 100);
    f.view->setLeftRange(0, 100);
    f.view->resetView();
    f.view->drawShapes();
    f.render();
    f.drag(f.position(55, 60), f.position(65, 60));
    EXPECT_EQ(movesOfFirst, 0);
    EXPECT_EQ(movesOfLast, 1);
}

/** A chart with a single point in its middle. */
struct PointOfGuide : ProfileFixture {
    PointOfGuide()
        : ProfileFixture(2, {300, 300})
    {
        fill({{50.0}, {50.0}});
        view->setBottomRange(0, 100);
        view->setLeftRange(0, 100);
        view->resetView();
        view->drawPlots();
        render();
    }

    std::array<double, 4> ends()
    {
        vtkAxis* bottom = axis(vtkAxis::BOTTOM);
        vtkAxis* left = axis(vtkAxis::LEFT);
        return {bottom->GetMinimum(), bottom->GetMaximum(), left->GetMinimum(), left->GetMaximum()};
    }
};

TEST(ProfileGuide, ADragFromAPointMovesNothing)
{
    PointOfGuide f;
    const auto before = f.ends();
    f.drag(f.position(50, 50), f.position(70, 80));
    EXPECT_EQ(f.ends(), before);
    f.drag(f.position(20, 50), f.position(30, 70));
    EXPECT_NE(f.ends(), before) << "beside it the axes pan";
}

TEST(ProfileGuide, AMoveThatComesOntoAPointDoesNotCount)
{
    PointOfGuide f;
    const auto before = f.ends();
    const QPointF point = f.position(50, 50);
    f.press(f.position(20, 20));
    f.move(point + QPointF(4, 4));
    EXPECT_EQ(f.ends(), before);
    f.move(point + QPointF(24, 4));
    const double pixels = f.position(100, 0).x() - f.position(0, 0).x();
    EXPECT_NEAR(f.ends()[0], -20 / pixels * 100, 1e-3) << "only the second move counts";
    f.release(point + QPointF(24, 4));
}

TEST(ProfileGuide, ABandThatEndsOnAPointZoomsNothing)
{
    PointOfGuide f;
    const auto before = f.ends();
    f.drag(f.position(20, 20), f.position(50, 50), Qt::RightButton);
    EXPECT_EQ(f.ends(), before);
    f.drag(f.position(20, 20), f.position(60, 70), Qt::RightButton);
    EXPECT_NE(f.ends(), before);
}

struct SurfaceOfGuide : ViewFixture<SurfaceView> {
    void draw(int columns, int rows)
    {
        view->setScene(columns, rows);
        for (int i = 0; i < columns * rows; ++i)
            view->setPoint(i, i % columns, i / columns, 0.0, i);
        view->range(0).set(0, columns);
        view->range(1).set(0, rows);
        view->range(2).set(-1, 1);
        view->range(3).set(0, columns * rows);
        view->drawScene();
        view->resetCamera();
        render();
    }
};

TEST(SpaceGuide, AnEmptySceneInBetweenMakesRoomForAGridSmallerByOne)
{
    SurfaceOfGuide f;
    const SpaceProbe probe(f);
    f.draw(20, 10);
    ASSERT_EQ(probe.data()->GetNumberOfPoints(), 200);
    f.view->setScene(19, 10);
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 200) << "the surprise";
    f.view->setScene(0, 0);
    f.draw(19, 10);
    EXPECT_EQ(probe.data()->GetNumberOfPoints(), 190);
}

TEST(SpaceGuide, KeysOfTheFrameworkShowWiresAndSurface)
{
    SurfaceOfGuide f;
    const SpaceProbe probe(f);
    f.draw(20, 10);
    f.move({150, 100});
    f.key(Qt::Key_W, "w");
    EXPECT_EQ(probe.actor()->GetProperty()->GetRepresentation(), VTK_WIREFRAME);
    f.key(Qt::Key_S, "s");
    EXPECT_EQ(probe.actor()->GetProperty()->GetRepresentation(), VTK_SURFACE);
}

TEST(SpaceGuide, TheKeyRFramesTheScene)
{
    SurfaceOfGuide f;
    const SpaceProbe probe(f);
    f.draw(20, 10);
    f.move({150, 100});
    const Triple before = probe.cameraPosition();
    f.key(Qt::Key_R, "r");
    EXPECT_NE(probe.cameraPosition(), before);
}

} // namespace
} // namespace ovl::test
