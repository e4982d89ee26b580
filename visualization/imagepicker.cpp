// SPDX-License-Identifier: BSD-3-Clause
#include "imagepicker.h"

#include <vtkAssemblyNode.h>
#include <vtkAssemblyPath.h>
#include <vtkCamera.h>
#include <vtkCommand.h>
#include <vtkImageActor.h>
#include <vtkImageData.h>
#include <vtkImageSliceMapper.h>
#include <vtkMatrix4x4.h>
#include <vtkObjectFactory.h>
#include <vtkPlaneCollection.h>
#include <vtkPropCollection.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <cmath>

namespace ovl {

namespace {

/** In pixels of the image: closer to where the answer changes, our rounding may differ. */
constexpr double kUnsurePixels = 1e-3;
/** The same for the depth between the clipping planes, from 0 to 1. */
constexpr double kUnsureDepth = 1e-6;

enum class Meeting { Unsure, Miss, Hit };

/** What the line of sight through a place of the display meets. */
struct Sight {
    Meeting meeting = Meeting::Unsure;
    int column = 0;
    int row = 0;
};

vtkImageActor* onlyImage(vtkPropCollection* list)
{
    return list->GetNumberOfItems() == 1 ? vtkImageActor::SafeDownCast(list->GetItemAsObject(0))
                                         : nullptr;
}

/** Whether the mapper shows the first slice as it is and as a whole. */
bool showsAll(vtkImageSliceMapper* mapper)
{
    vtkPlaneCollection* const planes = mapper->GetClippingPlanes();
    const bool clipped = planes && planes->GetNumberOfItems() > 0;
    const bool moves = mapper->GetSliceAtFocalPoint() || mapper->GetSliceFacesCamera();
    return !clipped && !moves && mapper->GetOrientation() == 2 && !mapper->GetCropping()
        && !mapper->GetBorder();
}

bool liesAtWholeNumbers(vtkImageData* data)
{
    const double* const spacing = data->GetSpacing();
    const double* const origin = data->GetOrigin();
    const int* const extent = data->GetExtent();
    const auto equals
        = [](double expected) { return [=](double value) { return value == expected; }; };
    return std::all_of(spacing, spacing + 3, equals(1.0))
        && std::all_of(origin, origin + 3, equals(0.0)) && extent[0] == 0 && extent[2] == 0
        && extent[4] == 0 && extent[5] == 0;
}

/**
 * Column and row of the last pixel; false for what is no plain image. While a frame of another size
 * waits for its repaint, the stock picker mixes both sizes.
 */
bool lastPixel(vtkImageActor* image, double (&last)[2])
{
    auto* const mapper = vtkImageSliceMapper::SafeDownCast(image->GetMapper());
    if (!image->GetVisibility() || !image->GetPickable() || !mapper || !showsAll(mapper))
        return false;
    vtkImageData* const data = mapper->GetInput();
    if (!data || !liesAtWholeNumbers(data))
        return false;
    double bounds[6];
    mapper->GetIndexBounds(bounds);
    last[0] = bounds[1];
    last[1] = bounds[3];
    return std::equal(bounds, bounds + 6, data->GetExtent());
}

/** The stock picker's ray starts at the camera's place, whatever else the host does to the view. */
bool seesFromItsPlace(vtkCamera* camera)
{
    return !camera->GetUserViewTransform() && !camera->GetUserTransform()
        && !camera->GetUseExplicitProjectionTransformMatrix() && !camera->GetUseOffAxisProjection();
}

/** Where the pixel at column u and row v stands, as homogeneous coordinates: u a + v b + c. */
struct Placement {
    double a[4];
    double b[4];
    double c[4];

