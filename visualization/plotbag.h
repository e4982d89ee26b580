// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOTBAG_H
#define OVL_VISUALIZATION_PLOTBAG_H

#include "plot.h"

#include <vtkPlotBag.h>

namespace ovl {

/** The points with their bag, and the line of their median. */
class PlotBag : public vtkPlotBag, public Plot {
    OVL_PLOT_CLASS(PlotBag, vtkPlotBag)
};

} // namespace ovl

#endif
