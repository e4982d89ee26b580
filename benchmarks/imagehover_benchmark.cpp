// SPDX-License-Identifier: BSD-3-Clause
// A move of the mouse over an image, from Qt's event to the coordinates that the host gets, beside
// the framework's cell picker alone and its own image style with such a picker. The size is in
// pixels of the image.
#include "imagewindow.h"
#include <visualization/coordinatessender.h>
#include <visualization/imageview.h>

#include <vtkCallbackCommand.h>
#include <vtkCellPicker.h>
#include <vtkInteractorStyleImage.h>
#include <vtkNew.h>
#include <vtkRenderWindowInteractor.h>

#include <QMouseEvent>

#include <vector>

using namespace ovl::bench;

namespace {

/** An image on a widget, and a mouse that goes over its middle. */
struct Rig : Window {
    explicit Rig(const benchmark::State& state)
        : view(&widget)
    {
        const FrameSize size(state);
        samples.assign(size.pixels(), 7);
        view.drawScene(samples.data(), size.width, size.height, {1, 2});
        window()->Render();
    }

    int nextX()
    {
        step = (step + 1) % 200;
        return kWindowWidth / 2 - 100 + step;
    }

    void move()
    {
        const QPointF to(nextX(), kWindowHeight / 2.0);
        QMouseEvent event(QEvent::MouseMove, to, to, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    std::vector<unsigned short> samples; // outlives the view, as a host's must
    ovl::ImageView view;
    int step = 0;
};

void prepare(vtkCellPicker* picker, vtkProp* image)
{
    picker->PickFromListOn();
    picker->AddPickList(image);
    picker->SetTolerance(0.5);
}

void hover(benchmark::State& state)
{
    Rig rig(state);
    int sent = 0;
    QObject receiver;
    QObject::connect(ovl::CoordinatesSender::instance(),
        &ovl::CoordinatesSender::signal_sendCoordinates, &receiver, [&](int, int) { ++sent; });
    rig.move(); // the first one makes what the following ones keep
    for (auto _ : state)
        rig.move();
    if (sent < static_cast<int>(state.iterations()))
        state.SkipWithError("the mouse missed the image");
}

void pick(benchmark::State& state)
{
    Rig rig(state);
    vtkNew<vtkCellPicker> picker;
    prepare(picker, rig.lastProp());
    for (auto _ : state)
        picker->Pick(rig.nextX(), kWindowHeight / 2.0, 0.0, rig.renderer());
}

/** What the observer of the framework's style gets as its client data. */
struct StockHover {
    Rig* rig;
    vtkCellPicker* picker;

    static void moved(vtkObject* caller, unsigned long, void* data, void*)
    {
        const auto* self = static_cast<StockHover*>(data);
        const int* at = static_cast<vtkRenderWindowInteractor*>(caller)->GetEventPosition();
        self->picker->Pick(at[0], at[1], 0.0, self->rig->renderer());
        benchmark::DoNotOptimize(self->picker->GetPointIJK()[0]);
    }
};

void hoverByFramework(benchmark::State& state)
{
    Rig rig(state);
    vtkNew<vtkInteractorStyleImage> style;
    rig.window()->GetInteractor()->SetInteractorStyle(style);
    vtkNew<vtkCellPicker> picker;
    prepare(picker, rig.lastProp());
    StockHover data = {&rig, picker};
    vtkNew<vtkCallbackCommand> observer;
    observer->SetCallback(StockHover::moved);
    observer->SetClientData(&data);
    rig.window()->GetInteractor()->AddObserver(vtkCommand::MouseMoveEvent, observer);
    for (auto _ : state)
        rig.move();
    rig.window()->GetInteractor()->RemoveObserver(observer);
}

void sizes(benchmark::internal::Benchmark* measurement)
{
    measurement->Apply(frameSizes)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(pick)->Name("BM_ImageHover/floor")->Apply(sizes);
BENCHMARK(hover)->Name("BM_ImageHover/ovl")->Apply(sizes);
BENCHMARK(hoverByFramework)->Name("BM_ImageHover/stock")->Apply(sizes);

} // namespace

int main(int argc, char** argv) { return runWithWidgets(argc, argv); }
