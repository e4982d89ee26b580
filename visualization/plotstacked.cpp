// SPDX-License-Identifier: BSD-3-Clause
#include "plotstacked.h"

#include <vtkObjectFactory.h>

namespace ovl {

vtkStandardNewMacro(PlotStacked);

} // namespace ovl
