// SPDX-License-Identifier: BSD-3-Clause
#include "capturedproppicker.h"

#include "vtkcompat.h"

#include <vtkActor.h>
#include <vtkAlgorithm.h>
#include <vtkAssemblyPath.h>
#include <vtkCamera.h>
#include <vtkCommand.h>
#include <vtkDataObject.h>
#include <vtkMapper.h>
#include <vtkMath.h>
#include <vtkObjectFactory.h>
#include <vtkPlaneCollection.h>
#include <vtkPropCollection.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkRendererCollection.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace ovl {

namespace {

/** All that the picture of a pick depends on. Pointers are only compared; times never repeat. */
struct PictureState {
    vtkRenderer* renderer = nullptr;
    vtkRenderWindow* window = nullptr;
    vtkCamera* camera = nullptr;
    vtkActor* actor = nullptr;
    vtkMapper* mapper = nullptr;
    vtkDataObject* data = nullptr;
    std::array<vtkMTimeType, 6> times {}; // camera, actor, mapper, data, props, pick list
    std::array<int, 2> size {}; // of the window

    bool operator==(const PictureState& other) const
    {
        return renderer == other.renderer && window == other.window && camera == other.camera
            && actor == other.actor && mapper == other.mapper && data == other.data
            && times == other.times && size == other.size;
    }
};

/** The list's only prop if that is an actor with data, drawn whole; else null. */
vtkActor* onlyActor(vtkPropCollection* list)
{
    if (list->GetNumberOfItems() != 1)
        return nullptr;
    vtkActor* actor = vtkActor::SafeDownCast(list->GetItemAsObject(0));
    vtkMapper* mapper = actor ? actor->GetMapper() : nullptr;
    if (!mapper || mapper->GetNumberOfInputConnections(0) != 1)
        return nullptr;
    vtkPlaneCollection* planes = mapper->GetClippingPlanes(); // their times are no one else's
    return planes && planes->GetNumberOfItems() > 0 ? nullptr : actor;
}

/** Whether camera and actor alone make the picture, over the whole window. */
bool isPlain(vtkRenderer* renderer)
{
    vtkRenderWindow* window = renderer->GetRenderWindow();
    if (!window || window->GetNeverRendered() || window->GetStereoRender())
        return false;
    if (window->GetRenderers()->GetNumberOfItems() != 1)
        return false; // another renderer may draw over the picture
    if (!renderer->GetDraw() || renderer->GetPass())
        return false;
    const double* viewport = renderer->GetViewport();
    if (viewport[0] != 0.0 || viewport[1] != 0.0 || viewport[2] != 1.0 || viewport[3] != 1.0)
        return false;
    vtkCamera* camera = renderer->GetActiveCamera(); // its time tells nothing of these transforms
    return !camera->GetUserViewTransform() && !camera->GetUserTransform()
        && !camera->GetUseExplicitProjectionTransformMatrix();
}

PictureState stateOf(vtkRenderer* renderer, vtkActor* actor, vtkPropCollection* pickList)
{
    PictureState state;
    state.renderer = renderer;
    state.window = renderer->GetRenderWindow();
    state.camera = renderer->GetActiveCamera();
    state.actor = actor;
    state.mapper = actor->GetMapper();
    state.mapper->GetInputAlgorithm()->Update(); // as a rendering would
    state.data = state.mapper->GetInputDataObject(0, 0);
    state.times = {state.camera->GetMTime(), actor->GetMTime(), state.mapper->GetMTime(),
        state.data ? state.data->GetMTime() : 0, renderer->GetViewProps()->GetMTime(),
        pickList->GetMTime()};
    const int* size = state.window->GetSize();
    state.size = {size[0], size[1]};
    return state;
}

/** Elsewhere the stock picker renders nothing to pick from, and the window has other depths. */
bool isInside(double x, double y, vtkRenderer* renderer)
{
    const int* size = renderer->GetRenderWindow()->GetSize();
    return x >= 0.0 && x < size[0] && y >= 0.0 && y < size[1];
}

/** How far the farthest corner of `bounds` lies in front of the camera. */
double farthestDistance(vtkCamera* camera, const double* bounds)
{
    const double* eye = camera->GetPosition();
    const double* direction = camera->GetDirectionOfProjection();
    double farthest = 0.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double low = (bounds[2 * axis] - eye[axis]) * direction[axis];
        const double high = (bounds[2 * axis + 1] - eye[axis]) * direction[axis];
        farthest += low > high || std::isnan(low) ? low : high;
    }
    return farthest;
}

