// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/axisscale.h>

#include <cmath>
#include <gtest/gtest.h>

using namespace ovl::gallery;

namespace {

void expectRange(const HomeRange& range, int from, int to)
{
    EXPECT_EQ(range.from, from);
    EXPECT_EQ(range.to, to);
}

TEST(AxisScale, MostDataAreLeftAlone)
{
    EXPECT_EQ(exponentFor({0, 4}), 0);
    EXPECT_EQ(exponentFor({-1000, 1000}), 0);
    EXPECT_EQ(exponentFor({5, 5}), 0) << "no extent to go by";
    EXPECT_EQ(exponentFor({0, 0}), 0);
}

TEST(AxisScale, SmallExtentsGrowUntilWholeNumbersFrameThem)
{
    EXPECT_EQ(exponentFor({0, 1}), 2); // 0 to 100
    EXPECT_EQ(exponentFor({0, 0.001}), 5); // 0 to 100
    EXPECT_EQ(exponentFor({-1, 1}), 2); // -100 to 100: ten times four at least
}

TEST(AxisScale, TheLeastNumbersGrowNoFurtherThanAFactorReaches)
{
    EXPECT_EQ(exponentFor({0, 1e-320}), 300);
    EXPECT_EQ(exponentFor({-1e-320, 0}), 300);
}

TEST(AxisScale, GreatNumbersShrinkUntilTheyFit)
{
    EXPECT_EQ(exponentFor({0, 1e12}), -4);
    EXPECT_EQ(exponentFor({5e7, 5e7 + 1}), 0) << "rather coarse than too great";
}

TEST(AxisScale, HomeRangeHasRoom)
{
    expectRange(homeRangeFor({0, 10}, 0), 0, 10);
    expectRange(homeRangeFor({-2.5, 7.5}, 0.1), -4, 9);
    expectRange(homeRangeFor({3, 3}, 0.1), 3, 4);
}

/** What the view makes of home ranges in a window that is wider than high. */
HomeRange widened(const HomeRange& bottom, const HomeRange& left, int width, int height)
{
    const double extent = left.to - left.from;
    const double delta = std::abs(extent * (static_cast<double>(height) / width) - extent) * 0.5;
    return {static_cast<int>(bottom.from - delta), static_cast<int>(bottom.to + delta)};
}

TEST(AxisScale, WideningIsTakenOffInAdvance)
{
    for (const HomeRange wanted : {HomeRange {0, 10}, {-20, 30}, {100, 128}, {-9, -1}})
        for (const HomeRange left : {HomeRange {0, 4095}, {-3, 3}, {0, 14}})
            for (const int width : {500, 801, 973, 1920}) {
                SCOPED_TRACE(width);
                const HomeRange asked = beforeWidening(wanted, left, width, 400);
                const HomeRange shown = widened(asked, left, width, 400);
                EXPECT_LE(shown.from, wanted.from);
                EXPECT_GE(shown.from, wanted.from - 1);
                EXPECT_GE(shown.to, wanted.to);
                EXPECT_LE(shown.to, wanted.to + 1);
            }
}

TEST(AxisScale, NothingIsTakenOffTheShorterSide)
{
    expectRange(beforeWidening({0, 10}, {0, 1000}, 400, 800), 0, 10);
    expectRange(beforeWidening({0, 10}, {0, 1000}, 400, 400), 0, 10);
    expectRange(beforeWidening({0, 10}, {0, 1000}, 0, 0), 0, 10);
}

TEST(AxisScale, ExtentsLeaveNanOut)
{
    const Extent extent = extentOf(std::vector<double> {std::nan(""), 3, -2});
    EXPECT_EQ(extent.smallest, -2);
    EXPECT_EQ(extent.largest, 3);
    const Extent none = extentOf(std::vector<double> {std::nan("")});
    EXPECT_EQ(none.smallest, 0);
    EXPECT_EQ(none.largest, 1);
    const Extent both = united({0, 2}, {-1, 1});
    EXPECT_EQ(both.smallest, -1);
    EXPECT_EQ(both.largest, 2);
}

} // namespace
