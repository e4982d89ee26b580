// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_ALLOCATIONCOUNTER_H
#define OVL_TESTS_SUPPORT_ALLOCATIONCOUNTER_H

#include <cstddef>

namespace ovl::test {

/**
 * Counts what the program has taken from the heap with `new` since the counter was made. For
 * programs that link ovl_allocation_counter, which replaces the global operator new.
 */
class AllocationCounter {
public:
    AllocationCounter()
        : start(total())
    {
    }

    std::size_t count() const { return total() - start; }

private:
    static std::size_t total();

    std::size_t start;
};

} // namespace ovl::test

#endif
