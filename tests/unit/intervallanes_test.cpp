// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/intervallanes.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace ovl {
namespace {

template <class Number> class IntervalLanesTest : public testing::Test {
protected:
    using Lanes = IntervalLanes<Number>;
    static constexpr Number kInfinity = std::numeric_limits<Number>::infinity();

    /** Intervals that nothing meets but what a test puts in. */
    IntervalLanesTest()
    {
        for (std::size_t lane = 0; lane < Lanes::kCount; ++lane)
            lanes.set(lane, kInfinity, -kInfinity);
    }

    Lanes lanes;
};

using Numbers = testing::Types<float, double>;
TYPED_TEST_SUITE(IntervalLanesTest, Numbers, );

TYPED_TEST(IntervalLanesTest, MeetAtTheirVeryEndsAndNotBeyond)
{
    this->lanes.set(3, 1, 2);
    const auto below = std::nextafter(TypeParam(1), TypeParam(0));
    const auto above = std::nextafter(TypeParam(2), TypeParam(3));
    EXPECT_TRUE(this->lanes.meets(3, 2, 5));
    EXPECT_TRUE(this->lanes.meets(3, 0, 1));
    EXPECT_TRUE(this->lanes.meets(3, 0, 5));
    EXPECT_FALSE(this->lanes.meets(3, 0, below));
    EXPECT_FALSE(this->lanes.meets(3, above, 5));
}

TYPED_TEST(IntervalLanesTest, AreAllLookedAtTogether)
{
    EXPECT_FALSE(this->lanes.anyMeets(-1, 1));
    for (std::size_t lane = 0; lane < this->lanes.kCount; ++lane) {
        SCOPED_TRACE(lane);
        this->lanes.set(lane, 1, 2);
        EXPECT_TRUE(this->lanes.anyMeets(2, 2));
        EXPECT_FALSE(this->lanes.anyMeets(3, 4));
        EXPECT_FALSE(this->lanes.anyMeets(-4, 0));
        this->lanes.set(lane, this->kInfinity, -this->kInfinity);
    }
}

TYPED_TEST(IntervalLanesTest, WithoutEndsMeetEverything)
{
    this->lanes.set(15, -this->kInfinity, this->kInfinity);
    EXPECT_TRUE(this->lanes.anyMeets(5, 5));
    EXPECT_TRUE(this->lanes.anyMeets(-this->kInfinity, -this->kInfinity));
}

TYPED_TEST(IntervalLanesTest, ANumberThatIsNoneMeetsEverything)
{
    const TypeParam none = std::numeric_limits<TypeParam>::quiet_NaN();
    this->lanes.set(0, 1, 2);
    EXPECT_TRUE(this->lanes.anyMeets(none, none));
    EXPECT_TRUE(this->lanes.meets(0, none, none));
    this->lanes.set(1, none, none);
    EXPECT_TRUE(this->lanes.meets(1, 7, 7));
    EXPECT_TRUE(this->lanes.anyMeets(7, 7));
}

} // namespace
} // namespace ovl
