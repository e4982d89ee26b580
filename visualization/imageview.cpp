// SPDX-License-Identifier: BSD-3-Clause
#include "imageview.h"

#include "imagecorrectionalgorithm.h"
#include "imageinteractorstyle.h"
#include "imagelookupmapper.h"
#include "imagepicker.h"
#include "pointerpick.h"
#include "range.h"
#include "texturecolors.h"
#include "viewframe.h"
#include "vtkcompat.h"

#include <QVTKInteractor.h>
#include <vtkCamera.h>
#include <vtkImageActor.h>
#include <vtkImageImport.h>
#include <vtkImageMapper3D.h>
#include <vtkLookupTable.h>
#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <QByteArray>
#include <QColor>

#include <cmath>

namespace ovl {
namespace {

template <class T> vtkSmartPointer<T> make() { return vtkSmartPointer<T>::New(); }

constexpr int kUnforced = -1;
constexpr int kForcedComponents = 4;
constexpr int kPlaceholderEdge = 10; // pixels

void setSampleType(vtkImageImport* import, int sampleType)
{
    switch (sampleType) {
    case 1:
        return import->SetDataScalarTypeToShort();
    case 2:
        return import->SetDataScalarTypeToUnsignedShort();
    case 3:
        return import->SetDataScalarTypeToInt();
    case 4: // float and double pass here, and stop at the correction, which has no way for them
        return import->SetDataScalarTypeToFloat();
    case 5:
        return import->SetDataScalarTypeToDouble();
    default:
        return import->SetDataScalarTypeToUnsignedChar();
    }
}

void setExtent(vtkImageImport* import, int width, int height)
{
    import->SetDataSpacing(1.0, 1.0, 1.0);
    import->SetDataOrigin(0.0, 0.0, 0.0);
    import->SetWholeExtent(0, width - 1, 0, height - 1, 0, 0);
    import->SetDataExtentToWholeExtent();
}

// Truncation of 0.0 to 1.0 onto a scale of 0 to 255: only a full channel survives, as 1. This is
// how the interface has always answered.
QColor truncatedColor(const double* rgba)
{
    QColor color;
    color.setRgb(static_cast<int>(rgba[0]), static_cast<int>(rgba[1]), static_cast<int>(rgba[2]),
        static_cast<int>(rgba[3]));
    return color;
}

} // namespace

class OVL_HIDDEN ImageView::Private {
public:
    explicit Private(QOpenGLWidget* widget);
    ~Private();

    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    void attach(QOpenGLWidget* widget);
    void initialiseLookupTable();
    void wirePipeline();
    void showPlaceholder();
    void rebuildImport(int newWidth, int newHeight, const BufferDescriptor& newDescriptor);
    void resetCamera();

