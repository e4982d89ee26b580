// SPDX-License-Identifier: BSD-3-Clause
#include "tiffheader.h"

#include "filebytes.h"

#include <QtEndian>

#include <vector>

namespace ovl::gallery {
namespace {

using Failure = Outcome<TiffHeader>;

constexpr int kEntryLength = 12;
constexpr int kPackedRatio = 4096; // the best that any of the usual codings does

enum Tag {
    ImageWidth = 256,
    ImageLength = 257,
    BitsPerSample = 258,
    Compression = 259,
    StripOffsets = 273,
    SamplesPerPixel = 277,
    StripByteCounts = 279,
    TileOffsets = 324,
    TileByteCounts = 325,
};

class TiffBytes {
public:
    explicit TiffBytes(const QByteArray& content)
        : bytes(content)
        , little(content[0] == 'I')
    {
    }

    bool holds(qint64 from, qint64 length) const
    {
        return from >= 0 && length >= 0 && from <= bytes.size() - length;
    }

    qint64 word(qint64 at) const
    {
        const char* data = bytes.constData() + at;
        return little ? qFromLittleEndian<quint16>(data) : qFromBigEndian<quint16>(data);
    }

    qint64 longWord(qint64 at) const
    {
        const char* data = bytes.constData() + at;
        return little ? qFromLittleEndian<quint32>(data) : qFromBigEndian<quint32>(data);
    }

    qint64 size() const { return bytes.size(); }

    /** The whole numbers of the directory entry at `at`; none where it is broken. */
    std::vector<qint64> values(qint64 at) const
    {
        std::vector<qint64> result;
        const qint64 width = word(at + 2) == 3 ? 2 : word(at + 2) == 4 ? 4 : 0;
        const qint64 count = longWord(at + 4);
        const qint64 from = count * width <= 4 ? at + 8 : longWord(at + 8);
        if (width == 0 || !holds(from, count * width))
            return result;
        result.reserve(static_cast<std::size_t>(count));
        for (qint64 i = 0; i < count; ++i)
            result.push_back(width == 2 ? word(from + 2 * i) : longWord(from + 4 * i));
        return result;
    }

private:
    const QByteArray& bytes;
    bool little;
};

/** One directory: the header and where its pieces lie. */
struct Directory {
    TiffHeader header;
    std::vector<qint64> offsets;
    std::vector<qint64> lengths;
};

void takeEntry(const TiffBytes& tiff, qint64 at, Directory& directory)
{
    std::vector<qint64> values = tiff.values(at);
    const qint64 first = values.empty() ? 0 : values.front();
    switch (tiff.word(at)) {
    case ImageWidth:
        directory.header.width = first;
        break;
    case ImageLength:
        directory.header.height = first;
        break;
    case BitsPerSample:
        directory.header.bitsPerSample = static_cast<int>(first);
        break;
    case Compression:
        directory.header.compression = static_cast<int>(first);
        break;
    case SamplesPerPixel:
        directory.header.samplesPerPixel = static_cast<int>(first);
        break;
    case StripOffsets:
    case TileOffsets:
        directory.offsets = std::move(values);
        break;
    case StripByteCounts:
    case TileByteCounts:
        directory.lengths = std::move(values);
        break;
    default:
        break;
    }
}

QString problemOf(const Directory& directory, const TiffBytes& tiff)
{
    const TiffHeader& header = directory.header;
    if (header.bitsPerSample < 1 || header.bitsPerSample > 64 || header.samplesPerPixel < 1
        || header.samplesPerPixel > 16 || directory.offsets.size() != directory.lengths.size())
        return QStringLiteral("the TIFF file's directory is malformed");
    qint64 stored = 0;
    for (std::size_t i = 0; i < directory.offsets.size(); ++i) {
        if (!tiff.holds(directory.offsets[i], directory.lengths[i]))
            return QStringLiteral("the TIFF file is truncated");
        stored += directory.lengths[i];
    }
    const int ratio = header.compression == 1 ? 1 : kPackedRatio;
    const qint64 bytesPerPixel
        = qMax(qint64(1), qint64(header.bitsPerSample) * header.samplesPerPixel / 8);
    const qint64 available = header.bitsPerSample < 8 ? 8 * stored : stored;
    if (!isHonestSize(
            header.width, header.height, bytesPerPixel, qMin(available, 8 * tiff.size()), ratio))
        return dishonestSize(header.width, header.height);
    return QString();
}

} // namespace

Outcome<TiffHeader> readTiffHeader(const QByteArray& bytes)
{
    const QString truncated = QStringLiteral("the TIFF file ends within its header");
    if (bytes.size() < 8)
        return Failure::failure(truncated);
    const TiffBytes tiff(bytes);
    const qint64 start = tiff.longWord(4);
    if (!tiff.holds(start, 2))
        return Failure::failure(truncated);
    const qint64 entries = tiff.word(start);
    if (!tiff.holds(start + 2, entries * kEntryLength))
        return Failure::failure(truncated);
    Directory directory;
    for (qint64 i = 0; i < entries; ++i)
        takeEntry(tiff, start + 2 + i * kEntryLength, directory);
    const QString problem = problemOf(directory, tiff);
    if (!problem.isEmpty())
        return Failure::failure(problem);
    TiffHeader header = directory.header;
    return header;
}

} // namespace ovl::gallery
