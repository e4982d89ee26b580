// SPDX-License-Identifier: BSD-3-Clause
#include "imageinteractorstyle.h"

#include "coordinatessender.h"
#include "pointerpick.h"

#include <vtkCellPicker.h>
#include <vtkImageActor.h>
#include <vtkObjectFactory.h>

#include <utility>

namespace ovl {

using Trackball = vtkInteractorStyleTrackballCamera;

class ImageInteractorStyle::Private {
public:
    explicit Private(ImageInteractorStyle* style)
        : owner(style)
    {
    }

    void publishPixel() const
    {
        if (!pointer.pick(owner->GetInteractor())) {
            CoordinatesSender::clearCoordinates();
            return;
        }
        const int* ijk = pointer.picker->GetPointIJK();
        CoordinatesSender::sendCoordinate(ijk[0], ijk[1]);
    }

    ImageInteractorStyle* owner;
    PointerPick<vtkImageActor, vtkCellPicker> pointer;
};

vtkStandardNewMacro(ImageInteractorStyle);

ImageInteractorStyle::ImageInteractorStyle()
    : d(new Private(this))
{
}

ImageInteractorStyle::~ImageInteractorStyle() { delete d; }

void ImageInteractorStyle::setPickedActor(vtkImageActor* actor) { d->pointer.actor = actor; }

void ImageInteractorStyle::setPicker(vtkCellPicker* picker) { d->pointer.picker = picker; }

void ImageInteractorStyle::setDirtyNotifier(std::function<void(bool)> notifier)
{
    d->pointer.dirtyNotifier = std::move(notifier);
}

bool ImageInteractorStyle::isPublishing() const { return d->pointer.publishing > 0; }

// Empty on purpose: no key binding of the base styles acts on an image.
void ImageInteractorStyle::OnChar() { }

// All handlers pass over the image style of the framework, which would turn the drags into window
// and level, slicing or rotation. NOLINTBEGIN(bugprone-parent-virtual-call)
void ImageInteractorStyle::OnMouseMove()
{
    ++d->pointer.publishing;
    d->publishPixel();
    --d->pointer.publishing;
    if (GetInteractor()) // else a slot has destroyed the view
        Trackball::OnMouseMove();
}

// The left button starts the gesture of the middle one, a pan; its release ends whatever gesture is
// running.
void ImageInteractorStyle::OnLeftButtonDown()
{
    Trackball::OnMiddleButtonDown();
    d->pointer.buttonHeld = true;
}

void ImageInteractorStyle::OnLeftButtonUp()
{
    Trackball::OnLeftButtonUp();
    d->pointer.buttonHeld = false;
}

void ImageInteractorStyle::OnMiddleButtonDown()
{
    Trackball::OnMiddleButtonDown();
    d->pointer.buttonHeld = true;
}

void ImageInteractorStyle::OnMiddleButtonUp()
{
    Trackball::OnMiddleButtonUp();
    d->pointer.buttonHeld = false;
}

void ImageInteractorStyle::OnRightButtonDown()
{
    const WithoutShiftKey withoutShiftKey(GetInteractor());
    Trackball::OnRightButtonDown();
    d->pointer.buttonHeld = true;
}

void ImageInteractorStyle::OnRightButtonUp()
{
    Trackball::OnRightButtonUp();
    d->pointer.buttonHeld = false;
}

void ImageInteractorStyle::OnMouseWheelForward()
{
    Trackball::OnMouseWheelForward();
    d->pointer.notify();
}

void ImageInteractorStyle::OnMouseWheelBackward()
{
    Trackball::OnMouseWheelBackward();
    d->pointer.notify();
}
// NOLINTEND(bugprone-parent-virtual-call)

} // namespace ovl
