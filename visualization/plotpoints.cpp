// SPDX-License-Identifier: BSD-3-Clause
#include "plotpoints.h"

#include <vtkObjectFactory.h>

namespace ovl {

vtkStandardNewMacro(PlotPoints);

} // namespace ovl
