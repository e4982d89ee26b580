// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/partscan.h>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using ovl::gallery::Conveyor;
using ovl::gallery::Extent;
using ovl::gallery::extentOf;
using ovl::gallery::HeightMap;
using ovl::gallery::PartScan;

namespace {

TEST(PartScan, GrowsWithTheBelt)
{
    PartScan scan;
    EXPECT_EQ(scan.map().rows, 2) << "no surface has fewer";
    scan.moveTo(Conveyor::kPitch / 4);
    EXPECT_EQ(scan.map().rows, PartScan::kProfiles / 4);
    scan.moveTo(Conveyor::kPitch / 4);
    EXPECT_EQ(scan.map().rows, PartScan::kProfiles / 4) << "a belt that stands brings nothing";
    EXPECT_EQ(scan.partNumber(), 0);
}

TEST(PartScan, APartThatPassesIsFinishedAndTheNextOneBegins)
{
    PartScan scan;
    EXPECT_EQ(scan.finished().rows, PartScan::kProfiles) << "there from the start";
    scan.moveTo(0.75 * Conveyor::kPitch);
    const std::vector<float> before(
        scan.map().heights.begin(), scan.map().heights.begin() + 50 * PartScan::kSamples);
    scan.moveTo(1.01 * Conveyor::kPitch);
    EXPECT_EQ(scan.partNumber(), 1);
    EXPECT_EQ(scan.map().rows, PartScan::kProfiles / 100);
    const HeightMap& whole = scan.finished();
    ASSERT_EQ(whole.rows, PartScan::kProfiles);
    for (std::size_t i = 0; i < before.size(); ++i)
        ASSERT_TRUE(std::isnan(before[i]) || whole.heights[i] == before[i]) << i;
}

TEST(PartScan, GoesBackAndFarOn)
{
    PartScan scan;
    for (const double position : {730.0, 20.0, 150.0}) {
        SCOPED_TRACE(position);
        scan.moveTo(position);
        EXPECT_EQ(scan.partNumber(), Conveyor::partNumber(position));
        EXPECT_EQ(scan.finished().rows, PartScan::kProfiles);
    }
}

TEST(PartScan, TakesItsMemoryOnce)
{
    PartScan scan;
    const float* one = scan.map().heights.data();
    const float* other = scan.finished().heights.data();
    for (int i = 0; i < 50; ++i) {
        scan.moveTo(7.0 * i);
        const float* now = scan.map().heights.data();
        ASSERT_TRUE(now == one || now == other);
    }
}

TEST(PartScan, HoldsThePartWithSomeDropOuts)
{
    PartScan scan;
    const HeightMap& map = scan.finished();
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
