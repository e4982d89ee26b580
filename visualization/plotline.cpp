// SPDX-License-Identifier: BSD-3-Clause
#include "plotline.h"

#include <vtkObjectFactory.h>

namespace ovl {

vtkStandardNewMacro(PlotLine);

} // namespace ovl
