// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/region.h>

#include <cmath>
#include <gtest/gtest.h>

using namespace ovl::gallery;

namespace {

TEST(Box, MovesAsAWhole)
{
    Box box {10, 20, 1, 3};
    box.moveX(5);
    box.moveY(-1);
    EXPECT_EQ(box.left, 15);
    EXPECT_EQ(box.right, 25);
    EXPECT_EQ(box.bottom, 0);
    EXPECT_EQ(box.top, 2);
}

TEST(Box, ResizesByTheSideThatIsHeld)
{
    Box box {10, 20, 1, 3};
    box.resizeX(10, -2);
    EXPECT_EQ(box.left, 8);
    box.resizeX(20, 4);
    EXPECT_EQ(box.right, 24);
    box.resizeX(16, 100); // the middle of the upper or lower side
    EXPECT_EQ(box.left, 8);
    EXPECT_EQ(box.right, 24);
    box.resizeY(3, 1);
    EXPECT_EQ(box.top, 4);
    box.resizeY(1, 0.5);
    EXPECT_EQ(box.bottom, 1.5);
}

TEST(Box, SidesThatCrossedChangePlaces)
{
    Box box {10, 20, 1, 3};
    box.resizeX(10, 15);
    box.resizeY(3, -5);
    box.putInOrder();
    EXPECT_EQ(box.left, 20);
    EXPECT_EQ(box.right, 25);
    EXPECT_EQ(box.bottom, -2);
    EXPECT_EQ(box.top, 1);
}

TEST(Box, EdgesGoRound)
{
    const auto edges = Box {10, 20, 1, 3}.edges();
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(edges[i].to.x, edges[(i + 1) % 4].from.x);
        EXPECT_EQ(edges[i].to.y, edges[(i + 1) % 4].from.y);
    }
    EXPECT_EQ(edges[0].from.x, 10);
    EXPECT_EQ(edges[0].from.y, 1);
    EXPECT_EQ(edges[2].from.x, 20);
    EXPECT_EQ(edges[2].from.y, 3);
}

TEST(Segment, ResizesByTheEndThatIsHeld)
{
    Segment line {{0, 0}, {10, 0}};
    line.resizeX({10, 0}, 5);
    line.resizeY({15, 0}, 8);
    EXPECT_EQ(line.second.x, 15);
    EXPECT_EQ(line.second.y, 8);
    EXPECT_EQ(line.first.x, 0);
    EXPECT_EQ(line.length(), 17);
    line.resizeX({7.5, 4}, 1); // the middle takes both ends along
    EXPECT_EQ(line.first.x, 1);
    EXPECT_EQ(line.second.x, 16);
    line.resizeY({1, 0}, 2);
    EXPECT_EQ(line.first.y, 2);
    EXPECT_EQ(line.second.y, 8);
}

TEST(Segment, PassesPlacesWithinReach)
{
    const Segment line {{0, 0}, {100, 0}};
    EXPECT_TRUE(line.passes({50, 0.9}, 10, 1));
    EXPECT_FALSE(line.passes({50, 1.1}, 10, 1));
    EXPECT_TRUE(line.passes({-9, 0}, 10, 1));
    EXPECT_FALSE(line.passes({-11, 0}, 10, 1));
    EXPECT_FALSE(line.passes({111, 0}, 10, 1));
    const Segment point {{5, 5}, {5, 5}};
    EXPECT_TRUE(point.passes({5, 5.5}, 1, 1));
    EXPECT_FALSE(point.passes({7, 5}, 1, 1));
}

TEST(Statistics, CountOnlyWhatLiesInTheBox)
{
    const std::vector<double> x {0, 1, 2, 3, 4, 5};
    const std::vector<double> y {9, 2, 4, std::nan(""), 6, 100};
    const Statistics found = statisticsIn({1, 5, 0, 10}, x, y);
    EXPECT_EQ(found.count, 3);
    EXPECT_DOUBLE_EQ(found.mean, 4);
    EXPECT_DOUBLE_EQ(found.deviation, 2);
}

TEST(Statistics, OfFewSamples)
{
    EXPECT_EQ(statisticsIn({0, 1, 0, 1}, {}, {}).count, 0);
    const Statistics one = statisticsIn({0, 1, 0, 1}, {0.5}, {0.25});
    EXPECT_EQ(one.count, 1);
    EXPECT_EQ(one.mean, 0.25);
    EXPECT_EQ(one.deviation, 0);
}

} // namespace
