// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_STORES_H
#define OVL_VISUALIZATION_STORES_H

#if defined(__x86_64__)
#include <emmintrin.h>
#endif

namespace ovl {

/** Streaming stores go past the caches: better for what is too large to stay there anyway. */
enum class Stores { Cached, Streaming };

/** Must follow on streaming stores before another thread reads what they wrote. */
inline void complete([[maybe_unused]] Stores stores)
{
#if defined(__x86_64__)
    if (stores == Stores::Streaming)
        _mm_sfence();
#endif
}

} // namespace ovl

#endif
