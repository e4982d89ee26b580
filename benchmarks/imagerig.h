// SPDX-License-Identifier: BSD-3-Clause
// What the benchmarks of images share: a host's frame of noise, and ways to run filters on it.
#ifndef OVL_BENCHMARKS_IMAGERIG_H
#define OVL_BENCHMARKS_IMAGERIG_H

#include <vtkImageImport.h>
#include <vtkNew.h>
#include <vtkThreadedImageAlgorithm.h>

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace ovl::bench {

/** Samples of a host's frame: `bytes` of them, noise of which `mask` keeps some bits. */
inline std::vector<std::uint64_t> noise(std::size_t bytes, std::uint64_t mask = ~std::uint64_t {0})
{
    std::vector<std::uint64_t> words(bytes / sizeof(std::uint64_t) + 1);
    std::mt19937_64 generator(1);
    for (std::uint64_t& word : words)
        word = generator() & mask;
    return words;
}

/** Four samples of 12 bits, as most cameras deliver them in 16. */
constexpr std::uint64_t kTwelveBits = 0x0FFF'0FFF'0FFF'0FFF;

/** Hands the host's memory on, as an image view does. */
class Source {
public:
    Source(int width, int height, int components, int type, void* data)
    {
        importer->SetWholeExtent(0, width - 1, 0, height - 1, 0, 0);
        importer->SetDataExtentToWholeExtent();
        importer->SetDataScalarType(type);
        importer->SetNumberOfScalarComponents(components);
        importer->SetImportVoidPointer(data);
        importer->Update();
    }

    vtkAlgorithmOutput* port() { return importer->GetOutputPort(); }

    /** The same memory with another picture in it. */
    void renew() { importer->Modified(); }

    /** Runs `last` on the frame as on one that has just come in, again and again. */
    void stream(benchmark::State& state, vtkAlgorithm* last)
    {
        last->Update(); // the output's memory stays from frame to frame
        for (auto _ : state) {
            renew();
            last->Update();
        }
    }

private:
    vtkNew<vtkImageImport> importer;
};

inline void keepToOneThread(vtkThreadedImageAlgorithm* filter)
{
    filter->SetEnableSMP(false);
    filter->SetNumberOfThreads(1);
}

/** The floor: a memcpy that reads and writes `traffic` bytes in all. */
inline void copyBytes(benchmark::State& state, std::size_t traffic)
{
    const std::vector<char> source(traffic / 2, 1);
    std::vector<char> target(traffic / 2, 2);
    for (auto _ : state) {
        std::memcpy(target.data(), source.data(), traffic / 2);
        benchmark::ClobberMemory();
    }
}

inline void reportBytes(benchmark::State& state, std::size_t traffic)
{
    state.SetBytesProcessed(
        static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(traffic));
}

} // namespace ovl::bench

#endif
