// SPDX-License-Identifier: BSD-3-Clause
#include "plotfunctionalbag.h"

#include <vtkObjectFactory.h>

namespace ovl {

vtkStandardNewMacro(PlotFunctionalBag);

} // namespace ovl
