// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/scannersimulation.h>

#include <gtest/gtest.h>

using namespace ovl::gallery;

namespace {

TEST(ScannerSimulation, AllSensorsLookAtTheSamePlace)
{
    ScannerSimulation scanner;
    scanner.advance(41.5);
    const double place = ScannerSimulation::kStart + 41.5;
    EXPECT_DOUBLE_EQ(scanner.position(), place);
    const double pitch = Conveyor::kFieldOfView / scanner.camera(CameraKind::Range).width();
    for (const CameraKind kind : {CameraKind::Range, CameraKind::Mono, CameraKind::Colour})
        EXPECT_NEAR(scanner.camera(kind).position(), place, pitch);
    EXPECT_DOUBLE_EQ(scanner.profile().position(), place);
    EXPECT_EQ(scanner.scan().map().rows,
        static_cast<int>(place * PartScan::kProfiles / Conveyor::kPitch));
}

TEST(ScannerSimulation, ASensorThatWasNotLookedAtCatchesUp)
{
    ScannerSimulation scanner;
    scanner.camera(CameraKind::Mono);
    scanner.advance(5000);
    EXPECT_NEAR(scanner.camera(CameraKind::Mono).position(), scanner.position(), 0.2);
    EXPECT_EQ(scanner.scan().partNumber(), Conveyor::partNumber(scanner.position()));
}

TEST(ScannerSimulation, RestartGoesBackToTheFirstPart)
{
    ScannerSimulation scanner;
    scanner.advance(777);
    scanner.scan();
    scanner.restart();
    EXPECT_DOUBLE_EQ(scanner.position(), ScannerSimulation::kStart);
    EXPECT_EQ(scanner.scan().partNumber(), 0);
    EXPECT_DOUBLE_EQ(scanner.profile().position(), ScannerSimulation::kStart);
}

} // namespace
