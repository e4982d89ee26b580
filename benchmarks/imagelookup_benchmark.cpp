// SPDX-License-Identifier: BSD-3-Clause
// A frame of 16-bit samples turned into colours: our correction and lookup table together, beside a
// memcpy that reads and writes as many bytes as the frame and its colours have, the framework's
// lookup alone and, where it was found, OpenCV. The size is in pixels.
#include "imagerig.h"
#include <visualization/imagecorrectionalgorithm.h>
#include <visualization/imagelookupmapper.h>

#include <vtkLookupTable.h>

#ifdef OVL_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

using namespace ovl::bench;

namespace {

constexpr int kWidth = 1920;

/** How the frame and the table come in. */
struct Feed {
    const char* path;
    std::uint64_t mask;
    int shift;
    double greatest; // of the table's range
    bool newTable; // with every frame
};

constexpr Feed camera = {"BM_Lookup", kTwelveBits, 0, 4095.0, false};
constexpr Feed shifted = {"BM_LookupShifted", ~std::uint64_t {0}, 4, 4095.0, false};
constexpr Feed wide = {"BM_LookupSixteenBits", ~std::uint64_t {0}, 0, 65535.0, false};
constexpr Feed changing = {"BM_LookupNewTable", kTwelveBits, 0, 4095.0, true};

struct Frame {
    Frame(const benchmark::State& state, const Feed& feed)
        : height(static_cast<int>(state.range(0)) / kWidth)
        , pixels(static_cast<std::size_t>(kWidth) * static_cast<std::size_t>(height))
        , data(noise(2 * pixels, feed.mask))
        , source(kWidth, height, 1, VTK_UNSIGNED_SHORT, data.data())
    {
        table->SetSaturationRange(0.0, 0.0);
        table->SetValueRange(0.0, 1.0);
        table->SetRange(0.0, feed.greatest);
    }

    void measure(benchmark::State& state, const Feed& feed, vtkImageMapToColors* map)
    {
        map->SetLookupTable(table);
        map->PassAlphaToOutputOn();
        keepToOneThread(map);
        map->Update();
        if (!feed.newTable)
            return source.stream(state, map);
        double greatest = feed.greatest;
        for (auto _ : state) {
            greatest = greatest == feed.greatest ? feed.greatest - 1.0 : feed.greatest;
            table->SetRange(0.0, greatest);
            map->Update();
        }
    }

    std::size_t traffic() const { return 6 * pixels; }

    int height;
    std::size_t pixels;
    std::vector<std::uint64_t> data;
    Source source;
    vtkNew<vtkLookupTable> table;
};

void lookUp(benchmark::State& state, const Feed& feed)
{
    Frame frame(state, feed);
    vtkNew<ovl::ImageCorrectionAlgorithm> correction;
    correction->setShift(feed.shift);
    correction->setShiftDeferred(true); // as the view does
    correction->SetInputConnection(frame.source.port());
    keepToOneThread(correction);
    vtkNew<ovl::ImageLookupMapper> map;
    map->SetInputConnection(correction->GetOutputPort());
    frame.measure(state, feed, map);
    reportBytes(state, frame.traffic());
}

void mapByFramework(benchmark::State& state, const Feed& feed)
{
    Frame frame(state, feed);
    vtkNew<vtkImageMapToColors> map;
    map->SetInputConnection(frame.source.port());
    frame.measure(state, feed, map);
    reportBytes(state, frame.traffic());
}

void copy(benchmark::State& state, const Feed& feed)
{
    const Frame frame(state, feed);
    copyBytes(state, frame.traffic());
    reportBytes(state, frame.traffic());
}

#ifdef OVL_HAVE_OPENCV
/** It looks up bytes only, and has no alpha. */
void mapByOpenCv(benchmark::State& state, const Feed& feed)
{
    cv::setNumThreads(1);
    Frame frame(state, feed);
    const cv::Mat source(frame.height, kWidth, CV_16U, frame.data.data());
    cv::Mat bytes;
    cv::Mat target;
    for (auto _ : state) {
        source.convertTo(bytes, CV_8U, 255.0 / (feed.greatest * (1 << feed.shift)));
        cv::applyColorMap(bytes, target, cv::COLORMAP_BONE);
        benchmark::ClobberMemory();
    }
    reportBytes(state, frame.traffic());
}
#endif

void add(const Feed& feed, const char* tail, void (*function)(benchmark::State&, const Feed&))
{
    auto* added
        = benchmark::RegisterBenchmark((std::string(feed.path) + tail).c_str(), function, feed);
    for (int height : {108, 1080, 10800})
        added->Arg(kWidth * height);
    added->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}

} // namespace

int main(int argc, char** argv)
{
    for (const Feed& feed : {camera, shifted, wide, changing}) {
        add(feed, "/floor", copy);
        add(feed, "/ovl", lookUp);
        add(feed, "/stock", mapByFramework);
#ifdef OVL_HAVE_OPENCV
        add(feed, "/opencv", mapByOpenCv);
#endif
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
