// SPDX-License-Identifier: BSD-3-Clause
#include "spacescene.h"

#include "pointerpick.h"
#include "precondition.h"
#include "viewframe.h"
#include "vtkcompat.h"

#include <vtkCamera.h>
#include <vtkColorSeries.h>
#include <vtkLookupTable.h>
#include <vtkMapper.h>
#include <vtkProperty.h>
#include <vtkTextProperty.h>

#include <algorithm>
#include <utility>

namespace ovl {

namespace {

constexpr double kGridGrey = 0.25;
constexpr double kAxisGrey = 0.5;
constexpr double kDollyFactor = 0.25; // to four times the distance

World<double> centerOf(vtkActor* actor)
{
    const double* center = actor->GetCenter();
    return {center[0], center[1], center[2]};
}

} // namespace

void SpaceStage::attach(QOpenGLWidget* widget)
{
    renderWindow = compat::renderWindow(compat::hostWidget(widget));
    renderWindow->AddRenderer(renderer);
}

void SpaceStage::furnish(std::function<void(bool)> dirtyNotifier)
{
    drawAxesGrey();
    cubeAxes->SetCamera(renderer->GetActiveCamera());
    cubeAxes->SetGridLineLocation(vtkCubeAxesActor::VTK_GRID_LINES_FURTHEST);
    cubeAxes->SetVisibility(0); // until there is something to measure

    picker->PickFromListOn();
    picker->AddPickList(actor);
    style->setPickedActor(actor);
    style->setPicker(picker);

    interactor->SetInteractorStyle(style);
    renderWindow->SetInteractor(interactor);
    style->setDirtyNotifier(std::move(dirtyNotifier));

    renderer->AddActor(cubeAxes);
    renderer->AddActor(actor);
}

void SpaceStage::drawAxesGrey()
{
    cubeAxes->DrawXGridlinesOn();
    cubeAxes->DrawYGridlinesOn();
    cubeAxes->DrawZGridlinesOn();
    for (vtkProperty* lines : {cubeAxes->GetXAxesGridlinesProperty(),
             cubeAxes->GetYAxesGridlinesProperty(), cubeAxes->GetZAxesGridlinesProperty()})
        lines->SetColor(kGridGrey, kGridGrey, kGridGrey);
    for (vtkProperty* lines : {cubeAxes->GetXAxesLinesProperty(), cubeAxes->GetYAxesLinesProperty(),
             cubeAxes->GetZAxesLinesProperty()})
        lines->SetColor(kAxisGrey, kAxisGrey, kAxisGrey);
    for (int axis = 0; axis < 3; ++axis) {
        cubeAxes->GetLabelTextProperty(axis)->SetColor(1.0, 1.0, 1.0);
        cubeAxes->GetTitleTextProperty(axis)->SetColor(1.0, 1.0, 1.0);
    }
}

void SpaceStage::detach()
{
    detachRenderer(renderWindow, renderer);
    // The window keeps the interactor and that the style, which knows actor, picker and view only
    // by plain pointers: it must hear no event from now on.
    retireStyle(style.Get());
}

Range& SpaceSettings::range([[maybe_unused]] const char* operation, int index)
{
    const bool inside = index >= 0 && index < 4;
    OVL_PRECONDITION(operation, inside, index);
    return inside ? ranges[index] : nowhere;
}

Host<const Range*> SpaceSettings::shownRanges() const
{
    return autoRange ? dataRanges()
                     : Host<const Range*> {&axisRanges[0], &axisRanges[1], &axisRanges[2]};
}

SpaceScene::SpaceScene(
    SpaceStage& sceneStage, SpaceSettings& sceneSettings, const World<double>& scaleCorrections)
    : stage(sceneStage)
    , settings(sceneSettings)
    , corrections(scaleCorrections)
{
}

World<double> SpaceScene::worldScale() const
{
    const World<double> scale = toWorld(settings.scale());
    return {scale.x * corrections.x, scale.y * corrections.y, scale.z * corrections.z};
}

void SpaceScene::applyScale()
{
    const World<double> scale = worldScale();
    stage.actor->SetScale(scale.x, scale.y, scale.z);
}

void SpaceScene::updateAxes()
{
    vtkCubeAxesActor* axes = stage.cubeAxes;
    axes->SetVisibility(1);
    axes->SetYTitle("X-Axis"); // world Y is the host's x
    axes->SetXTitle("Y-Axis");

    double scale[3] = {1.0, 1.0, 1.0};
    stage.actor->GetScale(scale);
    const World<const Range*> shown = toWorld(settings.shownRanges());
    axes->SetXAxisRange(shown.x->min(), shown.x->max()); // the labels tell unscaled values
    axes->SetYAxisRange(shown.y->min(), shown.y->max());
    axes->SetZAxisRange(shown.z->min(), shown.z->max());
    axes->SetBounds(shown.x->min() * scale[0], shown.x->max() * scale[0], shown.y->min() * scale[1],
        shown.y->max() * scale[1], shown.z->min() * scale[2], shown.z->max() * scale[2]);
    settings.dirty = true;
}

void SpaceScene::resetCamera(const World<double>& position)
{
    stage.renderer->ResetCamera();
    vtkCamera* camera = stage.renderer->GetActiveCamera();
    const World<double> scale = worldScale();
    const World<const Range*> data = toWorld(settings.dataRanges());
    camera->SetPosition(scale.x * position.x, scale.y * position.y, scale.z * position.z);
    camera->SetFocalPoint(
        scale.x * data.x->midValue(), scale.y * data.y->midValue(), scale.z * data.z->midValue());
    camera->SetViewUp(0.0, 0.0, 1.0);
    camera->Dolly(kDollyFactor);
    stage.renderer->ResetCameraClippingRange();
    settings.dirty = true;
}

void SpaceScene::setXScale(double scale)
{
    settings.xScale = scale;
    rescale({true, false, false});
}

void SpaceScene::setYScale(double scale)
{
    settings.yScale = scale;
    rescale({false, true, false});
}

void SpaceScene::setZScale(double scale)
{
    settings.zScale = scale;
    rescale({false, false, true});
}

void SpaceScene::rescale(const Host<bool>& changed)
{
    const World<double> before = centerOf(stage.actor);
    applyScale();
    const World<double> after = centerOf(stage.actor);
    moveCameraAlong({after.x - before.x, after.y - before.y, after.z - before.z});
    refocus(toWorld(changed));
    updateAxes();
    stage.renderer->ResetCameraClippingRange();
    stage.renderer->GetActiveCamera()->Modified();
    stage.actor->Modified();
    settings.dirty = true;
}

void SpaceScene::moveCameraAlong(const World<double>& way)
{
    vtkCamera* camera = stage.renderer->GetActiveCamera();
    double position[3];
    camera->GetPosition(position);
    camera->SetPosition(position[0] + way.x, position[1] + way.y, position[2] + way.z);
}

void SpaceScene::refocus(const World<bool>& changed)
{
    vtkCamera* camera = stage.renderer->GetActiveCamera();
    double focus[3];
    camera->GetFocalPoint(focus);
    const World<const Range*> data = toWorld(settings.dataRanges());
    const World<double> scale = toWorld(settings.scale());
    if (changed.x)
        focus[0] = data.x->midValue() * scale.x * corrections.x;
    if (changed.y)
        focus[1] = data.y->midValue() * scale.y * corrections.y;
    if (changed.z)
        focus[2] = data.z->midValue() * scale.z * corrections.z;
    camera->SetFocalPoint(focus);
}

void SpaceScene::setColorScheme(ColorScheme scheme, vtkMapper* mapper)
{
    if (scheme == settings.colorScheme)
        return;
    settings.colorScheme = scheme;
    if (scheme == ColorScheme::None) {
        mapper->SetLookupTable(nullptr); // the mapper makes its own
        return;
    }
    const auto series = vtkSmartPointer<vtkColorSeries>::New();
    series->SetColorScheme(static_cast<int>(scheme));
    vtkSmartPointer<vtkLookupTable> table;
    table.TakeReference(series->CreateLookupTable(vtkColorSeries::ORDINAL));
    mapper->SetLookupTable(table);
}

int gridPoints(int xResolution, int yResolution)
{
    const unsigned product
        = static_cast<unsigned>(xResolution) * static_cast<unsigned>(yResolution);
    return std::max(static_cast<int>(product), 0);
}

} // namespace ovl
