// SPDX-License-Identifier: BSD-3-Clause
#include "volumeinteractorstyle.h"

#include "coordinatessender.h"
#include "pointerpick.h"
#include "spaceaxes.h"
#include "wholenumber.h"

#include <vtkActor.h>
#include <vtkObjectFactory.h>
#include <vtkPropPicker.h>
#include <vtkRenderWindowInteractor.h>

#include <utility>

namespace ovl {

class VolumeInteractorStyle::Private {
public:
    explicit Private(VolumeInteractorStyle* style)
        : owner(style)
    {
    }

    void publishSample() const;

    VolumeInteractorStyle* owner;
    PointerPick<vtkActor, vtkPropPicker> pointer;

private:
    Host<double> pickedSample() const;
};

void VolumeInteractorStyle::Private::publishSample() const
{
    if (!pointer.pick(owner->GetInteractor())) {
        CoordinatesSender::clearCoordinates();
        return;
    }
    const Host<double> sample = pickedSample();
    CoordinatesSender::sendSpaceCoordinate(sample.x, sample.y, sample.z);
}

Host<double> VolumeInteractorStyle::Private::pickedSample() const
{
    double position[3] = {};
    pointer.picker->GetPickPosition(position);
    double scale[3];
    pointer.actor->GetScale(scale);
    return toHost(World<double> {wholeNumber(position[0] / scale[0]),
        wholeNumber(position[1] / scale[1]), wholeNumber(position[2] / scale[2])});
}

vtkStandardNewMacro(VolumeInteractorStyle);

VolumeInteractorStyle::VolumeInteractorStyle()
    : d(new Private(this))
{
}

VolumeInteractorStyle::~VolumeInteractorStyle() { delete d; }

void VolumeInteractorStyle::setPickedActor(vtkActor* actor) { d->pointer.actor = actor; }

void VolumeInteractorStyle::setPicker(vtkPropPicker* picker) { d->pointer.picker = picker; }

void VolumeInteractorStyle::setDirtyNotifier(std::function<void(bool)> notifier)
{
    d->pointer.dirtyNotifier = std::move(notifier);
}

bool VolumeInteractorStyle::isPublishing() const { return d->pointer.publishing > 0; }

void VolumeInteractorStyle::OnMouseMove()
{
    ++d->pointer.publishing;
    d->publishSample(); // first: the coordinates belong to the picture before the camera moves
    --d->pointer.publishing;
    if (GetInteractor()) // else a slot has destroyed the view
        Superclass::OnMouseMove();
}

void VolumeInteractorStyle::OnLeftButtonDown()
{
    Superclass::OnLeftButtonDown();
    d->pointer.buttonHeld = true;
}

void VolumeInteractorStyle::OnLeftButtonUp()
{
    Superclass::OnLeftButtonUp();
    d->pointer.buttonHeld = false;
}

void VolumeInteractorStyle::OnMiddleButtonDown()
{
    Superclass::OnMiddleButtonDown();
    d->pointer.buttonHeld = true;
}

void VolumeInteractorStyle::OnMiddleButtonUp()
{
    Superclass::OnMiddleButtonUp();
    d->pointer.buttonHeld = false;
}

void VolumeInteractorStyle::OnRightButtonDown()
{
    const WithoutShiftKey withoutShiftKey(GetInteractor());
    Superclass::OnRightButtonDown();
    d->pointer.buttonHeld = true;
}

void VolumeInteractorStyle::OnRightButtonUp()
{
    Superclass::OnRightButtonUp();
    d->pointer.buttonHeld = false;
}

void VolumeInteractorStyle::OnMouseWheelForward()
{
    Superclass::OnMouseWheelForward();
    d->pointer.notify();
}

void VolumeInteractorStyle::OnMouseWheelBackward()
{
    Superclass::OnMouseWheelBackward();
    d->pointer.notify();
}

} // namespace ovl
