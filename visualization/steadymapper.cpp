// SPDX-License-Identifier: BSD-3-Clause
#include "steadymapper.h"

#include <vtkActor.h>
#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkDataSetAttributes.h>
#include <vtkMath.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLIndexBufferObject.h>
#include <vtkOpenGLRenderWindow.h>
#include <vtkOpenGLVertexBufferObject.h>
#include <vtkOpenGLVertexBufferObjectCache.h>
#include <vtkOpenGLVertexBufferObjectGroup.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

namespace ovl {

namespace {

/** All that the index buffers depend on; 0 stands for no cells. */
using IndexState = std::array<vtkMTimeType, 9>;

/** The extent of points as the framework finds it: numbers that are none do not count. */
template <class Number>
void findBounds(const Number* coordinates, vtkIdType points, std::array<double, 6>& bounds)
{
    constexpr int lanes = 12; // four points at once, which the compiler turns into wide registers
    constexpr auto most = static_cast<Number>(VTK_FLOAT_MAX);
    Number low[lanes];
    Number high[lanes];
    for (int lane = 0; lane < lanes; ++lane) {
        low[lane] = most;
        high[lane] = -most;
    }
    const vtkIdType whole = points / 4 * 4;
    for (vtkIdType point = 0; point < whole; point += 4, coordinates += lanes)
        for (int lane = 0; lane < lanes; ++lane) {
            const Number value = coordinates[lane];
            low[lane] = value < low[lane] ? value : low[lane];
            high[lane] = value > high[lane] ? value : high[lane];
        }
    for (int lane = 0; lane < 3 * static_cast<int>(points - whole); ++lane) {
        low[lane] = coordinates[lane] < low[lane] ? coordinates[lane] : low[lane];
        high[lane] = coordinates[lane] > high[lane] ? coordinates[lane] : high[lane];
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        bounds[2 * axis] = static_cast<double>(low[axis]);
        bounds[2 * axis + 1] = static_cast<double>(high[axis]);
        for (std::size_t lane = axis + 3; lane < lanes; lane += 3) {
            bounds[2 * axis] = std::min(bounds[2 * axis], static_cast<double>(low[lane]));
            bounds[2 * axis + 1] = std::max(bounds[2 * axis + 1], static_cast<double>(high[lane]));
        }
    }
}

/** Whether the numbers can be trusted: at the ends of floats the search above may have missed. */
bool isOrdinary(const std::array<double, 6>& bounds)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (!(bounds[2 * axis] <= bounds[2 * axis + 1]
                && std::abs(bounds[2 * axis]) < static_cast<double>(VTK_FLOAT_MAX)
                && std::abs(bounds[2 * axis + 1]) < static_cast<double>(VTK_FLOAT_MAX)))
            return false;
    return true;
}

#if OVL_MAPPERS_BUILD_BUFFERS

/** How the framework fits points with these bounds into floats. */
struct Fit {
    explicit Fit(const std::array<double, 6>& bounds)
    {
        double size = 0.0;
        double distance = 0.0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double length = bounds[2 * axis + 1] - bounds[2 * axis];
            shift[axis] = 0.5 * (bounds[2 * axis + 1] + bounds[2 * axis]);
            scale[axis] = length > 0.0 ? 1.0 / length : 1.0;
            size += length * length;
            distance += shift[axis] * shift[axis];
        }
        needed = size > 0.0 ? distance / size > 1.0e6 || std::fabs(std::log10(size)) > 3.0
                            : distance > 1.0e6;
    }

    template <class Number>
    void apply(const Number* coordinates, vtkIdType points, float* fitted) const
    {
        const double shiftX = shift[0], shiftY = shift[1], shiftZ = shift[2];
        const double scaleX = scale[0], scaleY = scale[1], scaleZ = scale[2];
        for (const Number* end = coordinates + 3 * points; coordinates != end;
             coordinates += 3, fitted += 3) {
            const auto x = static_cast<double>(coordinates[0]);
            const auto y = static_cast<double>(coordinates[1]);
            const auto z = static_cast<double>(coordinates[2]);
            fitted[0] = static_cast<float>((x - shiftX) * scaleX);
            fitted[1] = static_cast<float>((y - shiftY) * scaleY);
            fitted[2] = static_cast<float>((z - shiftZ) * scaleZ);
        }
    }

