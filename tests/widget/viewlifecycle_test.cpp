// SPDX-License-Identifier: BSD-3-Clause
// In which order views, widgets and what they call may come and go.
#include <support/anyview.h>
#include <support/charteventfixture.h>
#include <support/hostfixture.h>
#include <support/residentmemory.h>
#include <visualization/coordinatessender.h>
#include <visualization/imageview.h>
#include <visualization/point.h>
#include <visualization/pointcloudview.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>
#include <visualization/surfaceview.h>

#include <vtkRenderWindow.h>
#include <vtkRendererCollection.h>

#include <QApplication>
#include <QObject>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <utility>

using ovl::CoordinatesSender;
using ovl::ProfileView;
using ovl::Shape;
using ovl::View;
using ovl::test::ChartEventFixture;
using ovl::test::HostFixture;
using ovl::test::kViewKinds;
using ovl::test::makeView;
using ovl::test::nameOf;
using ovl::test::residentBytes;
using ovl::test::ViewKind;

namespace {

constexpr QPointF kMiddle {150.0, 100.0};

/** What a user does with any view: a move, a drag with a button, the wheel, a key. */
void use(HostFixture& host, std::mt19937& random)
{
    constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};
    const auto place = [&] { return QPointF(double(random() % 200U), double(random() % 150U)); };
    host.move(place());
    host.drag(place(), place(), buttons[random() % 3U], 2);
    host.wheel(place(), random() % 2U ? 1 : -1);
}

/** Lets go of what was kept until the end of an event. */
void endEvent() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

int roundsWanted()
{
    const char* wanted = std::getenv("OVL_LIFECYCLE_ROUNDS"); // scripts/torture asks for more
    return wanted ? std::atoi(wanted) : 150;
}

class ViewLifecycle : public testing::TestWithParam<ViewKind> { };

INSTANTIATE_TEST_SUITE_P(EveryView, ViewLifecycle, testing::ValuesIn(kViewKinds),
    [](const auto& parameter) { return nameOf(parameter.param); });

// One after the other

TEST(ViewLifecycle, ViewAfterViewOnOneWidgetKeepsNoMemory)
{
    HostFixture host(QSize(200, 150));
    std::mt19937 random(20261121);
    std::size_t before = 0;
    const int rounds = roundsWanted();
    const int settled = std::min(100, rounds / 2);
    for (int round = 0; round < rounds; ++round) {
        if (round == settled)
            before = residentBytes();
        const auto view
            = makeView(kViewKinds[random() % 4U], host.widget(), static_cast<int>(random() % 9U));
        host.render();
        use(host, random);
        if (random() % 4U == 0U)
            host.resize(QSize(200 + int(random() % 200U), 150 + int(random() % 100U)));
        QApplication::processEvents(); // a chart's scene has a timer
    }
    host.move(kMiddle); // over the widget of a view that has gone
    EXPECT_EQ(host.window()->GetRenderers()->GetNumberOfItems(), 0);
    const std::size_t after = residentBytes();
    std::printf(
        "figure: lifecycle rounds=%d settled_bytes=%zu end_bytes=%zu\n", rounds, before, after);
    EXPECT_LT(after, before + 8 * 1024 * 1024);
}

TEST_P(ViewLifecycle, AViewMayGoInTheMiddleOfADrag)
{
    HostFixture host;
    auto view = makeView(GetParam(), host.widget());
    host.render();
    host.press(kMiddle);
    host.move({160.0, 110.0});
    view.reset();
    host.move({170.0, 120.0});
    host.release({170.0, 120.0});
    view = makeView(GetParam(), host.widget());
    host.render();
    host.drag(kMiddle, {160.0, 110.0});
    EXPECT_TRUE(view->isDirty());
}

// The widget first

TEST_P(ViewLifecycle, AViewSurvivesItsWidget)
{
    HostFixture host;
    const auto view = makeView(GetParam(), host.widget());
    host.render();
    host.move(kMiddle);
    host.destroyWidget();
}

TEST_P(ViewLifecycle, AViewThatWasNeverShownSurvivesItsWidget)
{
    auto widget = std::make_unique<ovl::compat::HostWidget>();
    const auto view = makeView(GetParam(), widget.get());
    widget.reset();
}

