// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/csvfile.h>

#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <gtest/gtest.h>

using ovl::gallery::badLinesText;
using ovl::gallery::Outcome;
using ovl::gallery::readCsvFile;
using ovl::gallery::Table;

namespace {

using Column = std::vector<double>;

class CsvFile : public testing::Test {
protected:
    Outcome<Table> read(const QByteArray& text) const
    {
        QFile file(folder.filePath(QStringLiteral("table.csv")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        return readCsvFile(file.fileName());
    }

    Table table(const QByteArray& text) const
    {
        Outcome<Table> outcome = read(text);
        EXPECT_TRUE(outcome) << qPrintable(outcome.problem());
        return outcome ? std::move(outcome.value()) : Table {};
    }

    void expectProblem(const QByteArray& text, const char* words) const
    {
        SCOPED_TRACE(text.constData());
        const Outcome<Table> outcome = read(text);
        EXPECT_FALSE(outcome);
        EXPECT_TRUE(outcome.problem().contains(QLatin1String(words)))
            << qPrintable(outcome.problem());
    }

    QTemporaryDir folder;
};

TEST_F(CsvFile, ReadsTitlesAndColumns)
{
    const Table read = table("time_s,ch1,ch2\n0,1.5,-2\n0.5,2e3,+4\n");
    EXPECT_EQ(read.titles, (QStringList {"time_s", "ch1", "ch2"}));
    ASSERT_EQ(read.columns.size(), 3U);
    EXPECT_EQ(read.columns[0], (Column {0, 0.5}));
    EXPECT_EQ(read.columns[1], (Column {1.5, 2000}));
    EXPECT_EQ(read.columns[2], (Column {-2, 4}));
    EXPECT_TRUE(read.badLines.empty());
}

TEST_F(CsvFile, EmptyFieldsAndNanAreGaps)
{
    const Table read = table("x,y\n1,\n2,nan\n3,4\n");
    ASSERT_EQ(read.rows(), 3U);
    EXPECT_TRUE(std::isnan(read.columns[1][0]));
    EXPECT_TRUE(std::isnan(read.columns[1][1]));
    EXPECT_EQ(read.columns[1][2], 4);
}

TEST_F(CsvFile, BadRowsAreLeftOutAndListed)
{
    const Table read = table("x,y\n"
                             "1,2\n"
                             "2,two\n" // no number
                             "3\n" // too short
                             "\n" // a blank line is no row
                             "4,5,6\n" // too long
                             ",7\n" // no x
                             "5,inf\n" // an infinity is none
                             "6,8\n");
    EXPECT_EQ(read.columns[0], (Column {1, 6}));
    EXPECT_EQ(read.columns[1], (Column {2, 8}));
    EXPECT_EQ(read.badLines, (std::vector<int> {3, 4, 6, 7, 8}));
    EXPECT_EQ(
        badLinesText(read), QStringLiteral("lines 3, 4, 6, 7 and 8 do not fit and are left out"));
}

TEST_F(CsvFile, ManyBadLinesAreCounted)
{
    Table many;
    many.badLines = {2};
    EXPECT_EQ(badLinesText(many), QStringLiteral("line 2 does not fit and is left out"));
    many.badLines = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    EXPECT_EQ(badLinesText(many),
        QStringLiteral("lines 2, 3, 4, 5, 6, 7, 8, 9 and 2 more do not fit and are left out"));
    many.badLines.clear();
    EXPECT_TRUE(badLinesText(many).isEmpty());
}

TEST_F(CsvFile, OtherSeparatorsQuotesAndLineEnds)
{
    const Table semicolons = table("x;\"a;b\"\r\n1,5;2\r\n");
    EXPECT_EQ(semicolons.titles, (QStringList {"x", "a;b"}));
    EXPECT_EQ(semicolons.columns[0], (Column {1.5})); // with semicolons, a comma is a point
    const Table tabs = table("x\ty\r1\t2\r");
    EXPECT_EQ(tabs.columns[1], (Column {2}));
    const Table marked = table("\xEF\xBB\xBFx,\"say \"\"y\"\"\"\n\"1\", 2 ");
    EXPECT_EQ(marked.titles, (QStringList {"x", "say \"y\""}));
    EXPECT_EQ(marked.columns[1], (Column {2}));
}

TEST_F(CsvFile, LongTitlesAreCutOff)
{
    const Table read = table(QByteArray(81, 't') + ',' + QByteArray(80, 'u') + "\n1,2\n");
    EXPECT_EQ(read.titles[0], QString(79, 't') + QChar(0x2026));
    EXPECT_EQ(read.titles[1], QString(80, 'u'));
}

TEST_F(CsvFile, WhatIsNoTableIsRefused)
{
    expectProblem("", "empty");
    expectProblem("x,y\n", "no rows");
    expectProblem("x\n1\n", "line 1");
    expectProblem("1,2\n3,4\n", "line 1");
    expectProblem("x,y\na,b\nc,d\n", "lines 2 and 3");
    expectProblem(QByteArray("x,y\n1,\0\n", 8), "no text");
    expectProblem(QByteArray(100, ','), "64 columns");
    EXPECT_TRUE(readCsvFile(folder.filePath("none.csv")).problem().contains("no such file"));
}

} // namespace