    vtkWeakPointer<vtkRenderWindow> renderWindow; // the widget's, not owned
    vtkSmartPointer<vtkRenderer> renderer = make<vtkRenderer>();
    vtkSmartPointer<vtkImageImport> imageImport = make<vtkImageImport>();
    vtkSmartPointer<vtkImageActor> imageActor = make<vtkImageActor>();
    vtkSmartPointer<QVTKInteractor> interactor = make<QVTKInteractor>();
    vtkSmartPointer<ImageCorrectionAlgorithm> correction = make<ImageCorrectionAlgorithm>();
    vtkSmartPointer<ImagePicker> picker = make<ImagePicker>();
    vtkSmartPointer<ImageInteractorStyle> style = make<ImageInteractorStyle>();
    vtkSmartPointer<ImageLookupMapper> mapToColors = make<ImageLookupMapper>();
    vtkSmartPointer<vtkLookupTable> lookupTable = make<vtkLookupTable>();
    QByteArray placeholder; // shown before the first frame
    void* buffer = nullptr; // the last one drawn, not owned
    int width = 0; // pixels
    int height = 0;
    BufferDescriptor descriptor;
    int forcedComponents = kUnforced;
    bool dirty = false;
    bool lookupTableActive = false;
    bool lookupTableStale = false;
};

ImageView::Private::Private(QOpenGLWidget* widget)
{
    attach(widget);
    correction->setOutputScalarTypeToUnsignedChar();
    correction->setShift(0);
    correction->setOutputComponents(kForcedComponents); // until the first frame brings the setting
    picker->PickFromListOn();
    picker->AddPickList(imageActor);
    picker->SetTolerance(0.5);
    renderer->SetBackground(0.05, 0.05, 0.05);
    imageActor->InterpolateOff(); // pixels are squares, never smoothed
    style->setDirtyNotifier([this](bool value) { dirty = value; });
    initialiseLookupTable();
    placeholder.fill(0, kPlaceholderEdge * kPlaceholderEdge);
    wirePipeline();
    showPlaceholder();
}

ImageView::Private::~Private()
{
    // The window keeps the interactor and the interactor the style, which must not reach into this
    // record when the user's mouse goes on.
    retireStyle(style.Get());
    detachRenderer(renderWindow, renderer);
    dirty = true;
}

void ImageView::Private::attach(QOpenGLWidget* widget)
{
    renderWindow = compat::renderWindow(compat::hostWidget(widget));
    renderWindow->AddRenderer(renderer);
    renderWindow->SetInteractor(interactor);
    interactor->SetInteractorStyle(style);
}

void ImageView::Private::initialiseLookupTable()
{
    lookupTable->ForceBuild();
    lookupTable->SetRange(0.0, 255.0);
    lookupTable->SetValueRange(0.0, 1.0);
    lookupTable->SetSaturationRange(0.0, 0.0);
    lookupTable->SetRampToLinear();
    mapToColors->SetLookupTable(lookupTable);
    mapToColors->PassAlphaToOutputOn();
}

void ImageView::Private::wirePipeline()
{
    correction->SetEnableSMP(true);
    mapToColors->SetEnableSMP(true);
    correction->setShiftDeferred(true); // to the look-up, which gets it for nothing
    correction->SetInputConnection(imageImport->GetOutputPort(0));
    imageActor->GetMapper()->SetInputConnection(correction->GetOutputPort(0));
    colorTexture(imageActor->GetMapper());
    renderer->AddActor(imageActor);
    style->setPickedActor(imageActor);
    style->setPicker(picker);
}

void ImageView::Private::showPlaceholder()
{
    setExtent(imageImport, kPlaceholderEdge, kPlaceholderEdge);
    imageImport->SetDataScalarTypeToUnsignedChar();
    imageImport->SetNumberOfScalarComponents(1);
    imageImport->SetImportVoidPointer(placeholder.data());
    buffer = placeholder.data();
    imageImport->Update();
}

void ImageView::Private::rebuildImport(
    int newWidth, int newHeight, const BufferDescriptor& newDescriptor)
{
    setExtent(imageImport, newWidth, newHeight);
    imageImport->SetNumberOfScalarComponents(newDescriptor.components);
    setSampleType(imageImport, newDescriptor.sampleType);
    // Only here on purpose: forced colour waits for a change of geometry or layout.
    correction->setOutputComponents(forcedComponents);
}

// Turns the framework's default view, with its origin at the bottom left, upside down: the camera
// goes behind the image and looks at it with its head down, so that x grows to the right and y
// downwards.
void ImageView::Private::resetCamera()
{
    const auto mirrored = [](double value) { return -1.0 * std::fabs(value); };
    renderer->ResetCamera();
    vtkCamera* camera = renderer->GetActiveCamera();
    double focalPoint[3];
    double viewUp[3];
    double position[3];
    camera->GetFocalPoint(focalPoint);
    camera->GetViewUp(viewUp);
    camera->GetPosition(position);
    for (double* vector : {focalPoint, viewUp, position})
        for (int i = 0; i < 3; ++i)
            vector[i] = mirrored(vector[i]);
    camera->SetFocalPoint(focalPoint);
    camera->SetViewUp(viewUp);
    camera->SetPosition(position);
    // Half the width, not half of the width less one: the image's centre stands half a pixel off
    // the camera's axis in both directions, and hosts rely on that.
    imageActor->SetPosition(position[0] - width * 0.5, position[1] - height * 0.5, 0.0);
    dirty = true;
}

ImageView::ImageView(QOpenGLWidget* widget)
    : d(new Private(widget))
{
}

ImageView::~ImageView() { delete d; }

void ImageView::setDirty(bool dirty) { d->dirty = dirty; }

bool ImageView::isDirty() const { return d->dirty; }

void ImageView::drawScene(void* data, int width, int height, const BufferDescriptor& descriptor)
{
    if (!data)
        return;
    const bool changed = width != d->width || height != d->height
        || descriptor.components != d->descriptor.components
        || descriptor.sampleType != d->descriptor.sampleType;
    if (changed)
        d->rebuildImport(width, height, descriptor);
    if (d->lookupTableStale) {
        d->lookupTable->Build();
        d->lookupTableStale = false;
    }
    // A buffer without pixels is never read: a first frame of 0 by 0 counts as unchanged and leaves
    // the import at the placeholder's extent.
    const bool hasPixels = width > 0 && height > 0;
    d->imageImport->SetImportVoidPointer(hasPixels ? data : d->placeholder.data());
    d->imageImport->Modified(); // the pointer may be the same, the pixels are not
    d->imageImport->Update();
    d->buffer = data;
    d->width = width;
    d->height = height;
    d->descriptor = descriptor;
    if (changed)
        d->resetCamera();
    d->dirty = true;
}

void ImageView::redraw() { drawScene(d->buffer, d->width, d->height, d->descriptor); }

void ImageView::resetCamera() { d->resetCamera(); }

void ImageView::setShift(int shift) { d->correction->setShift(shift); }

int ImageView::shift() { return d->correction->shift(); }

void ImageView::setMask(int index, int value) { d->correction->setMask(index, value); }

// The OR words can be set but not read; the interface has it so.
int ImageView::mask(int index) { return index >= 4 ? -1 : d->correction->mask(index); }

void ImageView::forceColor(bool force)
{
    d->forcedComponents = force ? kForcedComponents : kUnforced;
}

bool ImageView::isColorForced() const { return d->forcedComponents == kForcedComponents; }

void ImageView::enableLookupTable(bool enable)
{
    d->lookupTableActive = enable;
    vtkImageMapper3D* mapper = d->imageActor->GetMapper();
    if (enable)
        d->correction->setOutputScalarType(-1); // keeps the input's type for the table
    else
        d->correction->setOutputScalarTypeToUnsignedChar();
    d->correction->SetInputConnection(d->imageImport->GetOutputPort(0));
    if (enable) {
        d->mapToColors->SetInputConnection(d->correction->GetOutputPort(0));
        mapper->SetInputConnection(d->mapToColors->GetOutputPort(0));
        d->lookupTableStale = true;
    } else {
        d->correction->applyDeferredShift(); // its output is shown as it is until the next draw
        mapper->SetInputConnection(d->correction->GetOutputPort(0));
    }
}

bool ImageView::lookupTableEnabled() const { return d->lookupTableActive; }

void ImageView::setLookupTableRange(const Range& range)
{
    d->lookupTable->SetRange(range.min(), range.max());
    d->lookupTableStale = true;
}

Range ImageView::lookupTableRange() const
{
    const double* range = d->lookupTable->GetTableRange();
    return Range(range[0], range[1]);
}

void ImageView::setAboveRangeColor(const QColor& color)
{
    d->lookupTable->SetAboveRangeColor(color.redF(), color.greenF(), color.blueF(), 1.0);
}

QColor ImageView::aboveRangeColor() const
{
    return truncatedColor(d->lookupTable->GetAboveRangeColor());
}

void ImageView::enableAboveRangeColor(bool enable)
{
    if (enable)
        d->lookupTable->UseAboveRangeColorOn();
    else
        d->lookupTable->UseAboveRangeColorOff();
}

bool ImageView::aboveRangeColorEnabled() const
{
    return d->lookupTable->GetUseAboveRangeColor() == 1;
}

void ImageView::setBelowRangeColor(const QColor& color)
{
    d->lookupTable->SetBelowRangeColor(color.redF(), color.greenF(), color.blueF(), 1.0);
}

QColor ImageView::belowRangeColor() const
{
    return truncatedColor(d->lookupTable->GetBelowRangeColor());
}

void ImageView::enableBelowRangeColor(bool enable)
{
    if (enable)
        d->lookupTable->UseBelowRangeColorOn();
    else
        d->lookupTable->UseBelowRangeColorOff();
}

bool ImageView::belowRangeColorEnabled() const
{
    return d->lookupTable->GetUseBelowRangeColor() == 1;
}

} // namespace ovl
