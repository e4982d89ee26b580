// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/chartaxis.h>

#include <vtkContextScene.h>
#include <vtkDoubleArray.h>
#include <vtkSmartPointer.h>
#include <vtkStringArray.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <random>
#include <vector>

using ovl::ChartAxis;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct Ends {
    double minimum;
    double maximum;
};

std::ostream& operator<<(std::ostream& out, const Ends& ends)
{
    return out << ends.minimum << " to " << ends.maximum;
}

/** A horizontal axis of 450 pixels with its ticks. */
template <class Axis> vtkSmartPointer<Axis> ticked(const Ends& ends, int behavior = vtkAxis::FIXED)
{
    auto axis = vtkSmartPointer<Axis>::New();
    static const auto scene = vtkSmartPointer<vtkContextScene>::New(); // tells how texts are scaled
    axis->SetScene(scene);
    axis->SetPosition(vtkAxis::BOTTOM);
    axis->SetPoint1(50.0F, 50.0F);
    axis->SetPoint2(500.0F, 50.0F);
    axis->SetBehavior(behavior);
    axis->SetUnscaledRange(ends.minimum, ends.maximum);
    axis->RecalculateTickSpacing();
    axis->Update();
    return axis;
}

std::vector<double> ticks(vtkAxis* axis)
{
    vtkDoubleArray* positions = axis->GetTickPositions();
    return {positions->GetPointer(0), positions->GetPointer(positions->GetNumberOfTuples())};
}

TEST(ChartAxis, IsTheFrameworksAxis)
{
    const auto axis = vtkSmartPointer<ChartAxis>::New();
    EXPECT_STREQ(axis->GetClassName(), "ChartAxis");
    EXPECT_TRUE(axis->IsA("vtkAxis"));
}

class ChartAxisWithTicks : public testing::TestWithParam<Ends> { };

TEST_P(ChartAxisWithTicks, HasTheFrameworksTicks)
{
    const auto axis = ticked<ChartAxis>(GetParam());
    const auto stock = ticked<vtkAxis>(GetParam());
    EXPECT_GT(ticks(axis).size(), 2u);
    EXPECT_EQ(ticks(axis), ticks(stock));
    ASSERT_EQ(
        axis->GetTickLabels()->GetNumberOfTuples(), stock->GetTickLabels()->GetNumberOfTuples());
    EXPECT_EQ(axis->GetTickLabels()->GetValue(1), stock->GetTickLabels()->GetValue(1));
}

INSTANTIATE_TEST_SUITE_P(ChartAxis, ChartAxisWithTicks,
    testing::Values(Ends {0.0, 1000.0}, Ends {1000.0, 0.0}, Ends {-0.3, 7e-3}, Ends {-1e300, 1e300},
        Ends {1e6, 1e6 + 1e-8}, Ends {-1e6 + 1e-8, -1e6}, Ends {0.0, 1e-300}));

class ChartAxisWithoutTicks : public testing::TestWithParam<Ends> { };

TEST_P(ChartAxisWithoutTicks, IsDoneAtOnce)
{
    const auto axis = ticked<ChartAxis>(GetParam());
    EXPECT_TRUE(ticks(axis).empty());
    EXPECT_EQ(axis->GetTickLabels()->GetNumberOfTuples(), 0);
}

INSTANTIATE_TEST_SUITE_P(ChartAxis, ChartAxisWithoutTicks,
    testing::Values(Ends {1e6, 1e6 + 1.2e-10}, Ends {1e6 + 1.2e-10, 1e6}, Ends {0.0, kInfinity},
        Ends {-kInfinity, kInfinity}, Ends {kInfinity, 0.0}, Ends {kNan, 1.0}, Ends {kNan, kNan}));

/** The same on a logarithmic scale, from and to a power of ten. */
template <class Axis> vtkSmartPointer<Axis> logarithmic(const Ends& powers)
{
    const auto axis = ticked<Axis>({1.0, 10.0});
    axis->SetLogScale(true);
    axis->Update();
    axis->SetRange(powers.minimum, powers.maximum);
    axis->RecalculateTickSpacing();
    axis->Update();
    return axis;
}

TEST(ChartAxis, HasTheFrameworksTicksOnALogarithmicScale)
{
    const auto axis = logarithmic<ChartAxis>({1.0, 4.0});
    EXPECT_TRUE(axis->GetLogScaleActive());
    EXPECT_GT(ticks(axis).size(), 2u);
    EXPECT_EQ(ticks(axis), ticks(logarithmic<vtkAxis>({1.0, 4.0})));
}

TEST(ChartAxis, IsDoneAtOnceOnALogarithmicScaleToo)
{
    EXPECT_TRUE(ticks(logarithmic<ChartAxis>({3.8450980400142583, 3.8450980400142587})).empty());
}

TEST(ChartAxis, HasItsTicksBackInAWiderRange)
{
    const auto axis = ticked<ChartAxis>({1e6, 1e6 + 1.2e-10});
    axis->SetUnscaledRange(0.0, 10.0);
    axis->RecalculateTickSpacing();
    EXPECT_EQ(ticks(axis), ticks(ticked<vtkAxis>({0.0, 10.0})));
}

TEST(ChartAxis, LeavesTicksThatSomebodySet)
{
    const auto axis = ticked<ChartAxis>({0.0, 10.0});
    const auto own = vtkSmartPointer<vtkDoubleArray>::New();
    own->InsertNextValue(3.0);
    axis->SetCustomTickPositions(own);
    axis->SetUnscaledRange(1e6, 1e6 + 1.2e-10);
    axis->RecalculateTickSpacing();
    EXPECT_EQ(ticks(axis), (std::vector<double> {3.0}));
}

TEST(ChartAxis, EndsForRangesOfAnySizeAndWidth)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> exponent(-20.0, 20.0);
    std::uniform_real_distribution<double> width(-18.0, 3.0);
    for (int i = 0; i < 3000; ++i) {
        const double sign = i % 2 == 0 ? 1.0 : -1.0;
        const double from = sign * std::pow(10.0, exponent(random));
        const double to
            = from + (i % 3 == 0 ? -1.0 : 1.0) * std::fabs(from) * std::pow(10.0, width(random));
        EXPECT_LT(ticks(ticked<ChartAxis>({from, to})).size(), 200u);
    }
    for (const double from : {0.0, 1.7e308, -1.7e308, 5e-324, 1e-310})
        for (const double to : {0.0, 1.7e308, -1.7e308, 5e-324, 1e-310})
            EXPECT_LT(ticks(ticked<ChartAxis>({from, to})).size(), 200u);
}

} // namespace
