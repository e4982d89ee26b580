// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PRECONDITION_H
#define OVL_VISUALIZATION_PRECONDITION_H

#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace ovl {

[[noreturn]] inline void preconditionFailed(
    const char* operation, const char* condition, long long value)
{
    std::fprintf(
        stderr, "ovl: %s: precondition '%s' broken by %lld\n", operation, condition, value);
    std::abort();
}

} // namespace ovl

/**
 * Stops a debug build when the caller breaks a precondition, naming the operation and the value
 * that broke it (an index, a count, 0 where there is none). A release build goes on.
 */
#ifdef NDEBUG
#define OVL_PRECONDITION(operation, condition, value) static_cast<void>(0)
#else
#define OVL_PRECONDITION(operation, condition, value)                                              \
    ((condition)                                                                                   \
            ? static_cast<void>(0)                                                                 \
            : ::ovl::preconditionFailed(operation, #condition, static_cast<long long>(value)))
#endif

namespace ovl {

/** An element of a vector or array; null for an index out of range, which stops a debug build. */
template <class Elements>
auto* elementAt([[maybe_unused]] const char* operation, Elements& elements, int index)
{
    const bool inside = index >= 0 && static_cast<std::size_t>(index) < elements.size();
    OVL_PRECONDITION(operation, inside, index);
    return inside ? elements.data() + index : nullptr;
}

} // namespace ovl

#endif
