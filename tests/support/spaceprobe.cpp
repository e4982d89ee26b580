// SPDX-License-Identifier: BSD-3-Clause
#include "spaceprobe.h"

#include "hostfixture.h"

#include <vtkActor.h>
#include <vtkActorCollection.h>
#include <vtkCamera.h>
#include <vtkCubeAxesActor.h>
#include <vtkDataArray.h>
#include <vtkMapper.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkRenderer.h>

#include <QPointF>

#include <cmath>

namespace ovl::test {

SpaceProbe::SpaceProbe(HostFixture& fixture)
    : host(fixture)
{
}

vtkRenderer* SpaceProbe::renderer() const { return host.renderer(); }

vtkCamera* SpaceProbe::camera() const { return renderer()->GetActiveCamera(); }

vtkCubeAxesActor* SpaceProbe::axes() const
{
    return vtkCubeAxesActor::SafeDownCast(renderer()->GetActors()->GetItemAsObject(0));
}

vtkActor* SpaceProbe::actor() const
{
    return vtkActor::SafeDownCast(renderer()->GetActors()->GetItemAsObject(1));
}

vtkMapper* SpaceProbe::mapper() const { return actor()->GetMapper(); }

vtkPolyData* SpaceProbe::data() const
{
    mapper()->Update();
    return vtkPolyData::SafeDownCast(mapper()->GetInput());
}

Triple SpaceProbe::scale() const
{
    Triple scale;
    actor()->GetScale(scale.data());
    return scale;
}

Triple SpaceProbe::cameraPosition() const
{
    Triple position;
    camera()->GetPosition(position.data());
    return position;
}

Triple SpaceProbe::focalPoint() const
{
    Triple focus;
    camera()->GetFocalPoint(focus.data());
    return focus;
}

Triple SpaceProbe::viewUp() const
{
    Triple up;
    camera()->GetViewUp(up.data());
    return up;
}

Triple SpaceProbe::point(vtkIdType index) const
{
    Triple point;
    data()->GetPoint(index, point.data());
    return point;
}

double SpaceProbe::value(vtkIdType index) const
{
    return data()->GetPointData()->GetScalars()->GetTuple1(index);
}

QPointF SpaceProbe::seenAt(const Triple& world) const
{
    renderer()->SetWorldPoint(world[0], world[1], world[2], 1.0);
    renderer()->WorldToDisplay();
    const double* display = renderer()->GetDisplayPoint();
    // The pixel that holds the place; Qt counts rows from the top.
    return {std::floor(display[0]), host.window()->GetSize()[1] - 1 - std::floor(display[1])};
}

} // namespace ovl::test