    std::array<double, 3> shift {};
    std::array<double, 3> scale {};
    bool needed = false;
};

using VertexBuffer = vtkOpenGLVertexBufferObject;

#endif

/** The triangles that the polygons make, if none is left out. */
vtkIdType wholeTriangles(vtkCellArray* polygons)
{
    return polygons->GetNumberOfConnectivityIds() - 2 * polygons->GetNumberOfCells();
}

} // namespace

class SteadyMapper::Private {
public:
    bool usesAll(vtkPolyData* data) const
    {
        vtkPoints* points = data->GetPoints();
        return cells && points && points->GetNumberOfPoints() == used && used > 0
            && (data->GetVerts() == cells || data->GetPolys() == cells)
            && cells->GetMTime() == cellsTime;
    }

    void note(vtkCellArray* array, vtkIdType points, bool inOrder)
    {
        cells = array;
        cellsTime = array->GetMTime();
        used = points;
        listed = inOrder;
    }

    const std::array<double, 6>* boundsOf(vtkPolyData* data);
    IndexState indexStateOf(vtkPolyData* data, vtkProperty* property) const;
#if OVL_MAPPERS_BUILD_BUFFERS
    bool upload(vtkDataArray* coordinates, VertexBuffer* buffer);
#endif

    vtkSmartPointer<vtkCellArray> cells;
    vtkMTimeType cellsTime = 0;
    vtkIdType used = 0;
    bool listed = false;

    vtkMTimeType boundsTime = 0;
    vtkPoints* boundsPoints = nullptr; // only compared
    std::array<double, 6> bounds {};

    IndexState indexState {}; // all 0: there are no index buffers to keep
    std::unique_ptr<float[]> fitted;
    vtkIdType fittedPoints = 0;
};

/** The bounds of data that uses all of its points; null where that is left to the framework. */
const std::array<double, 6>* SteadyMapper::Private::boundsOf(vtkPolyData* data)
{
    if (!usesAll(data))
        return nullptr;
    vtkPoints* points = data->GetPoints();
    if (points != boundsPoints || points->GetMTime() != boundsTime) {
        const void* coordinates = points->GetData()->GetVoidPointer(0);
        if (points->GetDataType() == VTK_DOUBLE)
            findBounds(static_cast<const double*>(coordinates), used, bounds);
        else if (points->GetDataType() == VTK_FLOAT)
            findBounds(static_cast<const float*>(coordinates), used, bounds);
        else
            return nullptr;
        boundsPoints = points;
        boundsTime = points->GetMTime();
    }
    return isOrdinary(bounds) ? &bounds : nullptr;
}

IndexState SteadyMapper::Private::indexStateOf(vtkPolyData* data, vtkProperty* property) const
{
    const auto timeOf
        = [](vtkCellArray* array) { return array->GetNumberOfCells() ? array->GetMTime() : 0; };
    // A list in order is the same whenever it was made.
    const bool inOrder = listed && usesAll(data) && data->GetVerts() == cells;
    vtkDataArray* flags = data->GetPointData()->GetAttribute(vtkDataSetAttributes::EDGEFLAG);
    return {1, inOrder ? static_cast<vtkMTimeType>(used) : 0,
        inOrder ? 0 : timeOf(data->GetVerts()), timeOf(data->GetLines()), timeOf(data->GetPolys()),
        timeOf(data->GetStrips()), static_cast<vtkMTimeType>(property->GetRepresentation()),
        static_cast<vtkMTimeType>(
            (property->GetEdgeVisibility() ? 1 : 0) + (property->GetVertexVisibility() ? 2 : 0)),
        flags ? flags->GetMTime() : 0};
}

vtkStandardNewMacro(SteadyMapper);

SteadyMapper::SteadyMapper()
    : d(new Private)
{
}

SteadyMapper::~SteadyMapper() { delete d; }

void SteadyMapper::setUsesAll(vtkCellArray* cells, vtkIdType points)
{
    d->note(cells, points, false);
}

void SteadyMapper::setListsAll(vtkCellArray* cells, vtkIdType points)
{
    d->note(cells, points, true);
}

void SteadyMapper::ReleaseGraphicsResources(vtkWindow* window)
{
    d->indexState = {};
    Superclass::ReleaseGraphicsResources(window);
}

#if OVL_MAPPERS_BUILD_BUFFERS

