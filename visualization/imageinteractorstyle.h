// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_IMAGEINTERACTORSTYLE_H
#define OVL_VISUALIZATION_IMAGEINTERACTORSTYLE_H

#include "limiteddolly.h"
#include "vtkcompat.h"

#include <vtkInteractorStyleImage.h>

#include <functional>

class vtkCellPicker;
class vtkImageActor;

namespace ovl {

/**
 * The mouse on an image: left and middle button pan, the right button and the wheel dolly. Nothing
 * rotates, no window or level changes, no key acts. Every move tells the pixel under the mouse
 * through CoordinatesSender.
 */
class ImageInteractorStyle
    : public LimitedDolly<compat::DoubleClickAsPress<vtkInteractorStyleImage>> {
public:
    static ImageInteractorStyle* New();
    vtkTypeMacro(ImageInteractorStyle, vtkInteractorStyleImage)

    /** The actor that counts as the image; not owned. */
    void setPickedActor(vtkImageActor* actor);
    /** Not owned. Without a picker or an actor each move clears the coordinates. */
    void setPicker(vtkCellPicker* picker);
    /** Called with true when a drag or the wheel has moved the camera; may be empty. */
    void setDirtyNotifier(std::function<void(bool)> notifier);
    /** Whether the host is just being told the coordinates of a move. */
    bool isPublishing() const;

    void OnChar() override;
    void OnMouseMove() override;
    void OnLeftButtonDown() override;
    void OnLeftButtonUp() override;
    void OnMiddleButtonDown() override;
    void OnMiddleButtonUp() override;
    void OnRightButtonDown() override;
    void OnRightButtonUp() override;
    void OnMouseWheelForward() override;
    void OnMouseWheelBackward() override;

    ImageInteractorStyle(const ImageInteractorStyle&) = delete;
    ImageInteractorStyle& operator=(const ImageInteractorStyle&) = delete;

protected:
    ImageInteractorStyle();
    ~ImageInteractorStyle() override;

private:
    class Private;
    Private* d;
};

} // namespace ovl

#endif
