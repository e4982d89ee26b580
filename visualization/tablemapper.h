// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what a plot takes its columns from.
#ifndef OVL_VISUALIZATION_TABLEMAPPER_H
#define OVL_VISUALIZATION_TABLEMAPPER_H

#include <vtkContextMapper2D.h>
#include <vtkSmartPointer.h>
#include <vtkTable.h>

namespace ovl {

/**
 * A plot's mapper that holds its table by itself. The framework's builds a pipeline around the
 * table, and looks for lost cycles in it whenever a part of it is let go: with thousands of plots
 * that takes most of the time in which they are made and destroyed.
 */
class TableMapper : public vtkContextMapper2D {
public:
    vtkTypeMacro(TableMapper, vtkContextMapper2D)
    static TableMapper* New();

    void SetInputData(vtkTable* input) override;
    vtkTable* GetInput() override { return table; }
    /** Which columns of the table are the plot's coordinates. */
    void setColumns(const char* x, const char* y);

private:
    TableMapper() = default;
    ~TableMapper() override = default;

    vtkSmartPointer<vtkTable> table;
};

} // namespace ovl

#endif