void SteadyMapper::ComputeBounds()
{
    vtkPolyData* data = GetInput();
    const std::array<double, 6>* known = data ? d->boundsOf(data) : nullptr;
    if (known)
        std::copy(known->begin(), known->end(), Bounds);
    else
        Superclass::ComputeBounds();
}

/** Fills a buffer that has held as many points before; answers false where it is not for us. */
bool SteadyMapper::Private::upload(vtkDataArray* coordinates, VertexBuffer* buffer)
{
    const Fit fit(bounds);
    if (!fit.needed)
        return false; // the points go as they are
    buffer->SetShift(fit.shift[0], fit.shift[1], fit.shift[2]);
    buffer->SetScale(fit.scale[0], fit.scale[1], fit.scale[2]);
    if (!buffer->GetCoordShiftAndScaleEnabled())
        return false;
    if (fittedPoints != used) {
        fitted.reset(new float[3 * static_cast<std::size_t>(used)]); // not worth zeroing
        fittedPoints = used;
        std::vector<float>().swap(buffer->GetPackedVBO()); // the framework's, now idle
    }
    const void* source = coordinates->GetVoidPointer(0);
    if (coordinates->GetDataType() == VTK_DOUBLE)
        fit.apply(static_cast<const double*>(source), used, fitted.get());
    else
        fit.apply(static_cast<const float*>(source), used, fitted.get());
    buffer->Upload(
        fitted.get(), 3 * static_cast<std::size_t>(used), vtkOpenGLBufferObject::ArrayBuffer);
    buffer->UploadVBO(); // nothing more to upload: notes the time
    return true;
}

void SteadyMapper::BuildBufferObjects(vtkRenderer* renderer, vtkActor* actor)
{
    VertexBuffer* present = VBOs->GetVBO("vertexMC");
    auto* window = vtkOpenGLRenderWindow::SafeDownCast(renderer->GetRenderWindow());
    const bool usual = present && window && CurrentInput && d->boundsOf(CurrentInput)
        && present->GetCoordShiftAndScaleMethod() == VertexBuffer::AUTO_SHIFT_SCALE
        && present->GetDataType() == VTK_FLOAT && present->GetNumberOfComponents() == 3
        && present->GetNumberOfTuples() == d->used;
    if (usual) {
        vtkDataArray* coordinates = CurrentInput->GetPoints()->GetData();
        vtkSmartPointer<VertexBuffer> own;
        own.TakeReference(window->GetVBOCache()->GetVBO(coordinates, VTK_FLOAT));
        if (own == present && coordinates->GetMTime() > present->GetUploadTime().GetMTime())
            d->upload(coordinates, present);
    }
    Superclass::BuildBufferObjects(renderer, actor);
}

void SteadyMapper::BuildIBO(vtkRenderer* renderer, vtkActor* actor, vtkPolyData* data)
{
    const IndexState now = d->indexStateOf(data, actor->GetProperty());
    if (now == d->indexState)
        return;
    IBOBuildState.Clear();
    Superclass::BuildIBO(renderer, actor, data);
    // Triangles without an area are left out of the buffer, and the next points may give them one.
    const bool filled = actor->GetProperty()->GetRepresentation() == VTK_SURFACE;
    const auto triangles = static_cast<vtkIdType>(Primitives[PrimitiveTris].IBO->IndexCount) / 3;
    const bool whole = !filled || triangles == wholeTriangles(data->GetPolys());
    d->indexState = whole ? now : IndexState {};
}

#endif

vtkStandardNewMacro(SteadyDataSetMapper);

SteadyDataSetMapper::SteadyDataSetMapper() { PolyDataMapper = SteadyMapper::New(); }

SteadyMapper* SteadyDataSetMapper::inner() const
{
    return static_cast<SteadyMapper*>(PolyDataMapper);
}

double* SteadyDataSetMapper::GetBounds()
{
    if (!vtkPolyData::SafeDownCast(GetInput()))
        return Superclass::GetBounds();
    if (PolyDataMapper->GetNumberOfInputConnections(0) == 0
        || PolyDataMapper->GetInputConnection(0, 0) != GetInputConnection(0, 0))
        PolyDataMapper->SetInputConnection(GetInputConnection(0, 0));
    PolyDataMapper->GetBounds(Bounds);
    return Bounds;
}

} // namespace ovl
