// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: the steps that all views share.
#ifndef OVL_VISUALIZATION_VIEWFRAME_H
#define OVL_VISUALIZATION_VIEWFRAME_H

#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

namespace ovl {

/** Empties a view's renderer and takes it off the host's window, which lives on. */
inline void detachRenderer(vtkRenderWindow* window, vtkRenderer* renderer)
{
    renderer->RemoveAllViewProps();
    renderer->Clear();
    window->RemoveRenderer(renderer);
    window->Modified();
}

} // namespace ovl

#endif
