// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_PROBECHART_H
#define OVL_TESTS_SUPPORT_PROBECHART_H

#include <visualization/chartxy.h>

#include <functional>
#include <vector>

namespace ovl::test {

/** A chart that tells what it does while it paints, and lets its gesture state be set. */
class ProbeChart : public ChartXY {
public:
    static ProbeChart* New();

    using ChartXY::DrawBox;
    using ChartXY::DrawSelectionPolygon;
    using ChartXY::MouseBox;
    using ChartXY::PlotTransformValid;
    using ChartXY::SelectionPolygon;

    void Update() override;
    bool UpdateLayout(vtkContext2D* painter) override;
    bool Paint(vtkContext2D* painter) override;
    bool Hit(const vtkContextMouseEvent&) override { return hit; }

    int updates = 0;
    std::vector<bool> layouts; ///< what each UpdateLayout answered
    std::vector<bool> paints; ///< what each Paint answered
    /** Called at the end of each layout, when text can be measured. */
    std::function<void(vtkContext2D*)> measure;
    bool hit = false;
};

} // namespace ovl::test

#endif
