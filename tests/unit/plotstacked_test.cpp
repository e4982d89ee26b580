// SPDX-License-Identifier: BSD-3-Clause
#include "plotclass.h"
#include <visualization/plotstacked.h>

namespace ovl::test {

using PlotStackedClasses = PlotClasses<PlotStacked, vtkPlotStacked>;
INSTANTIATE_TYPED_TEST_SUITE_P(PlotStacked, PlotClassTest, PlotStackedClasses);

} // namespace ovl::test
