// SPDX-License-Identifier: BSD-3-Clause
#include "deal.h"

#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

namespace ovl::fuzz {
namespace {

using Double = std::numeric_limits<double>;
using Float = std::numeric_limits<float>;
using Int = std::numeric_limits<int>;

constexpr int kOddIntegers[] = {Int::min(), Int::min() + 1, -65536, -32768, -256, 31, 32, 63, 64,
    255, 256, 32767, 65535, 65536, Int::max() - 1, Int::max()};

constexpr double kOddNumbers[] = {Double::quiet_NaN(), Double::infinity(), -Double::infinity(), 0.0,
    -0.0, Double::denorm_min(), -Double::denorm_min(), Double::min(), Double::max(), -Double::max(),
    Double::epsilon(), Float::denorm_min(), Float::max(), 2.0 * Float::max(), -2.0 * Float::max(),
    2147483648.0, -2147483649.0, 9223372036854775808.0, 1e17, 1e17 + 100.0, 1e-300, 1e300, 1.0 / 3};

const char16_t* const kTexts[] = {u"", u"A", u"plot0", u"Größe µm²", u"温度 (℃)", u"עברית",
    u"العربية", u"हिन्दी", u"\U0001F4C8", u"a\u0301\u0327", u"\u202Eleft", u"\xD800", u"%", u"%x",
    u"two\nlines", u"tab\t", u"$x^2$", u"$", u"a|b", u"<b>bold</b>", u"_handle", u"\u200B", u" "};

const char* const kFormatParts[] = {"%x", "%y", "%a", "%b", "%h", "%i", "%j", "%l", "%q", "%%", "%",
    "%n", "%s", "%1", "% ", ": ", "x", "\xC3\xA9", "%\xC3"};

QString longText() { return QString(300, QLatin1Char('W')); }

} // namespace

std::uint64_t Deal::bits(int bytes)
{
    std::uint64_t value = 0;
    for (int i = 0; i < bytes; ++i)
        value = value << 8U | byte();
    return value;
}

int Deal::below(int count)
{
    const auto limit = static_cast<unsigned>(count > 0 ? count : 1);
    return static_cast<int>((limit > 256U ? bits(2) : byte()) % limit);
}

int Deal::integer()
{
    const unsigned kind = byte();
    if (kind < 160U)
        return static_cast<int>(kind) - 80;
    if (kind < 224U)
        return kOddIntegers[kind % std::size(kOddIntegers)];
    return static_cast<int>(static_cast<std::uint32_t>(bits(4)));
}

double Deal::number()
{
    const unsigned kind = byte();
    if (kind < 96U)
        return static_cast<double>(kind) - 32.0;
    if (kind < 144U)
        return (static_cast<double>(bits(2)) - 32768.0) / 256.0;
    if (kind < 176U)
        return std::ldexp(static_cast<double>(kind) - 160.0, below(2100) - 1050);
    if (kind < 232U)
        return kOddNumbers[kind % std::size(kOddNumbers)];
    const std::uint64_t any = bits(8);
    double value = 0.0;
    std::memcpy(&value, &any, sizeof value);
    return value;
}

Range Deal::range()
{
    const double first = number();
    switch (below(5)) {
    case 0:
        return {};
    case 1:
        return Range(first, first);
    case 2:
        return Range(first, number());
    case 3: {
        Range grown;
        grown.accumulate(first);
        grown.accumulate(number());
        return grown;
    }
    default:
        return Range(0.0, std::fabs(first));
    }
}

QColor Deal::color()
{
    switch (below(4)) {
    case 0:
        return {}; // which is invalid
    case 1:
        return QColor(Qt::white);
    case 2:
        return QColor::fromHsv(below(360), below(256), below(256), below(256));
    default:
        return QColor(below(256), below(256), below(256), below(256));
    }
}

QString Deal::text()
{
    QString text;
    for (int parts = between(1, 3); parts > 0; --parts) {
        const unsigned kind = byte();
        if (kind < 200U)
            text += QString::fromUtf16(kTexts[kind % std::size(kTexts)]);
        else if (kind < 250U)
            text += QChar(static_cast<ushort>(bits(2))); // a null or half a pair among them
        else
            text += longText();
    }
    return text;
}

QString Deal::format()
{
    QString format;
    for (int parts = below(7); parts > 0; --parts)
        format += QString::fromUtf8(
            kFormatParts[static_cast<std::size_t>(below(std::size(kFormatParts)))]);
    return format;
}

} // namespace ovl::fuzz
