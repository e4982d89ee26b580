// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_CHARTPLOTDATA_H
#define OVL_VISUALIZATION_CHARTPLOTDATA_H

#include <vtkStdString.h>
#include <vtkVector.h>

namespace ovl {

/** The call data of an event that a chart raises for one point of a plot. */
struct ChartPlotData {
    vtkStdString SeriesName; ///< the plot's label
    vtkVector2f Position; ///< the point, in plot space
    vtkVector2i ScreenPosition; ///< the mouse, in pixels
    int Index; ///< the point's row
};

} // namespace ovl

#endif