TEST(ViewLifecycle, CallsOnAViewWithoutItsWidgetAreInVainAndSafe)
{
    HostFixture host;
    unsigned char pixels[12] = {};
    ovl::ImageView image(host.widget());
    host.render();
    host.destroyWidget();
    image.drawScene(pixels, 4, 3, {1, 0});
    image.resetCamera();
    image.enableLookupTable(true);
    image.redraw();
    EXPECT_TRUE(image.isDirty());
}

template <class ViewType> void callWithoutWidget()
{
    HostFixture host;
    ViewType view(host.widget());
    host.render();
    host.destroyWidget();
    view.setScene(3, 3);
    for (int i = 0; i < 9; ++i)
        view.setPoint(i, i % 3, i / 3, i, i);
    view.drawScene();
    view.resetCamera();
    view.setXScale(2.0);
    EXPECT_TRUE(view.isDirty());
}

TEST(ViewLifecycle, CallsOnAPointCloudWithoutItsWidgetAreInVainAndSafe)
{
    callWithoutWidget<ovl::PointCloudView>();
}

TEST(ViewLifecycle, CallsOnASurfaceWithoutItsWidgetAreInVainAndSafe)
{
    callWithoutWidget<ovl::SurfaceView>();
}

TEST(ViewLifecycle, CallsOnAProfileWithoutItsWidgetAreInVainAndSafe)
{
    HostFixture host;
    ProfileView view(host.widget(), 2);
    host.render();
    host.destroyWidget();
    view.setNumberOfValues(2);
    view.drawPlots();
    view.addShape(Shape());
    view.drawShapes();
    view.resetView();
    EXPECT_TRUE(view.isDirty());
}

// From within its own callbacks

/** Does something once, from a slot of the coordinates' signals. */
class OnCoordinates {
public:
    explicit OnCoordinates(std::function<void()> deed)
        : once(std::move(deed))
    {
        CoordinatesSender* sender = CoordinatesSender::instance();
        const auto act = [this] {
            if (const auto now = std::exchange(once, nullptr))
                now();
        };
        QObject::connect(sender, &CoordinatesSender::signal_clearCoordinates, &context, act);
        QObject::connect(sender, &CoordinatesSender::signal_sendCoordinates, &context, act);
        QObject::connect(sender, &CoordinatesSender::signal_sendSpaceCoordinates, &context, act);
    }

    bool done() const { return !once; }

private:
    QObject context;
    std::function<void()> once;
};

class ViewLifecycleInSlots : public testing::TestWithParam<ViewKind> { };

INSTANTIATE_TEST_SUITE_P(EveryViewThatSends, ViewLifecycleInSlots,
    testing::Values(ViewKind::Image, ViewKind::PointCloud, ViewKind::Surface),
    [](const auto& parameter) { return nameOf(parameter.param); });

TEST_P(ViewLifecycleInSlots, ASlotMayDestroyTheView)
{
    HostFixture host;
    auto view = makeView(GetParam(), host.widget());
    host.render();
    const OnCoordinates slot([&] { view.reset(); });
    host.move(kMiddle);
    EXPECT_TRUE(slot.done());
    host.move({10.0, 10.0});
    endEvent();
    host.move(kMiddle);
    EXPECT_EQ(host.window()->GetRenderers()->GetNumberOfItems(), 0);
}

TEST_P(ViewLifecycleInSlots, ASlotMayDestroyTheViewInTheMiddleOfADrag)
{
    HostFixture host;
    auto view = makeView(GetParam(), host.widget());
    host.render();
    host.press(kMiddle);
    const OnCoordinates slot([&] { view.reset(); });
    host.move({10.0, 10.0});
    EXPECT_TRUE(slot.done());
    host.move(kMiddle);
    host.release(kMiddle);
    endEvent();
}

TEST_P(ViewLifecycleInSlots, ASlotMayPutAnotherViewInItsPlace)
{
    for (const ViewKind next : kViewKinds) {
        SCOPED_TRACE(nameOf(next));
        HostFixture host;
        auto view = makeView(GetParam(), host.widget());
        host.render();
        const OnCoordinates slot([&] {
            view.reset();
            view = makeView(next, host.widget());
            host.render();
        });
        host.move(kMiddle);
        EXPECT_TRUE(slot.done());
        endEvent();
        view->setDirty(false);
        host.drag(kMiddle, {160.0, 110.0});
        EXPECT_TRUE(view->isDirty()); // the mouse is the new view's
    }
}

