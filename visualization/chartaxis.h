// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_CHARTAXIS_H
#define OVL_VISUALIZATION_CHARTAXIS_H

#include <vtkAxis.h>

namespace ovl {

/**
 * An axis that may be zoomed into without end.
 *
 * The framework steps from the nice numbers round a range to its first and last tick. Where the
 * range is so narrow that a step changes nothing any more, or where it is infinite, it would step
 * for ever: some hundred notches of the wheel were enough. Such an axis has no ticks instead.
 */
class ChartAxis : public vtkAxis {
public:
    static ChartAxis* New();
    vtkTypeMacro(ChartAxis, vtkAxis)

    ChartAxis(const ChartAxis&) = delete;
    ChartAxis& operator=(const ChartAxis&) = delete;

    void RecalculateTickSpacing() override;

protected:
    ChartAxis() = default;
    ~ChartAxis() override = default;

private:
    bool canBeStepped();
};

} // namespace ovl

#endif
