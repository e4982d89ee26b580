// SPDX-License-Identifier: BSD-3-Clause
#include "plotclass.h"
#include <visualization/plotarea.h>

namespace ovl::test {

using PlotAreaClasses = PlotClasses<PlotArea, vtkPlotArea>;
INSTANTIATE_TYPED_TEST_SUITE_P(PlotArea, PlotClassTest, PlotAreaClasses);

} // namespace ovl::test