/**
 * Whether whatever the actor draws is nearer than the depth of the empty background, which is that
 * of the far plane, by more than depths are rounded.
 */
bool differsFromBackground(vtkCamera* camera, const double* bounds)
{
    constexpr double roundedDepths = 1e-6;
    if (!bounds || !vtkMath::AreBoundsInitialized(bounds))
        return true; // draws nothing
    const double distance = farthestDistance(camera, bounds);
    double clip[2];
    camera->GetClippingRange(clip);
    double room = (clip[1] - distance) / (clip[1] - clip[0]);
    if (!camera->GetParallelProjection())
        room *= clip[0] / std::max(distance, clip[0]);
    return room > roundedDepths;
}

} // namespace

class CapturedPropPicker::Private {
public:
    bool shows(const PictureState& now) const { return captured && state == now; }

    void capture(const PictureState& now)
    {
        captured = differsFromBackground(now.camera, now.actor->GetBounds());
        if (!captured)
            return;
        state = now;
        const auto width = static_cast<std::size_t>(std::max(now.size[0], 0));
        const auto height = static_cast<std::size_t>(std::max(now.size[1], 0));
        depths.resize(width * height);
        captured = !depths.empty()
            && now.window->GetZbufferData(0, 0, now.size[0] - 1, now.size[1] - 1, depths.data())
                != 0;
    }

    /** 1, as the background has it, outside of the window. */
    double depth(double x, double y) const
    {
        if (!(x >= 0.0 && x < state.size[0] && y >= 0.0 && y < state.size[1]))
            return 1.0;
        return static_cast<double>(
            depths[static_cast<std::size_t>(y) * static_cast<std::size_t>(state.size[0])
                + static_cast<std::size_t>(x)]);
    }

    bool captured = false;
    PictureState state;
    std::vector<float> depths; // row by row from the lower edge, as the window has them
};

vtkStandardNewMacro(CapturedPropPicker);

CapturedPropPicker::CapturedPropPicker()
    : d(new Private)
{
}

CapturedPropPicker::~CapturedPropPicker() { delete d; }

int CapturedPropPicker::Pick(double x, double y, double z, vtkRenderer* renderer)
{
    if (!renderer) { // the stock picker would not survive that
        Initialize();
        return 0;
    }
    vtkActor* actor = PickFromList ? onlyActor(PickList) : nullptr;
    const bool whole = x == std::floor(x) && y == std::floor(y);
    if (!compat::kPicksByRendering || !actor || !whole || !isPlain(renderer)) {
        d->captured = false;
        return Superclass::Pick(x, y, z, renderer);
    }
    if (d->shows(stateOf(renderer, actor, PickList)))
        return answer(x, y, renderer);
    const int picked = Superclass::Pick(x, y, z, renderer);
    if (d->captured = isInside(x, y, renderer); d->captured)
        d->capture(stateOf(renderer, actor, PickList)); // its rendering may have changed something
    return picked;
}

/** What the stock picker does, with the kept depths in the place of a rendering. */
int CapturedPropPicker::answer(double x, double y, vtkRenderer* renderer)
{
    Initialize();
    Renderer = renderer;
    SelectionPoint[0] = x;
    SelectionPoint[1] = y;
    SelectionPoint[2] = 0.0;
    InvokeEvent(vtkCommand::StartPickEvent, nullptr);

    const double depth = d->depth(x, y);
    if (depth < 1.0) {
        vtkActor* actor = d->state.actor;
        actor->InitPathTraversal();
        SetPath(actor->GetNextPath());
        double position[3] = {x, y, depth};
        renderer->DisplayToNormalizedDisplay(position[0], position[1]);
        renderer->NormalizedDisplayToViewport(position[0], position[1]);
        renderer->ViewportToNormalizedViewport(position[0], position[1]);
        renderer->NormalizedViewportToView(position[0], position[1], position[2]);
        renderer->ViewToWorld(position[0], position[1], position[2]);
        std::copy(position, position + 3, PickPosition);
        actor->Pick();
        InvokeEvent(vtkCommand::PickEvent, nullptr);
    }
    InvokeEvent(vtkCommand::EndPickEvent, nullptr);
    return Path ? 1 : 0;
}

} // namespace ovl
