// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what the interactor styles of the image and of the 3-D views
// share.
#ifndef OVL_VISUALIZATION_POINTERPICK_H
#define OVL_VISUALIZATION_POINTERPICK_H

#include "viewframe.h"

#include <vtkAssemblyNode.h>
#include <vtkAssemblyPath.h>
#include <vtkProp.h>
#include <vtkRenderWindow.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkRendererCollection.h>
#include <vtkSmartPointer.h>

#include <functional>
#include <utility>

namespace ovl {

/** Looks for one actor under the mouse; tells the view when a drag or the wheel moves the scene. */
template <class Actor, class Picker> struct PointerPick {
    std::function<void(bool)> dirtyNotifier;
    Actor* actor = nullptr; // the only one that counts as a hit; not owned
    Picker* picker = nullptr; // not owned
    bool buttonHeld = false; // one flag, no count: releasing either of two buttons clears it
    int publishing = 0; // moves that are being answered, one within the other

    void notify() const
    {
        if (dirtyNotifier)
            dirtyNotifier(true);
    }

    /** Picks at the event's position and answers whether the actor was hit. */
    bool pick(vtkRenderWindowInteractor* interactor) const
    {
        if (!picker || !actor)
            return false;
        vtkRenderer* renderer = interactor->GetRenderWindow()->GetRenderers()->GetFirstRenderer();
        const int* position = interactor->GetEventPosition();
        picker->Pick(position[0], position[1], 0.0, renderer);
        const bool found = contains(picker->GetPath());
        if (buttonHeld)
            notify();
        return found;
    }

private:
    bool contains(vtkAssemblyPath* path) const
    {
        if (!path)
            return false;
        vtkCollectionSimpleIterator iterator;
        path->InitTraversal(iterator);
        while (vtkAssemblyNode* node = path->GetNextNode(iterator))
            if (Actor::SafeDownCast(node->GetViewProp()) == actor)
                return true;
        return false;
    }
};

/**
 * Lets a style hear no event from now on. A slot of the coordinates' signals may do that by
 * destroying the view: then the interactor and the style live until that event is over, whatever
 * the host puts on its widget meanwhile (a chart gives the old interactor another style).
 */
template <class Style> void retireStyle(Style* style)
{
    vtkSmartPointer<vtkRenderWindowInteractor> interactor = style->GetInteractor();
    style->SetInteractor(nullptr);
    if (interactor && style->isPublishing())
        releaseAfterEvent(std::pair(std::move(interactor), vtkSmartPointer<Style>(style)));
}

/**
 * Hides the shift key from a base handler: newer frameworks turn the lights instead of dollying
 * while it is held.
 */
class WithoutShiftKey {
public:
    explicit WithoutShiftKey(vtkRenderWindowInteractor* keyboard)
        : interactor(keyboard)
        , shift(keyboard->GetShiftKey())
    {
        interactor->SetShiftKey(0);
    }
    ~WithoutShiftKey() { interactor->SetShiftKey(shift); }

    WithoutShiftKey(const WithoutShiftKey&) = delete;
    WithoutShiftKey& operator=(const WithoutShiftKey&) = delete;

private:
    vtkRenderWindowInteractor* interactor;
    int shift;
};

} // namespace ovl

#endif
