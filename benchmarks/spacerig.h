// SPDX-License-Identifier: BSD-3-Clause
// What the benchmarks of both 3-D views share: a host's widget with a view on it.
#ifndef OVL_BENCHMARKS_SPACERIG_H
#define OVL_BENCHMARKS_SPACERIG_H

#include "residentmemory.h"
#include <visualization/vtkcompat.h>

#include <vtkActor.h>
#include <vtkActorCollection.h>
#include <vtkPropPicker.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>
#include <vtkSmartPointer.h>

#include <QApplication>
#include <QMouseEvent>
#include <QSurfaceFormat>

#include <benchmark/benchmark.h>
#include <memory>

namespace ovl::bench {

template <class View> struct SpaceRig {
    SpaceRig()
    {
        widget.resize(800, 600);
        widget.show();
        QApplication::processEvents();
        view = std::make_unique<View>(&widget);
    }

    /** A sheet of side x side points with a height of its own for each. */
    void fill(int side)
    {
        view->setScene(side, side);
        int index = 0;
        for (int j = 0; j < side; ++j)
            for (int i = 0; i < side; ++i, ++index)
                view->setPoint(index, i, j, (i * 7 + j * 3) % 11, i + j);
    }

    void draw(int side)
    {
        fill(side);
        view->range(0).set(0.0, side);
        view->range(1).set(0.0, side);
        view->range(2).set(0.0, side); // so that the camera stands well off
        view->range(3).set(0.0, 2.0 * side);
        view->drawScene();
    }

    vtkRenderWindow* window() { return compat::renderWindow(&widget); }
    vtkRenderer* renderer() { return window()->GetRenderers()->GetFirstRenderer(); }
    vtkActor* actor()
    {
        return vtkActor::SafeDownCast(renderer()->GetActors()->GetItemAsObject(1));
    }

    void move(QPointF to)
    {
        QMouseEvent event(QEvent::MouseMove, to, to, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    compat::HostWidget widget;
    std::unique_ptr<View> view;
};

inline void perPoint(benchmark::State& state, double points)
{
    state.SetItemsProcessed(static_cast<int64_t>(static_cast<double>(state.iterations()) * points));
    state.counters["ns_point"] = benchmark::Counter(
        points * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/** Writing the points of a scene of an unchanged size, setScene() left out. */
template <class View> void setPoint(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    SpaceRig<View> rig;
    rig.draw(side);
    for (auto _ : state) {
        state.PauseTiming();
        rig.view->setScene(side, side);
        state.ResumeTiming();
        int index = 0;
        for (int j = 0; j < side; ++j)
            for (int i = 0; i < side; ++i, ++index)
                rig.view->setPoint(index, i, j, 1.0, i);
    }
    perPoint(state, static_cast<double>(side) * side);
}

/** One frame of a stream: setScene(), all points, drawScene(), rendering. */
template <class View> void frame(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    SpaceRig<View> rig;
    rig.draw(side);
    rig.view->resetCamera();
    rig.window()->Render();
    for (auto _ : state) {
        rig.draw(side);
        rig.window()->Render();
    }
    perPoint(state, static_cast<double>(side) * side);
}

/** A move of the mouse over a scene at rest. */
template <class View> void moveAtRest(benchmark::State& state)
{
    SpaceRig<View> rig;
    rig.draw(static_cast<int>(state.range(0)));
    rig.view->resetCamera();
    rig.window()->Render();
    rig.move({400, 300});
    int x = 0;
    for (auto _ : state)
        rig.move({300.0 + (++x % 200), 300.0});
}

/** The pick that the stock picker would do for the same move. */
template <class View> void stockPick(benchmark::State& state)
{
    SpaceRig<View> rig;
    rig.draw(static_cast<int>(state.range(0)));
    rig.view->resetCamera();
    rig.window()->Render();
    const auto picker = vtkSmartPointer<vtkPropPicker>::New();
    picker->PickFromListOn();
    picker->AddPickList(rig.actor());
    int x = 0;
    for (auto _ : state)
        picker->Pick(300.0 + (++x % 200), 300.0, 0.0, rig.renderer());
}

/** Memory held by a view after its scene was drawn; GALLIUM_NOOP=1 leaves out Mesa's own. */
template <class View> void memory(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    for (auto _ : state) {
        SpaceRig<View> rig;
        rig.draw(4);
        rig.view->resetCamera();
        rig.window()->Render();
        const double before = residentBytes();
        rig.draw(side);
        rig.window()->Render();
        state.counters["bytes_point"]
            = (residentBytes() - before) / (static_cast<double>(side) * side);
    }
}

inline int run(int argc, char** argv)
{
    QSurfaceFormat::setDefaultFormat(compat::HostWidget::defaultFormat());
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace ovl::bench

#endif
