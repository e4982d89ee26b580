// SPDX-License-Identifier: BSD-3-Clause
#include "residentmemory.h"

#if defined(__SANITIZE_ADDRESS__)
// The compiler ships the function without the header.
extern "C" std::size_t
__sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#endif

#include <fstream>
#include <string>
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

void forgetPeak()
{
    std::ofstream("/proc/self/clear_refs") << '5'; // the kernel's way to say it
}

std::size_t peakBytes()
{
#if !defined(__SANITIZE_ADDRESS__)
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::size_t kibibytes = 0;
        if (word == "VmHWM:" && status >> kibibytes)
            return kibibytes * 1024;
    }
#endif
    return residentBytes();
}

} // namespace ovl::test
