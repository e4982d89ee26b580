// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_FUZZ_DEAL_H
#define OVL_FUZZ_DEAL_H

#include <visualization/range.h>

#include <QColor>
#include <QString>

#include <cstddef>
#include <cstdint>

namespace ovl::fuzz {

/**
 * The bytes that a fuzzer has dealt, read as whatever is asked for. Once they have run out every
 * further answer is made of zeros.
 */
class Deal {
public:
    Deal(const std::uint8_t* data, std::size_t size)
        : next(data)
        , end(data + size)
    {
    }

    bool isEmpty() const { return next == end; }

    unsigned byte() { return isEmpty() ? 0U : *next++; }
    bool flag() { return (byte() & 1U) != 0U; }
    /** True once in `times`. */
    bool rarely(int times) { return below(times) == times - 1; }
    /** From 0 to `count` - 1, for counts up to 65536. */
    int below(int count);
    /** Both ends included. */
    int between(int low, int high) { return low + below(high - low + 1); }
    /** Any integer: mostly a small one, sometimes at the very end of its range. */
    int integer();
    /** Any number: mostly a tame one, else not a number, infinite, denormal, huge, or any bits. */
    double number();
    /** Empty, a point, in order, in reverse, or without any number. */
    Range range();
    QColor color();
    /** In any script, also such as no text should hold. */
    QString text();
    /** Percent codes, known and unknown, and stray percent signs. */
    QString format();

private:
    std::uint64_t bits(int bytes);

    const std::uint8_t* next;
    const std::uint8_t* end;
};

} // namespace ovl::fuzz

#endif
