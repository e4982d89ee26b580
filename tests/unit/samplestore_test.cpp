// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/samplestore.h>

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

using ovl::Stores;

namespace {

template <class Coordinate> class SampleStore : public testing::Test {
};
using Coordinates = testing::Types<float, double>;
TYPED_TEST_SUITE(SampleStore, Coordinates);

TYPED_TEST(SampleStore, EitherWayWritesTheSampleAndNothingBesideIt)
{
    for (const Stores stores : {Stores::Cached, Stores::Streaming}) {
        std::array<TypeParam, 9> positions {1, 2, 3, 4, 5, 6, 7, 8, 9};
        std::array<double, 3> values {-1.0, -2.0, -3.0};
        ovl::storeSample(
            stores, positions.data() + 3, values.data() + 1, {0.5, -1e30, 1.0 / 3.0}, 1e300);
        complete(stores);
        EXPECT_EQ(positions,
            (std::array<TypeParam, 9> {1, 2, 3, TypeParam(0.5), TypeParam(-1e30),
                static_cast<TypeParam>(1.0 / 3.0), 7, 8, 9}));
        EXPECT_EQ(values, (std::array<double, 3> {-1.0, 1e300, -3.0}));
    }
}

TYPED_TEST(SampleStore, WhatIsNoNumberStaysNone)
{
    for (const Stores stores : {Stores::Cached, Stores::Streaming}) {
        std::array<TypeParam, 3> position {};
        double value = 0.0;
        const double nan = std::numeric_limits<double>::quiet_NaN();
        ovl::storeSample(stores, position.data(), &value, {nan, nan, nan}, nan);
        complete(stores);
        EXPECT_TRUE(std::isnan(position[0]) && std::isnan(position[1]) && std::isnan(position[2]));
        EXPECT_TRUE(std::isnan(value));
    }
}

TEST(StoresForSamples, StreamFromSixteenMebibytes)
{
    const Stores large = OVL_STREAMS_SAMPLES ? Stores::Streaming : Stores::Cached;
    EXPECT_EQ(ovl::storesForSamples(0, 32), Stores::Cached);
    EXPECT_EQ(ovl::storesForSamples(524287, 32), Stores::Cached);
    EXPECT_EQ(ovl::storesForSamples(524288, 32), large);
}

} // namespace
