// SPDX-License-Identifier: BSD-3-Clause
// The 3-D scenes as a host builds them out of the framework's own classes.
#ifndef OVL_BENCHMARKS_SPACESTOCK_H
#define OVL_BENCHMARKS_SPACESTOCK_H

#include "spacerig.h"

#include <vtkCellArray.h>
#include <vtkCubeAxesActor.h>
#include <vtkDoubleArray.h>
#include <vtkInteractorStyleTrackballCamera.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkPlaneSource.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkPropPicker.h>
#include <vtkRenderWindowInteractor.h>

namespace ovl::bench {

/** Picks at every move of the mouse. */
class StockStyle : public vtkInteractorStyleTrackballCamera {
public:
    static StockStyle* New();
    vtkTypeMacro(StockStyle, vtkInteractorStyleTrackballCamera)

    void OnMouseMove() override
    {
        const int* at = GetInteractor()->GetEventPosition();
        vtkRenderWindow* window = GetInteractor()->GetRenderWindow();
        picker->Pick(at[0], at[1], 0.0, window->GetRenderers()->GetFirstRenderer());
        benchmark::DoNotOptimize(picker->GetPath());
        vtkInteractorStyleTrackballCamera::OnMouseMove();
    }

    vtkNew<vtkPropPicker> picker;
};

vtkStandardNewMacro(StockStyle);

/** Data, mapper, actor, axes and picking; the classes below write the data. */
struct StockRig : WidgetRig {
    StockRig()
    {
        window()->AddRenderer(scene);
        data->GetPointData()->SetScalars(values);
        mapper->SetInputData(data);
        actor->SetMapper(mapper);
        axes->SetCamera(scene->GetActiveCamera());
        scene->AddActor(axes);
        scene->AddActor(actor);
        style->picker->PickFromListOn();
        style->picker->AddPickList(actor);
        window()->GetInteractor()->SetInteractorStyle(style);
    }

    void resize(int samples)
    {
        grid = Grid(samples);
        values->SetNumberOfTuples(grid.size());
        mapper->SetScalarRange(0.0, grid.columns);
        axes->SetBounds(0.0, grid.rows, 0.0, grid.columns, 0.0, grid.columns);
    }

    /** Puts the camera where our views' resetCamera() puts it. */
    void lookFrom(double x, double y, double z)
    {
        vtkCamera* camera = scene->GetActiveCamera();
        camera->SetPosition(x, y, z);
        camera->SetFocalPoint(0.5 * grid.rows, 0.5 * grid.columns, 0.5 * grid.columns);
        camera->SetViewUp(0.0, 0.0, 1.0);
        camera->Dolly(0.25);
        scene->ResetCameraClippingRange();
    }

    Grid grid {1};
    vtkNew<vtkRenderer> scene;
    vtkNew<vtkCubeAxesActor> axes;
    vtkNew<vtkActor> actor;
    vtkNew<vtkPolyDataMapper> mapper;
    vtkNew<vtkPolyData> data;
    vtkNew<vtkDoubleArray> values;
    vtkNew<StockStyle> style;
};

struct StockCloudRig : StockRig {
    explicit StockCloudRig(int samples)
    {
        coordinates->SetNumberOfComponents(3);
        points->SetData(coordinates);
        data->SetPoints(points);
        data->SetVerts(cells);
        resize(samples);
    }

    void resize(int samples)
    {
        StockRig::resize(samples);
        coordinates->SetNumberOfTuples(grid.size());
    }

    void look() { lookFrom(grid.rows, grid.columns, grid.columns); }

    void fill(int frame)
    {
        cells->Reset();
        cells->InsertNextCell(grid.size());
        eachSample(grid, frame, [this](int index, double x, double y, double z, double value) {
            const double position[3] = {y, x, z};
            coordinates->SetTuple(index, position);
            values->SetTuple1(index, value);
            cells->InsertCellPoint(index);
        });
    }

    void show()
    {
        coordinates->Modified();
        points->Modified();
        cells->Modified();
        values->Modified();
    }

    vtkNew<vtkDoubleArray> coordinates;
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> cells;
};

struct StockSurfaceRig : StockRig {
    explicit StockSurfaceRig(int samples)
    {
        data->SetPoints(points);
        resize(samples);
    }

    void resize(int samples)
    {
        StockRig::resize(samples);
        vtkNew<vtkPlaneSource> plane;
        plane->SetResolution(grid.columns - 1, grid.rows - 1);
        plane->Update();
        data->SetPolys(plane->GetOutput()->GetPolys());
        points->SetNumberOfPoints(grid.size());
    }

    void look() { lookFrom(-grid.rows, -grid.columns, 2.0 * grid.columns); }

    void fill(int frame)
    {
        eachSample(grid, frame, [this](int index, double x, double y, double z, double value) {
            points->SetPoint(index, y, x, z);
            values->SetValue(index, value);
        });
    }

    void show()
    {
        points->Modified();
        values->Modified();
    }

    vtkNew<vtkPoints> points;
};

} // namespace ovl::bench

#endif
