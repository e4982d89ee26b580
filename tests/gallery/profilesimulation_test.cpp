// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/profilesimulation.h>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using ovl::gallery::LaserProfiler;
using ovl::gallery::ProfileSimulation;
using ovl::gallery::Table;

namespace {

constexpr double kMiddle = 50; // mm: through the first part's boss

class Simulation : public testing::Test {
protected:
    void SetUp() override { simulation.moveTo(kMiddle); }

    const std::vector<double>& column(int index) const
    {
        return simulation.table().columns[static_cast<std::size_t>(index)];
    }

    LaserProfiler profiler {1000};
    ProfileSimulation simulation {profiler};
};

TEST_F(Simulation, XRunsAcrossTheBelt)
{
    EXPECT_EQ(column(ProfileSimulation::X).front(), 0);
    EXPECT_NEAR(column(ProfileSimulation::X).back(), 127.872, 1e-9);
}

TEST_F(Simulation, HolesAreGapsInAllCurves)
{
    const auto& heights = column(ProfileSimulation::Height);
    const auto gaps = std::count_if(
        heights.begin(), heights.end(), [](double height) { return std::isnan(height); });
    EXPECT_GT(gaps, 70) << "the bore alone is 10 mm wide";
    EXPECT_LT(gaps, 300);
    for (std::size_t i = 0; i < heights.size(); ++i) {
        ASSERT_EQ(std::isnan(heights[i]), std::isnan(column(ProfileSimulation::Smoothed)[i]));
        ASSERT_EQ(std::isnan(heights[i]), std::isnan(column(ProfileSimulation::Intensity)[i]));
    }
}

TEST_F(Simulation, SmoothedIsTheMeanOfItsNeighbours)
{
    const auto& heights = column(ProfileSimulation::Height);
    constexpr std::size_t kSample = 250; // on the plate
    double sum = 0;
    int count = 0;
    for (std::size_t i = kSample - 7; i <= kSample + 7; ++i)
        if (!std::isnan(heights[i])) {
            sum += heights[i];
            ++count;
        }
    const double smoothed = column(ProfileSimulation::Smoothed)[kSample];
    if (std::isnan(heights[kSample]))
        EXPECT_TRUE(std::isnan(smoothed));
    else
        EXPECT_NEAR(smoothed, sum / count, 1e-12);
}

TEST_F(Simulation, TakesItsMemoryOnce)
{
    const double* heights = column(ProfileSimulation::Height).data();
    simulation.advance(1.5);
    EXPECT_EQ(simulation.position(), kMiddle + 1.5);
    EXPECT_EQ(column(ProfileSimulation::Height).data(), heights);
}

} // namespace
