// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/tooltipformat.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <string>

namespace ovl {
namespace {

std::string expand(const std::string& format)
{
    return expandTooltipFormat(format, [](char code, std::string& text) {
        if (code == 'v')
            text += "[value]";
        return code == 'v' || code == 'n'; // %n is known and appends nothing
    });
}

TEST(TooltipFormat, ExpandsKnownCodesAndKeepsTheRest)
{
    EXPECT_EQ(expand(""), "");
    EXPECT_EQ(expand("plain text"), "plain text");
    EXPECT_EQ(expand("%v"), "[value]");
    EXPECT_EQ(expand("a%vb%v%vc"), "a[value]b[value][value]c");
    EXPECT_EQ(expand("a%nb"), "ab");
}

TEST(TooltipFormat, KeepsUnknownCodesWithTheirPercentSign)
{
    EXPECT_EQ(expand("%q"), "%q");
    EXPECT_EQ(expand("100%!"), "100%!");
    EXPECT_EQ(expand("%V"), "%V");
}

TEST(TooltipFormat, TakesADoubledPercentSignAsAnUnknownCode)
{
    EXPECT_EQ(expand("%%"), "%%");
    EXPECT_EQ(expand("%%v"), "%%v");
}

TEST(TooltipFormat, LosesAPercentSignAtTheEnd)
{
    EXPECT_EQ(expand("%"), "");
    EXPECT_EQ(expand("rate %"), "rate ");
    EXPECT_EQ(expand("%v%"), "[value]");
    EXPECT_EQ(expand("%%%"), "%%");
}

TEST(TooltipFormat, WritesNumbersInEachNotation)
{
    struct Case {
        double value;
        int precision;
        int notation;
        const char* text;
    };
    const Case cases[] = {
        {1.5, 6, 0, "1.5"},
        {2.0, 6, 0, "2"},
        {1234567.0, 6, 0, "1.23457e+06"},
        {0.1, 6, 0, "0.1"},
        {3.14159265, 3, 0, "3.14"},
        {1234.5, 2, 1, "1.23e+03"},
        {0.0, 6, 1, "0.000000e+00"},
        {1234.5678, 2, 2, "1234.57"},
        {1234.5678, 0, 2, "1235"},
        {1.5, 6, 3, "1.5"}, // no other number is a notation
        {1.5, 6, -1, "1.5"},
        {-0.0, 6, 0, "-0"},
        {std::numeric_limits<double>::infinity(), 6, 0, "inf"},
        {std::numeric_limits<double>::quiet_NaN(), 6, 0, "nan"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(formatTooltipNumber(c.value, c.precision, c.notation), c.text);
    }
}

TEST(TooltipFormat, WritesNumbersInTheClassicLocaleWhateverTheGlobalOneIs)
{
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
    const std::string number = formatTooltipNumber(12345.5, 9, 0);
    const std::string hex = formatTooltipHex(65535.0);
    std::locale::global(before);
    EXPECT_EQ(number, "12345.5");
    EXPECT_EQ(hex, "0xFFFF");
}

TEST(TooltipFormat, WritesTheLowSixteenBitsInUppercaseHexadecimal)
{
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {300.7, "0x12C"}, {0.0, "0x0"}, {0.9, "0x0"}, {-0.9, "0x0"}, // truncated towards zero
        {10.0, "0xA"}, {65535.0, "0xFFFF"}, {65536.0, "0x0"}, {65537.0, "0x1"}, {-1.0, "0xFFFF"},
        {-2.5, "0xFFFE"}, {-32768.0, "0x8000"},
        {4294967301.0, "0x5"}, // beyond 32 bits, still an integer
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value);
        EXPECT_EQ(formatTooltipHex(c.value), c.text);
    }
}

TEST(TooltipFormat, WritesZeroInHexadecimalForWhatIsNoInteger)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double values[] = {std::nan(""), infinity, -infinity, 1e300, -1e300, std::ldexp(1.0, 63),
        -std::ldexp(1.0, 63), std::numeric_limits<double>::max()};
    for (double value : values) {
        SCOPED_TRACE(value);
        EXPECT_EQ(formatTooltipHex(value), "0x0");
    }
}

} // namespace
} // namespace ovl
