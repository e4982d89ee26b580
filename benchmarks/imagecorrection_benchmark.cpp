// SPDX-License-Identifier: BSD-3-Clause
// The image correction on whole frames, beside a memcpy that reads and writes the same number of
// bytes, the framework's own filters and, where it was found, OpenCV. The size is in pixels.
#include "imagerig.h"
#include <visualization/imagecorrectionalgorithm.h>

#include <vtkImageAppendComponents.h>
#include <vtkImageData.h>
#include <vtkImageExtractComponents.h>
#include <vtkImageShiftScale.h>

#ifdef OVL_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

#include <string>

using namespace ovl::bench;

namespace {

constexpr int kWidth = 4096;

struct Operation {
    const char* path;
    int inType;
    int inBytes;
    int components;
    int outBytes;
    int outComponents;
    int shift;
};

constexpr Operation mono16To8 = {"BM_CorrectionMono16To8", VTK_UNSIGNED_SHORT, 2, 1, 1, 1, 4};
constexpr Operation reverse3 = {"BM_CorrectionReverse3", VTK_UNSIGNED_CHAR, 1, 3, 1, 3, 0};
constexpr Operation expand3To4 = {"BM_CorrectionExpand3To4", VTK_UNSIGNED_CHAR, 1, 3, 1, 4, 0};
constexpr Operation int32 = {"BM_CorrectionInt32", VTK_INT, 4, 1, 4, 1, 4};

/** A host's frame, its size in pixels taken from the benchmark's argument. */
struct Frame {
    Frame(const benchmark::State& state, const Operation& operation)
        : height(static_cast<int>(state.range(0)) / kWidth)
        , pixels(static_cast<std::size_t>(kWidth) * static_cast<std::size_t>(height))
        , bytes(pixels * static_cast<std::size_t>(operation.inBytes * operation.components))
        , traffic(bytes
              + pixels * static_cast<std::size_t>(operation.outBytes * operation.outComponents))
        , data(noise(bytes))
        , source(kWidth, height, operation.components, operation.inType, data.data())
    {
    }

    void measure(benchmark::State& state, vtkAlgorithm* filter)
    {
        source.stream(state, filter);
        reportBytes(state, traffic);
    }

    int height;
    std::size_t pixels;
    std::size_t bytes;
    std::size_t traffic;
    std::vector<std::uint64_t> data;
    Source source;
};

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
    filter->SetInputConnection(frame.source.port());
    if (onOneThread)
        keepToOneThread(filter);
    else
        filter->SetEnableSMP(true);
    frame.measure(state, filter);
}

void copy(benchmark::State& state, const Operation& operation)
{
    const Frame frame(state, operation);
    copyBytes(state, frame.traffic);
    reportBytes(state, frame.traffic);
}

/** The nearest that the framework has for samples: a scale, calculated in floating point. */
void scaleSamples(benchmark::State& state, const Operation& operation)
{
    Frame frame(state, operation);
    vtkNew<vtkImageShiftScale> filter;
    filter->SetScale(1.0 / (1 << operation.shift));
    filter->SetOutputScalarType(operation.outBytes == 1 ? VTK_UNSIGNED_CHAR : operation.inType);
    filter->SetInputConnection(frame.source.port());
    keepToOneThread(filter);
    frame.measure(state, filter);
}

/** The nearest that the framework has for channels: pick them in another order, add an alpha. */
void pickChannels(benchmark::State& state, const Operation& operation)
{
    Frame frame(state, operation);
    vtkNew<vtkImageExtractComponents> reversed;
    reversed->SetComponents(2, 1, 0);
    reversed->SetInputConnection(frame.source.port());
    keepToOneThread(reversed);
    if (operation.outComponents == 3)
        return frame.measure(state, reversed);
    vtkNew<vtkImageData> alpha;
    alpha->SetDimensions(kWidth, frame.height, 1);
    alpha->AllocateScalars(VTK_UNSIGNED_CHAR, 1);
    std::memset(alpha->GetScalarPointer(), 255, frame.pixels);
    vtkNew<vtkImageAppendComponents> appended;
    appended->AddInputConnection(reversed->GetOutputPort());
    appended->AddInputData(alpha);
    keepToOneThread(appended);
    frame.measure(state, appended);
}

#ifdef OVL_HAVE_OPENCV
void convertByOpenCv(benchmark::State& state, const Operation& operation)
{
    cv::setNumThreads(1);
    Frame frame(state, operation);
    const int depth = operation.inBytes == 1 ? CV_8U : operation.inBytes == 2 ? CV_16U : CV_32S;
    const cv::Mat source(
        frame.height, kWidth, CV_MAKETYPE(depth, operation.components), frame.data.data());
    cv::Mat target;
    const auto convert = [&] {
        if (operation.components == 1)
            source.convertTo(
                target, operation.outBytes == 1 ? CV_8U : depth, 1.0 / (1 << operation.shift));
        else // without the masks
            cv::cvtColor(source, target,
                operation.outComponents == 3 ? cv::COLOR_BGR2RGB : cv::COLOR_BGR2RGBA);
    };
    convert();
    for (auto _ : state) {
        convert();
        benchmark::ClobberMemory();
    }
    reportBytes(state, frame.traffic);
}
#endif

void sizes(benchmark::internal::Benchmark* measurement)
{
    for (int height : {30, 300, 3000})
        measurement->Arg(kWidth * height);
    measurement->Unit(benchmark::kMillisecond);
}

template <class Function, class... Rest>
benchmark::internal::Benchmark* add(
    const Operation& operation, const char* tail, Function function, Rest... rest)
{
    const std::string name = std::string(operation.path) + tail;
    return benchmark::RegisterBenchmark(name.c_str(), function, operation, rest...)->Apply(sizes);
}

void addOperation(const Operation& operation)
{
    add(operation, "/floor", copy);
    add(operation, "/ovl", correct, true);
    add(operation, "/stock", operation.components == 1 ? scaleSamples : pickChannels);
#ifdef OVL_HAVE_OPENCV
    add(operation, "/opencv", convertByOpenCv);
#endif
    // The floor of two threads is one.
    add(operation, "TwoThreads/floor", correct, true)->MeasureProcessCPUTime();
    add(operation, "TwoThreads/ovl", correct, false)->MeasureProcessCPUTime();
}

} // namespace

int main(int argc, char** argv)
{
    for (const Operation& operation : {mono16To8, reverse3, expand3To4, int32})
        addOperation(operation);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
