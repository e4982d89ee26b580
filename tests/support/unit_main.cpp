// SPDX-License-Identifier: BSD-3-Clause
#include <support/messagewatch.h>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    ovl::test::MessageWatch::install();
    return RUN_ALL_TESTS();
}
