// SPDX-License-Identifier: BSD-3-Clause
// The image correction on whole frames, beside a memcpy that reads and writes the same number of
// bytes, the framework's own filters and, where it was found, OpenCV. The ratio to the memcpy
// tells.
#include <visualization/imagecorrectionalgorithm.h>

#include <vtkImageAppendComponents.h>
#include <vtkImageData.h>
#include <vtkImageExtractComponents.h>
#include <vtkImageImport.h>
#include <vtkImageShiftScale.h>
#include <vtkNew.h>

#ifdef OVL_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace {

struct Operation {
    int inType;
    int inBytes;
    int components;
    int outBytes;
    int outComponents;
    int shift;
};

constexpr Operation mono16To8 = {VTK_UNSIGNED_SHORT, 2, 1, 1, 1, 4};
constexpr Operation reverse3 = {VTK_UNSIGNED_CHAR, 1, 3, 1, 3, 0};
constexpr Operation expand3To4 = {VTK_UNSIGNED_CHAR, 1, 3, 1, 4, 0};
constexpr Operation int32 = {VTK_INT, 4, 1, 4, 1, 4};

/** A host's frame of noise, its size taken from the benchmark's arguments. */
class Frame {
public:
    Frame(const benchmark::State& state, const Operation& operation)
        : width(static_cast<int>(state.range(0)))
        , height(static_cast<int>(state.range(1)))
        , pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
        , bytes(pixels * static_cast<std::size_t>(operation.inBytes * operation.components))
        , outBytes(pixels * static_cast<std::size_t>(operation.outBytes * operation.outComponents))
        , data(bytes / sizeof(std::uint64_t) + 1)
    {
        std::mt19937_64 noise(1);
        for (std::uint64_t& word : data)
            word = noise();
        importer->SetWholeExtent(0, width - 1, 0, height - 1, 0, 0);
        importer->SetDataExtentToWholeExtent();
        importer->SetDataScalarType(operation.inType);
        importer->SetNumberOfScalarComponents(operation.components);
        importer->SetImportVoidPointer(data.data());
        importer->Update();
    }

    /** Runs `filter` on the frame as on one that has just come in, again and again. */
    void measure(benchmark::State& state, vtkImageAlgorithm* filter)
    {
        filter->Update(); // the output's memory stays from frame to frame
        for (auto _ : state) {
            importer->Modified();
            filter->Update();
        }
        report(state);
    }

    void report(benchmark::State& state) const
    {
        state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations())
            * static_cast<std::int64_t>(bytes + outBytes));
    }

    int width;
    int height;
    std::size_t pixels;
    std::size_t bytes;
    std::size_t outBytes;
    std::vector<std::uint64_t> data;
    vtkNew<vtkImageImport> importer;
};

void keepToOneThread(vtkThreadedImageAlgorithm* filter)
{
    filter->SetEnableSMP(false);
    filter->SetNumberOfThreads(1);
}

void configure(ovl::ImageCorrectionAlgorithm* filter, const Operation& operation)
{
    filter->setShift(operation.shift);
    if (operation.outBytes < operation.inBytes || operation.outComponents != operation.components)
        filter->setOutputScalarTypeToUnsignedChar();
    if (operation.outComponents != operation.components) {
        filter->setOutputComponents(operation.outComponents);
        filter->setMask(0, 0xF0);
        filter->setMask(5, 0x0F);
    }
}

void correct(benchmark::State& state, const Operation& operation, bool onOneThread)
{
    Frame frame(state, operation);
    vtkNew<ovl::ImageCorrectionAlgorithm> filter;
    configure(filter, operation);
    filter->SetInputConnection(frame.importer->GetOutputPort());
    if (onOneThread)
        keepToOneThread(filter);
    else
        filter->SetEnableSMP(true);
    frame.measure(state, filter);
}

void copy(benchmark::State& state, const Operation& operation)
{
    Frame frame(state, operation);
    const std::size_t size = (frame.bytes + frame.outBytes) / 2;
    const std::vector<char> source(size, 1);
    std::vector<char> target(size, 2);
    for (auto _ : state) {
        std::memcpy(target.data(), source.data(), size);
        benchmark::ClobberMemory();
    }
    frame.report(state);
}

/** The nearest that the framework has for samples: a scale, calculated in floating point. */
void scaleSamples(benchmark::State& state, const Operation& operation)
{
    Frame frame(state, operation);
    vtkNew<vtkImageShiftScale> filter;
    filter->SetScale(1.0 / (1 << operation.shift));
    filter->SetOutputScalarType(operation.outBytes == 1 ? VTK_UNSIGNED_CHAR : operation.inType);
    filter->SetInputConnection(frame.importer->GetOutputPort());
    keepToOneThread(filter);
    frame.measure(state, filter);
}

/** The nearest that the framework has for channels: pick them in another order, add an alpha. */
void pickChannels(benchmark::State& state, const Operation& operation)
{
    Frame frame(state, operation);
    vtkNew<vtkImageExtractComponents> reversed;
    reversed->SetComponents(2, 1, 0);
    reversed->SetInputConnection(frame.importer->GetOutputPort());
    keepToOneThread(reversed);
    if (operation.outComponents == 3)
        return frame.measure(state, reversed);
    vtkNew<vtkImageData> alpha;
    alpha->SetDimensions(frame.width, frame.height, 1);
    alpha->AllocateScalars(VTK_UNSIGNED_CHAR, 1);
    std::memset(alpha->GetScalarPointer(), 255, frame.pixels);
    vtkNew<vtkImageAppendComponents> appended;
    appended->AddInputConnection(reversed->GetOutputPort());
    appended->AddInputData(alpha);
    keepToOneThread(appended);
    frame.measure(state, appended);
}

