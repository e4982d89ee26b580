// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOTLINE_H
#define OVL_VISUALIZATION_PLOTLINE_H

#include "plot.h"

#include <vtkPlotLine.h>

namespace ovl {

/** A joined line through the points. */
class PlotLine : public vtkPlotLine, public Plot {
    OVL_PLOT_CLASS(PlotLine, vtkPlotLine)
};

} // namespace ovl

#endif
