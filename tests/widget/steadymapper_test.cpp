// SPDX-License-Identifier: BSD-3-Clause
#include <support/hostfixture.h>
#include <support/spaceprobe.h>
#include <support/stockpicture.h>
#include <visualization/pointcloudview.h>
#include <visualization/steadymapper.h>
#include <visualization/surfaceview.h>

#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkMapper.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <array>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

using ovl::PointCloudView;
using ovl::SurfaceView;
using ovl::test::SpaceProbe;
using ovl::test::stockPicture;
using ovl::test::ViewFixture;

namespace {

/** Height and value of the sample at column i and row j. */
using Sheet = std::function<double(int, int)>;

struct Change {
    std::string name;
    std::function<void()> make;
};

double steps(int i, int j) { return (i * 7 + j * 3) % 11; }
double slope(int i, int j) { return 0.5 * i + j; }

/** Frames of a stream on one view, each compared with the framework's own mapper. */
template <class View> class Stream : public ViewFixture<View>, public testing::Test {
public:
    void frame(const Sheet& sheet, double size = 1.0, double origin = 0.0)
    {
        this->view->setScene(columns, rows);
        for (int index = 0; index < columns * rows; ++index)
            set(index, sheet, size, origin);
        const double length = size > 0.0 ? size * columns : 1.0; // axes need a length
        for (const int axis : {0, 1, 2})
            this->view->range(axis).set(origin, origin + length);
        this->view->range(3).set(0.0, 12.0);
        this->view->drawScene();
        this->view->resetCamera();
        probe.camera()->Zoom(4.0);
    }

    void set(int index, const Sheet& sheet, double size = 1.0, double origin = 0.0)
    {
        const int i = index % columns;
        const int j = index / columns;
        const double height = sheet(i, j);
        if (std::isnan(height))
            this->view->setNanPoint(index);
        else
            this->view->setPoint(
                index, origin + size * i, origin + size * j, origin + size * height, height);
    }

    void expectTheStockPicture()
    {
        this->render();
        const QImage ours = this->picture();
        const std::array<double, 6> bounds = shownBounds();
        const QImage stock = stockPicture(*this, probe.actor());
        EXPECT_TRUE(ours == stock);
        double expected[6];
        probe.data()->GetCellsBounds(expected);
        for (std::size_t end = 0; end < 6; ++end)
            EXPECT_EQ(bounds[end], expected[end]) << end;
    }

    std::array<double, 6> shownBounds()
    {
        std::array<double, 6> bounds;
        probe.mapper()->GetBounds(bounds.data());
        return bounds;
    }

    std::vector<Change> changes()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        vtkProperty* property = probe.actor()->GetProperty();
        return {
            {"first frame", [this] { frame(steps); }},
            {"other heights", [this] { frame(slope); }},
            {"nothing new", [this] { this->view->drawScene(); }},
            {"other colours", [this] { this->view->setColorScheme(ovl::ColorScheme::SPECTRUM); }},
            {"far from the origin", [this] { frame(steps, 1.0, 1.0e6); }},
            {"too small to be fitted", [this] { frame(steps, 0.1); }},
            {"large again", [this] { frame(slope, 100.0); }},
            {"a hole",
                [this, nan] {
                    frame([=](int i, int j) { return i == 3 && j < 9 ? nan : steps(i, j); });
                }},
            {"no hole", [this] { frame(steps); }},
            {"all in one point", [this] { frame(slope, 0.0, 5.0); }},
            {"spread again", [this] { frame(slope); }},
            {"lines", [property] { property->SetRepresentationToWireframe(); }},
            {"lines of other heights", [this] { frame(steps); }},
            {"points", [property] { property->SetRepresentationToPoints(); }},
            {"points of other heights", [this] { frame(slope); }},
            {"filled", [property] { property->SetRepresentationToSurface(); }},
            {"with edges", [property] { property->EdgeVisibilityOn(); }},
            {"edges of other heights", [this] { frame(steps); }},
            {"without edges", [property] { property->EdgeVisibilityOff(); }},
            {"a larger grid",
                [this] {
                    columns = 31;
                    rows = 17;
                    frame(slope);
                }},
            {"a smaller grid",
                [this] {
                    columns = 8;
                    rows = 21;
                    frame(steps);
                }},
            {"as many in another shape",
                [this] {
                    columns = 21;
                    rows = 8;
                    frame(steps);
                }},
            {"lost buffers", [this] { probe.mapper()->ReleaseGraphicsResources(this->window()); }},
            {"the frame after", [this] { frame(slope); }},
        };
    }

    void expectTheStockPictureAfterEachChange()
    {
        for (const Change& change : changes()) {
            SCOPED_TRACE(change.name);
            change.make();
            expectTheStockPicture();
        }
    }

    SpaceProbe probe {*this};
    int columns = 20;
    int rows = 14;
};

using SteadySurface = Stream<SurfaceView>;
using SteadyCloud = Stream<PointCloudView>;

TEST_F(SteadySurface, EveryChangeShowsAsByTheStockMapper)
{
    expectTheStockPictureAfterEachChange();
}

TEST_F(SteadyCloud, EveryChangeShowsAsByTheStockMapper)
{
    probe.actor()->GetProperty()->SetPointSize(3.0);
    expectTheStockPictureAfterEachChange();
}

TEST_F(SteadySurface, APictureIsNoEmptyOne)
{
    frame(steps);
    render();
    const QImage first = picture();
    frame(slope);
    render();
    EXPECT_FALSE(first == picture());
}

TEST_F(SteadyCloud, PointsOutOfOrderOrLeftOutShowAsByTheStockMapper)
{
    probe.actor()->GetProperty()->SetPointSize(3.0);
    frame(steps);
    expectTheStockPicture();
    for (const int left : {0, 1, 100}) {
        SCOPED_TRACE(left);
        view->setScene(columns, rows);
        for (int index = columns * rows; index-- > left;)
            set(index, slope);
        view->drawScene();
        expectTheStockPicture();
    }
    view->setScene(columns, rows);
    for (int index = 0; index < columns * rows / 2; ++index)
        set(index, slope);
    view->drawScene();
    expectTheStockPicture();
    frame(steps);
    expectTheStockPicture();
}

TEST_F(SteadySurface, TheMapperThatDrawsIsASteadyOne)
{
    auto* mapper = ovl::SteadyDataSetMapper::SafeDownCast(probe.mapper());
    ASSERT_NE(mapper, nullptr);
    EXPECT_EQ(mapper->GetPolyDataMapper(), mapper->inner());
}

} // namespace
