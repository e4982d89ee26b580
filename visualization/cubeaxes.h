// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_CUBEAXES_H
#define OVL_VISUALIZATION_CUBEAXES_H

#include <vtkCubeAxesActor.h>

namespace ovl {

/**
 * The framework's box of axes, for ranges of any width.
 *
 * The framework lays an axis' lines from a first one in steps. It counts steps in 32 bits and
 * leaves out the scale of an axis whose two ends are one; either way the first line can lie so far
 * before the box that the lines fill the memory: 1e10 to 1e10 + 10 does, or 41 to 41 under a scale
 * of 1e5. While it paints, it is therefore told something else for an axis whose ends are nearer to
 * each other than single precision tells apart: a box that is flat there, and a range without
 * lines. Nothing of such an axis is seen, as nothing is seen of one with a single value. Outside of
 * painting all is as it was set.
 */
class CubeAxes : public vtkCubeAxesActor {
public:
    static CubeAxes* New();
    vtkTypeMacro(CubeAxes, vtkCubeAxesActor)

    CubeAxes(const CubeAxes&) = delete;
    CubeAxes& operator=(const CubeAxes&) = delete;

    int RenderOpaqueGeometry(vtkViewport* viewport) override;
    int RenderTranslucentPolygonalGeometry(vtkViewport* viewport) override;
    int RenderOverlay(vtkViewport* viewport) override;

protected:
    CubeAxes() = default;
    ~CubeAxes() override = default;

private:
    template <class Pass> int paint(Pass pass);
};

} // namespace ovl

#endif
