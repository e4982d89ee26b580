// SPDX-License-Identifier: BSD-3-Clause
// One frame of 16-bit samples from the host's call to the picture in a window of 960 x 540, beside
// a repaint of the same window with nothing in it and a scene of the framework's own filters. The
// size is in pixels of the frame; with GALLIUM_NOOP=1 the rasteriser in software is left out.
#include "imagerig.h"
#include "imagewindow.h"
#include "kerneltime.h"
#include <visualization/imageview.h>
#include <visualization/range.h>

#include <vtkImageActor.h>
#include <vtkImageMapper3D.h>
#include <vtkImageShiftScale.h>

using namespace ovl::bench;

namespace {

constexpr int kShift = 4; // of 12-bit samples

struct Frame : FrameSize {
    explicit Frame(const benchmark::State& state)
        : FrameSize(state)
        , data(noise(2 * pixels(), kTwelveBits))
    {
    }

    void drawOn(ovl::ImageView& view) { view.drawScene(data.data(), width, height, {1, 2}); }

    std::vector<std::uint64_t> data;
};

/** The view's pipeline alone: from the call to what the actor is about to show. */
void pipeline(benchmark::State& state)
{
    Window window;
    Frame frame(state);
    ovl::ImageView view(&window.widget);
    view.setShift(kShift);
    frame.drawOn(view);
    auto* actor = vtkImageActor::SafeDownCast(window.lastProp());
    actor->GetMapper()->Update();
    const ovl::bench::KernelTime kernel(state);
    for (auto _ : state) {
        frame.drawOn(view);
        actor->GetMapper()->Update();
    }
}

/** What the pipeline could cost at best: 2 bytes read and 1 written for each pixel. */
void copy(benchmark::State& state)
{
    copyBytes(state, 3 * static_cast<std::size_t>(state.range(0)));
}

void drawByView(benchmark::State& state, bool throughTable)
{
    Window window;
    Frame frame(state);
    ovl::ImageView view(&window.widget);
    if (throughTable) {
        view.enableLookupTable(true);
        view.setLookupTableRange(ovl::Range(0.0, 4095.0));
    } else {
        view.setShift(kShift);
    }
    frame.drawOn(view);
    window.window()->Render();
    const ovl::bench::KernelTime kernel(state);
    for (auto _ : state) {
        frame.drawOn(view);
        window.window()->Render();
    }
}

void drawByFramework(benchmark::State& state)
{
    Window window;
    Frame frame(state);
    Source source(frame.width, frame.height, 1, VTK_UNSIGNED_SHORT, frame.data.data());
    vtkNew<vtkImageShiftScale> scale;
    scale->SetScale(1.0 / (1 << kShift));
    scale->SetOutputScalarTypeToUnsignedChar();
    scale->SetInputConnection(source.port());
    vtkNew<vtkImageActor> actor;
    actor->InterpolateOff();
    actor->GetMapper()->SetInputConnection(scale->GetOutputPort());
    vtkNew<vtkRenderer> renderer;
    renderer->AddActor(actor);
    window.window()->AddRenderer(renderer);
    scale->Update();
    renderer->ResetCamera();
    window.window()->Render();
    const ovl::bench::KernelTime kernel(state);
    for (auto _ : state) {
        source.renew();
        window.window()->Render();
    }
}

void repaintNothing(benchmark::State& state)
{
    Window window;
    vtkNew<vtkRenderer> renderer;
    window.window()->AddRenderer(renderer);
    window.window()->Render();
    const ovl::bench::KernelTime kernel(state);
    for (auto _ : state)
        window.window()->Render();
}

void sizes(benchmark::internal::Benchmark* measurement)
{
    measurement->Apply(frameSizes)->Unit(benchmark::kMillisecond);
}

BENCHMARK(copy)->Name("BM_ImagePipeline/floor")->Apply(sizes);
BENCHMARK(pipeline)->Name("BM_ImagePipeline/ovl")->Apply(sizes);
BENCHMARK(repaintNothing)->Name("BM_ImageFrame/floor")->Apply(sizes);
BENCHMARK_CAPTURE(drawByView, view, false)->Name("BM_ImageFrame/ovl")->Apply(sizes);
BENCHMARK(drawByFramework)->Name("BM_ImageFrame/stock")->Apply(sizes);
BENCHMARK_CAPTURE(drawByView, table, true)->Name("BM_ImageFrameLookup/ovl")->Apply(sizes);

} // namespace

int main(int argc, char** argv) { return runWithWidgets(argc, argv); }
