// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOTBAR_H
#define OVL_VISUALIZATION_PLOTBAR_H

#include "plot.h"

#include <vtkPlotBar.h>

namespace ovl {

/** A bar for each value. */
class PlotBar : public vtkPlotBar, public Plot {
    OVL_PLOT_CLASS(PlotBar, vtkPlotBar)
};

} // namespace ovl

#endif
