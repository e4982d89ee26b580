// SPDX-License-Identifier: BSD-3-Clause
#include <support/messagewatch.h>
#include <visualization/vtkcompat.h>

#include <QApplication>
#include <QSurfaceFormat>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QSurfaceFormat format = ovl::compat::HostWidget::defaultFormat();
    format.setSamples(0); // pixels are asserted, so nothing is smoothed
    QSurfaceFormat::setDefaultFormat(format);
    QApplication application(argc, argv);
    ovl::test::MessageWatch::install();
    return RUN_ALL_TESTS();
}
