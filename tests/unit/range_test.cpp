// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/range.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <type_traits>
#include <utility>

using ovl::Range;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::uint64_t bits(double value)
{
    std::uint64_t pattern = 0;
    std::memcpy(&pattern, &value, sizeof pattern);
    return pattern;
}

void expectRange(const Range& range, double min, double max, bool empty)
{
    EXPECT_EQ(range.min(), min);
    EXPECT_EQ(range.max(), max);
    EXPECT_EQ(range.isEmpty(), empty);
}

TEST(Range, StartsEmptyWithTheBoundsTurnedRound)
{
    const Range range;
    EXPECT_EQ(bits(range.min()), 0x7FEFFFFFFFFFFFFFu);
    EXPECT_EQ(bits(range.max()), 0xFFEFFFFFFFFFFFFFu);
    EXPECT_TRUE(range.isEmpty());
    EXPECT_EQ(range.length(), -kInfinity);
    EXPECT_EQ(bits(range.midValue()), bits(0.0));
}

TEST(Range, TakesItsBoundsInEitherOrder)
{
    expectRange(Range(5.0, 3.0), 3.0, 5.0, false);
    expectRange(Range(3.0, 5.0), 3.0, 5.0, false);
    Range range;
    range.set(-1.0, -4.0);
    expectRange(range, -4.0, -1.0, false);
}

TEST(Range, OfOneValueIsNotEmpty)
{
    const Range range(2.0, 2.0);
    expectRange(range, 2.0, 2.0, false);
    EXPECT_EQ(range.length(), 0.0);
    EXPECT_EQ(range.midValue(), 2.0);
}

TEST(Range, OfTwoZerosKeepsTheFirst)
{
    const Range range(-0.0, 0.0);
    EXPECT_TRUE(std::signbit(range.min()));
    EXPECT_TRUE(std::signbit(range.max()));
}

TEST(Range, PassesOverANanAsSecondBound) { expectRange(Range(4.0, kNan), 4.0, 4.0, false); }

TEST(Range, BecomesNanWithANanAsFirstBound)
{
    const Range range(kNan, 4.0);
    EXPECT_TRUE(std::isnan(range.min()));
    EXPECT_TRUE(std::isnan(range.max()));
    EXPECT_FALSE(range.isEmpty());
}

TEST(Range, SetForgetsWhatWasThere)
{
    Range range(-100.0, 100.0);
    range.set(1.0, 2.0);
    expectRange(range, 1.0, 2.0, false);
}

TEST(Range, FirstAccumulatedValueBecomesBothBounds)
{
    Range range;
    range.accumulate(-7.0);
    expectRange(range, -7.0, -7.0, false);
}

TEST(Range, GrowsValueByValue)
{
    Range range;
    range.accumulate(3.0);
    range.accumulate(8.0);
    range.accumulate(5.0);
    expectRange(range, 3.0, 8.0, false);
    range.accumulate(-1.0);
    expectRange(range, -1.0, 8.0, false);
}

TEST(Range, AccumulatedNanMovesNoBoundButEndsTheEmptiness)
{
    Range range;
    range.accumulate(kNan);
    expectRange(range, DBL_MAX, -DBL_MAX, false);
    range.set(1.0, 2.0);
    range.accumulate(kNan);
    expectRange(range, 1.0, 2.0, false);
}

TEST(Range, GrowsToInfinity)
{
    Range range(0.0, 1.0);
    range.accumulate(kInfinity);
    range.accumulate(-kInfinity);
    expectRange(range, -kInfinity, kInfinity, false);
    EXPECT_TRUE(std::isnan(range.midValue()));
}

TEST(Range, ResetMakesItEmptyAgain)
{
    Range range(1.0, 2.0);
    range.reset();
    expectRange(range, DBL_MAX, -DBL_MAX, true);
}

TEST(Range, EmptinessIsStoredAndNotDerivedFromTheBounds)
{
    expectRange(Range(DBL_MAX, DBL_MAX), DBL_MAX, DBL_MAX, false);
    Range range;
    range.accumulate(kNan); // the bounds of an empty range, and yet not empty
    EXPECT_FALSE(range.isEmpty());
}

