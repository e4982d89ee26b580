// SPDX-License-Identifier: BSD-3-Clause
#include "plotclass.h"
#include <visualization/plotbag.h>

namespace ovl::test {

using PlotBagClasses = PlotClasses<PlotBag, vtkPlotBag>;
INSTANTIATE_TYPED_TEST_SUITE_P(PlotBag, PlotClassTest, PlotBagClasses);

} // namespace ovl::test
