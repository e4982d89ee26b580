// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: the format language of tooltips, without the values.
#ifndef OVL_VISUALIZATION_TOOLTIPFORMAT_H
#define OVL_VISUALIZATION_TOOLTIPFORMAT_H

#include <functional>
#include <string>

namespace ovl {

/**
 * Copies `format`, replacing each code, a percent sign and the character after it. `append` gets
 * that character and the text so far, appends what the code stands for, perhaps nothing, and
 * answers true; when it answers false the code is unknown and stays as it is. A percent sign at the
 * end of the format gets lost.
 */
std::string expandTooltipFormat(
    const std::string& format, const std::function<bool(char, std::string&)>& append);

/**
 * Writes the number in the classic locale. `notation` 1 is scientific, 2 fixed, any other whichever
 * is shorter.
 */
std::string formatTooltipNumber(double value, int precision, int notation);

/**
 * The low 16 bits of the integer part, as "0x" and uppercase digits without leading zeros. NaN and
 * whatever does not fit into 64 bits gives "0x0", as the processor's own conversion does.
 */
std::string formatTooltipHex(double value);

} // namespace ovl

#endif
