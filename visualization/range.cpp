// SPDX-License-Identifier: BSD-3-Clause
#include "range.h"

#include "valuecontents.h"

#include <cfloat>

namespace ovl {

struct OVL_HIDDEN Range::Private {
    enum { Min, Max };
    double bounds[2] = {DBL_MAX, -DBL_MAX}; // the first value accumulated becomes both
    bool empty = true;
};

Range::Range()
    : d(new Private)
{
}

Range::Range(double a, double b)
    : d(new Private)
{
    set(a, b);
}

Range::Range(const Range& other)
    : d(copyOfContents("Range::Range", other.d))
{
}

Range::Range(Range&& other) noexcept
    : d(std::exchange(other.d, nullptr))
{
}

Range::~Range() { delete d; }

Range& Range::operator=(const Range& other)
{
    if (this != &other)
        copyContents("Range::operator=", d, other.d);
    return *this;
}

Range& Range::operator=(Range&& other) noexcept
{
    moveContents(d, other.d);
    return *this;
}

void Range::set(double a, double b)
{
    Private& range = contents("Range::set", d);
    range.bounds[Private::Min] = a > b ? b : a;
    range.bounds[Private::Max] = b > a ? b : a;
    range.empty = false;
}

void Range::accumulate(double value)
{
    Private& range = contents("Range::accumulate", d);
    if (range.bounds[Private::Min] > value)
        range.bounds[Private::Min] = value;
    if (value > range.bounds[Private::Max])
        range.bounds[Private::Max] = value;
    range.empty = false;
}

void Range::reset() { contents("Range::reset", d) = Private(); }

bool Range::isEmpty() const { return contents("Range::isEmpty", d).empty; }

double Range::min() const { return contents("Range::min", d).bounds[Private::Min]; }

double Range::max() const { return contents("Range::max", d).bounds[Private::Max]; }

double Range::length() const
{
    const Private& range = contents("Range::length", d);
    return range.bounds[Private::Max] - range.bounds[Private::Min];
}

double Range::midValue() const
{
    const Private& range = contents("Range::midValue", d);
    return (range.bounds[Private::Max] + range.bounds[Private::Min]) * 0.5;
}

const double* Range::minMax() const { return contents("Range::minMax", d).bounds; }

} // namespace ovl
