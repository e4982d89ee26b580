// SPDX-License-Identifier: BSD-3-Clause
#include <support/coordinatesrecorder.h>
#include <visualization/coordinatessender.h>

#include <QMetaMethod>

#include <gtest/gtest.h>
#include <type_traits>

using ovl::CoordinatesSender;
using ovl::test::CoordinatesRecorder;

namespace {

QByteArray signalText(int index)
{
    const QMetaObject& meta = CoordinatesSender::staticMetaObject;
    const QMetaMethod method = meta.method(meta.methodOffset() + index);
    QByteArray text = method.name() + '(';
    for (int i = 0; i < method.parameterCount(); ++i)
        text += (i ? ", " : "") + method.parameterTypes().at(i) + ' '
            + method.parameterNames().at(i);
    return text + ')';
}

TEST(CoordinatesSender, SendCoordinateEmitsThePixel)
{
    CoordinatesRecorder recorder;
    CoordinatesSender::sendCoordinate(3, 7);
    EXPECT_EQ(recorder.pixels, (std::vector<std::pair<int, int>> {{3, 7}}));
    EXPECT_TRUE(recorder.positions.empty());
    EXPECT_EQ(recorder.cleared, 0);
}

TEST(CoordinatesSender, SendSpaceCoordinateEmitsThePosition)
{
    CoordinatesRecorder recorder;
    CoordinatesSender::sendSpaceCoordinate(1.0, -2.0, 3.5);
    EXPECT_EQ(recorder.positions, (std::vector<std::array<double, 3>> {{1.0, -2.0, 3.5}}));
    EXPECT_TRUE(recorder.pixels.empty());
    EXPECT_EQ(recorder.cleared, 0);
}

TEST(CoordinatesSender, ClearCoordinatesEmitsEveryTime)
{
    CoordinatesRecorder recorder;
    CoordinatesSender::clearCoordinates();
    CoordinatesSender::clearCoordinates();
    EXPECT_EQ(recorder.cleared, 2);
    EXPECT_TRUE(recorder.pixels.empty());
    EXPECT_TRUE(recorder.positions.empty());
}

TEST(CoordinatesSender, WithNothingConnectedTheOperationsDoNothing)
{
    CoordinatesSender::sendCoordinate(1, 2);
    CoordinatesSender::sendSpaceCoordinate(1.0, 2.0, 3.0);
    CoordinatesSender::clearCoordinates();
    CoordinatesRecorder recorder;
    EXPECT_TRUE(recorder.pixels.empty());
    EXPECT_TRUE(recorder.positions.empty());
    EXPECT_EQ(recorder.cleared, 0);
}

TEST(CoordinatesSender, InstanceIsTheSameOnEveryCall)
{
    ASSERT_NE(CoordinatesSender::instance(), nullptr);
    EXPECT_EQ(CoordinatesSender::instance(), CoordinatesSender::instance());
    EXPECT_EQ(CoordinatesSender::instance()->parent(), nullptr);
}

TEST(CoordinatesSender, ClassNameCarriesTheNamespace)
{
    CoordinatesSender* sender = CoordinatesSender::instance();
    EXPECT_STREQ(sender->metaObject()->className(), "ovl::CoordinatesSender");
    EXPECT_EQ(sender->qt_metacast("ovl::CoordinatesSender"), static_cast<void*>(sender));
}

TEST(CoordinatesSender, SignalsStandInTheirOrderWithTheirParameterNames)
{
    const QMetaObject& meta = CoordinatesSender::staticMetaObject;
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 3);
    EXPECT_EQ(signalText(0), "signal_clearCoordinates()");
    EXPECT_EQ(signalText(1), "signal_sendCoordinates(int x, int y)");
    EXPECT_EQ(signalText(2), "signal_sendSpaceCoordinates(double x, double y, double z)");
    for (int index = 0; index < 3; ++index)
        EXPECT_EQ(meta.method(meta.methodOffset() + index).methodType(), QMetaMethod::Signal);
}

TEST(CoordinatesSender, HasNoPropertiesOfItsOwn)
{
    const QMetaObject& meta = CoordinatesSender::staticMetaObject;
    EXPECT_EQ(meta.propertyCount(), meta.propertyOffset());
}

TEST(CoordinatesSender, OnlyTheLibraryMakesOne)
{
    EXPECT_FALSE(std::is_default_constructible_v<CoordinatesSender>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CoordinatesSender>);
}

} // namespace
