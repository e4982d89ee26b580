// SPDX-License-Identifier: BSD-3-Clause
#include "stockpicture.h"

#include "hostfixture.h"

#include <vtkActor.h>
#include <vtkMapper.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkSmartPointer.h>

namespace ovl::test {

QImage stockPicture(HostFixture& host, vtkActor* actor)
{
    const vtkSmartPointer<vtkMapper> shown = actor->GetMapper();
    shown->Update();
    const auto copy = vtkSmartPointer<vtkPolyData>::New();
    copy->DeepCopy(shown->GetInput()); // arrays of its own: buffers are shared by array
    const auto stock = vtkSmartPointer<vtkPolyDataMapper>::New();
    stock->SetInputData(copy);
    stock->SetScalarRange(shown->GetScalarRange());
    stock->SetLookupTable(shown->GetLookupTable());
    stock->SetColorMode(shown->GetColorMode());
    actor->SetMapper(stock);
    host.render();
    const QImage picture = host.picture();
    actor->SetMapper(shown);
    return picture;
}

} // namespace ovl::test
