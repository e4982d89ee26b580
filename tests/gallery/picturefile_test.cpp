// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/picturefile.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <cstdlib>
#include <gtest/gtest.h>

using ovl::gallery::withFewColours;
using ovl::gallery::writePng;

namespace {

QImage ramps()
{
    QImage picture(256, 200, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x, y, (x + y) / 2));
    return picture;
}

TEST(PictureFile, FewColoursStayAsTheyAre)
{
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(QColor(10, 20, 30));
    picture.setPixel(3, 4, qRgb(250, 1, 99));
    EXPECT_EQ(withFewColours(picture).convertToFormat(QImage::Format_RGB32), picture);
}

TEST(PictureFile, ManyColoursBecome256ThatLieNear)
{
    const QImage picture = ramps();
    const QImage result = withFewColours(picture);
    EXPECT_LE(result.colorTable().size(), 256);
    EXPECT_GT(result.colorTable().size(), 200);
    for (int y = 0; y < picture.height(); y += 7)
        for (int x = 0; x < picture.width(); x += 7) {
            const QRgb was = picture.pixel(x, y);
            const QRgb is = result.pixel(x, y);
            ASSERT_LE(std::abs(qRed(was) - qRed(is)), 24) << x << ' ' << y;
            ASSERT_LE(std::abs(qGreen(was) - qGreen(is)), 24) << x << ' ' << y;
            ASSERT_LE(std::abs(qBlue(was) - qBlue(is)), 24) << x << ' ' << y;
        }
}

TEST(PictureFile, IsWrittenWithItsTableOfColours)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.png");
    ASSERT_TRUE(writePng(ramps(), path));
    EXPECT_EQ(QImage(path).format(), QImage::Format_Indexed8);
    EXPECT_FALSE(writePng(ramps(), folder.filePath("nowhere/a.png")));
}

} // namespace
