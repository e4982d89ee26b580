// SPDX-License-Identifier: BSD-3-Clause
#include "surfaceview.h"

#include "precondition.h"
#include "samplestore.h"
#include "spacescene.h"
#include "steadymapper.h"
#include "surfacewarp.h"

#include <vtkDoubleArray.h>
#include <vtkMath.h>
#include <vtkPlaneSource.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkTransform.h>
#include <vtkTransformPolyDataFilter.h>

#include <algorithm>
#include <cstddef>

namespace ovl {

namespace {

// The warp adds every point's own height to it once more.
constexpr double kOwnHeight = 0.5;

/** The memory behind the grid. */
struct GridMemory {
    float* positions = nullptr;
    double* scalars = nullptr;
    int points = 0;
    Stores stores = Stores::Cached; // of samples that are set in order
    int next = 0; // in that order
};

} // namespace

class OVL_HIDDEN SurfaceView::Private {
public:
    explicit Private(QOpenGLWidget* widget);
    ~Private();

    SpaceScene scene();
    World<double> cameraPosition() const;

    void begin(int xResolution, int yResolution);
    void fill(const char* operation, int index, const World<double>& position, double value);
    void draw();
    void represent(Representation representation);

    SpaceStage stage;
    vtkSmartPointer<vtkPlaneSource> planeSource = vtkSmartPointer<vtkPlaneSource>::New();
    vtkSmartPointer<vtkTransform> transform = vtkSmartPointer<vtkTransform>::New();
    vtkSmartPointer<vtkTransformPolyDataFilter> transformFilter
        = vtkSmartPointer<vtkTransformPolyDataFilter>::New();
    vtkSmartPointer<vtkPolyData> planeData = vtkSmartPointer<vtkPolyData>::New();
    vtkSmartPointer<vtkPoints> points = vtkSmartPointer<vtkPoints>::New();
    vtkSmartPointer<vtkDoubleArray> scalars = vtkSmartPointer<vtkDoubleArray>::New();
    vtkSmartPointer<vtkPolyData> warpInput = vtkSmartPointer<vtkPolyData>::New();
    vtkSmartPointer<SurfaceWarp> warpFilter = vtkSmartPointer<SurfaceWarp>::New();
    vtkSmartPointer<SteadyDataSetMapper> mapper = vtkSmartPointer<SteadyDataSetMapper>::New();
    SpaceSettings settings;
    bool sceneReady = false;

private:
    void joinPipeline();
    bool gridHasSize(int xResolution, int yResolution) const;
    bool fitPlane(int xResolution, int yResolution);
    void takeGrid();

