// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_NUMBERTEXT_H
#define OVL_GALLERY_NUMBERTEXT_H

#include <optional>
#include <string_view>

namespace ovl::gallery {

/** `text` without blanks at its ends. */
std::string_view trimmed(std::string_view text);

/**
 * The number that `text` spells from its first to its last letter, whatever the user's language;
 * "nan" is a number, an infinity is none.
 */
std::optional<double> numberFrom(std::string_view text);

/** Takes the next line off `rest`, without its end; "\n", "\r\n" and "\r" all end one. */
std::string_view takeLine(std::string_view& rest);

/** Takes the next word, up to a blank, off `rest`; empty when there is none. */
std::string_view takeWord(std::string_view& rest);

} // namespace ovl::gallery

#endif
