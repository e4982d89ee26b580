// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_SURFACEWARP_H
#define OVL_VISUALIZATION_SURFACEWARP_H

#include <vtkPoints.h>
#include <vtkSmartPointer.h>
#include <vtkWarpScalar.h>

namespace ovl {

/**
 * The stock warp, which writes a grid of an unchanged size into the points of the last run.
 *
 * The stock filter makes its output anew each time. New memory costs more than the warp, and the
 * buffers of the graphics card are found again by the array that they hold. The numbers are the
 * same; whatever is not a plain warp in the x-y plane is left to the stock filter.
 */
class SurfaceWarp : public vtkWarpScalar {
public:
    static SurfaceWarp* New();
    vtkTypeMacro(SurfaceWarp, vtkWarpScalar)

    SurfaceWarp(const SurfaceWarp&) = delete;
    SurfaceWarp& operator=(const SurfaceWarp&) = delete;

protected:
    SurfaceWarp() = default;
    ~SurfaceWarp() override = default;

    int RequestData(vtkInformation* request, vtkInformationVector** input,
        vtkInformationVector* output) override;

private:
    vtkPoints* freePoints(vtkIdType count);

    vtkSmartPointer<vtkPoints> points; // of the last output
};

} // namespace ovl

#endif
