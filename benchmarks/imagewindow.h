// SPDX-License-Identifier: BSD-3-Clause
// What the benchmarks of images in a window share.
#ifndef OVL_BENCHMARKS_IMAGEWINDOW_H
#define OVL_BENCHMARKS_IMAGEWINDOW_H

#include <visualization/vtkcompat.h>

#include <vtkProp.h>
#include <vtkPropCollection.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>

#include <QApplication>
#include <QSurfaceFormat>

#include <benchmark/benchmark.h>
#include <cmath>

namespace ovl::bench {

constexpr int kWindowWidth = 960; // pixels
constexpr int kWindowHeight = 540;

/** A host's widget on the screen. */
struct Window {
    Window()
    {
        widget.resize(kWindowWidth, kWindowHeight);
        widget.show();
        QApplication::processEvents();
    }

    vtkRenderWindow* window() { return compat::renderWindow(&widget); }
    vtkRenderer* renderer() { return window()->GetRenderers()->GetFirstRenderer(); }
    /** What was added last to the renderer that was put on the window first. */
    vtkProp* lastProp() { return renderer()->GetViewProps()->GetLastProp(); }

    compat::HostWidget widget;
};

/** A frame 16 by 9, its number of pixels taken from the benchmark's argument. */
struct FrameSize {
    explicit FrameSize(const benchmark::State& state)
        : width(static_cast<int>(
            std::lround(std::sqrt(16.0 / 9.0 * static_cast<double>(state.range(0))))))
        , height(static_cast<int>(state.range(0)) / width)
    {
    }

    std::size_t pixels() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }

    int width;
    int height;
};

inline void frameSizes(benchmark::internal::Benchmark* measurement)
{
    measurement->Arg(20'736)->Arg(207'360)->Arg(2'073'600)->MeasureProcessCPUTime();
}

inline int runWithWidgets(int argc, char** argv)
{
    QSurfaceFormat::setDefaultFormat(compat::HostWidget::defaultFormat());
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace ovl::bench

#endif
