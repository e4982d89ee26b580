// SPDX-License-Identifier: BSD-3-Clause
#include "pngfile.h"

#include "filebytes.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QRgba64>
#include <QtEndian>

namespace ovl::gallery {
namespace {

constexpr char kSignature[] = "\x89PNG\r\n\x1a\n";
constexpr int kSignatureLength = 8;
constexpr int kChunkFrame = 12; // length, name, check sum
constexpr int kDeflateRatio = 1032; // no deflated byte stands for more

quint32 bigEndian(const QByteArray& bytes, int at)
{
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

/** The bytes that hold the pixels; -1 where the chunks do not follow each other up to the closing
 * one. */
qint64 packedBytes(const QByteArray& bytes)
{
    qint64 packed = 0;
    qint64 at = kSignatureLength;
    while (at + kChunkFrame <= bytes.size()) {
        const auto chunk = static_cast<int>(at);
        const QByteArray name = bytes.mid(chunk + 4, 4);
        const qint64 length = bigEndian(bytes, chunk);
        if (name == "IEND")
            return packed;
        packed += name == "IDAT" ? length : 0;
        at += kChunkFrame + length;
    }
    return -1;
}

int bitsPerPixel(const QByteArray& bytes)
{
    constexpr int channels[] = {1, 1, 3, 1, 2, 1, 4, 1}; // of each colour type
    return bytes[24] * channels[bytes[25] & 7];
}

/** The header's size is checked before anything is allocated for it. */
QString headerProblem(const QByteArray& bytes)
{
    if (bytes.size() < kSignatureLength + kChunkFrame + 13 || bytes.mid(12, 4) != "IHDR")
        return QStringLiteral("the PNG file ends within its header");
    const qint64 width = bigEndian(bytes, 16);
    const qint64 height = bigEndian(bytes, 20);
    const qint64 packed = packedBytes(bytes);
    const qint64 stored = packed < 0 ? bytes.size() : packed;
    const int bits = qMax(bitsPerPixel(bytes), 1);
    const int pixelsPerByte = bits < 8 ? 8 / bits : 1;
    if (!isHonestSize(width, height, qMax(1, bits / 8), pixelsPerByte * stored, kDeflateRatio))
        return dishonestSize(width, height);
    return packed < 0 ? QStringLiteral("the PNG file is truncated") : QString();
}

void copyRows(const QImage& packed, Image& image)
{
    const std::size_t rowBytes = image.bytes.size() / static_cast<std::size_t>(image.height);
    for (int row = 0; row < image.height; ++row)
        std::memcpy(image.bytes.data() + static_cast<std::size_t>(row) * rowBytes,
            packed.constScanLine(row), rowBytes);
}

void copyWideColour(const QImage& rgba, Image& image)
{
    std::size_t at = 0;
    for (int row = 0; row < image.height; ++row) {
        const auto* pixel = reinterpret_cast<const QRgba64*>(rgba.constScanLine(row));
        for (int column = 0; column < image.width; ++column, ++pixel) {
            image.setSample(at++, pixel->blue());
            image.setSample(at++, pixel->green());
            image.setSample(at++, pixel->red());
        }
    }
}

} // namespace

bool looksLikePng(const QByteArray& beginning)
{
    return beginning.startsWith(QByteArray::fromRawData(kSignature, kSignatureLength));
}

Image imageFrom(const QImage& decoded)
{
    Image image;
    image.width = decoded.width();
    image.height = decoded.height();
    image.wide = decoded.depth() > 32 || decoded.format() == QImage::Format_Grayscale16;
    const bool grey = decoded.format() == QImage::Format_Grayscale16
        || (decoded.depth() <= 8 && !decoded.hasAlphaChannel() && decoded.allGray());
    image.components = grey ? 1 : 3;
    image.allocate();
    if (grey)
        copyRows(image.wide ? decoded : decoded.convertToFormat(QImage::Format_Grayscale8), image);
    else if (image.wide)
        copyWideColour(decoded.convertToFormat(QImage::Format_RGBA64), image);
    else
        copyRows(decoded.convertToFormat(QImage::Format_BGR888), image);
    return image;
}

Outcome<Image> readPng(const QByteArray& bytes)
{
    const QString problem = headerProblem(bytes);
    if (!problem.isEmpty())
        return Outcome<Image>::failure(problem);
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, "png");
    const QImage decoded = reader.read();
    if (decoded.isNull())
        return Outcome<Image>::failure(
            QStringLiteral("the PNG file is damaged: %1").arg(reader.errorString()));
    return imageFrom(decoded);
}

} // namespace ovl::gallery
