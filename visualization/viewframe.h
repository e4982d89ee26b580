// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: the steps that all views share.
#ifndef OVL_VISUALIZATION_VIEWFRAME_H
#define OVL_VISUALIZATION_VIEWFRAME_H

#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <QObject>

#include <utility>

namespace ovl {

/**
 * Empties a view's renderer and takes it off the host's window, which lives on. Without a window,
 * because the host has deleted its widget first, there is nothing to take it off.
 */
inline void detachRenderer(vtkRenderWindow* window, vtkRenderer* renderer)
{
    renderer->RemoveAllViewProps();
    if (!window)
        return;
    renderer->Clear();
    window->RemoveRenderer(renderer);
    window->Modified();
}

/** Keeps `held` alive until the event that is being handled is over. */
template <class Held> void releaseAfterEvent(Held held)
{
    struct Holder : QObject {
        explicit Holder(Held object)
            : kept(std::move(object))
        {
        }
        Held kept;
    };
    (new Holder(std::move(held)))->deleteLater();
}

} // namespace ovl

#endif
