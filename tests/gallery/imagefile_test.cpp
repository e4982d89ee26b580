// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/imagefile.h>
#include <support/filefolder.h>
#include <support/messagewatch.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QtEndian>

#include <gtest/gtest.h>
#include <vector>

using ovl::gallery::Image;
using ovl::gallery::Outcome;
using ovl::gallery::readImageFile;
using ovl::test::MessageWatch;

namespace {

class ImageFile : public ovl::test::FileFolder {
protected:
    QString save(const char* name, const QImage& image) const
    {
        EXPECT_TRUE(image.save(path(name)));
        return path(name);
    }

    QByteArray contents(const QString& name) const
    {
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    static void expectProblem(const QString& file, const char* words)
    {
        const Outcome<Image> read = readImageFile(file);
        EXPECT_FALSE(read);
        EXPECT_NE(read.problem().indexOf(QLatin1String(words)), -1) << qPrintable(read.problem());
    }

    static std::vector<int> samplesOf(const Image& image)
    {
        std::vector<int> samples;
        for (std::size_t i = 0; i < image.samples(); ++i)
            samples.push_back(image.sample(i));
        return samples;
    }
};

using Samples = std::vector<int>;

QImage wideGrey()
{
    QImage image(3, 2, QImage::Format_Grayscale16);
    const quint16 samples[2][3] = {{1, 258, 4095}, {0, 65535, 32768}};
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 3; ++column)
            reinterpret_cast<quint16*>(image.scanLine(row))[column] = samples[row][column];
    return image;
}

TEST_F(ImageFile, PngOfSixteenBitsKeepsEverySample)
{
    Outcome<Image> read = readImageFile(save("grey.png", wideGrey()));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_EQ(read.value().width, 3);
    EXPECT_EQ(read.value().height, 2);
    EXPECT_EQ(read.value().components, 1);
    EXPECT_TRUE(read.value().wide);
    EXPECT_EQ(samplesOf(read.value()), (Samples {1, 258, 4095, 0, 65535, 32768}));
}

TEST_F(ImageFile, PngOfEightBitsIsGreyWhereItIsGrey)
{
    QImage image(3, 1, QImage::Format_Grayscale8); // a row length that is padded in memory
    for (int column = 0; column < 3; ++column)
        image.scanLine(0)[column] = static_cast<uchar>(100 * column);
    Outcome<Image> read = readImageFile(save("grey.png", image));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_FALSE(read.value().wide);
    EXPECT_EQ(samplesOf(read.value()), (Samples {0, 100, 200}));
}

TEST_F(ImageFile, PngInColourComesAsBlueGreenRed)
{
    QImage image(1, 2, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(1, 2, 3));
    image.setPixel(0, 1, qRgb(250, 20, 30));
    Outcome<Image> read = readImageFile(save("colour.png", image));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_EQ(read.value().components, 3);
    EXPECT_EQ(samplesOf(read.value()), (Samples {3, 2, 1, 30, 20, 250}));
}

TEST_F(ImageFile, PngInWideColourComesAsBlueGreenRed)
{
    QImage image(1, 1, QImage::Format_RGBX64);
    image.setPixelColor(0, 0, QColor(QRgba64::fromRgba64(1000, 2000, 65535, 65535)));
    Outcome<Image> read = readImageFile(save("colour.png", image));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_TRUE(read.value().wide);
    EXPECT_EQ(samplesOf(read.value()), (Samples {65535, 2000, 1000}));
}

TEST_F(ImageFile, PnmOfSixteenBitsIsBigEndian)
{
    const QByteArray header("P5 # a comment\n2 1\n4095\n");
    Outcome<Image> read
        = readImageFile(write("grey.pgm", header + QByteArray("\x01\x02\x0f\xff", 4)));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_TRUE(read.value().wide);
    EXPECT_EQ(samplesOf(read.value()), (Samples {258, 4095}));
}

TEST_F(ImageFile, PnmInColourComesAsBlueGreenRed)
{
    Outcome<Image> binary = readImageFile(write("a.ppm", QByteArray("P6\n1 1\n255\n\x01\x02\x03")));
    ASSERT_TRUE(binary) << qPrintable(binary.problem());
    EXPECT_EQ(samplesOf(binary.value()), (Samples {3, 2, 1}));
    Outcome<Image> text = readImageFile(write("b.ppm", "P3\n1 1\n1023\n5 1000 7\n"));
    ASSERT_TRUE(text) << qPrintable(text.problem());
    EXPECT_EQ(samplesOf(text.value()), (Samples {7, 1000, 5}));
}

TEST_F(ImageFile, PnmBitmapIsBlackAndWhite)
{
    Outcome<Image> read = readImageFile(write("a.pbm", "P1\n2 1\n1 0\n"));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_EQ(samplesOf(read.value()), (Samples {0, 255}));
}

void append16(QByteArray& bytes, int value)
{
    char room[2];
    qToLittleEndian(static_cast<quint16>(value), room);
    bytes.append(room, 2);
}

void append32(QByteArray& bytes, int value)
{
    char room[4];
    qToLittleEndian(static_cast<quint32>(value), room);
    bytes.append(room, 4);
}

void appendEntry(QByteArray& bytes, int tag, int type, int value)
{
    append16(bytes, tag);
    append16(bytes, type);
    append32(bytes, 1);
    append32(bytes, value);
}

/** A TIFF file of one strip without packing, made by hand. */
QByteArray tiff(
    int width, int height, int bits, int samples, const QByteArray& pixels, int orientation = 1)
{
    constexpr int kEntries = 10;
    constexpr int kPixels = 8 + 2 + kEntries * 12 + 4;
    QByteArray bytes("II*\0", 4);
    append32(bytes, 8);
    append16(bytes, kEntries);
    appendEntry(bytes, 256, 4, width);
    appendEntry(bytes, 257, 4, height);
    appendEntry(bytes, 258, 3, bits);
    appendEntry(bytes, 259, 3, 1);
    appendEntry(bytes, 262, 3, samples == 3 ? 2 : 1);
    appendEntry(bytes, 273, 4, kPixels);
    appendEntry(bytes, 274, 3, orientation);
    appendEntry(bytes, 277, 3, samples);
    appendEntry(bytes, 278, 4, height);
    appendEntry(bytes, 279, 4, pixels.size());
    append32(bytes, 0);
    return bytes + pixels;
}

TEST_F(ImageFile, TiffKeepsItsRowsFromTheTop)
{
    Outcome<Image> read = readImageFile(
        write("grey.tif", tiff(2, 2, 16, 1, QByteArray("\x01\x00\x02\x01\x03\x00\xff\xff", 8))));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_TRUE(read.value().wide);
    EXPECT_EQ(samplesOf(read.value()), (Samples {1, 258, 3, 65535}));
}

TEST_F(ImageFile, TiffThatBeginsWithTheBottomRowIsTurned)
{
    constexpr int kBottomLeft = 4;
    Outcome<Image> read = readImageFile(
        write("grey.tif", tiff(2, 2, 8, 1, QByteArray("\x03\x04\x01\x02"), kBottomLeft)));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_EQ(samplesOf(read.value()), (Samples {1, 2, 3, 4}));
}

TEST_F(ImageFile, TiffInColourComesAsBlueGreenRed)
{
    Outcome<Image> read = readImageFile(
        write("colour.tif", tiff(1, 2, 8, 3, QByteArray("\x01\x02\x03\x04\x05\x06"))));
    ASSERT_TRUE(read) << qPrintable(read.problem());
    EXPECT_EQ(read.value().components, 3);
    EXPECT_EQ(samplesOf(read.value()), (Samples {3, 2, 1, 6, 5, 4}));
}

TEST_F(ImageFile, TiffOfATellTaleSizeIsRefused)
{
    const QByteArray pixels(4, '\x20');
    expectProblem(write("a.tif", tiff(100000, 100000, 16, 1, pixels)), "cannot hold");
    expectProblem(write("b.tif", tiff(2, 3, 8, 1, pixels)), "cannot hold");
    expectProblem(write("c.tif", tiff(0, 2, 8, 1, pixels)), "cannot hold");
}

TEST_F(ImageFile, TiffIsRefusedWhereverItEnds)
{
    const QByteArray whole = tiff(2, 2, 8, 1, QByteArray(4, '\x20'));
    for (int length = 4; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        EXPECT_FALSE(readImageFile(write("cut.tif", whole.left(length))));
    }
}

TEST_F(ImageFile, PngIsRefusedWhereverItEnds)
{
    const QByteArray whole = contents(save("grey.png", wideGrey()));
    for (int length = 8; length < whole.size() - 8; ++length) { // the last 8 are IEND and its sum
        SCOPED_TRACE(length);
        EXPECT_FALSE(readImageFile(write("cut.png", whole.left(length))));
    }
}

TEST_F(ImageFile, DamagedPngIsRefused)
{
    QByteArray bytes = contents(save("grey.png", wideGrey()));
    const int pixels = bytes.indexOf("IDAT") + 6;
    bytes[pixels] = static_cast<char>(bytes[pixels] ^ 0x55);
    MessageWatch::allow("libpng");
    expectProblem(write("damaged.png", bytes), "damaged");
}

TEST_F(ImageFile, PngHeaderThatTellsMoreThanTheFileHoldsIsRefused)
{
    QByteArray bytes = contents(save("grey.png", wideGrey()));
    qToBigEndian<quint32>(1000000, bytes.data() + 16);
    qToBigEndian<quint32>(1000000, bytes.data() + 20);
    expectProblem(write("bomb.png", bytes), "1000000 x 1000000 pixels");
}

TEST_F(ImageFile, PnmHeaderThatTellsMoreThanTheFileHoldsIsRefused)
{
    expectProblem(write("a.pgm", "P5\n60000 60000\n255\nabc"), "60000 x 60000 pixels");
    expectProblem(write("b.pgm", "P2\n60000 60000\n255\n1 2 3"), "60000 x 60000 pixels");
    expectProblem(write("c.pbm", "P1\n60000 60000\n1 0 1"), "60000 x 60000 pixels");
}

TEST_F(ImageFile, MalformedPnmIsRefused)
{
    expectProblem(write("a.pgm", "P5\n"), "header");
    expectProblem(write("b.pgm", "P5\nx y\n255\n"), "header");
    expectProblem(write("c.pgm", "P5\n2 2\n70000\nabcdefgh"), "header");
    expectProblem(write("d.pgm", "P5\n-2 2\n255\nabcd"), "header");
    expectProblem(write("e.pgm", "P5\n99999999999 2\n255\nabcd"), "header");
    expectProblem(write("f.pgm", "P5\n4 4\n255\nabcdefgh"), "truncated");
    expectProblem(write("g.pgm", "P2\n4 1\n255\n1 2 3"), "truncated");
    expectProblem(write("h.pgm", "P2\n2 1\n255\n1 two three"), "truncated or damaged");
}

TEST_F(ImageFile, WhatIsNoImageIsRefused)
{
    expectProblem(path("nowhere.png"), "no such file");
    expectProblem(folder.path(), "folder");
    expectProblem(write("empty.png", ""), "empty");
    expectProblem(write("text.png", "some words"), "no PNG, TIFF or PNM");
    expectProblem(write("short.png", "P"), "no PNG, TIFF or PNM");
}

} // namespace
