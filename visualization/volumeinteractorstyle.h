// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_VOLUMEINTERACTORSTYLE_H
#define OVL_VISUALIZATION_VOLUMEINTERACTORSTYLE_H

#include "limiteddolly.h"
#include "vtkcompat.h"

#include <vtkInteractorStyleTrackballCamera.h>

#include <functional>

class vtkActor;
class vtkPropPicker;

namespace ovl {

/**
 * The mouse in the 3-D views: the camera moves on a trackball, and every move of the mouse
 * publishes the sample under it through CoordinatesSender, or clears the coordinates where there is
 * none.
 */
class VolumeInteractorStyle
    : public LimitedDolly<compat::DoubleClickAsPress<vtkInteractorStyleTrackballCamera>> {
public:
    static VolumeInteractorStyle* New();
    vtkTypeMacro(VolumeInteractorStyle, vtkInteractorStyleTrackballCamera)

    VolumeInteractorStyle(const VolumeInteractorStyle&) = delete;
    VolumeInteractorStyle& operator=(const VolumeInteractorStyle&) = delete;

    /** The only actor that counts as hit; its scale is taken out of the position. Not owned. */
    void setPickedActor(vtkActor* actor);
    /** What finds the actor under the mouse. Not owned. */
    void setPicker(vtkPropPicker* picker);
    /** Is called with true when the user has changed what must be drawn; replaces the last one. */
    void setDirtyNotifier(std::function<void(bool)> notifier);
    /** Whether the host is just being told the coordinates of a move. */
    bool isPublishing() const;

    void OnMouseMove() override;
    void OnLeftButtonDown() override;
    void OnLeftButtonUp() override;
    void OnMiddleButtonDown() override;
    void OnMiddleButtonUp() override;
    void OnRightButtonDown() override;
    void OnRightButtonUp() override;
    void OnMouseWheelForward() override;
    void OnMouseWheelBackward() override;

protected:
    VolumeInteractorStyle();
    ~VolumeInteractorStyle() override;

private:
    class Private;
    Private* d;
};

} // namespace ovl

#endif
