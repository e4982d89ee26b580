// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/filelist.h>

#include <gtest/gtest.h>

using ovl::gallery::FileList;

namespace {

TEST(FileList, AnEmptyOneHasNoNeighbours)
{
    const FileList list;
    EXPECT_TRUE(list.next().isEmpty());
    EXPECT_TRUE(list.previous().isEmpty());
    EXPECT_TRUE(list.current().isEmpty());
    EXPECT_EQ(list.place(), 0);
}

TEST(FileList, TheOnlyFileHasNoNeighbourButItself)
{
    FileList list;
    list.setCurrent("a");
    EXPECT_TRUE(list.next().isEmpty());
    EXPECT_TRUE(list.previous().isEmpty());
}

TEST(FileList, WalksRoundAndRound)
{
    FileList list;
    list.add({"a", "b", "c"});
    list.setCurrent("b");
    EXPECT_EQ(list.next(), "c");
    EXPECT_EQ(list.previous(), "a");
    list.setCurrent("c");
    EXPECT_EQ(list.next(), "a");
    list.setCurrent("a");
    EXPECT_EQ(list.previous(), "c");
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.place(), 1);
}

TEST(FileList, BeforeTheFirstIsShownItBeginsAtAnEnd)
{
    FileList list;
    list.add({"a", "b"});
    EXPECT_EQ(list.next(), "a");
    EXPECT_EQ(list.previous(), "b");
}

TEST(FileList, AFileThatIsOpenedAgainKeepsItsPlace)
{
    FileList list;
    list.add({"a", "b"});
    list.add({"a"});
    list.setCurrent("a");
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.next(), "b");
}

TEST(FileList, TheLastShownIsTheMostRecent)
{
    FileList list;
    list.setRecent({"old"});
    list.setCurrent("a");
    list.setCurrent("b");
    list.setCurrent("a");
    EXPECT_EQ(list.recent(), (QStringList {"a", "b", "old"}));
}

TEST(FileList, RemembersNoMoreThanItsNumber)
{
    FileList list;
    for (int i = 0; i < 30; ++i)
        list.setCurrent(QString::number(i));
    ASSERT_EQ(list.recent().size(), FileList::kMostRecent);
    EXPECT_EQ(list.recent().constFirst(), "29");
}

} // namespace
