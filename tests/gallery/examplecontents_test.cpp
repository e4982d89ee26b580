// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/examplecontents.h>

#include <gtest/gtest.h>

using namespace ovl::gallery;

namespace {

TEST(ExampleContents, TerrainIsAWholeGridWithRelief)
{
    const SharedContents terrain = exampleContents(Example::Terrain);
    EXPECT_EQ(terrain->kind, FileKind::Grid);
    EXPECT_EQ(terrain->map.heights.size(), terrain->map.samples());
    EXPECT_EQ(terrain->gaps, 0U);
    EXPECT_GT(terrain->heights.largest - terrain->heights.smallest, 300);
}

TEST(ExampleContents, RecordingHasFourChannelsOverTime)
{
    const SharedContents recording = exampleContents(Example::Recording);
    EXPECT_EQ(recording->kind, FileKind::Table);
    EXPECT_EQ(recording->table.titles.size(), 5);
    EXPECT_EQ(recording->table.rows(), 800U);
    EXPECT_DOUBLE_EQ(recording->table.columns[0][799], 799 * 0.0125);
    EXPECT_TRUE(recording->remark.isEmpty());
}

TEST(ExampleContents, SliceNeedsItsSixteenBits)
{
    const SharedContents slice = exampleContents(Example::Slice);
    EXPECT_EQ(slice->kind, FileKind::Image);
    EXPECT_TRUE(slice->image.wide);
    EXPECT_GT(slice->range.brightest, 10000);
    EXPECT_LT(slice->range.darkest, 3000);
}

TEST(ExampleContents, AreTheSameEveryTime)
{
    EXPECT_EQ(
        exampleContents(Example::Slice)->image.bytes, exampleContents(Example::Slice)->image.bytes);
    EXPECT_EQ(exampleContents(Example::Terrain)->map.heights,
        exampleContents(Example::Terrain)->map.heights);
}

} // namespace
