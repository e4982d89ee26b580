// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOTSTACKED_H
#define OVL_VISUALIZATION_PLOTSTACKED_H

#include "plot.h"

#include <vtkPlotStacked.h>

namespace ovl {

/** Areas on top of one another. */
class PlotStacked : public vtkPlotStacked, public Plot {
    OVL_PLOT_CLASS(PlotStacked, vtkPlotStacked)
};

} // namespace ovl

#endif
