// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_PROFILEFIXTURE_H
#define OVL_TESTS_SUPPORT_PROFILEFIXTURE_H

#include "hostfixture.h"
#include <visualization/chartxy.h>
#include <visualization/profileview.h>

#include <vector>

class vtkAxis;
class vtkPlot;
class vtkPlotPoints;
class vtkTable;

namespace ovl::test {

/** A profile view on a real host widget, with the way to what it shows. */
class ProfileFixture : public ViewFixture<ProfileView> {
public:
    explicit ProfileFixture(int columns = 2, QSize size = {400, 300});

    /** The chart in the scene of the window's first renderer. */
    ChartXY* chart();
    vtkAxis* axis(int index) { return chart()->GetAxis(index); }
    vtkPlot* plot(int index) { return chart()->GetPlot(index); }
    vtkPlotPoints* points(int index);
    /** The plot's table; null until it has been drawn. */
    vtkTable* table(int plotIndex = 0);
    /** Sizes the table and writes the columns. */
    void fill(const std::vector<std::vector<double>>& columns);
    /** Where data of corner 0 lie in the widget; after a render. */
    QPointF position(double x, double y);
};

} // namespace ovl::test

#endif
