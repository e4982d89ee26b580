// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/partscan.h>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using ovl::gallery::Extent;
using ovl::gallery::extentOf;
using ovl::gallery::HeightMap;
using ovl::gallery::PartScan;

namespace {

TEST(PartScan, GrowsFromTwoRowsToTheWholePart)
{
    PartScan scan;
    EXPECT_EQ(scan.map().rows, 2) << "no surface has fewer";
    scan.advance(10);
    EXPECT_EQ(scan.map().rows, 12);
    EXPECT_FALSE(scan.isComplete());
    scan.advance(1000);
    EXPECT_EQ(scan.map().rows, PartScan::kProfiles);
    EXPECT_TRUE(scan.isComplete());
}

TEST(PartScan, BeginsTheNextPartAfterAWholeOne)
{
    PartScan scan;
    scan.advance(PartScan::kProfiles);
    EXPECT_EQ(scan.partNumber(), 0);
    scan.advance(1);
    EXPECT_EQ(scan.partNumber(), 1);
    EXPECT_EQ(scan.map().rows, 2);
}

TEST(PartScan, TakesItsMemoryOnce)
{
    PartScan scan;
    const float* heights = scan.map().heights.data();
    for (int i = 0; i < 50; ++i)
        scan.advance(20);
    EXPECT_EQ(scan.map().heights.data(), heights);
}

TEST(PartScan, HoldsThePartWithSomeDropOuts)
{
    PartScan scan;
    scan.advance(PartScan::kProfiles);
    const HeightMap& map = scan.map();
    const Extent extent = extentOf(map.heights, map.samples());
    EXPECT_NEAR(extent.smallest, 0.0, 0.1) << "the belt";
    EXPECT_NEAR(extent.largest, 11.0, 0.1) << "the boss";
    const auto lost = std::count_if(
        map.heights.begin(), map.heights.end(), [](float height) { return std::isnan(height); });
    EXPECT_GT(lost, 3000);
    EXPECT_LT(lost, 30000) << "of 300000";
    for (std::size_t i = 0; i < map.samples(); ++i)
        ASSERT_EQ(std::isnan(map.heights[i]), std::isnan(map.values[i]));
}

} // namespace
