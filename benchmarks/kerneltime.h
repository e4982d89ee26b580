// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_BENCHMARKS_KERNELTIME_H
#define OVL_BENCHMARKS_KERNELTIME_H

#include <benchmark/benchmark.h>
#include <sys/resource.h>

namespace ovl::bench {

/**
 * Reports what of a round's CPU time the kernel had. A driver that draws nothing keeps the memory
 * of every frame: handing out new pages for it takes from a tenth to most of the time, as the
 * machine's host has it.
 */
class KernelTime {
public:
    explicit KernelTime(benchmark::State& benchmarkState)
        : state(benchmarkState)
        , begin(nanoseconds())
    {
    }
    ~KernelTime()
    {
        state.counters["kernel_ns"]
            = benchmark::Counter(nanoseconds() - begin, benchmark::Counter::kAvgIterations);
    }

    KernelTime(const KernelTime&) = delete;
    KernelTime& operator=(const KernelTime&) = delete;

private:
    static double nanoseconds()
    {
        rusage usage {};
        getrusage(RUSAGE_SELF, &usage);
        return 1e9 * static_cast<double>(usage.ru_stime.tv_sec)
            + 1e3 * static_cast<double>(usage.ru_stime.tv_usec);
    }

    benchmark::State& state;
    double begin;
};

} // namespace ovl::bench

#endif
