// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/chartcallbacks.h>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace ovl::test {
namespace {

TEST(ChartCallbacks, AnswersFalseForEveryEmptyHookAndLeavesValuesAlone)
{
    const ChartCallbacks callbacks;
    double value = 1.5;
    EXPECT_FALSE(callbacks.notifyDirty(true));
    EXPECT_FALSE(callbacks.customX(3, value));
    EXPECT_FALSE(callbacks.customY(3, value));
    EXPECT_FALSE(callbacks.notifyCursor(CursorType::Move));
    EXPECT_EQ(value, 1.5);
}

TEST(ChartCallbacks, PassesTheDirtyFlagOn)
{
    ChartCallbacks callbacks;
    std::vector<bool> told;
    callbacks.setDirtyCallback([&told](bool dirty) { told.push_back(dirty); });
    EXPECT_TRUE(callbacks.notifyDirty(true));
    EXPECT_TRUE(callbacks.notifyDirty(false));
    EXPECT_EQ(told, std::vector<bool>({true, false}));
}

TEST(ChartCallbacks, PassesTheCursorOn)
{
    ChartCallbacks callbacks;
    std::vector<CursorType> told;
    callbacks.setCursorCallback([&told](CursorType type) { told.push_back(type); });
    EXPECT_TRUE(callbacks.notifyCursor(CursorType::Cross));
    EXPECT_EQ(told, std::vector<CursorType>({CursorType::Cross}));
}

TEST(ChartCallbacks, ReplacesXByTheHooksAnswerForSeriesIndexAndValue)
{
    ChartCallbacks callbacks;
    callbacks.setCustomXCallback([](int index, double value) { return index * 100 + value; });
    double value = 1.5;
    EXPECT_TRUE(callbacks.customX(3, value));
    EXPECT_EQ(value, 301.5);
    EXPECT_FALSE(callbacks.customY(3, value)) << "the hooks are independent";
    EXPECT_EQ(value, 301.5);
}

TEST(ChartCallbacks, ReplacesYByTheHooksAnswerForSeriesIndexAndValue)
{
    ChartCallbacks callbacks;
    callbacks.setCustomYCallback([](int index, double value) { return index * 1000 - value; });
    double value = 2.5;
    EXPECT_TRUE(callbacks.customY(4, value));
    EXPECT_EQ(value, 3997.5);
    EXPECT_FALSE(callbacks.customX(4, value)) << "the hooks are independent";
    EXPECT_EQ(value, 3997.5);
}

TEST(ChartCallbacks, EmptiesAHookAgainWithAnEmptyFunction)
{
    ChartCallbacks callbacks;
    callbacks.setDirtyCallback([](bool) {});
    callbacks.setCustomXCallback([](int, double) { return 0.0; });
    callbacks.setCustomYCallback([](int, double) { return 0.0; });
    callbacks.setCursorCallback([](CursorType) {});
    callbacks.setDirtyCallback({});
    callbacks.setCustomXCallback({});
    callbacks.setCustomYCallback({});
    callbacks.setCursorCallback({});
    double value = 1.5;
    EXPECT_FALSE(callbacks.notifyDirty(true));
    EXPECT_FALSE(callbacks.customX(0, value));
    EXPECT_FALSE(callbacks.customY(0, value));
    EXPECT_FALSE(callbacks.notifyCursor(CursorType::Default));
    EXPECT_EQ(value, 1.5);
}

TEST(ChartCallbacks, DestroysItsHooksLastFirst)
{
    std::vector<int> destroyed;
    const auto mark = [&destroyed](int hook) {
        return std::shared_ptr<int>(new int(hook), [&destroyed](int* number) {
            destroyed.push_back(*number);
            delete number;
        });
    };
    {
        ChartCallbacks callbacks;
        callbacks.setCursorCallback([kept = mark(4)](CursorType) {});
        callbacks.setDirtyCallback([kept = mark(1)](bool) {});
        callbacks.setCustomYCallback([kept = mark(3)](int, double) { return 0.0; });
        callbacks.setCustomXCallback([kept = mark(2)](int, double) { return 0.0; });
        EXPECT_TRUE(destroyed.empty());
    }
    EXPECT_EQ(destroyed, std::vector<int>({4, 3, 2, 1}));
}

TEST(CursorType, KeepsItsNumbers)
{
    EXPECT_EQ(static_cast<int>(CursorType::Default), 0);
    EXPECT_EQ(static_cast<int>(CursorType::Cross), 1);
    EXPECT_EQ(static_cast<int>(CursorType::Move), 2);
}

} // namespace
} // namespace ovl::test
