// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/framemeter.h>

#include <gtest/gtest.h>

using ovl::gallery::FrameMeter;

namespace {

TEST(FrameMeter, NothingIsMeasuredBeforeTheSecondFrame)
{
    FrameMeter meter;
    EXPECT_EQ(meter.rate(1000), 0);
    meter.addFrame(1000);
    EXPECT_EQ(meter.rate(1001), 0);
}

TEST(FrameMeter, EvenFramesGiveTheirRate)
{
    FrameMeter meter;
    for (int i = 0; i <= 50; ++i)
        meter.addFrame(1000 + 40 * i);
    EXPECT_NEAR(meter.rate(3000), 25.0, 1e-9);
}

TEST(FrameMeter, OneLateFrameMovesTheRateALittle)
{
    FrameMeter meter;
    for (int i = 0; i <= 50; ++i)
        meter.addFrame(40 * i);
    meter.addFrame(2000 + 120);
    // 40 + 0.15 * 80 ms
    EXPECT_NEAR(meter.rate(2120), 1000.0 / 52, 1e-9);
}

TEST(FrameMeter, APauseCountsBeforeItsEnd)
{
    FrameMeter meter;
    for (int i = 0; i <= 10; ++i)
        meter.addFrame(40 * i);
    EXPECT_NEAR(meter.rate(400 + 1000), 1.0, 1e-9);
}

TEST(FrameMeter, AStillPictureHasNoRateAndTheNextRunBeginsAnew)
{
    FrameMeter meter;
    for (int i = 0; i <= 10; ++i)
        meter.addFrame(100 * i);
    EXPECT_EQ(meter.rate(3000), 0);
    meter.addFrame(9000);
    EXPECT_EQ(meter.rate(9000), 0);
    meter.addFrame(9020);
    EXPECT_NEAR(meter.rate(9020), 50.0, 1e-9);
}

TEST(FrameMeter, TwoFramesWithinTheClocksResolutionAreNoInfinity)
{
    FrameMeter meter;
    meter.addFrame(5);
    meter.addFrame(5);
    EXPECT_LE(meter.rate(5), 2000.0);
}

} // namespace
