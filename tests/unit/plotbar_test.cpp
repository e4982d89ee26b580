// SPDX-License-Identifier: BSD-3-Clause
#include "plotclass.h"
#include <visualization/plotbar.h>

namespace ovl::test {

using PlotBarClasses = PlotClasses<PlotBar, vtkPlotBar>;
INSTANTIATE_TYPED_TEST_SUITE_P(PlotBar, PlotClassTest, PlotBarClasses);

} // namespace ovl::test
