// SPDX-License-Identifier: BSD-3-Clause
#include "plotclass.h"
#include <visualization/plotpoints.h>

namespace ovl::test {

using PlotPointsClasses = PlotClasses<PlotPoints, vtkPlotPoints>;
INSTANTIATE_TYPED_TEST_SUITE_P(PlotPoints, PlotClassTest, PlotPointsClasses);

} // namespace ovl::test
