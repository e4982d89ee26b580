// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: many intervals that are asked at once.
#ifndef OVL_VISUALIZATION_INTERVALLANES_H
#define OVL_VISUALIZATION_INTERVALLANES_H

#include <array>
#include <cstddef>

namespace ovl {

/**
 * Some intervals, both ends included, the ends side by side: asking all of them whether they meet
 * another takes a few vector instructions, so that thousands can be gone through at every move of
 * the mouse. A NaN, of theirs or of the other's, meets everything.
 */
template <class Number> class IntervalLanes {
public:
    static constexpr std::size_t kCount = 16;

    void set(std::size_t lane, Number lower, Number upper)
    {
        lowers[lane] = lower;
        uppers[lane] = upper;
    }
    Number lower(std::size_t lane) const { return lowers[lane]; }
    Number upper(std::size_t lane) const { return uppers[lane]; }

    bool meets(std::size_t lane, Number from, Number to) const
    {
        return meetsBit(lane, from, to) != 0;
    }
    bool anyMeets(Number from, Number to) const;

private:
    unsigned meetsBit(std::size_t lane, Number from, Number to) const
    {
        return unsigned {!(uppers[lane] < from)} & unsigned {!(lowers[lane] > to)};
    }

    std::array<Number, kCount> lowers {};
    std::array<Number, kCount> uppers {};
};

extern template class IntervalLanes<float>;
extern template class IntervalLanes<double>;

} // namespace ovl

#endif
