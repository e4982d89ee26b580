// SPDX-License-Identifier: BSD-3-Clause
// What the benchmarks of both 3-D views share: the sheet of samples that everybody shows, the rigs
// of ours and of the bare window, and the measured paths themselves. A path takes any class with
//
//   Rig(int samples)       puts a scene for so many samples on a widget of 800 x 600
//   void resize(int)       changes the number of samples
//   void fill(int frame)   writes every sample; frame tells one sheet from the next
//   void show()            hands what was filled to the pipeline
//   void look()            puts the camera before the scene
//   void render()          repaints
//   void turn()            moves the camera round the scene a little
//   void move(int x)       moves the mouse along the middle of the picture
#ifndef OVL_BENCHMARKS_SPACERIG_H
#define OVL_BENCHMARKS_SPACERIG_H

#include "kerneltime.h"
#include "residentmemory.h"
#include <visualization/vtkcompat.h>

#include <vtkActor.h>
#include <vtkActorCollection.h>
#include <vtkCamera.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>
#include <vtkSmartPointer.h>

#include <QApplication>
#include <QMouseEvent>
#include <QSurfaceFormat>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>
#include <string>

namespace ovl::bench {

/** A grid of about so many samples, none of its sides much longer than the other. */
struct Grid {
    explicit Grid(int samples)
        : columns(static_cast<int>(std::sqrt(static_cast<double>(samples))))
        , rows(samples / columns)
    {
    }
    int size() const { return columns * rows; }

    int columns;
    int rows;
};

/** Calls write(index, x, y, z, value) for every sample of a sheet with steps in it. */
template <class Write> void eachSample(const Grid& grid, int frame, Write&& write)
{
    int index = 0;
    for (int j = 0; j < grid.rows; ++j)
        for (int i = 0; i < grid.columns; ++i, ++index)
            write(index, 1.0 * i, 1.0 * j, 1.0 * (((i ^ j) + frame) & 15), 1.0 * (i + frame));
}

/** The host's widget with nothing on it. */
struct WidgetRig {
    WidgetRig()
    {
        widget.resize(800, 600);
        widget.show();
        QApplication::processEvents();
    }

    vtkRenderWindow* window() { return compat::renderWindow(&widget); }
    vtkRenderer* renderer() { return window()->GetRenderers()->GetFirstRenderer(); }
    void render() { window()->Render(); }
    void turn()
    {
        renderer()->GetActiveCamera()->Azimuth(1.0);
        renderer()->ResetCameraClippingRange(); // as a drag of the mouse does
    }

