// SPDX-License-Identifier: BSD-3-Clause
#include <support/coordinatesrecorder.h>
#include <support/hostfixture.h>
#include <support/messagewatch.h>
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
#include <vtkPropPicker.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <array>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

using ovl::PointCloudView;
using ovl::SurfaceView;
using ovl::test::CoordinatesRecorder;
using ovl::test::MessageWatch;
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

/** A stream whose calls come in an order that chance decides. */
template <class View> class RandomStream : public Stream<View> {
public:
    RandomStream()
    {
        // One sample a pixel: software rasterisers do not always blend an edge.
        this->window()->SetMultiSamples(0);
        this->probe.actor()->GetProperty()->SetPointSize(5.0);
        stockPicker->PickFromListOn();
        stockPicker->AddPickList(this->probe.actor());
        changeSize();
        this->frame(steps);
        this->render();
    }

    int below(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }

    void changeSize()
    {
        constexpr std::array<int, 6> sides = {1, 2, 5, 6, 7, 20};
        this->columns = sides.at(static_cast<std::size_t>(below(6)));
        this->rows = sides.at(static_cast<std::size_t>(below(6)));
    }

    double height()
    {
        const double odd[] = {std::numeric_limits<double>::quiet_NaN(), 0.0, 1e-3,
            std::numeric_limits<double>::infinity()};
        return below(60) == 0 ? odd[below(4)] : below(11);
    }

    void drawFrame()
    {
        constexpr std::array<double, 5> sizes = {1.0, 1.0, 0.1, 100.0, 0.0};
        if (below(2))
            changeSize();
        this->frame([this](int, int) { return height(); },
            sizes.at(static_cast<std::size_t>(below(5))), below(4) ? 0.0 : 1.0e6);
    }

    void setSome()
    {
        const int points = this->columns * this->rows;
        compareMove();
        for (int i = below(2 * points); i >= 0; --i)
            this->set(below(points), [this](int, int) { return height(); });
        this->view->drawScene(); // until then it is open what a repaint finds
        compareMove();
    }

    void changeSetting()
    {
        const double factor = 0.5 * (1 + below(4));
        switch (below(8)) {
        case 0:
            return this->view->setXScale(factor);
        case 1:
            return this->view->setYScale(factor);
        case 2:
            return this->view->setZScale(factor);
        case 3:
            return this->view->setXScaleCorrection(factor);
        case 4:
            return this->view->setZScaleCorrection(factor);
        case 5:
            return this->view->setColorScheme(ovl::ColorScheme(below(5) - 1));
        case 6:
            return this->probe.actor()->GetProperty()->SetRepresentation(below(3));
        default:
            return this->view->resetCamera();
        }
    }

    QPointF place() { return {double(below(300)), double(below(200))}; }

    void useTheWindow()
    {
        switch (below(3)) {
        case 0:
            return this->drag(place(), place());
        case 1:
            return this->wheel(place(), below(2) ? 1 : -1);
        default:
            return this->resize({280 + below(40), 180 + below(40)});
        }
    }

    /** Where one of the points is seen, if it is. */
    QPointF placeOfAPoint()
    {
        vtkPolyData* const data = this->probe.data();
        if (data->GetNumberOfPoints() == 0 || data->GetNumberOfCells() == 0)
            return place();
        auto world = this->probe.point(below(static_cast<int>(data->GetNumberOfPoints())));
        const auto scale = this->probe.scale();
        for (std::size_t axis = 0; axis < 3; ++axis)
            world[axis] *= scale[axis];
        const QPointF seen = this->probe.seenAt(world);
        const bool inside = std::isfinite(seen.x()) && std::isfinite(seen.y())
            && QRectF(this->widget()->rect()).contains(seen);
        return inside ? seen : place();
    }

    /** What a move tells is what the stock picker finds there, in the host's units. */
    void compareMove()
    {
        const QPointF at = below(4) ? placeOfAPoint() : place();
        CoordinatesRecorder told;
        this->move(at);
        const int x = static_cast<int>(at.x());
        const int y = this->widget()->height() - 1 - static_cast<int>(at.y());
        if (stockPicker->Pick(x, y, 0.0, this->renderer()) == 0) {
            EXPECT_TRUE(told.positions.empty() && told.cleared == 1);
            return;
        }
        ASSERT_EQ(told.positions.size(), 1U);
        const double* position = stockPicker->GetPickPosition();
        const double* scale = this->probe.actor()->GetScale();
        EXPECT_EQ(told.positions[0][0], std::round(position[1] / scale[1]));
        EXPECT_EQ(told.positions[0][1], std::round(position[0] / scale[0]));
        EXPECT_EQ(told.positions[0][2], std::round(position[2] / scale[2]));
        ++hits;
    }

    void step()
    {
        const std::array<void (RandomStream::*)(), 8> deeds = {&RandomStream::drawFrame,
            &RandomStream::drawFrame, &RandomStream::setSome, &RandomStream::changeSetting,
            &RandomStream::useTheWindow, &RandomStream::compareMove, &RandomStream::compareMove,
            &RandomStream::expectTheStockPicture};
        const int deed = below(10);
        if (deed == 8)
            this->view->setScene(this->columns, this->rows);
        else if (deed == 9)
            this->view->drawScene();
        else
            (this->*deeds.at(static_cast<std::size_t>(deed)))();
    }

    void expectTheStockPartsAnswersInAnyOrder()
    {
        // The framework's, when data comes and goes, and of a camera that was turned upright.
        MessageWatch::allow("vtkOpenGLRenderTimer");
        MessageWatch::allow("Resetting view-up");
        for (int seed = 0; seed < 3 && !this->HasFailure(); ++seed) {
            random.seed(static_cast<unsigned>(seed));
            for (int i = 0; i < 60 && !this->HasFailure(); ++i) {
                SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << i);
                step();
            }
        }
        EXPECT_GT(hits, 0);
    }

    std::mt19937 random;
    int hits = 0;
    vtkSmartPointer<vtkPropPicker> stockPicker = vtkSmartPointer<vtkPropPicker>::New();
};

using RandomSurface = RandomStream<SurfaceView>;
using RandomCloud = RandomStream<PointCloudView>;

TEST_F(RandomSurface, ShowsAndTellsAsTheStockPartsInAnyOrderOfCalls)
{
    expectTheStockPartsAnswersInAnyOrder();
}

TEST_F(RandomCloud, ShowsAndTellsAsTheStockPartsInAnyOrderOfCalls)
{
    expectTheStockPartsAnswersInAnyOrder();
}

} // namespace
