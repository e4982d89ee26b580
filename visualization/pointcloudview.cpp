// SPDX-License-Identifier: BSD-3-Clause
#include "pointcloudview.h"

#include "precondition.h"
#include "samplestore.h"
#include "spacescene.h"
#include "steadymapper.h"
#include "vtkcompat.h"

#include <vtkCellArray.h>
#include <vtkDoubleArray.h>
#include <vtkMath.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace ovl {

namespace {

/** The memory behind a scene that is being filled. */
struct CloudMemory {
    double* coordinates = nullptr;
    double* scalars = nullptr;
    compat::StoredId* ids = nullptr;
    int points = 0; // that the arrays hold
    int listed = 0; // ids of the cell so far
    int listable = 0; // ids that there is room for
    int ordered = 0; // leading ids that hold their own places in memory
    Stores stores = Stores::Cached; // of samples that are set in order
    bool inOrder = true; // each listed id is its own place; it need not be in memory yet

    /** Brings the ids that points set in order have left out into memory. */
    void writeOrder()
    {
        if (inOrder && ordered < listed) {
            std::iota(ids + ordered, ids + listed, compat::StoredId(ordered));
            ordered = listed;
        }
    }
};

} // namespace

class OVL_HIDDEN PointCloudView::Private {
public:
    explicit Private(QOpenGLWidget* widget);
    ~Private();

    SpaceScene scene();
    World<double> cameraPosition() const;

    void begin(int xResolution, int yResolution);
    void fill(const char* operation, int index, const World<double>& position, double value);
    void draw();

    SpaceStage stage;
    vtkSmartPointer<SteadyMapper> mapper = vtkSmartPointer<SteadyMapper>::New();
    vtkSmartPointer<vtkPolyData> polyData = vtkSmartPointer<vtkPolyData>::New();
    vtkSmartPointer<vtkDoubleArray> coordinates = vtkSmartPointer<vtkDoubleArray>::New();
    vtkSmartPointer<vtkCellArray> cells = vtkSmartPointer<vtkCellArray>::New();
    vtkSmartPointer<vtkDoubleArray> scalars = vtkSmartPointer<vtkDoubleArray>::New();
    vtkSmartPointer<vtkPoints> points = vtkSmartPointer<vtkPoints>::New();
    SpaceSettings settings;

private:
    void allocate(int count);
    void emptyForReuse();
    [[gnu::noinline]] void list(int index); // the rare case must not slow down the usual one

    CloudMemory memory;
};

PointCloudView::Private::Private(QOpenGLWidget* widget)
{
    stage.attach(widget);
    stage.actor->SetMapper(mapper);
    stage.furnish([this](bool dirty) { settings.dirty = dirty; });
    scene().applyScale();
    mapper->SetInputData(polyData);
    mapper->SetColorModeToDefault();
}

PointCloudView::Private::~Private()
{
    stage.detach();
    settings.dirty = true;
}

SpaceScene PointCloudView::Private::scene()
{
    // The corrections go with the world's axes, letter by letter, while the scales go with the
    // host's: so x meets y. SurfaceView does not cross them; both are meant.
    return {stage, settings,
        World<double> {
            settings.xScaleCorrection, settings.yScaleCorrection, settings.zScaleCorrection}};
}

World<double> PointCloudView::Private::cameraPosition() const
{
    const auto within
        = [](const Range& range, double part) { return range.min() + range.length() * part; };
    return toWorld(Host<double> {within(settings.ranges[0], settings.xPositionCorrection),
        within(settings.ranges[1], settings.yPositionCorrection),
        within(settings.ranges[2], settings.zPositionCorrection)});
}

void PointCloudView::Private::begin(int xResolution, int yResolution)
{
    settings.xResolution = xResolution;
    settings.yResolution = yResolution;
    const int count = gridPoints(xResolution, yResolution);
    if (count == memory.points && memory.ids)
        emptyForReuse();
    else
        allocate(count);

    const CloudMemory last = memory;
    memory = {};
    memory.ids = compat::beginOnlyCell(cells, count);
    if (memory.ids == last.ids && count == last.points)
        memory.ordered = last.ordered;
    memory.coordinates = coordinates->GetPointer(0);
    memory.scalars = scalars->GetPointer(0);
    memory.points = count;
    memory.listable = count;
    memory.stores = storesForSamples(static_cast<std::size_t>(count), 4 * sizeof(double));
}

void PointCloudView::Private::allocate(int count)
{
    coordinates->Initialize();
    cells->Initialize();
    scalars->Initialize();
    points->Initialize();
    coordinates->SetNumberOfComponents(3);
    points->SetData(coordinates);
    coordinates->SetNumberOfTuples(count);
    scalars->SetNumberOfTuples(count);
}

/** As good as new memory for a scene of the same size, but without its page faults. */
void PointCloudView::Private::emptyForReuse()
{
    cells->Reset();
    cells->Modified(); // the last scene is lost to the next repaint
    points->Modified();
}

inline void PointCloudView::Private::fill(
    [[maybe_unused]] const char* operation, int index, const World<double>& position, double value)
{
    const bool inside = index >= 0 && index < memory.points;
    OVL_PRECONDITION(operation, inside, index);
    if (!inside)
        return;
    double* coordinate = memory.coordinates + 3 * static_cast<vtkIdType>(index);
    double* scalar = memory.scalars + index;
    if (memory.inOrder && index == memory.listed) {
        ++memory.listed; // the usual case: a fifth of the memory is not touched
        storeSample(memory.stores, coordinate, scalar, position, value);
        return;
    }
    storeSample(Stores::Cached, coordinate, scalar, position, value);
    list(index);
}

