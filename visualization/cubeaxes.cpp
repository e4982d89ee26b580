// SPDX-License-Identifier: BSD-3-Clause
#include "cubeaxes.h"

#include <vtkObjectFactory.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace ovl {

namespace {

using Ends = std::array<double, 2>;

constexpr double kFlat = 1e-7; // about a step of single precision

bool isFlat(const Ends& ends)
{
    const double magnitude = std::max(std::fabs(ends[0]), std::fabs(ends[1]));
    return std::fabs(ends[1] - ends[0]) < kFlat * magnitude;
}

/** A range of one value. The framework begins its lines there, for a box at `place` too late. */
Ends beyond(double place)
{
    const double value = place + std::fabs(place) / 2.0 + 1.0;
    return {value, value};
}

/** Ranges and bounds of the three axes. */
class Extent {
public:
    explicit Extent(vtkCubeAxesActor& axes)
    {
        axes.GetXAxisRange(ranges[0].data());
        axes.GetYAxisRange(ranges[1].data());
        axes.GetZAxisRange(ranges[2].data());
        const double* box = axes.GetBounds();
        for (Ends& ends : bounds) {
            std::copy(box, box + 2, ends.begin());
            box += 2;
        }
    }

    /** Replaces what cannot be painted. Tells whether there was any. */
    bool makePaintable()
    {
        bool changed = false;
        for (std::size_t axis = 0; axis < ranges.size(); ++axis)
            if (isFlat(ranges[axis]) || isFlat(bounds[axis])) {
                bounds[axis][1] = bounds[axis][0];
                ranges[axis] = beyond(bounds[axis][0]);
                changed = true;
            }
        return changed;
    }

    void giveTo(vtkCubeAxesActor& axes) const
    {
        axes.SetXAxisRange(ranges[0][0], ranges[0][1]);
        axes.SetYAxisRange(ranges[1][0], ranges[1][1]);
        axes.SetZAxisRange(ranges[2][0], ranges[2][1]);
        axes.SetBounds(
            bounds[0][0], bounds[0][1], bounds[1][0], bounds[1][1], bounds[2][0], bounds[2][1]);
    }

private:
    std::array<Ends, 3> ranges {};
    std::array<Ends, 3> bounds {};
};

} // namespace

vtkStandardNewMacro(CubeAxes);

int CubeAxes::RenderOpaqueGeometry(vtkViewport* viewport)
{
    return paint([&] { return Superclass::RenderOpaqueGeometry(viewport); });
}

int CubeAxes::RenderTranslucentPolygonalGeometry(vtkViewport* viewport)
{
    return paint([&] { return Superclass::RenderTranslucentPolygonalGeometry(viewport); });
}

int CubeAxes::RenderOverlay(vtkViewport* viewport)
{
    return paint([&] { return Superclass::RenderOverlay(viewport); });
}

template <class Pass> int CubeAxes::paint(Pass pass)
{
    const Extent stated(*this);
    Extent painted(stated);
    if (!painted.makePaintable())
        return pass();
    painted.giveTo(*this);
    const int count = pass();
    stated.giveTo(*this);
    return count;
}

} // namespace ovl
