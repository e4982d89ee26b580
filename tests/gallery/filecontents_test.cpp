// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/filecontents.h>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace ovl::gallery;

namespace {

class Contents : public testing::Test {
protected:
    QString write(const char* name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QString longTable() const
    {
        QByteArray text("x,y\n");
        for (int i = 0; i < 20000; ++i)
            text += QByteArray::number(i) + ",1\n";
        return write("long.csv", text);
    }

    QTemporaryDir folder;
};

TEST_F(Contents, AnImageComesWithTheRangeThatSuitsIt)
{
    Outcome<SharedContents> read = readContents(write("a.pgm", "P5\n2 2\n255\n\x01\x02\x03\x64"));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_EQ(read.value()->kind, FileKind::Image);
    EXPECT_EQ(read.value()->name, "a.pgm");
    EXPECT_EQ(read.value()->range.darkest, 1);
    EXPECT_EQ(read.value()->range.brightest, 100);
}

TEST_F(Contents, ATableComesWithARemarkAboutItsBadLines)
{
    Outcome<SharedContents> read = readContents(write("a.csv", "x,y\n1,2\noops\n3,4\n"));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_EQ(read.value()->kind, FileKind::Table);
    EXPECT_TRUE(read.value()->remark.contains("line 3"));
}

TEST_F(Contents, AGridComesWithItsHeightsAndGapsCounted)
{
    Outcome<SharedContents> read = readContents(
        write("a.asc", "ncols 2\nnrows 2\ncellsize 1\nNODATA_value -1\n5 -1\n7 -1\n"));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_EQ(read.value()->kind, FileKind::Grid);
    EXPECT_EQ(read.value()->heights.smallest, 5);
    EXPECT_EQ(read.value()->heights.largest, 7);
    EXPECT_EQ(read.value()->gaps, 2U);
}

TEST_F(Contents, AGridOfExtremeHeightsComesWithAUnitThatAxesCanLabel)
{
    const struct {
        const char* rows;
        double unit;
    } cases[] = {{"0 1\n2 1e6\n", 1}, {"5 5\n5 5\n", 1}, {"-9e36 0\n9e36 0\n", 1e-29},
        {"0 5e-5\n0 0\n", 1e6}};
    for (const auto& wanted : cases) {
        SCOPED_TRACE(wanted.rows);
        Outcome<SharedContents> read = readContents(
            write("a.asc", QByteArray("ncols 2\nnrows 2\ncellsize 1\n") + wanted.rows));
        ASSERT_TRUE(read) << qPrintable(read.problem());
        EXPECT_NEAR(read.value()->map.zUnit / wanted.unit, 1, 1e-9);
    }
}

TEST_F(Contents, AProblemIsTheReaders)
{
    Outcome<SharedContents> read = readContents(folder.filePath("nowhere.png"));
    ASSERT_FALSE(read);
    EXPECT_EQ(read.problem(), "there is no such file");
}

TEST_F(Contents, ProgressReachesTheEnd)
{
    Progress progress;
    EXPECT_TRUE(readContents(longTable(), &progress));
    EXPECT_GT(progress.share(), 0.9);
    EXPECT_LE(progress.share(), 1.0);
}

TEST_F(Contents, NothingIsReadFurtherOnceItIsCancelled)
{
    for (const QString& path :
        {longTable(), write("a.asc", "ncols 2\nnrows 2\ncellsize 1\n1 2\n3 4\n"),
            write("a.pgm", "P5\n1 1\n255\na")}) {
        SCOPED_TRACE(qPrintable(path));
        Progress progress;
        progress.cancel();
        Outcome<SharedContents> read = readContents(path, &progress);
        ASSERT_FALSE(read);
        EXPECT_EQ(read.problem(), kCancelled);
    }
}

} // namespace
