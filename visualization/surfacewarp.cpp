// SPDX-License-Identifier: BSD-3-Clause
#include "surfacewarp.h"

#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkInformation.h>
#include <vtkInformationVector.h>
#include <vtkObjectFactory.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

namespace ovl {

namespace {

void warp(const float* from, float* to, vtkIdType count)
{
    for (const float* end = from + 3 * count; from != end; from += 3, to += 3) {
        // The framework adds the height along a normal of (0, 0, 1): without a height that is no
        // number the two sides stay, with one they become none either.
        const float aside = from[2] * 0.0F;
        to[0] = from[0] + aside;
        to[1] = from[1] + aside;
        to[2] = from[2] + from[2];
    }
}

} // namespace

vtkStandardNewMacro(SurfaceWarp);

/** The last output's points, unless somebody else has kept them. */
vtkPoints* SurfaceWarp::freePoints(vtkIdType count)
{
    const bool free = points && points->GetReferenceCount() == 1
        && points->GetData()->GetReferenceCount() == 1 && points->GetNumberOfPoints() == count;
    if (!free) {
        points = vtkSmartPointer<vtkPoints>::New();
        points->SetDataType(VTK_FLOAT);
        points->SetNumberOfPoints(count);
    }
    return points;
}

int SurfaceWarp::RequestData(
    vtkInformation* request, vtkInformationVector** input, vtkInformationVector* output)
{
    vtkPolyData* from = vtkPolyData::GetData(input[0]);
    vtkPolyData* to = vtkPolyData::GetData(output);
    const bool plain = from && to && from->GetPoints()
        && from->GetPoints()->GetDataType() == VTK_FLOAT && from->GetPointData()->GetScalars()
        && !from->GetPointData()->GetNormals() && !from->GetCellData()->GetNormals() && GetXYPlane()
        && GetScaleFactor() == 1.0;
    if (!plain)
        return Superclass::RequestData(request, input, output);

    to->CopyStructure(from);
    const vtkIdType count = from->GetNumberOfPoints();
    vtkPoints* warped = freePoints(count);
    if (count > 0)
        warp(static_cast<const float*>(from->GetPoints()->GetVoidPointer(0)),
            static_cast<float*>(warped->GetVoidPointer(0)), count);
    warped->GetData()->Modified();
    warped->Modified();
    to->SetPoints(warped);
    to->GetPointData()->PassData(from->GetPointData());
    to->GetCellData()->PassData(from->GetCellData());
    return 1;
}

} // namespace ovl
