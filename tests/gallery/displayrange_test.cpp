// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/displayrange.h>

#include <gtest/gtest.h>

using ovl::gallery::DisplayRange;
using ovl::gallery::displayRangeOf;
using ovl::gallery::Image;

namespace {

Image ramp(int count, int step)
{
    Image image;
    image.width = count;
    image.height = 1;
    image.wide = true;
    image.allocate();
    for (int i = 0; i < count; ++i)
        image.setSample(static_cast<std::size_t>(i), static_cast<std::uint16_t>(i * step));
    return image;
}

TEST(DisplayRange, SpansTheSamples)
{
    const DisplayRange range = displayRangeOf(ramp(256, 1));
    EXPECT_EQ(range.darkest, 0);
    EXPECT_EQ(range.brightest, 255);
    EXPECT_EQ(range.shift, 0);
}

TEST(DisplayRange, ShiftBringsTheBrightestIntoAByte)
{
    EXPECT_EQ(displayRangeOf(ramp(257, 1)).shift, 1);
    EXPECT_EQ(displayRangeOf(ramp(4096, 1)).shift, 4);
    EXPECT_EQ(displayRangeOf(ramp(65536, 1)).shift, 8);
}

TEST(DisplayRange, LeavesOutAThousandthAtEachEnd)
{
    Image image = ramp(2000, 1);
    image.setSample(0, 65535); // one hot sample among 2000
    const DisplayRange range = displayRangeOf(image);
    EXPECT_EQ(range.brightest, 1998); // the hot one and the one below it are left out
    EXPECT_EQ(range.darkest, 3); // 1 and 2 are left out
}

TEST(DisplayRange, IsNeverEmpty)
{
    const DisplayRange range = displayRangeOf(ramp(10, 0));
    EXPECT_EQ(range.darkest, 0);
    EXPECT_EQ(range.brightest, 1);
}

TEST(DisplayRange, OfNoSamplesIsThatOfBytes)
{
    const DisplayRange range = displayRangeOf(Image {});
    EXPECT_EQ(range.darkest, 0);
    EXPECT_EQ(range.brightest, 255);
}

} // namespace
