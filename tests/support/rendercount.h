// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_RENDERCOUNT_H
#define OVL_TESTS_SUPPORT_RENDERCOUNT_H

#include <vtkCommand.h>
#include <vtkRenderWindow.h>
#include <vtkSmartPointer.h>

namespace ovl::test {

/** Counts how often a window has rendered since the counter was made, or since reset(). */
class RenderCount {
public:
    explicit RenderCount(vtkRenderWindow* rendered)
        : window(rendered)
        , observer(window->AddObserver(vtkCommand::EndEvent, this, &RenderCount::add))
    {
    }
    ~RenderCount() { window->RemoveObserver(observer); }

    RenderCount(const RenderCount&) = delete;
    RenderCount& operator=(const RenderCount&) = delete;

    int count() const { return renders; }
    void reset() { renders = 0; }

private:
    void add() { ++renders; }

    vtkSmartPointer<vtkRenderWindow> window;
    unsigned long observer;
    int renders = 0;
};

} // namespace ovl::test

#endif
