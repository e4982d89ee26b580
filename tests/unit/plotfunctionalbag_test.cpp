// SPDX-License-Identifier: BSD-3-Clause
#include "plotclass.h"
#include <visualization/plotfunctionalbag.h>

namespace ovl::test {

using PlotFunctionalBagClasses = PlotClasses<PlotFunctionalBag, vtkPlotFunctionalBag>;
INSTANTIATE_TYPED_TEST_SUITE_P(PlotFunctionalBag, PlotClassTest, PlotFunctionalBagClasses);

} // namespace ovl::test
