// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/wholenumber.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using ovl::wholeNumber;

namespace {

struct Rounding {
    double value;
    double whole;
};

class WholeNumber : public testing::TestWithParam<Rounding> { };

TEST_P(WholeNumber, IsTheNearestWithTiesAwayFromZero)
{
    EXPECT_EQ(wholeNumber(GetParam().value), GetParam().whole) << GetParam().value;
}

INSTANTIATE_TEST_SUITE_P(Plain, WholeNumber,
    testing::Values(Rounding {0.0, 0.0}, Rounding {0.4, 0.0}, Rounding {-0.4, 0.0},
        Rounding {0.5, 1.0}, Rounding {-0.5, -1.0}, Rounding {1.49, 1.0}, Rounding {2.5, 3.0},
        Rounding {-2.5, -3.0}, Rounding {3.5, 4.0}, Rounding {-3.5, -4.0},
        Rounding {1234567.8, 1234568.0}));

// The sum with a half is rounded to 1 before anything is cut off.
INSTANTIATE_TEST_SUITE_P(LargestBelowAHalf, WholeNumber,
    testing::Values(Rounding {0.49999999999999994, 1.0}, Rounding {-0.49999999999999994, -1.0}));

INSTANTIATE_TEST_SUITE_P(EdgeOfTheInteger, WholeNumber,
    testing::Values(Rounding {2147483647.0, 2147483647.0}, Rounding {2147483647.25, 2147483647.0},
        Rounding {-2147483648.0, -2147483648.0}, Rounding {-2147483648.25, -2147483648.0}));

constexpr double lowest = -2147483648.0;
constexpr double infinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(WhatDoesNotFitGivesTheLowest, WholeNumber,
    testing::Values(Rounding {2147483647.5, lowest}, Rounding {2147483648.0, lowest},
        Rounding {-2147483648.5, lowest}, Rounding {1e300, lowest}, Rounding {-1e300, lowest},
        Rounding {infinity, lowest}, Rounding {-infinity, lowest},
        Rounding {std::numeric_limits<double>::quiet_NaN(), lowest}));

TEST(WholeNumber, OfASmallNegativeNumberHasNoSign)
{
    EXPECT_FALSE(std::signbit(wholeNumber(-0.4)));
    EXPECT_FALSE(std::signbit(wholeNumber(-0.0)));
}

} // namespace
