// SPDX-License-Identifier: BSD-3-Clause
#include "probechart.h"

#include <vtkObjectFactory.h>

namespace ovl::test {

vtkStandardNewMacro(ProbeChart);

void ProbeChart::Update()
{
    ++updates;
    ChartXY::Update();
}

bool ProbeChart::UpdateLayout(vtkContext2D* painter)
{
    layouts.push_back(ChartXY::UpdateLayout(painter));
    if (measure)
        measure(painter);
    return layouts.back();
}

bool ProbeChart::Paint(vtkContext2D* painter)
{
    paints.push_back(ChartXY::Paint(painter));
    return paints.back();
}

} // namespace ovl::test