void PointCloudView::Private::list(int index)
{
    memory.writeOrder();
    memory.inOrder = false;
    memory.ordered = std::min(memory.ordered, memory.listed);
    if (memory.listed < memory.listable) {
        memory.ids[memory.listed++] = index;
        return;
    }
    // Points that are set again are listed again, beyond what was announced.
    memory.ids = compat::growOnlyCell(cells, memory.listed + vtkIdType(1));
    memory.listable = static_cast<int>(compat::onlyCellCapacity(cells));
    memory.ids[memory.listed++] = index;
}

void PointCloudView::Private::draw()
{
    scene().applyScale();
    scene().updateAxes();
    complete(memory.stores);
    memory.writeOrder();
    if (memory.ids)
        compat::endOnlyCell(cells, memory.listed); // points never set must not be drawn
    polyData->SetPoints(points);
    polyData->SetVerts(cells);
    polyData->GetPointData()->SetScalars(scalars);
    coordinates->Modified();
    cells->Modified();
    polyData->Modified();
    scalars->Modified();
    if (memory.inOrder && memory.listed == memory.points)
        mapper->setListsAll(cells, memory.points);
    mapper->SetInputData(polyData);
    mapper->SetScalarRange(settings.ranges[3].min(), settings.ranges[3].max());
    mapper->Update();
    settings.dirty = true;
}

PointCloudView::PointCloudView(QOpenGLWidget* widget)
    : d(new Private(widget))
{
}

PointCloudView::~PointCloudView() { delete d; }

void PointCloudView::setScene(int xResolution, int yResolution)
{
    d->begin(xResolution, yResolution);
}

void PointCloudView::setPoint(int index, double x, double y, double z, double value)
{
    d->fill("PointCloudView::setPoint", index, toWorld(Host<double> {x, y, z}), value);
}

void PointCloudView::setNanPoint(int index)
{
    const double nan = vtkMath::Nan();
    d->fill("PointCloudView::setNanPoint", index, {nan, nan, nan}, nan);
}

void PointCloudView::drawScene() { d->draw(); }

void PointCloudView::resetCamera() { d->scene().resetCamera(d->cameraPosition()); }

bool PointCloudView::isDirty() const { return d->settings.dirty; }
void PointCloudView::setDirty(bool dirty) { d->settings.dirty = dirty; }

Range& PointCloudView::range(int index)
{
    return d->settings.range("PointCloudView::range", index);
}

bool PointCloudView::autoRange() const { return d->settings.autoRange; }
void PointCloudView::setAutoRange(bool enabled) { d->settings.autoRange = enabled; }

double PointCloudView::absoluteMaximum() const { return d->settings.absoluteMaximum; }
void PointCloudView::setAbsoluteMaximum(double maximum) { d->settings.absoluteMaximum = maximum; }

ColorScheme PointCloudView::colorScheme() const { return d->settings.colorScheme; }
void PointCloudView::setColorScheme(ColorScheme scheme)
{
    d->scene().setColorScheme(scheme, d->mapper);
}

int PointCloudView::xResolution() const { return d->settings.xResolution; }
int PointCloudView::yResolution() const { return d->settings.yResolution; }

double PointCloudView::xScale() const { return d->settings.xScale; }
double PointCloudView::yScale() const { return d->settings.yScale; }
double PointCloudView::zScale() const { return d->settings.zScale; }
void PointCloudView::setXScale(double scale) { d->scene().setXScale(scale); }
void PointCloudView::setYScale(double scale) { d->scene().setYScale(scale); }
void PointCloudView::setZScale(double scale) { d->scene().setZScale(scale); }

double PointCloudView::xScaleCorrection() const { return d->settings.xScaleCorrection; }
double PointCloudView::yScaleCorrection() const { return d->settings.yScaleCorrection; }
double PointCloudView::zScaleCorrection() const { return d->settings.zScaleCorrection; }

void PointCloudView::setXScaleCorrection(double correction)
{
    d->settings.xScaleCorrection = correction;
    d->scene().applyScale();
}

void PointCloudView::setYScaleCorrection(double correction)
{
    d->settings.yScaleCorrection = correction;
    d->scene().applyScale();
}

void PointCloudView::setZScaleCorrection(double correction)
{
    d->settings.zScaleCorrection = correction;
    d->scene().applyScale();
}

double PointCloudView::xPositionCorrection() const { return d->settings.xPositionCorrection; }
double PointCloudView::yPositionCorrection() const { return d->settings.yPositionCorrection; }
double PointCloudView::zPositionCorrection() const { return d->settings.zPositionCorrection; }

void PointCloudView::setXPositionCorrection(double correction)
{
    d->settings.xPositionCorrection = correction;
}

void PointCloudView::setYPositionCorrection(double correction)
{
    d->settings.yPositionCorrection = correction;
}

void PointCloudView::setZPositionCorrection(double correction)
{
    d->settings.zPositionCorrection = correction;
}

Range PointCloudView::xAxisRange() const { return d->settings.axisRanges[0]; }
Range PointCloudView::yAxisRange() const { return d->settings.axisRanges[1]; }
Range PointCloudView::zAxisRange() const { return d->settings.axisRanges[2]; }
void PointCloudView::setXAxisRange(Range const& range) { d->settings.axisRanges[0] = range; }
void PointCloudView::setYAxisRange(Range const& range) { d->settings.axisRanges[1] = range; }
void PointCloudView::setZAxisRange(Range const& range) { d->settings.axisRanges[2] = range; }

} // namespace ovl