    void move(int x)
    {
        const QPointF to(x, 300.0);
        QMouseEvent event(QEvent::MouseMove, to, to, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    compat::HostWidget widget;
};

template <class View> struct ViewRig : WidgetRig {
    explicit ViewRig(int samples)
        : view(std::make_unique<View>(&widget))
    {
        resize(samples);
    }

    void resize(int samples)
    {
        grid = Grid(samples);
        view->range(0).set(0.0, grid.columns);
        view->range(1).set(0.0, grid.rows);
        view->range(2).set(0.0, grid.columns); // so that the camera stands well off
        view->range(3).set(0.0, grid.columns);
    }

    void fill(int frame)
    {
        view->setScene(grid.columns, grid.rows);
        eachSample(grid, frame, [this](int index, double x, double y, double z, double value) {
            view->setPoint(index, x, y, z, value);
        });
    }
    void show() { view->drawScene(); }
    void look() { view->resetCamera(); }

    Grid grid {1};
    std::unique_ptr<View> view;
};

/** The least that a repaint and a move of the mouse can cost: a window without a scene. */
struct EmptyRig : WidgetRig {
    explicit EmptyRig(int) { window()->AddRenderer(scene); }
    void fill(int) { }
    void show() { }
    void look() { }

    vtkSmartPointer<vtkRenderer> scene = vtkSmartPointer<vtkRenderer>::New();
};

template <class Rig> void firstSheet(Rig& rig)
{
    rig.fill(0);
    rig.show();
    rig.look();
    rig.render();
}

/** The one rig that is kept from one measurement to the next. */
inline std::shared_ptr<void>& keptRig()
{
    static std::shared_ptr<void> rig;
    return rig;
}

/** The rig for so many samples, with its first sheet on the screen. */
template <class Rig> Rig& shownRig(int samples)
{
    static std::weak_ptr<Rig> last;
    static int shown = 0;
    std::shared_ptr<Rig> rig = last.lock();
    if (!rig || shown != samples) {
        rig.reset();
        keptRig().reset(); // never two scenes at once
        rig = std::make_shared<Rig>(samples);
        firstSheet(*rig);
        last = rig;
        shown = samples;
        keptRig() = rig;
    }
    return *rig;
}

inline int samplesOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

inline void perSample(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * Grid(samplesOf(state)).size());
}

/** Writing every sample of a sheet, one call for each. */
template <class Rig> void fill(benchmark::State& state)
{
    Rig& rig = shownRig<Rig>(samplesOf(state));
    int frame = 0;
    for (auto _ : state)
        rig.fill(++frame);
    rig.show();
    rig.render();
    perSample(state);
}

/** One frame of a stream: a new sheet on the screen. */
template <class Rig> void stream(benchmark::State& state)
{
    Rig& rig = shownRig<Rig>(samplesOf(state));
    int frame = 0;
    const KernelTime kernel(state);
    for (auto _ : state) {
        rig.fill(++frame);
        rig.show();
        rig.render();
    }
    perSample(state);
}

/** One frame of the same sheet from another side. */
template <class Rig> void turn(benchmark::State& state)
{
    Rig& rig = shownRig<Rig>(samplesOf(state));
    const KernelTime kernel(state);
    for (auto _ : state) {
        rig.turn();
        rig.render();
    }
}

/** A move of the mouse where nothing has changed since the last one. */
template <class Rig> void hoverStill(benchmark::State& state)
{
    Rig& rig = shownRig<Rig>(samplesOf(state));
    rig.move(400);
    int x = 0;
    for (auto _ : state)
        rig.move(300 + (++x & 127));
}

/** The first move of the mouse after a change that has been repainted. */
template <class Rig> void hoverChanged(benchmark::State& state)
{
    Rig& rig = shownRig<Rig>(samplesOf(state));
    int x = 0;
    for (auto _ : state) {
        state.PauseTiming();
        rig.turn();
        rig.render();
        state.ResumeTiming();
        rig.move(300 + (++x & 127));
    }
}

/** Memory held once a sheet was shown; with GALLIUM_NOOP=1 in the environment without Mesa's. */
template <class Rig> void memory(benchmark::State& state)
{
    constexpr int few = 16;
    for (auto _ : state) {
        Rig rig(few); // takes what does not depend on the samples
        firstSheet(rig);
        const double before = residentBytes();
        rig.resize(samplesOf(state));
        firstSheet(rig);
        state.counters["bytes_sample"] = (residentBytes() - before) / Grid(samplesOf(state)).size();
    }
}

using Measurement = void (*)(benchmark::State&);

/** The most samples to measure with; a smoke run asks for fewer through the environment. */
inline int mostSamples()
{
    bool given = false;
    const int most = qEnvironmentVariableIntValue("OVL_BENCHMARK_SAMPLES", &given);
    return given ? most : 1000000;
}

inline benchmark::internal::Benchmark* add(const std::string& path, const char* who,
    Measurement measurement, benchmark::TimeUnit unit, int most = mostSamples())
{
    const std::string name = "BM_" + path + '/' + who;
    return benchmark::RegisterBenchmark(name.c_str(), measurement)
        ->RangeMultiplier(10)
        ->Range(std::min(10000, most), most)
        ->Unit(unit);
}

/** Where rendering takes part the driver's threads are counted too. */
template <class Rig>
void addFrames(const std::string& view, const char* who, int most = mostSamples())
{
    const auto add = [&](const char* path, Measurement measurement) {
        ovl::bench::add(view + path, who, measurement, benchmark::kMillisecond, most)
            ->MeasureProcessCPUTime();
    };
    add("Stream", stream<Rig>);
    add("Turn", turn<Rig>);
}

template <class Rig> void addHover(const std::string& view, const char* who)
{
    add(view + "HoverStill", who, hoverStill<Rig>, benchmark::kMicrosecond);
    add(view + "HoverChanged", who, hoverChanged<Rig>, benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
}

template <class Rig> void addFill(const std::string& view, const char* who)
{
    add(view + "Fill", who, fill<Rig>, benchmark::kMillisecond);
}

template <class Rig> void addMemory(const std::string& view, const char* who)
{
    add(view + "Memory", who, memory<Rig>, benchmark::kMillisecond)->Iterations(1);
}

template <class Rig> void addAll(const std::string& view, const char* who)
{
    addFill<Rig>(view, who);
    addFrames<Rig>(view, who);
    addHover<Rig>(view, who);
}

inline int run(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    keptRig().reset(); // while there is an application
    return 0;
}

} // namespace ovl::bench

#endif
