// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SPACEPANEL_H
#define OVL_GALLERY_SPACEPANEL_H

#include "settingspanel.h"
#include <visualization/colorscheme.h>
#include <visualization/representation.h>

#include <array>

class QComboBox;
class QDoubleSpinBox;
class QGridLayout;

namespace ovl::gallery {

class SourceControls;

/** The settings that both 3-D views have. Axes are 0 for x, 1 for y, 2 for z. */
class SpacePanel : public SettingsPanel {
    Q_OBJECT

public:
    using PerAxis = std::array<double, 3>;

    /** `cameraPlace` is where the camera first stands, in lengths of the ranges. */
    explicit SpacePanel(const PerAxis& cameraPlace);

    /** For a surface only. */
    void addRepresentation();
    void finishWithCamera();

    SourceControls& source() const { return *controls; }
    /** Chooses a colour scheme, as if the user had. */
    void chooseScheme(ColorScheme scheme);
    /** Sets the height's scale, as if it had been typed. */
    void setHeightScale(double scale);
    /** Whether there is anything but the height to colour by. */
    void setIntensityPossible(bool possible);

Q_SIGNALS:
    void schemeChosen(ovl::ColorScheme scheme);
    void intensityChosen(bool intensity);
    void representationChosen(ovl::Representation representation);
    void scaleChanged(int axis, double scale);
    void correctionChanged(int axis, double correction);
    void cameraPlaceChanged(int axis, double place);
    void resetCameraWanted();

private:
    void addColours();
    void addNumbers(const PerAxis& cameraPlace);
    using Signal = void (SpacePanel::*)(int, double);
    std::array<QDoubleSpinBox*, 3> addNumberRow(
        QGridLayout* grid, const QString& label, const PerAxis& values, Signal signal);

    SourceControls* controls;
    QComboBox* schemes = nullptr;
    QComboBox* value = nullptr;
    QDoubleSpinBox* heightScale = nullptr;
};

} // namespace ovl::gallery

#endif
