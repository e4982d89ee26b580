// SPDX-License-Identifier: BSD-3-Clause
#include "plotbag.h"

#include <vtkObjectFactory.h>

namespace ovl {

vtkStandardNewMacro(PlotBag);

} // namespace ovl