/** A chart with one shape in the middle, of which a callback destroys the view. */
class ShapeThatDestroys {
public:
    using Choose = std::function<void(Shape&, std::function<void()>)>;

    explicit ShapeThatDestroys(const Choose& choose)
        : view(std::make_unique<ProfileView>(host.widget(), 2))
    {
        Shape shape;
        shape.setInteractive(true);
        shape.setCanDragAlongX(true);
        shape.setHandleVisibility(false);
        ChartEventFixture::addRectangle(shape, 100, 100, 900, 900);
        choose(shape, [this] { view.reset(); });
        view->addShape(shape);
        view->drawShapes();
        view->resetView();
        host.render();
    }

    void use()
    {
        host.move({140.0, 100.0});
        host.move(kMiddle);
        host.drag(kMiddle, {165.0, 105.0}, Qt::LeftButton, 2);
        host.move(kMiddle);
        endEvent();
        host.render();
        host.move(kMiddle);
    }

    HostFixture host;
    std::unique_ptr<ProfileView> view;
};

struct Callback {
    const char* name;
    ShapeThatDestroys::Choose choose;
};

const Callback kCallbacks[] = {
    {"press", [](Shape& shape, auto destroy) { shape.setOnMousePressCallback(destroy); }},
    {"release", [](Shape& shape, auto destroy) { shape.setOnMouseReleaseCallback(destroy); }},
    {"translation",
        [](Shape& shape, auto destroy) {
            shape.setXTranslationCallback([destroy](double) { destroy(); });
        }},
    {"inside",
        [](Shape& shape, auto destroy) {
            shape.setInsidePolygonCallback([destroy](const ovl::Point&) {
                destroy();
                return true;
            });
        }},
    {"tooltip",
        [](Shape& shape, auto destroy) {
            shape.setShapeTooltipCallback([destroy](const ovl::Point&) {
                destroy();
                return QString("gone");
            });
        }},
};

#ifdef NDEBUG
TEST(ViewLifecycle, ACallbackOfAShapeThatDestroysItsViewIsSurvived)
{
    for (const Callback& callback : kCallbacks) {
        SCOPED_TRACE(callback.name);
        ShapeThatDestroys f(callback.choose);
        f.use();
        EXPECT_EQ(f.view, nullptr);
        EXPECT_EQ(f.host.window()->GetRenderers()->GetNumberOfItems(), 0);
    }
}
#else
TEST(ViewLifecycleDeathTest, ACallbackOfAShapeThatDestroysItsViewStopsADebugBuild)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const Callback& callback : kCallbacks) {
        SCOPED_TRACE(callback.name);
        ShapeThatDestroys f(callback.choose);
        EXPECT_DEATH(f.use(), "ProfileView::~ProfileView");
    }
}
#endif

// Side by side

TEST(ViewLifecycle, ViewsOnTwoWindowsDoNotMind)
{
    for (const ViewKind kind : kViewKinds) {
        for (const ViewKind neighbour : kViewKinds) {
            SCOPED_TRACE(std::string(nameOf(kind)) + " beside " + nameOf(neighbour));
            HostFixture left;
            auto right = std::make_unique<HostFixture>();
            const auto first = makeView(kind, left.widget());
            auto second = makeView(neighbour, right->widget());
            left.render();
            right->render();
            first->setDirty(false);
            second->setDirty(false);
            left.drag(kMiddle, {165.0, 110.0});
            EXPECT_TRUE(first->isDirty());
            EXPECT_FALSE(second->isDirty());
            right->drag(kMiddle, {165.0, 110.0});
            EXPECT_TRUE(second->isDirty());
            second.reset();
            right.reset(); // and with it its part of the graphics memory
            left.render();
            left.drag(kMiddle, {140.0, 90.0});
            left.render();
        }
    }
}

TEST(ViewLifecycle, AViewMayGoWhileAnotherWindowIsPainted)
{
    for (const ViewKind kind : kViewKinds) {
        SCOPED_TRACE(nameOf(kind));
        HostFixture left;
        HostFixture right;
        auto first = makeView(kind, left.widget());
        const auto second = makeView(kind, right.widget());
        left.render();
        right.render(); // the other window's graphics context is the present one from here
        first.reset();
        right.render();
        left.render();
        right.move(kMiddle);
        left.move(kMiddle);
    }
}

} // namespace
