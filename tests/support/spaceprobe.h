// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_SPACEPROBE_H
#define OVL_TESTS_SUPPORT_SPACEPROBE_H

#include <vtkType.h>

#include <array>

class QPointF;
class vtkActor;
class vtkCamera;
class vtkCubeAxesActor;
class vtkMapper;
class vtkPolyData;
class vtkRenderer;

namespace ovl::test {

class HostFixture;

using Triple = std::array<double, 3>;

/** Looks at the scene of a 3-D view the way its host can: through the widget's render window. */
class SpaceProbe {
public:
    explicit SpaceProbe(HostFixture& fixture);

    vtkRenderer* renderer() const;
    vtkCamera* camera() const;
    vtkCubeAxesActor* axes() const;
    vtkActor* actor() const;
    vtkMapper* mapper() const;
    /** What the mapper draws, brought up to date. */
    vtkPolyData* data() const;

    Triple scale() const;
    Triple cameraPosition() const;
    Triple focalPoint() const;
    Triple viewUp() const;
    Triple point(vtkIdType index) const;
    double value(vtkIdType index) const;

    /** Where on the widget, in Qt's coordinates, the world position `world` is seen. */
    QPointF seenAt(const Triple& world) const;

private:
    HostFixture& host;
};

} // namespace ovl::test

#endif