    Placement(vtkRenderer* renderer, vtkImageActor* image)
    {
        const vtkMatrix4x4* const view
            = renderer->GetActiveCamera()->GetCompositeProjectionTransformMatrix(
                renderer->GetTiledAspectRatio(), 0.0, 1.0);
        double product[4][4];
        vtkMatrix4x4::Multiply4x4(*view->Element, *image->GetMatrix()->Element, *product);
        for (int i = 0; i < 4; ++i) {
            a[i] = product[i][0];
            b[i] = product[i][1];
            c[i] = product[i][3];
        }
    }
};

/** On which sample `at` lies if those from 0 to `last` are shown as far as their centres. */
Meeting meet(double at, double last, int& index)
{
    if (at < -kUnsurePixels || at > last + kUnsurePixels)
        return Meeting::Miss;
    if (!(at > kUnsurePixels && at < last - kUnsurePixels)) // nor for what is no number
        return Meeting::Unsure;
    const double nearest = std::floor(at + 0.5);
    index = static_cast<int>(nearest);
    return std::fabs(at - nearest) < 0.5 - kUnsurePixels ? Meeting::Hit : Meeting::Unsure;
}

/** Solves the placement for the pixel that stands at (x, y) of the view, from -1 to 1. */
Sight look(const Placement& at, double x, double y, const double (&last)[2])
{
    const auto equation
        = [](const double* from, int axis, double place) { return from[axis] - place * from[3]; };
    const double ax = equation(at.a, 0, x);
    const double bx = equation(at.b, 0, x);
    const double cx = equation(at.c, 0, x);
    const double ay = equation(at.a, 1, y);
    const double by = equation(at.b, 1, y);
    const double cy = equation(at.c, 1, y);
    const double determinant = ax * by - bx * ay;
    constexpr double seenFromTheEdge = 1e-9;
    if (!(std::fabs(determinant) > seenFromTheEdge * (std::fabs(ax * by) + std::fabs(bx * ay))))
        return {};
    const double u = (bx * cy - cx * by) / determinant;
    const double v = (cx * ay - ax * cy) / determinant;
    const double w = u * at.a[3] + v * at.b[3] + at.c[3];
    if (!(w > 0.0)) // behind the camera
        return {};
    Sight sight;
    const Meeting across = meet(u, last[0], sight.column);
    const Meeting down = meet(v, last[1], sight.row);
    const double depth = (u * at.a[2] + v * at.b[2] + at.c[2]) / w;
    if (across == Meeting::Miss || down == Meeting::Miss)
        return {Meeting::Miss, 0, 0};
    if (across == Meeting::Hit && down == Meeting::Hit && depth > kUnsureDepth
        && depth < 1.0 - kUnsureDepth)
        sight.meeting = Meeting::Hit;
    return sight;
}

Sight lookAt(vtkImageActor* image, double x, double y, vtkRenderer* renderer)
{
    double last[2];
    if (!renderer->GetRenderWindow() || !seesFromItsPlace(renderer->GetActiveCamera())
        || !lastPixel(image, last))
        return {};
    renderer->SetDisplayPoint(x, y, 0.0);
    renderer->DisplayToView();
    const double* const view = renderer->GetViewPoint();
    return look(Placement(renderer, image), view[0], view[1], last);
}

} // namespace

class ImagePicker::Private {
public:
    /** The way to the image, made anew only when the image has been replaced or moved. */
    vtkAssemblyPath* pathTo(vtkImageActor* image)
    {
        vtkMatrix4x4* const matrix = image->GetMatrix();
        if (!path || path->GetFirstNode()->GetViewProp() != image || madeOf != matrix->GetMTime()) {
            path = vtkSmartPointer<vtkAssemblyPath>::New();
            path->AddNode(image, matrix);
            madeOf = matrix->GetMTime();
        }
        return path;
    }

    bool asked = true; // the stock picker, which has left its marks

private:
    vtkSmartPointer<vtkAssemblyPath> path;
    vtkMTimeType madeOf = 0;
};

vtkStandardNewMacro(ImagePicker);

ImagePicker::ImagePicker()
    : d(new Private)
{
}

ImagePicker::~ImagePicker() { delete d; }

int ImagePicker::Pick(double x, double y, double z, vtkRenderer* renderer)
{
    if (!renderer) { // the stock picker would not survive that
        Initialize();
        d->asked = true;
        return 0;
    }
    vtkImageActor* const image = PickFromList ? onlyImage(PickList) : nullptr;
    const Sight sight = image ? lookAt(image, x, y, renderer) : Sight {};
    if (sight.meeting == Meeting::Unsure) {
        d->asked = true;
        return Superclass::Pick(x, y, z, renderer);
    }
    if (d->asked)
        Initialize();
    d->asked = false;
    Renderer = renderer;
    SelectionPoint[0] = x;
    SelectionPoint[1] = y;
    SelectionPoint[2] = z;
    InvokeEvent(vtkCommand::StartPickEvent, nullptr);
    const bool hit = sight.meeting == Meeting::Hit;
    if (hit) {
        SetPath(d->pathTo(image));
        PointIJK[0] = sight.column;
        PointIJK[1] = sight.row;
        PointIJK[2] = 0;
        image->Pick();
        InvokeEvent(vtkCommand::PickEvent, nullptr);
    } else {
        SetPath(nullptr);
        ResetPickInfo();
    }
    InvokeEvent(vtkCommand::EndPickEvent, nullptr);
    return hit ? 1 : 0;
}

} // namespace ovl
