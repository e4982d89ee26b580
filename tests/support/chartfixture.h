// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_CHARTFIXTURE_H
#define OVL_TESTS_SUPPORT_CHARTFIXTURE_H

#include "hostfixture.h"
#include <visualization/chartxy.h>

#include <vtkContextView.h>
#include <vtkNew.h>
#include <vtkSmartPointer.h>
#include <vtkTable.h>

#include <vector>

class vtkContextClip;
class vtkContextTransform;

namespace ovl::test {

/** A table of the columns x, y, y1, y2 ... */
vtkSmartPointer<vtkTable> makeTable(const std::vector<std::vector<double>>& columns);

/** A chart that fills a real host widget, black behind, mouse and all. */
class ChartFixture : public HostFixture {
public:
    explicit ChartFixture(QSize size = {400, 300});
    /** With a chart of a derived class. */
    ChartFixture(QSize size, ChartXY* chart);

    /** A plot of one of the framework's types over a table of its own. */
    vtkPlot* addPlot(
        int type, const std::vector<double>& x, const std::vector<double>& y, int corner = 0);
    /** Stops an axis from scaling itself. */
    void fixAxis(int axis, double minimum, double maximum);

    vtkContextClip* clip();
    /** How many corners there are. */
    int cornerCount();
    vtkContextTransform* corner(int index);
    /** Where the corner's transform puts that place, in the widget's pixels. */
    QPointF position(double x, double y, int corner = 0);
    /** The same of a place given in the framework's pixels, which count from the bottom. */
    QPointF fromBottom(double x, double y);

    vtkNew<vtkContextView> view;
    vtkSmartPointer<ChartXY> chart;
};

} // namespace ovl::test

#endif