TEST(Range, LengthAndMidValueComeFromTheBounds)
{
    const Range range(-3.0, 8.0);
    EXPECT_EQ(range.length(), 11.0);
    EXPECT_EQ(range.midValue(), 2.5);
}

TEST(Range, MinMaxIsAnArrayOfTwoThatFollowsTheRange)
{
    Range range(8.0, -3.0);
    const double* bounds = range.minMax();
    EXPECT_EQ(bounds[0], -3.0);
    EXPECT_EQ(bounds[1], 8.0);
    range.accumulate(9.0);
    EXPECT_EQ(bounds[1], 9.0);
    range.reset();
    EXPECT_EQ(bounds[0], DBL_MAX);
    EXPECT_EQ(range.minMax(), bounds);
}

TEST(Range, CopiesCarryEverythingAndShareNothing)
{
    Range original(1.0, 2.0);
    const Range copy(original);
    Range assigned;
    assigned = original;
    original.reset();
    expectRange(copy, 1.0, 2.0, false);
    expectRange(assigned, 1.0, 2.0, false);
    assigned = original;
    expectRange(assigned, DBL_MAX, -DBL_MAX, true);
}

TEST(Range, AssignmentToItselfDoesNothing)
{
    Range range(1.0, 2.0);
    const double* bounds = range.minMax();
    const Range& same = range;
    range = same;
    expectRange(range, 1.0, 2.0, false);
    EXPECT_EQ(range.minMax(), bounds);
}

TEST(Range, MovesCarryEverything)
{
    Range source(1.0, 2.0);
    const double* bounds = source.minMax();
    Range built(std::move(source));
    EXPECT_EQ(built.minMax(), bounds);
    Range assigned(3.0, 4.0);
    assigned = std::move(built);
    expectRange(assigned, 1.0, 2.0, false);
    EXPECT_EQ(assigned.minMax(), bounds);
}

TEST(Range, MayBeAssignedToAfterAMove)
{
    Range range(1.0, 2.0);
    const Range taken(std::move(range));
    range = taken;
    expectRange(range, 1.0, 2.0, false);
    Range& same = range;
    range = std::move(same);
    range = Range(5.0, 6.0);
    expectRange(range, 5.0, 6.0, false);
}

TEST(Range, HoldsOnePointerAndMovesWithoutThrowing)
{
    EXPECT_EQ(sizeof(Range), sizeof(void*));
    EXPECT_FALSE(std::is_polymorphic_v<Range>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Range>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Range>);
}

#ifndef NDEBUG
TEST(RangeDeathTest, AMovedFromRangeMayNotBeUsed)
{
    Range range(1.0, 2.0);
    const Range taken(std::move(range));
    EXPECT_DEATH(range.set(1.0, 2.0), "Range::set");
    EXPECT_DEATH(range.accumulate(1.0), "Range::accumulate");
    EXPECT_DEATH(range.reset(), "Range::reset");
    EXPECT_DEATH(static_cast<void>(range.isEmpty()), "Range::isEmpty");
    EXPECT_DEATH(static_cast<void>(range.min()), "Range::min");
    EXPECT_DEATH(static_cast<void>(range.max()), "Range::max");
    EXPECT_DEATH(static_cast<void>(range.length()), "Range::length");
    EXPECT_DEATH(static_cast<void>(range.midValue()), "Range::midValue");
    EXPECT_DEATH(static_cast<void>(range.minMax()), "Range::minMax");
    EXPECT_DEATH(Range copy(range), "Range::Range");
    EXPECT_DEATH(Range().operator=(range), "Range::operator=");
}

TEST(RangeDeathTest, ARangeMovedOntoItselfIsMovedFrom)
{
    Range range(1.0, 2.0);
    Range& same = range;
    range = std::move(same);
    EXPECT_DEATH(static_cast<void>(range.min()), "Range::min");
}
#endif

} // namespace
