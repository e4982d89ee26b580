// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what the source files of ChartXY share.
#ifndef OVL_VISUALIZATION_CHARTXY_P_H
#define OVL_VISUALIZATION_CHARTXY_P_H

#include "chartxy.h"
#include "plot.h"
#include "plotroster.h"

#include <vtkAxis.h>
#include <vtkColorSeries.h>
#include <vtkContextClip.h>
#include <vtkContextTransform.h>
#include <vtkPlot.h>
#include <vtkSmartPointer.h>

#include <vector>

namespace ovl {

class ChartXY::Private {
public:
    /** All plots, in the order of their addition; the chart holds a reference to each. */
    std::vector<vtkPlot*> plots;
    /** One to four corners, owned by `clip`. */
    std::vector<vtkContextTransform*> plotCorners;
    /** Left, bottom, right, top; the chart holds a reference to each. */
    std::vector<vtkAxis*> axes;
    vtkSmartPointer<vtkColorSeries> colors = vtkSmartPointer<vtkColorSeries>::New();
    /** Keeps all plots inside the plot area. */
    vtkSmartPointer<vtkContextClip> clip = vtkSmartPointer<vtkContextClip>::New();
    /** Left, bottom, right, top margin in pixels. */
    int borders[4] = {60, 50, 20, 20};
    /** The corners' plots. */
    PlotRoster roster {plotCorners};
    /** The plots' tables are to be marked modified at the next update. */
    bool inputsOutdated = false;

    /** A position on the screen in the plot units of a corner. */
    vtkVector2d toPlot(std::size_t corner, const vtkVector2i& screen) const;
    /** How far the mouse has moved since its last event, in the plot units of a corner. */
    vtkVector2d motion(std::size_t corner, const vtkContextMouseEvent& mouse) const;

    vtkAxis* horizontalAxis(std::size_t corner) const
    {
        return axes[corner < 2 ? vtkAxis::BOTTOM : vtkAxis::TOP];
    }
    vtkAxis* verticalAxis(std::size_t corner) const
    {
        return axes[corner == 0 || corner == 3 ? vtkAxis::LEFT : vtkAxis::RIGHT];
    }
};

/** The Plot that each of a chart's plots is too. */
inline Plot* plotPart(vtkAbstractContextItem* plot) { return dynamic_cast<Plot*>(plot); }

} // namespace ovl

#endif
