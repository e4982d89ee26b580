// SPDX-License-Identifier: BSD-3-Clause
// Sees the libraries as a host does: linked, and through their public headers.
#include <hosting/viewwidget.h>
#include <support/patience.h>
#include <visualization/coordinatessender.h>
#include <visualization/imageview.h>

#include <QMouseEvent>
#include <QOpenGLWidget>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <gtest/gtest.h>
#include <vector>

using ovl::CoordinatesSender;
using ovl::ImageView;
using ovl::hosting::ViewWidget;
using ovl::test::kPatience;

namespace {

class ImageHost : public testing::Test {
protected:
    void show()
    {
        widget.resize(200, 100);
        widget.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget, kPatience));
    }

    void draw(unsigned char grey)
    {
        pixels.assign(200, grey);
        widget.view().drawScene(pixels.data(), 20, 10, {1, 0});
    }

    /** Since the last time; a window that is slow to show may have been rendered meanwhile. */
    bool waitUntilRendered()
    {
        const bool isRendered = !rendered.isEmpty() || rendered.wait(kPatience);
        rendered.clear();
        return isRendered;
    }

    QColor middle() { return widget.surface()->grabFramebuffer().pixelColor(100, 50); }

    void send(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, at, button, held, Qt::NoModifier);
        QApplication::sendEvent(widget.surface(), &event);
    }

    std::vector<unsigned char> pixels;
    ViewWidget<ImageView> widget;
    QSignalSpy rendered {&widget, &ovl::hosting::AbstractViewWidget::rendered};
};

TEST_F(ImageHost, RendersWhatWasDrawnAndClearsTheFlag)
{
    draw(120);
    EXPECT_TRUE(widget.view().isDirty());
    show();
    ASSERT_TRUE(waitUntilRendered());
    EXPECT_FALSE(widget.view().isDirty());
    EXPECT_EQ(middle(), QColor(120, 120, 120));
}

TEST_F(ImageHost, RendersAgainOnlyWhenTheViewIsDirty)
{
    draw(120);
    show();
    ASSERT_TRUE(waitUntilRendered());
    EXPECT_FALSE(rendered.wait(100));
    draw(40);
    ASSERT_TRUE(waitUntilRendered());
    EXPECT_EQ(middle(), QColor(40, 40, 40));
}

TEST_F(ImageHost, MouseWorksFromTheFirstRenderOn)
{
    show();
    ASSERT_TRUE(waitUntilRendered()) << "the first render comes without a dirty view";
    draw(120);
    ASSERT_TRUE(waitUntilRendered());
    QSignalSpy told(CoordinatesSender::instance(), &CoordinatesSender::signal_sendCoordinates);
    send(QEvent::MouseMove, {100, 50}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(told.count(), 1);
    send(QEvent::MouseButtonPress, {100, 50}, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, {110, 50}, Qt::NoButton, Qt::LeftButton);
    EXPECT_TRUE(widget.view().isDirty());
    ASSERT_TRUE(waitUntilRendered());
    EXPECT_FALSE(widget.view().isDirty());
}

TEST_F(ImageHost, WhileHiddenTheFlagStaysUp)
{
    draw(120);
    widget.render();
    EXPECT_TRUE(widget.view().isDirty());
    EXPECT_EQ(rendered.count(), 0);
}

TEST_F(ImageHost, RenderDrawsAtOnce)
{
    draw(120);
    show();
    ASSERT_TRUE(waitUntilRendered());
    draw(60);
    rendered.clear();
    widget.render();
    EXPECT_EQ(rendered.count(), 1);
    EXPECT_FALSE(widget.view().isDirty());
    EXPECT_EQ(middle(), QColor(60, 60, 60));
}

TEST_F(ImageHost, MouseEventsDoNotReachTheParent)
{
    class Parent : public QWidget {
    public:
        int presses = 0;

    protected:
        void mousePressEvent(QMouseEvent*) override { ++presses; }
    };
    Parent parent;
    widget.setParent(&parent);
    parent.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&parent, kPatience));
    send(QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(parent.presses, 0);
    widget.setParent(nullptr);
}

TEST(ViewWidget, TwoWindowsSideBySide)
{
    std::vector<unsigned char> bright(100, 200);
    std::vector<unsigned char> dark(100, 50);
    ViewWidget<ImageView> left;
    ViewWidget<ImageView> right;
    QSignalSpy leftRendered(&left, &ovl::hosting::AbstractViewWidget::rendered);
    QSignalSpy rightRendered(&right, &ovl::hosting::AbstractViewWidget::rendered);
    left.view().drawScene(bright.data(), 10, 10, {1, 0});
    right.view().drawScene(dark.data(), 10, 10, {1, 0});
    for (auto* widget : {&left, &right}) {
        widget->resize(100, 100);
        widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(widget, kPatience));
    }
    ASSERT_TRUE(!leftRendered.isEmpty() || leftRendered.wait(kPatience));
    ASSERT_TRUE(!rightRendered.isEmpty() || rightRendered.wait(kPatience));
    EXPECT_EQ(left.surface()->grabFramebuffer().pixelColor(50, 50).red(), 200);
    EXPECT_EQ(right.surface()->grabFramebuffer().pixelColor(50, 50).red(), 50);
}

} // namespace
