// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_WHOLENUMBER_H
#define OVL_VISUALIZATION_WHOLENUMBER_H

#include <limits>

namespace ovl {

/**
 * `value` rounded to a whole number as a 32-bit integer holds it; ties go away from zero.
 *
 * Literally a half added or taken and the rest cut off: the largest double below 0.5 gives 1, since
 * its sum with a half is 1. What no 32-bit integer holds, NaN included, gives the lowest one, as
 * the usual processors' conversion does.
 */
inline double wholeNumber(double value)
{
    using Limits = std::numeric_limits<int>;
    const double shifted = value + (value >= 0.0 ? 0.5 : -0.5);
    const bool fits = shifted > Limits::lowest() - 1.0 && shifted < Limits::max() + 1.0;
    return fits ? static_cast<int>(shifted) : Limits::lowest();
}

} // namespace ovl

#endif
