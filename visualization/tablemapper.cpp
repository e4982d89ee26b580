// SPDX-License-Identifier: BSD-3-Clause
#include "tablemapper.h"

#include <vtkDataObject.h>
#include <vtkInformation.h>
#include <vtkInformationInformationVectorKey.h>
#include <vtkInformationIntegerKey.h>
#include <vtkInformationStringKey.h>
#include <vtkInformationVector.h>
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

// What two calls of SetInputArrayToProcess() would leave behind. That operation gives its parts
// away with a search for lost cycles each; there can be none among what has just been made.
void TableMapper::setColumns(const char* x, const char* y)
{
    vtkInformationVector* columns = vtkInformationVector::New();
    for (const char* name : {x, y}) {
        vtkInformation* column = vtkInformation::New();
        column->Set(INPUT_PORT(), 0);
        column->Set(INPUT_CONNECTION(), 0);
        column->Set(vtkDataObject::FIELD_ASSOCIATION(), vtkDataObject::FIELD_ASSOCIATION_ROWS);
        column->Set(vtkDataObject::FIELD_NAME(), name);
        columns->Append(column);
        column->FastDelete();
    }
    GetInformation()->Set(INPUT_ARRAYS_TO_PROCESS(), columns);
    columns->FastDelete();
    Modified();
}

} // namespace ovl
