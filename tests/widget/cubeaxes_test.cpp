// SPDX-License-Identifier: BSD-3-Clause
#include <support/hostfixture.h>
#include <visualization/cubeaxes.h>

#include <vtkAxisActor.h>
#include <vtkCamera.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <array>
#include <gtest/gtest.h>
#include <ostream>

using ovl::CubeAxes;
using ovl::test::HostFixture;

namespace {

/** Tells how many steps the framework takes along Y. */
class CountedAxes : public CubeAxes {
public:
    static CountedAxes* New()
    {
        auto* axes = new CountedAxes;
        axes->InitializeObjectBase();
        return axes;
    }

    double stepsAlongY() const
    {
        vtkAxisActor* axis = YAxes[0];
        return (axis->GetPoint2()[1] - axis->GetMajorStart(1)) / axis->GetDeltaMajor(1);
    }
};

/** A range of Y and its scale. */
struct Along {
    double min;
    double max;
    double scale;
};

std::ostream& operator<<(std::ostream& out, const Along& y)
{
    return out << y.min << " to " << y.max << " times " << y.scale;
}

/** A box of axes in a window: -18 to 18, what is asked for, and -11 to 0. */
class AxesFixture : public HostFixture, public testing::TestWithParam<Along> {
public:
    AxesFixture() { window()->AddRenderer(renderer); }
    ~AxesFixture() override { window()->RemoveRenderer(renderer); }

    static void tell(vtkCubeAxesActor* axes, const Along& y)
    {
        axes->SetXAxisRange(-18.0, 18.0);
        axes->SetYAxisRange(y.min, y.max);
        axes->SetZAxisRange(-11.0, 0.0);
        axes->SetBounds(-18.0, 18.0, y.min * y.scale, y.max * y.scale, -11.0, 0.0);
    }

    QImage pictureOf(vtkCubeAxesActor* axes, const Along& y)
    {
        tell(axes, y);
        axes->SetCamera(renderer->GetActiveCamera());
        axes->DrawYGridlinesOn();
        renderer->RemoveAllViewProps();
        renderer->AddActor(axes);
        vtkCamera* camera = renderer->GetActiveCamera();
        camera->SetPosition(0.0, 0.0, 1.0);
        camera->SetFocalPoint(0.0, 0.0, 0.0);
        camera->SetViewUp(0.0, 1.0, 0.0);
        renderer->ResetCamera();
        camera->Azimuth(30.0);
        camera->Elevation(30.0);
        renderer->ResetCameraClippingRange();
        render();
        return picture();
    }

    vtkSmartPointer<vtkRenderer> renderer = vtkSmartPointer<vtkRenderer>::New();
    vtkSmartPointer<CountedAxes> counted = vtkSmartPointer<CountedAxes>::New();
};

bool showsSomething(const QImage& picture)
{
    QImage black(picture.size(), picture.format());
    black.fill(Qt::black);
    return picture != black;
}

TEST(CubeAxes, IsTheFrameworksBox)
{
    const auto axes = vtkSmartPointer<CubeAxes>::New();
    EXPECT_STREQ(axes->GetClassName(), "CubeAxes");
    EXPECT_TRUE(axes->IsA("vtkCubeAxesActor"));
}

// ---- Axes whose ends are next to each other ----------------------------------------------------

class FlatAxes : public AxesFixture { };

TEST_P(FlatAxes, HaveNoLines)
{
    pictureOf(counted, GetParam());
    EXPECT_LT(counted->stepsAlongY(), 0.0);
}

TEST_P(FlatAxes, AreToldAsTheyWereSet)
{
    pictureOf(counted, GetParam());
    const Along& y = GetParam();
    EXPECT_EQ(counted->GetYAxisRange()[0], y.min);
    EXPECT_EQ(counted->GetYAxisRange()[1], y.max);
    EXPECT_EQ(counted->GetBounds()[2], y.min * y.scale);
    EXPECT_EQ(counted->GetBounds()[3], y.max * y.scale);
    EXPECT_EQ(counted->GetXAxisRange()[1], 18.0);
    EXPECT_EQ(counted->GetZAxisRange()[0], -11.0);
    EXPECT_EQ(counted->GetBounds()[1], 18.0);
    EXPECT_EQ(counted->GetBounds()[4], -11.0);
}

INSTANTIATE_TEST_SUITE_P(OfOneValue, FlatAxes,
    testing::Values(Along {41.0, 41.0, 1.0}, Along {41.0, 41.0, 100.0}, Along {-41.0, -41.0, 100.0},
        Along {41.0, 41.0, -100.0}, Along {41.0, 41.0, 1e5}, Along {41.0, 41.0, 1e40}));
INSTANTIATE_TEST_SUITE_P(FarFromZero, FlatAxes,
    testing::Values(Along {1e9, 1e9 + 10.0, 1.0}, Along {1e10, 1e10 + 10.0, 1.0},
        Along {-1e10 - 10.0, -1e10, 1.0}, Along {1e10 + 10.0, 1e10, 1.0},
        Along {1e17, 1e17 + 16.0, 1.0}, Along {41.0, 41.000000000041, 1e5}));

TEST_F(AxesFixture, TheOthersAreSeenBesideAFlatAxis)
{
    EXPECT_TRUE(showsSomething(pictureOf(counted, {41.0, 41.0, 100.0})));
}

TEST_F(AxesFixture, AFlatAxisLooksLikeOneOfASingleValue)
{
    const QImage stock = pictureOf(vtkSmartPointer<vtkCubeAxesActor>::New(), {41.0, 41.0, 1.0});
    ASSERT_TRUE(showsSomething(stock));
    EXPECT_EQ(pictureOf(counted, {41.0, 41.0, 1.0}), stock);
}

// ---- All others --------------------------------------------------------------------------------

class OrdinaryAxes : public AxesFixture { };

TEST_P(OrdinaryAxes, ArePaintedAsTheFrameworkPaintsThem)
{
    const QImage stock = pictureOf(vtkSmartPointer<vtkCubeAxesActor>::New(), GetParam());
    ASSERT_TRUE(showsSomething(stock));
    EXPECT_EQ(pictureOf(counted, GetParam()), stock);
}

INSTANTIATE_TEST_SUITE_P(OfAnyWidth, OrdinaryAxes,
    testing::Values(Along {0.0, 10.0, 1.0}, Along {10.0, 0.0, 1.0}, Along {0.0, 10.0, 3.0},
        Along {0.0, 0.0, 1e5}, Along {1e7, 1e7 + 10.0, 1.0}, Along {-2e-3, 5e-3, 1e3}));

TEST_F(AxesFixture, AnOrdinaryAxisIsNotBuiltAgainForEveryPicture)
{
    pictureOf(counted, {0.0, 10.0, 1.0});
    const vtkMTimeType changed = counted->GetMTime();
    render();
    EXPECT_EQ(counted->GetMTime(), changed);
}

} // namespace
