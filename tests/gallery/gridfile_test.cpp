// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/gridfile.h>

#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <gtest/gtest.h>

using ovl::gallery::HeightMap;
using ovl::gallery::Outcome;
using ovl::gallery::readGridFile;

namespace {

const QByteArray kHeader("ncols 3\nnrows 2\nxllcorner 10\nyllcorner 50\ncellsize 0.5\n"
                         "NODATA_value -9999\n");

class GridFile : public testing::Test {
protected:
    Outcome<HeightMap> read(const QByteArray& text) const
    {
        QFile file(folder.filePath(QStringLiteral("grid.asc")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        return readGridFile(file.fileName());
    }

    void expectProblem(const QByteArray& text, const char* words) const
    {
        SCOPED_TRACE(text.constData());
        const Outcome<HeightMap> outcome = read(text);
        EXPECT_FALSE(outcome);
        EXPECT_TRUE(outcome.problem().contains(QLatin1String(words)))
            << qPrintable(outcome.problem());
    }

    QTemporaryDir folder;
};

TEST_F(GridFile, ReadsRowsFromNorthToSouth)
{
    Outcome<HeightMap> outcome = read(kHeader + "1 2.5 3\n4 -9999 6e1\n");
    ASSERT_TRUE(outcome) << qPrintable(outcome.problem());
    const HeightMap& map = outcome.value();
    EXPECT_EQ(map.columns, 3);
    EXPECT_EQ(map.rows, 2);
    ASSERT_EQ(map.heights.size(), 6U);
    EXPECT_EQ(map.heights[1], 2.5F);
    EXPECT_EQ(map.heights[3], 4.0F);
    EXPECT_TRUE(std::isnan(map.heights[4])) << "NODATA";
    EXPECT_EQ(map.heights[5], 60.0F);
}

TEST_F(GridFile, RulersTellTheCentresOfTheCells)
{
    Outcome<HeightMap> corner = read(kHeader + "1 2 3\n4 5 6\n");
    ASSERT_TRUE(corner) << qPrintable(corner.problem());
    EXPECT_DOUBLE_EQ(corner.value().x.origin, 10.25);
    EXPECT_DOUBLE_EQ(corner.value().x.step, 0.5);
    EXPECT_DOUBLE_EQ(corner.value().y.origin, 50.75) << "row 0 is the north";
    EXPECT_DOUBLE_EQ(corner.value().y.step, -0.5);
    QByteArray centred = kHeader;
    centred.replace("xllcorner", "XLLCENTER").replace("yllcorner", "YllCenter");
    Outcome<HeightMap> centre = read(centred + "1 2 3\n4 5 6\n");
    ASSERT_TRUE(centre) << qPrintable(centre.problem());
    EXPECT_DOUBLE_EQ(centre.value().x.origin, 10);
    EXPECT_DOUBLE_EQ(centre.value().y.origin, 50.5);
}

TEST_F(GridFile, WithoutNodataEverySampleCounts)
{
    Outcome<HeightMap> outcome = read("NCOLS 2\r\nNROWS 2\r\nCELLSIZE 1\r\n-9999 1\r\n2 3\r\n\r\n");
    ASSERT_TRUE(outcome) << qPrintable(outcome.problem());
    EXPECT_EQ(outcome.value().heights[0], -9999.0F);
}

TEST_F(GridFile, MalformedHeaderIsNamedByLine)
{
    expectProblem("ncols 3\nnrows two\n1 2 3\n", "line 2");
    expectProblem("ncols 3\nrows 2\n1 2 3\n", "line 2");
    expectProblem("ncols 3\nncols 3\nnrows 2\n", "line 2");
    expectProblem("ncols 3\n\nnrows 2\n", "line 2");
    expectProblem("ncols 3\nnrows 2 2\ncellsize 1\n1 2 3\n4 5 6\n", "line 2");
    expectProblem("ncols 3\nnrows 2\n1 2 3\n4 5 6\n", "line 3: the header lacks \"cellsize\"");
    expectProblem("hello\n", "line 1");
    expectProblem("", "empty");
}

TEST_F(GridFile, SizesThatCannotBeAreRefused)
{
    expectProblem("ncols 2.5\nnrows 2\ncellsize 1\n1 2\n", "2.5 x 2");
    expectProblem("ncols -2\nnrows 2\ncellsize 1\n1 2\n", "-2 x 2");
    expectProblem("ncols 1\nnrows 2\ncellsize 1\n1\n2\n", "1 x 2");
    expectProblem("ncols 1e300\nnrows 2\ncellsize 1\n1 2\n", "cannot be shown");
    expectProblem("ncols 90000\nnrows 90000\ncellsize 1\n1 2\n", "cannot hold");
    expectProblem("ncols 2\nnrows 2\ncellsize 0\n1 2\n3 4\n", "cell size");
}

TEST_F(GridFile, MalformedRowIsNamedByLine)
{
    expectProblem(kHeader + "1 2 3\n4 5\n", "line 8: 2 of 3 samples");
    expectProblem(kHeader + "1 2 3 4\n4 5 6\n", "line 7: more than 3 samples");
    expectProblem(kHeader + "1 2 3\n4 five 6\n", "line 8: \"five\" is no number");
    expectProblem(kHeader + "1 2 3   \n", "line 8: the file ends after 1 of 2 rows");
    expectProblem(kHeader + "1 2 3\n\n4 5 6\n", "line 8: 0 of 3 samples");
    expectProblem(kHeader + "1 2 3\n4 5 6\n\n7 8 9\n", "line 10: more rows");
}

} // namespace
