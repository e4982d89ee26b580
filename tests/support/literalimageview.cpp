// SPDX-License-Identifier: BSD-3-Clause
#include "literalimageview.h"

#include <vtkCamera.h>
#include <vtkImageMapper3D.h>
#include <vtkRenderWindow.h>

#include <cmath>

namespace ovl::test {

LiteralImageView::LiteralImageView(compat::HostWidget* widget)
{
    vtkRenderWindow* const window = compat::renderWindow(widget);
    window->AddRenderer(renderer);
    window->SetInteractor(interactor);
    interactor->SetInteractorStyle(style);
    correction->setOutputScalarTypeToUnsignedChar();
    correction->setOutputComponents(4);
    picker->PickFromListOn();
    picker->AddPickList(actor);
    picker->SetTolerance(0.5);
    renderer->SetBackground(0.05, 0.05, 0.05);
    actor->InterpolateOff();
    table->ForceBuild();
    table->SetRange(0.0, 255.0);
    table->SetValueRange(0.0, 1.0);
    table->SetSaturationRange(0.0, 0.0);
    table->SetRampToLinear();
    map->SetLookupTable(table);
    map->PassAlphaToOutputOn();
    correction->SetInputConnection(import->GetOutputPort());
    actor->GetMapper()->SetInputConnection(correction->GetOutputPort());
    renderer->AddActor(actor);
    style->setPickedActor(actor);
    style->setPicker(picker);
    setLayout(10, 10, layout);
    correction->setOutputComponents(4);
    import->SetImportVoidPointer(buffer);
    import->Update();
}

void LiteralImageView::setLayout(int width, int height, const BufferDescriptor& descriptor)
{
    constexpr std::array<int, 4> types
        = {VTK_UNSIGNED_CHAR, VTK_SHORT, VTK_UNSIGNED_SHORT, VTK_INT};
    import->SetDataSpacing(1.0, 1.0, 1.0);
    import->SetDataOrigin(0.0, 0.0, 0.0);
    import->SetWholeExtent(0, width - 1, 0, height - 1, 0, 0);
    import->SetDataExtentToWholeExtent();
    import->SetNumberOfScalarComponents(descriptor.components);
    import->SetDataScalarType(types.at(static_cast<std::size_t>(descriptor.sampleType)));
    correction->setOutputComponents(forcedComponents);
}

void LiteralImageView::drawScene(
    void* data, int width, int height, const BufferDescriptor& descriptor)
{
    const bool changed = width != imageWidth || height != imageHeight
        || descriptor.components != layout.components || descriptor.sampleType != layout.sampleType;
    if (changed)
        setLayout(width, height, descriptor);
    if (stale)
        table->Build();
    stale = false;
    import->SetImportVoidPointer(data);
    import->Modified();
    import->Update();
    buffer = data;
    imageWidth = width;
    imageHeight = height;
    layout = descriptor;
    if (changed)
        resetCamera();
}

void LiteralImageView::resetCamera()
{
    renderer->ResetCamera();
    vtkCamera* const camera = renderer->GetActiveCamera();
    const auto mirror = [](double(&vector)[3]) {
        for (double& value : vector)
            value = -1.0 * std::fabs(value);
    };
    double focus[3];
    double up[3];
    double position[3];
    camera->GetFocalPoint(focus);
    camera->GetViewUp(up);
    camera->GetPosition(position);
    mirror(focus);
    mirror(up);
    mirror(position);
    camera->SetFocalPoint(focus);
    camera->SetViewUp(up);
    camera->SetPosition(position);
    actor->SetPosition(position[0] - imageWidth * 0.5, position[1] - imageHeight * 0.5, 0.0);
}

void LiteralImageView::enableLookupTable(bool enable)
{
    correction->setOutputScalarType(enable ? -1 : VTK_UNSIGNED_CHAR);
    correction->SetInputConnection(import->GetOutputPort());
    if (!enable) {
        actor->GetMapper()->SetInputConnection(correction->GetOutputPort());
        return;
    }
    map->SetInputConnection(correction->GetOutputPort());
    actor->GetMapper()->SetInputConnection(map->GetOutputPort());
    stale = true;
}

void LiteralImageView::setLookupTableRange(const Range& range)
{
    table->SetRange(range.min(), range.max());
    stale = true;
}

void LiteralImageView::setAboveRangeColor(const QColor& color)
{
    table->SetAboveRangeColor(color.redF(), color.greenF(), color.blueF(), 1.0);
}

void LiteralImageView::setBelowRangeColor(const QColor& color)
{
    table->SetBelowRangeColor(color.redF(), color.greenF(), color.blueF(), 1.0);
}

} // namespace ovl::test
