// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOTPOINTS_H
#define OVL_VISUALIZATION_PLOTPOINTS_H

#include "plot.h"

#include <vtkPlotPoints.h>

namespace ovl {

/** A marker at each point. */
class PlotPoints : public vtkPlotPoints, public Plot {
    OVL_PLOT_CLASS(PlotPoints, vtkPlotPoints)
};

} // namespace ovl

#endif
