// SPDX-License-Identifier: BSD-3-Clause
#include "plotbar.h"

#include <vtkObjectFactory.h>

namespace ovl {

vtkStandardNewMacro(PlotBar);

} // namespace ovl
