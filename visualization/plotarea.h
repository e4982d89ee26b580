// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOTAREA_H
#define OVL_VISUALIZATION_PLOTAREA_H

#include "plot.h"

#include <vtkPlotArea.h>

namespace ovl {

/** The area between two curves. */
class PlotArea : public vtkPlotArea, public Plot {
    OVL_PLOT_CLASS(PlotArea, vtkPlotArea)
};

} // namespace ovl

#endif