    GridMemory memory;
    bool gridBuilt = false; // the grid has the plane's size
};

SurfaceView::Private::Private(QOpenGLWidget* widget)
{
    stage.attach(widget);
    joinPipeline();
    stage.furnish([this](bool dirty) { settings.dirty = dirty; });
    scene().applyScale();
    stage.actor->UseBoundsOn();
    mapper->SetColorModeToDefault();
}

SurfaceView::Private::~Private()
{
    stage.detach();
    settings.dirty = true;
}

void SurfaceView::Private::joinPipeline()
{
    transform->PostMultiply();
    transformFilter->SetInputConnection(planeSource->GetOutputPort(0));
    transformFilter->SetTransform(transform);
    planeData = transformFilter->GetOutput();
    warpFilter->SetInputData(warpInput);
    warpFilter->XYPlaneOn();
    mapper->SetInputConnection(warpFilter->GetOutputPort(0));
    stage.actor->SetMapper(mapper);
}

SpaceScene SurfaceView::Private::scene()
{
    // Each correction goes with the scale of its own letter. PointCloudView crosses them; both are
    // meant.
    return {stage, settings,
        toWorld(Host<double> {
            settings.xScaleCorrection, settings.yScaleCorrection, settings.zScaleCorrection})};
}

World<double> SurfaceView::Private::cameraPosition() const
{
    const auto below
        = [](const Range& range, double lengths) { return range.min() - range.length() * lengths; };
    const auto above
        = [](const Range& range, double lengths) { return range.max() + range.length() * lengths; };
    return toWorld(Host<double> {below(settings.ranges[0], settings.xPositionCorrection),
        below(settings.ranges[1], settings.yPositionCorrection),
        above(settings.ranges[2], settings.zPositionCorrection)});
}

void SurfaceView::Private::begin(int xResolution, int yResolution)
{
    settings.xResolution = xResolution;
    settings.yResolution = yResolution;
    sceneReady = false;
    // Meant as it stands: points are compared with the plane's cells, one less along each side, and
    // either side is enough. So a grid that shrinks by exactly one keeps its old size.
    if (planeSource->GetXResolution() == xResolution
        || planeSource->GetYResolution() == yResolution)
        return;
    if (gridHasSize(xResolution, yResolution))
        return; // to build it again would give the same connectivity and the same arrays
    gridBuilt = fitPlane(xResolution, yResolution);
    if (gridBuilt)
        takeGrid();
}

bool SurfaceView::Private::gridHasSize(int xResolution, int yResolution) const
{
    return gridBuilt && planeSource->GetXResolution() + 1 == xResolution
        && planeSource->GetYResolution() + 1 == yResolution;
}

/** Makes the plane have so many points along its sides; false where there can be no such grid. */
bool SurfaceView::Private::fitPlane(int xResolution, int yResolution)
{
    const int xCells = std::max(xResolution, 0) - 1;
    const int yCells = std::max(yResolution, 0) - 1;
    planeSource->SetXResolution(xCells);
    planeSource->SetYResolution(yCells);
    transform->Identity();
    transform->Translate(0.5, 0.5, 0.0);
    transform->Scale(xCells, yCells, 1.0);
    if (xCells < 0 || yCells < 0) {
        planeData->Initialize(); // the source must not be asked for less than nothing
        return true;
    }
    const int count = gridPoints(xResolution, yResolution);
    if (vtkIdType(xResolution) * yResolution != count)
        return false; // no such plane could be held in memory
    transformFilter->Update();
    return planeData->GetNumberOfPoints() == count;
}

void SurfaceView::Private::takeGrid()
{
    const int count = static_cast<int>(planeData->GetNumberOfPoints());
    points->SetNumberOfPoints(count);
    scalars->SetNumberOfTuples(count);
    warpInput->CopyStructure(planeData);
    warpInput->SetPoints(points);
    warpInput->GetPointData()->SetScalars(scalars);
    if (planeSource->GetXResolution() > 0 && planeSource->GetYResolution() > 0)
        mapper->inner()->setUsesAll(warpInput->GetPolys(), count); // no point without a neighbour
    // Only the connectivity is still needed, and warpInput holds it.
    planeSource->GetOutput()->ReleaseData();
    planeData->ReleaseData();
    memory = {static_cast<float*>(points->GetVoidPointer(0)), scalars->GetPointer(0), count,
        storesForSamples(static_cast<std::size_t>(count), 3 * sizeof(float) + sizeof(double))};
}

inline void SurfaceView::Private::fill(
    [[maybe_unused]] const char* operation, int index, const World<double>& position, double value)
{
    if (index < 0 || index >= memory.points) {
        // A grid that has kept another size is no fault of the caller's.
        OVL_PRECONDITION(operation,
            index >= 0 && index < gridPoints(settings.xResolution, settings.yResolution), index);
        return;
    }
    const Stores stores = index == memory.next ? memory.stores : Stores::Cached;
    memory.next = index + 1;
    storeSample(stores, memory.positions + 3 * static_cast<vtkIdType>(index),
        memory.scalars + index, position, value);
}

void SurfaceView::Private::draw()
{
    if (!sceneReady)
        return;
    complete(memory.stores);
    scene().applyScale();
    scene().updateAxes();
    points->Modified();
    scalars->Modified();
    mapper->SetScalarRange(settings.ranges[3].min(), settings.ranges[3].max());
    mapper->Update();
    settings.dirty = true;
}

void SurfaceView::Private::represent(Representation representation)
{
    vtkProperty* property = stage.actor->GetProperty();
    switch (representation) {
    case Representation::Points:
        property->SetRepresentationToPoints();
        break;
    case Representation::Wireframe:
        property->SetRepresentationToWireframe();
        break;
    case Representation::Surface:
    default:
        property->SetRepresentationToSurface();
    }
    settings.dirty = true;
}

SurfaceView::SurfaceView(QOpenGLWidget* widget)
    : d(new Private(widget))
{
}

SurfaceView::~SurfaceView() { delete d; }

void SurfaceView::setScene(int xResolution, int yResolution) { d->begin(xResolution, yResolution); }

void SurfaceView::setPoint(int index, double x, double y, double z, double value)
{
    d->fill("SurfaceView::setPoint", index, toWorld(Host<double> {x, y, kOwnHeight * z}), value);
    d->sceneReady = true;
}

void SurfaceView::setNanPoint(int index)
{
    // Leaves sceneReady alone: a scene of such points only is not worth drawing.
    const double nan = vtkMath::Nan();
    d->fill("SurfaceView::setNanPoint", index, {nan, nan, nan}, nan);
}

void SurfaceView::drawScene() { d->draw(); }

void SurfaceView::resetCamera() { d->scene().resetCamera(d->cameraPosition()); }

void SurfaceView::setRepresentation(Representation representation) { d->represent(representation); }

bool SurfaceView::isDirty() const { return d->settings.dirty; }
void SurfaceView::setDirty(bool dirty) { d->settings.dirty = dirty; }

Range& SurfaceView::range(int index) { return d->settings.range("SurfaceView::range", index); }

bool SurfaceView::autoRange() const { return d->settings.autoRange; }
void SurfaceView::setAutoRange(bool enabled) { d->settings.autoRange = enabled; }

double SurfaceView::absoluteMaximum() const { return d->settings.absoluteMaximum; }
void SurfaceView::setAbsoluteMaximum(double maximum) { d->settings.absoluteMaximum = maximum; }

ColorScheme SurfaceView::colorScheme() const { return d->settings.colorScheme; }
void SurfaceView::setColorScheme(ColorScheme scheme)
{
    d->scene().setColorScheme(scheme, d->mapper);
}

int SurfaceView::xResolution() const { return d->settings.xResolution; }
int SurfaceView::yResolution() const { return d->settings.yResolution; }

double SurfaceView::xScale() const { return d->settings.xScale; }
double SurfaceView::yScale() const { return d->settings.yScale; }
double SurfaceView::zScale() const { return d->settings.zScale; }
void SurfaceView::setXScale(double scale) { d->scene().setXScale(scale); }
void SurfaceView::setYScale(double scale) { d->scene().setYScale(scale); }
void SurfaceView::setZScale(double scale) { d->scene().setZScale(scale); }

double SurfaceView::xScaleCorrection() const { return d->settings.xScaleCorrection; }
double SurfaceView::yScaleCorrection() const { return d->settings.yScaleCorrection; }
double SurfaceView::zScaleCorrection() const { return d->settings.zScaleCorrection; }

void SurfaceView::setXScaleCorrection(double correction)
{
    d->settings.xScaleCorrection = correction;
    d->scene().applyScale();
}

void SurfaceView::setYScaleCorrection(double correction)
{
    d->settings.yScaleCorrection = correction;
    d->scene().applyScale();
}

void SurfaceView::setZScaleCorrection(double correction)
{
    d->settings.zScaleCorrection = correction;
    d->scene().applyScale();
}

double SurfaceView::xPositionCorrection() const { return d->settings.xPositionCorrection; }
double SurfaceView::yPositionCorrection() const { return d->settings.yPositionCorrection; }
double SurfaceView::zPositionCorrection() const { return d->settings.zPositionCorrection; }

void SurfaceView::setXPositionCorrection(double correction)
{
    d->settings.xPositionCorrection = correction;
}

void SurfaceView::setYPositionCorrection(double correction)
{
    d->settings.yPositionCorrection = correction;
}

void SurfaceView::setZPositionCorrection(double correction)
{
    d->settings.zPositionCorrection = correction;
}

Range SurfaceView::xAxisRange() const { return d->settings.axisRanges[0]; }
Range SurfaceView::yAxisRange() const { return d->settings.axisRanges[1]; }
Range SurfaceView::zAxisRange() const { return d->settings.axisRanges[2]; }
void SurfaceView::setXAxisRange(Range const& range) { d->settings.axisRanges[0] = range; }
void SurfaceView::setYAxisRange(Range const& range) { d->settings.axisRanges[1] = range; }
void SurfaceView::setZAxisRange(Range const& range) { d->settings.axisRanges[2] = range; }

} // namespace ovl
