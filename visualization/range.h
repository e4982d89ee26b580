// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_RANGE_H
#define OVL_VISUALIZATION_RANGE_H

#include "export.h"

namespace ovl {

/**
 * A minimum and a maximum, which may be grown value by value.
 *
 * Whether a range is empty is stored, not derived from its bounds. A moved-from range may only be
 * assigned to or destroyed; any other use stops a debug build. Each range costs one allocation.
 */
class OVL_EXPORT Range {
public:
    /** Empty: the minimum is DBL_MAX and the maximum -DBL_MAX. */
    Range();
    /** As set(a, b). */
    Range(double a, double b);

    /** A copy of the bounds and of the empty flag. */
    Range(const Range& other);
    Range& operator=(const Range& other);

    /** Takes over the contents of `other`, which is moved-from afterwards. */
    Range(Range&& other) noexcept;
    /** A range that is moved onto itself is moved-from afterwards. */
    Range& operator=(Range&& other) noexcept;

    ~Range();

    /**
     * From the lesser of the two to the greater; not empty then. A NaN as `b` is passed over; with
     * a NaN as `a` both bounds become NaN.
     */
    void set(double a, double b);
    /** Widens the range to hold `value`; not empty then. A NaN moves no bound. */
    void accumulate(double value);
    /** Back to the empty range. */
    void reset();

    /** Whether neither set() nor accumulate() was called since the start or the last reset(). */
    bool isEmpty() const;
    /** The bounds as stored, also those of an empty range. */
    double min() const;
    double max() const;
    /** max() - min(): negative infinity for an empty range. */
    double length() const;
    /** Half way between the bounds: 0 for an empty range. */
    double midValue() const;
    /** An array of two, minimum and maximum; good until the range is assigned to, moved or
     * destroyed. */
    const double* minMax() const;

private:
    struct Private;
    Private* d;
};

} // namespace ovl

#endif
