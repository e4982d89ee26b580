// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_SPACESCENE_H
#define OVL_VISUALIZATION_SPACESCENE_H

#include "capturedproppicker.h"
#include "colorscheme.h"
#include "cubeaxes.h"
#include "range.h"
#include "spaceaxes.h"
#include "volumeinteractorstyle.h"

#include <QVTKInteractor.h>
#include <vtkActor.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <functional>

class QOpenGLWidget;
class vtkMapper;

namespace ovl {

/** What a 3-D view puts into the host's window, apart from its data. Made in this order. */
class SpaceStage {
public:
    /** Lays the renderer on the window of `widget`, which must be the framework's Qt widget. */
    void attach(QOpenGLWidget* widget);
    /** Prepares the axes, the picking and the mouse, and puts axes and actor into the renderer. */
    void furnish(std::function<void(bool)> dirtyNotifier);
    /** Takes the renderer off the window; the interactor stays there and does nothing any more. */
    void detach();

    vtkWeakPointer<vtkRenderWindow> renderWindow; // the host's, not owned
    vtkSmartPointer<vtkActor> actor = vtkSmartPointer<vtkActor>::New();
    vtkSmartPointer<vtkRenderer> renderer = vtkSmartPointer<vtkRenderer>::New();
    vtkSmartPointer<vtkCubeAxesActor> cubeAxes = vtkSmartPointer<CubeAxes>::New();
    vtkSmartPointer<QVTKInteractor> interactor = vtkSmartPointer<QVTKInteractor>::New();
    vtkSmartPointer<VolumeInteractorStyle> style = vtkSmartPointer<VolumeInteractorStyle>::New();
    vtkSmartPointer<vtkPropPicker> picker = vtkSmartPointer<CapturedPropPicker>::New();

private:
    void drawAxesGrey();
};

/** What the host sets on a 3-D view. Letters are those of the host's axes. */
class SpaceSettings {
public:
    /** Of the host's x, y, z and of the value, by index 0 to 3. */
    Range& range(const char* operation, int index);

    /** The host's scales, ranges of the data, and where the axes take their extent from. */
    Host<double> scale() const { return {xScale, yScale, zScale}; }
    Host<const Range*> dataRanges() const { return {&ranges[0], &ranges[1], &ranges[2]}; }
    Host<const Range*> shownRanges() const;

    Range ranges[4];
    Range axisRanges[3];
    double yScale = 1.0;
    double xScale = 1.0;
    double zScale = 1.0;
    double absoluteMaximum = 65535.0;
    double xScaleCorrection = 1.0;
    double yScaleCorrection = 1.0;
    double zScaleCorrection = 1.0;
    double xPositionCorrection = 1.0;
    double yPositionCorrection = 1.0;
    double zPositionCorrection = 1.0;
    ColorScheme colorScheme = ColorScheme::None;
    int xResolution = 0;
    int yResolution = 0;
    bool dirty = false;
    bool autoRange = true;

private:
    Range nowhere; // what an index outside of `ranges` gets in a release build
};

/**
 * The arithmetic of scale, axes and camera over a stage and its settings.
 *
 * The views differ in two things, which they hand in: which correction goes with which axis of the
 * world, and where the camera stands.
 */
class SpaceScene {
public:
    SpaceScene(SpaceStage& stage, SpaceSettings& settings, const World<double>& scaleCorrections);

    /** Scale times correction, for each axis of the world. */
    World<double> worldScale() const;

    /** Gives the actor the world scale, nothing else. */
    void applyScale();
    /** Shows the axes with the ranges as they are now. */
    void updateAxes();
    /** Frames the scene from `position`, which is told in unscaled values. */
    void resetCamera(const World<double>& position);
    /** Store a scale and let the camera keep its place beside the data. */
    void setXScale(double scale);
    void setYScale(double scale);
    void setZScale(double scale);
    /** Lets `mapper` colour by `scheme`; does nothing if it is the present one. */
    void setColorScheme(ColorScheme scheme, vtkMapper* mapper);

private:
    void rescale(const Host<bool>& changed);
    void moveCameraAlong(const World<double>& way);
    void refocus(const World<bool>& changed);

    SpaceStage& stage;
    SpaceSettings& settings;
    World<double> corrections;
};

/** The points of a grid: the product as 32 bits hold it, and none where that is negative. */
int gridPoints(int xResolution, int yResolution);

} // namespace ovl

#endif
