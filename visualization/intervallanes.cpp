// SPDX-License-Identifier: BSD-3-Clause
#include "intervallanes.h"

namespace ovl {

// Out of line, since inlined into a caller's loop it is unrolled before it can become vectors.
template <class Number> bool IntervalLanes<Number>::anyMeets(Number from, Number to) const
{
    unsigned any = 0;
    for (std::size_t lane = 0; lane < kCount; ++lane)
        any |= meetsBit(lane, from, to);
    return any != 0;
}

template class IntervalLanes<float>;
template class IntervalLanes<double>;

} // namespace ovl
