// SPDX-License-Identifier: BSD-3-Clause
#include "tablemapper.h"

#include <vtkDataObject.h>
#include <vtkObjectFactory.h>

namespace ovl {

vtkStandardNewMacro(TableMapper);

void TableMapper::SetInputData(vtkTable* input)
{
    if (table == input)
        return;
    table = input;
    Modified();
}

void TableMapper::setColumns(const char* x, const char* y)
{
    SetInputArrayToProcess(0, 0, 0, vtkDataObject::FIELD_ASSOCIATION_ROWS, x);
    SetInputArrayToProcess(1, 0, 0, vtkDataObject::FIELD_ASSOCIATION_ROWS, y);
}

} // namespace ovl
