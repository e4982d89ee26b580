// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/linescancamera.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

using ovl::gallery::CameraKind;
using ovl::gallery::LineScanCamera;

namespace {

using Samples = std::vector<std::uint16_t>;

Samples rows(LineScanCamera& camera, int first, int count)
{
    const int length = camera.width() * camera.components();
    const std::uint16_t* from = camera.frame() + first * length;
    return Samples(from, from + count * length);
}

TEST(LineScanCamera, LinesMoveUpThroughTheFrame)
{
    LineScanCamera camera(64, 50, CameraKind::Mono);
    // More than a whole turn of the camera's memory, in steps that do not divide it.
    for (int i = 0; i < 20; ++i) {
        SCOPED_TRACE(i);
        const Samples before = rows(camera, 7, 43);
        camera.advance(7);
        EXPECT_EQ(rows(camera, 0, 43), before);
    }
}

TEST(LineScanCamera, SamplesFillTwelveBits)
{
    LineScanCamera camera(256, 200, CameraKind::Colour);
    const Samples frame = rows(camera, 0, 200);
    const auto [darkest, brightest] = std::minmax_element(frame.begin(), frame.end());
    EXPECT_LT(*darkest, 200);
    EXPECT_EQ(*brightest, LineScanCamera::kWhite);
}

TEST(LineScanCamera, ColourHasThreeChannelsThatDiffer)
{
    LineScanCamera camera(256, 200, CameraKind::Colour);
    EXPECT_EQ(camera.components(), 3);
    const Samples frame = rows(camera, 0, 200);
    int blueAboveRed = 0; // the slot
    int redAboveBlue = 0; // the boss and the pads
    for (std::size_t i = 0; i < frame.size(); i += 3) {
        blueAboveRed += frame[i] > frame[i + 2] + 500 ? 1 : 0;
        redAboveBlue += frame[i + 2] > frame[i] + 500 ? 1 : 0;
    }
    EXPECT_GT(blueAboveRed, 100);
    EXPECT_GT(redAboveBlue, 1000);
}

TEST(LineScanCamera, TwoCamerasSeeTheSame)
{
    LineScanCamera one(64, 50, CameraKind::Mono);
    LineScanCamera other(64, 50, CameraKind::Mono);
    EXPECT_EQ(rows(one, 0, 50), rows(other, 0, 50));
}

TEST(LineScanCamera, PixelsAreSquare)
{
    LineScanCamera camera(128, 10, CameraKind::Mono);
    const double start = camera.position();
    camera.advance(5);
    EXPECT_DOUBLE_EQ(camera.position() - start, 5.0); // 128 mm across in 128 pixels
}

TEST(LineScanCamera, RangesAreHeightsWithGapsWhereNoLightComesBack)
{
    LineScanCamera camera(256, 200, CameraKind::Range);
    EXPECT_EQ(camera.components(), 1);
    const Samples frame = rows(camera, 0, 200);
    const int boss = 11 * LineScanCamera::kCountsPerMillimetre; // the highest of the part
    EXPECT_NEAR(*std::max_element(frame.begin(), frame.end()), boss, 200);
    const auto lost = std::count(frame.begin(), frame.end(), 0);
    EXPECT_GT(lost, 50);
    EXPECT_LT(lost, 256 * 200 / 4);
}

TEST(LineScanCamera, FollowsTheBelt)
{
    LineScanCamera camera(128, 40, CameraKind::Range);
    camera.moveTo(60);
    EXPECT_NEAR(camera.position(), 60, 0.5);
    camera.moveTo(63.2); // less than a frame: the lines move up
    EXPECT_NEAR(camera.position(), 63.2, 0.5);
    camera.moveTo(500);
    EXPECT_NEAR(camera.position(), 500, 0.5);
    camera.moveTo(10);
    EXPECT_NEAR(camera.position(), 10, 0.5);
}

} // namespace
