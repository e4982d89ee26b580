// SPDX-License-Identifier: BSD-3-Clause
#include <hosting/viewwidget.h>
#include <support/messagewatch.h>

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    ovl::hosting::prepareApplication();
    QApplication application(argc, argv);
    ovl::test::MessageWatch::install();
    return RUN_ALL_TESTS();
}
