// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_PLOTFUNCTIONALBAG_H
#define OVL_VISUALIZATION_PLOTFUNCTIONALBAG_H

#include "plot.h"

#include <vtkPlotFunctionalBag.h>

namespace ovl {

/** A curve, or the area between two of them. */
class PlotFunctionalBag : public vtkPlotFunctionalBag, public Plot {
    OVL_PLOT_CLASS(PlotFunctionalBag, vtkPlotFunctionalBag)
};

} // namespace ovl

#endif
