// SPDX-License-Identifier: BSD-3-Clause
#include "residentmemory.h"

#if defined(__SANITIZE_ADDRESS__)
// The compiler ships the function without the header.
extern "C" std::size_t
__sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#endif

#include <fstream>
#include <unistd.h>

namespace ovl::test {

std::size_t residentBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    std::ifstream statm("/proc/self/statm");
    std::size_t total = 0;
    std::size_t resident = 0;
    statm >> total >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
#endif
}

} // namespace ovl::test