#ifdef OVL_HAVE_OPENCV
template <class Convert>
void convertByOpenCv(
    benchmark::State& state, const Operation& operation, int depth, Convert convert)
{
    cv::setNumThreads(1);
    Frame frame(state, operation);
    const cv::Mat source(
        frame.height, frame.width, CV_MAKETYPE(depth, operation.components), frame.data.data());
    cv::Mat target;
    convert(source, target);
    for (auto _ : state) {
        convert(source, target);
        benchmark::ClobberMemory();
    }
    frame.report(state);
}

void BM_Mono16To8_ByOpenCv(benchmark::State& state)
{
    convertByOpenCv(state, mono16To8, CV_16U, [](const cv::Mat& source, cv::Mat& target) {
        source.convertTo(target, CV_8U, 1.0 / 16.0);
    });
}

void BM_Reverse3_ByOpenCv(benchmark::State& state)
{
    convertByOpenCv(state, reverse3, CV_8U, [](const cv::Mat& source, cv::Mat& target) {
        cv::cvtColor(source, target, cv::COLOR_BGR2RGB);
    });
}

void BM_Expand3To4_ByOpenCv(benchmark::State& state) // without the masks
{
    convertByOpenCv(state, expand3To4, CV_8U, [](const cv::Mat& source, cv::Mat& target) {
        cv::cvtColor(source, target, cv::COLOR_BGR2RGBA);
    });
}

void BM_Int32_ByOpenCv(benchmark::State& state)
{
    convertByOpenCv(state, int32, CV_32S, [](const cv::Mat& source, cv::Mat& target) {
        source.convertTo(target, CV_32S, 1.0 / 16.0);
    });
}
#endif

void BM_Mono16To8_ByMemcpy(benchmark::State& state) { copy(state, mono16To8); }
void BM_Mono16To8_ByFilter(benchmark::State& state) { correct(state, mono16To8, true); }
void BM_Mono16To8_ByFilterThreaded(benchmark::State& state) { correct(state, mono16To8, false); }
void BM_Mono16To8_ByStockScale(benchmark::State& state) { scaleSamples(state, mono16To8); }

void BM_Reverse3_ByMemcpy(benchmark::State& state) { copy(state, reverse3); }
void BM_Reverse3_ByFilter(benchmark::State& state) { correct(state, reverse3, true); }
void BM_Reverse3_ByFilterThreaded(benchmark::State& state) { correct(state, reverse3, false); }
void BM_Reverse3_ByStockPick(benchmark::State& state) { pickChannels(state, reverse3); }

void BM_Expand3To4_ByMemcpy(benchmark::State& state) { copy(state, expand3To4); }
void BM_Expand3To4_ByFilter(benchmark::State& state) { correct(state, expand3To4, true); }
void BM_Expand3To4_ByFilterThreaded(benchmark::State& state) { correct(state, expand3To4, false); }
void BM_Expand3To4_ByStockPickAndAppend(benchmark::State& state)
{
    pickChannels(state, expand3To4);
}

void BM_Int32_ByMemcpy(benchmark::State& state) { copy(state, int32); }
void BM_Int32_ByFilter(benchmark::State& state) { correct(state, int32, true); }
void BM_Int32_ByFilterThreaded(benchmark::State& state) { correct(state, int32, false); }
void BM_Int32_ByStockScale(benchmark::State& state) { scaleSamples(state, int32); }

/** A small frame stays in the caches, a large one does not. */
void frameSizes(benchmark::internal::Benchmark* measurement)
{
    measurement->ArgNames({"width", "height"})
        ->Args({640, 480})
        ->Args({4096, 3000})
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

BENCHMARK(BM_Mono16To8_ByMemcpy)->Apply(frameSizes);
BENCHMARK(BM_Mono16To8_ByFilter)->Apply(frameSizes);
BENCHMARK(BM_Mono16To8_ByFilterThreaded)->Apply(frameSizes);
BENCHMARK(BM_Mono16To8_ByStockScale)->Apply(frameSizes);
BENCHMARK(BM_Reverse3_ByMemcpy)->Apply(frameSizes);
BENCHMARK(BM_Reverse3_ByFilter)->Apply(frameSizes);
BENCHMARK(BM_Reverse3_ByFilterThreaded)->Apply(frameSizes);
BENCHMARK(BM_Reverse3_ByStockPick)->Apply(frameSizes);
BENCHMARK(BM_Expand3To4_ByMemcpy)->Apply(frameSizes);
BENCHMARK(BM_Expand3To4_ByFilter)->Apply(frameSizes);
BENCHMARK(BM_Expand3To4_ByFilterThreaded)->Apply(frameSizes);
BENCHMARK(BM_Expand3To4_ByStockPickAndAppend)->Apply(frameSizes);
BENCHMARK(BM_Int32_ByMemcpy)->Apply(frameSizes);
BENCHMARK(BM_Int32_ByFilter)->Apply(frameSizes);
BENCHMARK(BM_Int32_ByFilterThreaded)->Apply(frameSizes);
BENCHMARK(BM_Int32_ByStockScale)->Apply(frameSizes);
#ifdef OVL_HAVE_OPENCV
BENCHMARK(BM_Mono16To8_ByOpenCv)->Apply(frameSizes);
BENCHMARK(BM_Reverse3_ByOpenCv)->Apply(frameSizes);
BENCHMARK(BM_Expand3To4_ByOpenCv)->Apply(frameSizes);
BENCHMARK(BM_Int32_ByOpenCv)->Apply(frameSizes);
#endif

} // namespace

BENCHMARK_MAIN();
