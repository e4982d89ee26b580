// SPDX-License-Identifier: BSD-3-Clause
#include "plotarea.h"

#include <vtkObjectFactory.h>

namespace ovl {

vtkStandardNewMacro(PlotArea);

} // namespace ovl
