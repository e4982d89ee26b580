// SPDX-License-Identifier: BSD-3-Clause
#include "tooltipformat.h"

#include <cstdint>
#include <cstdio>
#include <locale>
#include <sstream>

namespace ovl {

std::string expandTooltipFormat(
    const std::string& format, const std::function<bool(char, std::string&)>& append)
{
    std::string text;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            text += format[i];
        } else if (++i < format.size() && !append(format[i], text)) {
            text += '%';
            text += format[i];
        }
    }
    return text;
}

std::string formatTooltipNumber(double value, int precision, int notation)
{
    constexpr int scientific = 1;
    constexpr int fixed = 2;

    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.precision(precision);
    if (notation == scientific)
        stream.setf(std::ios::scientific, std::ios::floatfield);
    else if (notation == fixed)
        stream.setf(std::ios::fixed, std::ios::floatfield);
    stream << value;
    return stream.str();
}

std::string formatTooltipHex(double value)
{
    // A conversion out of range would be undefined; the comparison is false for NaN too.
    constexpr double limit = 9223372036854775808.0; // 2 to the power of 63
    const std::int64_t integer
        = value >= -limit && value < limit ? static_cast<std::int64_t>(value) : 0;

    char text[sizeof "0xFFFF"];
    std::snprintf(text, sizeof text, "0x%X", static_cast<unsigned>(integer & 0xFFFF));
    return text;
}

} // namespace ovl
