// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what the interactor styles of the image and of the 3-D views
// share.
#ifndef OVL_VISUALIZATION_LIMITEDDOLLY_H
#define OVL_VISUALIZATION_LIMITEDDOLLY_H

#include <vtkCamera.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cmath>

namespace ovl {

/**
 * Whether the camera still knows where it looks after a dolly by `factor`. Its direction is the
 * difference of two places: some three hundred notches of the wheel take it to where numbers cannot
 * tell them apart, and no notch back brings the direction, or the picture, ever back.
 */
inline bool mayDolly(vtkCamera* camera, double factor)
{
    constexpr double nearest = 1e-18; // the framework's own limit is 1e-20
    constexpr double precision = 1e-12; // leaves the direction three digits
    constexpr double farthest = 1e30; // in single precision
    double focus[3];
    camera->GetFocalPoint(focus);
    const double offset = std::hypot(focus[0], focus[1], focus[2]);
    const double distance = camera->GetDistance() / factor;
    return factor > 1.0 ? distance > std::max(nearest, precision * offset) : distance < farthest;
}

/** A style of the framework's whose camera comes no nearer and goes no farther than it may. */
template <class Style> class LimitedDolly : public Style {
protected:
    using Style::Dolly;
    void Dolly(double factor) override
    {
        if (!this->CurrentRenderer || mayDolly(this->CurrentRenderer->GetActiveCamera(), factor))
            Style::Dolly(factor);
    }
};

} // namespace ovl

#endif
