// SPDX-License-Identifier: BSD-3-Clause
#include "plotclass.h"
#include <visualization/plotline.h>

namespace ovl::test {

using PlotLineClasses = PlotClasses<PlotLine, vtkPlotLine>;
INSTANTIATE_TYPED_TEST_SUITE_P(PlotLine, PlotClassTest, PlotLineClasses);

} // namespace ovl::test
