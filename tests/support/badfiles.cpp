// SPDX-License-Identifier: BSD-3-Clause
#include "badfiles.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>

#include <array>
#include <random>

namespace ovl::test {
namespace {

/** The same ones each time. */
QByteArray noise(int count, int least)
{
    std::mt19937 random(7);
    QByteArray bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(least + static_cast<int>(random() % (256U - unsigned(least))));
    return bytes;
}

template <class Number> QByteArray little(Number value)
{
    QByteArray bytes(sizeof value, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray big(quint32 value)
{
    QByteArray bytes(sizeof value, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray tiffEntry(int tag, int type, int value)
{
    return little(static_cast<quint16>(tag)) + little(static_cast<quint16>(type))
        + little(quint32 {1}) + little(static_cast<quint32>(value));
}

quint32 checkSum(const QByteArray& bytes)
{
    quint32 sum = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1U ^ (sum & 1U ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

QByteArray pngChunk(const QByteArray& name, const QByteArray& content)
{
    return big(static_cast<quint32>(content.size())) + name + content
        + big(checkSum(name + content));
}

/** Right in every chunk, and so large that only the header's own size gives it away. */
QByteArray paddedPng(quint32 side)
{
    const QByteArray header = big(side) + big(side) + QByteArray("\x08\0\0\0\0", 5);
    return smallPng().left(8) + pngChunk("IHDR", header)
        + pngChunk("tEXt", QByteArray("Comment\0", 8) + QByteArray(200000, ' '))
        + pngChunk("IDAT", noise(20, 0)) + pngChunk("IEND", {});
}

QByteArray table(int rows, int columns)
{
    QByteArray text;
    for (int column = 0; column < columns; ++column)
        text += (column ? ",c" : "c") + QByteArray::number(column);
    for (int row = 0; row < rows; ++row)
        text += '\n' + QByteArray::number(row) + QByteArray(",7").repeated(columns - 1);
    return text;
}

QByteArray grid(const QByteArray& header, const QByteArray& rows) { return header + rows; }

const char kHeader[] = "ncols 2\nnrows 2\ncellsize 1\n";

std::vector<TestFile> refusedImages()
{
    QByteArray tall = smallPng();
    tall.replace(16, 8, big(1000000) + big(1000000));
    return {
        {"empty.png", "", "empty"},
        {"cut.png", smallPng().left(40), "truncated"},
        {"header.png", smallPng().left(20), "header"},
        {"boasting.png", tall, "cannot hold"},
        {"padded.png", paddedPng(30000), "cannot hold"},
        {"noise.png", noise(4096, 0), "no PNG"},
        {"text.png", "x,y\n1,2\n", "no PNG"},
        {"jpeg.png", QByteArray("\xFF\xD8\xFF\xE0\0\x10JFIF", 10), "no PNG"},
        {"boasting.tif", smallTiff(100000, 100000, 16, "abcd"), "cannot hold"},
        {"negative.tif", smallTiff(-1, -1, 8, "abcd"), "cannot hold"},
        {"bits.tif", smallTiff(2, 2, 32, QByteArray(16, 'x')), "8 or 16 bits"},
        {"cut.tif", smallTiff(2, 2, 8, "abcd").left(60), "header"},
        {"boasting.pgm", "P5\n16777215 16777215\n255\nabc", "cannot hold"},
        {"beyond.pgm", "P5\n99999999999999999999 1\n255\na", "malformed"},
        {"none.pgm", "P5\n0 0\n255\n", "malformed"},
        {"short.ppm", "P6\n4 4\n255\nabcabcabcabcabcabc", "cannot hold"},
    };
}

std::vector<TestFile> refusedTables()
{
    return {
        {"empty.csv", "", "empty"},
        {"noise.csv", noise(4096, 0), "no text"},
        {"letters.csv", noise(4096, 128), "line 1"},
        {"none.csv", "x,y\n", "no rows"},
        {"ragged.csv", "x,y\n1\n1,2,3\n", "lines 2 and 3"},
        {"nowhere.csv", "x,y\nnan,1\n,2\n", "lines 2 and 3"},
        {"infinite.csv", "x,y\n1,inf\n2,1e999\n", "lines 2 and 3"},
        {"words.csv", "x,y\na,b\n", "line 2"},
        {"null.csv", QByteArray("x,y\n1,\0\n", 8), "no text"},
        {"untitled.csv", "1,2\n3,4\n", "line 1"},
        {"titles.csv", QByteArray(1000000, ','), "64 columns"},
        {"fields.csv", "x,y\n" + QByteArray(1000000, ','), "line 2"},
        {"quotes.csv", "x,y\n\"1,2\n\"3,4\n", "lines 2 and 3"},
    };
}

std::vector<TestFile> refusedGrids()
{
    return {
        {"empty.asc", "", "empty"},
        {"noise.asc", noise(4096, 0), "line 1"},
        {"boasting.asc", grid("ncols 100000\nnrows 100000\ncellsize 1\n", "1 2\n3 4\n"),
            "cannot hold"},
        {"beyond.asc", grid("ncols 1e300\nnrows 2\ncellsize 1\n", "1 2\n3 4\n"), "cannot be shown"},
        {"half.asc", grid("ncols 2\nnrows 2.5\ncellsize 1\n", "1 2\n3 4\n"), "cannot be shown"},
        {"single.asc", grid("ncols 1\nnrows 1\ncellsize 1\n", "1\n"), "cannot be shown"},
        {"point.asc", grid("ncols 2\nnrows 2\ncellsize 0\n", "1 2\n3 4\n"), "cell size"},
        {"backward.asc", grid("ncols 2\nnrows 2\ncellsize -1\n", "1 2\n3 4\n"), "cell size"},
        {"nan.asc", grid("ncols 2\nnrows nan\ncellsize 1\n", "1 2\n3 4\n"), "line 2"},
        {"short.asc", grid(kHeader, "1 2\n3\n"), "line 5"},
        {"missing.asc", grid(kHeader, "1 2\n"), "line 5"},
        {"more.asc", grid(kHeader, "1 2\n3 4\n5 6\n"), "line 6"},
        {"row.asc", grid(kHeader, "1 2\n" + QByteArray("3 ").repeated(1000000)), "line 5"},
        {"word.asc", grid(kHeader, "1 2\n3 " + QByteArray(1000000, 'x')), "line 5"},
        {"high.asc", grid(kHeader, "1 2\n3 2e37\n"), "line 5"},
        {"infinite.asc", grid(kHeader, "1 2\n3 inf\n"), "line 5"},
    };
}

} // namespace

QByteArray smallPng()
{
    QImage image(3, 2, QImage::Format_Grayscale8);
    image.fill(77);
    QBuffer buffer;
    image.save(&buffer, "png");
    return buffer.data();
}

QByteArray smallTiff(int width, int height, int bits, const QByteArray& pixels)
{
    constexpr int kEntries = 9;
    constexpr int kPixels = 8 + 2 + kEntries * 12 + 4;
    return QByteArray("II*\0", 4) + little(quint32 {8}) + little(quint16 {kEntries})
        + tiffEntry(256, 4, width) + tiffEntry(257, 4, height) + tiffEntry(258, 3, bits)
        + tiffEntry(259, 3, 1) + tiffEntry(262, 3, 1) + tiffEntry(273, 4, kPixels)
        + tiffEntry(277, 3, 1) + tiffEntry(278, 4, height) + tiffEntry(279, 4, pixels.size())
        + little(quint32 {0}) + pixels;
}

std::vector<TestFile> refusedFiles()
{
    std::vector<TestFile> all {{"letter.docx", "PK\3\4 words", "cannot be shown"},
        {"nameless", "some words", "cannot be shown"}, {"a.exe", noise(64, 0), "cannot be shown"}};
    for (const auto& files : {refusedImages(), refusedTables(), refusedGrids()})
        all.insert(all.end(), files.begin(), files.end());
    return all;
}

std::vector<TestFile> strangeImages()
{
    return {
        {"pixel.pgm", "P5\n1 1\n255\na", nullptr},
        {"wide.pgm", "P5\n1048576 1\n255\n" + QByteArray(1048576, 'w'), nullptr},
        {"tall.pgm", "P5\n1 1048576\n255\n" + QByteArray(1048576, 't'), nullptr},
        {"black.pgm", "P5\n64 64\n65535\n" + QByteArray(64 * 64 * 2, '\0'), nullptr},
        {"image.csv", smallPng(), nullptr}, // the contents tell
    };
}

std::vector<TestFile> strangeTables()
{
    return {
        {"gaps.csv", "x,y\n0,nan\n1,\n2,NaN\n", nullptr},
        {"row.csv", "x,y\n1,2\n", nullptr},
        {"huge.csv", "x,y\n-1e308,1e308\n1e308,-1e308\n", nullptr},
        {"tiny.csv", "x,y\n0,1e-320\n1e-320,0\n2e-320,3e-320\n", nullptr},
        {"upright.csv", "x,y\n1e300,1\n1e300,2\n1e300,3\n", nullptr},
        {"backward.csv", "x,y\n3,1\n2,2\n1,3\n2,4\n", nullptr},
        {"title.csv", QByteArray(1000000, 'x') + ",<b>%x</b>%\n1,2\n3,4\n", nullptr},
        {"twins.csv", "x,x,x\n1,2,3\n4,5,6\n", nullptr},
        {"columns.csv", table(3, 64), nullptr},
        {"joined.csv", table(9999, 9), nullptr},
    };
}

std::vector<TestFile> strangeGrids()
{
    return {
        {"gaps.asc", grid("nodata_value 9\n", grid(kHeader, "9 9\n9 9\n")), nullptr},
        {"nan.asc", grid(kHeader, "nan 1\n2 nan\n"), nullptr},
        {"flat.asc", grid(kHeader, "1 1\n1 1\n"), nullptr},
        {"high.asc", grid(kHeader, "9e36 -9e36\n0 1\n"), nullptr},
        {"low.asc", grid(kHeader, "1e-40 2e-40\n0 1e-45\n"), nullptr},
        {"fine.asc", grid("ncols 2\nnrows 2\ncellsize 1e-320\n", "1 2\n3 4\n"), nullptr},
        {"far.asc",
            grid("ncols 2\nnrows 2\ncellsize 1e300\nxllcorner -1e308\nyllcorner 1e308\n",
                "1 2\n3 4\n"),
            nullptr},
        {"strip.asc", grid("ncols 2\nnrows 2000\ncellsize 1\n", QByteArray("1 2\n").repeated(2000)),
            nullptr},
        {"grid.csv", grid(kHeader, "1 2\n3 4\n"), nullptr}, // the contents tell
    };
}

} // namespace ovl::test
