// SPDX-License-Identifier: BSD-3-Clause
#include "pnmfile.h"

#include "filebytes.h"
#include "pngfile.h"

#include <QImage>

#include <cctype>

namespace ovl::gallery {
namespace {

using Failure = Outcome<Image>;

/** Walks through the blank-separated numbers and comments of the format. */
class PnmText {
public:
    explicit PnmText(const QByteArray& content)
        : bytes(content)
    {
    }

    /** The next number, or -1 where none (or none below 2^24) stands. */
    int number()
    {
        skipBlanks();
        int value = -1;
        while (at < bytes.size() && std::isdigit(static_cast<unsigned char>(bytes[at])) != 0) {
            value = (value < 0 ? 0 : value) * 10 + (bytes[at++] - '0');
            if (value >= 1 << 24)
                return -1;
        }
        return value;
    }

    int position() const { return at; }

private:
    void skipBlanks()
    {
        while (at < bytes.size()) {
            if (bytes[at] == '#')
                skipComment();
            else if (std::isspace(static_cast<unsigned char>(bytes[at])) != 0)
                ++at;
            else
                return;
        }
    }

    void skipComment()
    {
        const int end = bytes.indexOf('\n', at);
        at = end < 0 ? bytes.size() : end;
    }

    const QByteArray& bytes;
    int at = 2; // behind the magic letters
};

Outcome<Image> readBinary(const QByteArray& bytes, int from, Image image)
{
    image.allocate();
    if (static_cast<std::size_t>(bytes.size() - from) < image.bytes.size())
        return Failure::failure(QStringLiteral("the PNM file is truncated"));
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.constData()) + from;
    for (std::size_t i = 0; i < image.samples(); ++i)
        image.setSample(i,
            static_cast<std::uint16_t>(image.wide ? data[2 * i] << 8 | data[2 * i + 1] : data[i]));
    return image;
}

Outcome<Image> readNumbers(PnmText& text, Image image)
{
    image.allocate();
    for (std::size_t i = 0; i < image.samples(); ++i) {
        const int value = text.number();
        if (value < 0 || value > 65535)
            return Failure::failure(QStringLiteral("the PNM file is truncated or damaged"));
        image.setSample(i, static_cast<std::uint16_t>(value));
    }
    return image;
}

/** Pixels come as red, green, blue. */
void swapRedAndBlue(Image& image)
{
    for (std::size_t i = 0; image.components == 3 && i < image.samples(); i += 3) {
        const auto red = static_cast<std::uint16_t>(image.sample(i));
        image.setSample(i, static_cast<std::uint16_t>(image.sample(i + 2)));
        image.setSample(i + 2, red);
    }
}

} // namespace

bool looksLikePnm(const QByteArray& beginning)
{
    return beginning.size() > 2 && beginning[0] == 'P' && beginning[1] >= '1' && beginning[1] <= '6'
        && (std::isspace(static_cast<unsigned char>(beginning[2])) != 0 || beginning[2] == '#');
}

Outcome<Image> readPnm(const QByteArray& bytes)
{
    const char kind = bytes[1];
    const bool bitmap = kind == '1' || kind == '4';
    PnmText text(bytes);
    Image image;
    image.width = text.number();
    image.height = text.number();
    image.components = kind == '3' || kind == '6' ? 3 : 1;
    const int white = bitmap ? 1 : text.number();
    if (image.width < 1 || image.height < 1 || white < 1 || white > 65535)
        return Failure::failure(QStringLiteral("the PNM file's header is malformed"));
    image.wide = white > 255;
    // In the text forms a sample takes one byte and a blank at least.
    const int ratio = kind == '4' ? 8 : 1;
    if (!isHonestSize(image.width, image.height, image.components, bytes.size(), ratio))
        return Failure::failure(dishonestSize(image.width, image.height));
    if (bitmap) {
        const QImage decoded = QImage::fromData(bytes, "ppm");
        return decoded.isNull() ? Failure::failure(QStringLiteral("the PNM file is damaged"))
                                : imageFrom(decoded);
    }
    Outcome<Image> read = kind == '2' || kind == '3'
        ? readNumbers(text, std::move(image))
        : readBinary(bytes, text.position() + 1, image);
    if (read)
        swapRedAndBlue(read.value());
    return read;
}

} // namespace ovl::gallery
