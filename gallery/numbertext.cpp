// SPDX-License-Identifier: BSD-3-Clause
#include "numbertext.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr std::string_view kBlanks = " \t\v\f\r\n";

} // namespace

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<double> numberFrom(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1); // the converter knows only the other sign
    double value = 0;
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || std::isinf(value))
        return std::nullopt;
    return value;
}

std::string_view takeLine(std::string_view& rest)
{
    const std::size_t end = rest.find_first_of("\r\n");
    const std::string_view line = rest.substr(0, end);
    if (end == std::string_view::npos)
        rest = {};
    else
        rest.remove_prefix(end + (rest.substr(end, 2) == "\r\n" ? 2 : 1));
    return line;
}

std::string_view takeWord(std::string_view& rest)
{
    const std::size_t first = rest.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        rest = {};
        return {};
    }
    rest.remove_prefix(first);
    const std::size_t length = std::min(rest.find_first_of(kBlanks), rest.size());
    const std::string_view word = rest.substr(0, length);
    rest.remove_prefix(length);
    return word;
}

} // namespace ovl::gallery
