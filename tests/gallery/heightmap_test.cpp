// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/heightmap.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using ovl::gallery::Extent;
using ovl::gallery::extentOf;
using ovl::gallery::HeightMap;

namespace {

const float kNone = std::numeric_limits<float>::quiet_NaN();

HeightMap smallMap()
{
    HeightMap map;
    map.columns = 3;
    map.rows = 2;
    map.xPitch = 100;
    map.yPitch = 50;
    map.heights = {1, 2, 3, 4, kNone, 6};
    map.x = {10, 0.5, 1, QStringLiteral("mm")};
    map.y = {20, -1, 0, QString()};
    map.z = {0, 1, 2, QStringLiteral("m")};
    return map;
}

TEST(HeightMap, DescribesTheNearestSample)
{
    EXPECT_EQ(smallMap().describe(149, 24), QStringLiteral("x 10.5 mm   y 20   z 2.00 m"));
    EXPECT_EQ(smallMap().describe(151, 26), QStringLiteral("x 11.0 mm   y 19   z 6.00 m"));
    EXPECT_EQ(smallMap().describe(100, 50), QStringLiteral("x 10.5 mm   y 19   z -"));
}

TEST(HeightMap, DescribesNothingOutside)
{
    EXPECT_TRUE(smallMap().describe(-51, 0).isEmpty());
    EXPECT_TRUE(smallMap().describe(251, 0).isEmpty());
    EXPECT_TRUE(smallMap().describe(0, 76).isEmpty());
    EXPECT_TRUE(smallMap().describe(std::nan(""), 0).isEmpty());
}

TEST(HeightMap, ColourComesFromTheHeightUnlessThereAreValues)
{
    HeightMap map = smallMap();
    EXPECT_EQ(&map.colouredBy(), &map.heights);
    map.values.assign(6, 1);
    EXPECT_EQ(&map.colouredBy(), &map.values);
}

TEST(Extent, LeavesNanOut)
{
    const Extent extent = extentOf({kNone, 3, -1, kNone, 2, 99}, 5);
    EXPECT_EQ(extent.smallest, -1);
    EXPECT_EQ(extent.largest, 3);
}

TEST(Extent, OfNothingIsNotEmpty)
{
    const Extent extent = extentOf({kNone, 5}, 1);
    EXPECT_EQ(extent.smallest, 0);
    EXPECT_EQ(extent.largest, 1);
}

} // namespace
