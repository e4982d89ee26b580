// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_BENCHMARKS_RESIDENTMEMORY_H
#define OVL_BENCHMARKS_RESIDENTMEMORY_H

#include <cstdio>
#include <malloc.h>
#include <unistd.h>

namespace ovl::bench {

/** The program's memory in bytes, as the kernel counts it. */
inline double residentBytes()
{
    malloc_trim(0); // what was freed does not count
    long pages = 0;
    if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%*d %ld", &pages) != 1)
            pages = 0;
        std::fclose(file);
    }
    return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

} // namespace ovl::bench

#endif
