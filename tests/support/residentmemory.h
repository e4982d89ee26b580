// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_RESIDENTMEMORY_H
#define OVL_TESTS_SUPPORT_RESIDENTMEMORY_H

#include <cstddef>

namespace ovl::test {

/**
 * Bytes of memory that this process occupies; under AddressSanitizer, which keeps what is freed for
 * a while, the bytes that are allocated.
 */
std::size_t residentBytes();

/** Lets peakBytes() begin anew. */
void forgetPeak();
/** The most that this process has occupied since; under AddressSanitizer what residentBytes() says.
 */
std::size_t peakBytes();

} // namespace ovl::test

#endif
