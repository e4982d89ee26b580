// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SPACEPAGEOF_H
#define OVL_GALLERY_SPACEPAGEOF_H

#include "spacepage.h"
#include <hosting/viewwidget.h>
#include <visualization/range.h>

#include <cmath>

namespace ovl::gallery {

/** The part of a 3-D page that talks to its view; both views have the same operations. */
template <class ViewType> class SpacePageOf : public SpacePage {
public:
    void resetView() override { view().resetCamera(); }

protected:
    SpacePageOf(ScannerSimulation& simulation, SpacePanel* settings,
        const SpacePanel::PerAxis& cameraPlace, QWidget* parent)
        : SpacePage(simulation, settings, parent)
        , widget(new hosting::ViewWidget<ViewType>)
    {
        setContent(widget, panel);
        connectPanel();
        for (int axis = 0; axis < 3; ++axis)
            placeCamera(axis, cameraPlace[static_cast<std::size_t>(axis)]);
        connect(panel, &SpacePanel::schemeChosen, this, [this](ColorScheme scheme) {
            view().setColorScheme(scheme);
            view().setDirty(true); // the scheme alone asks for no repaint
        });
        connect(panel, &SpacePanel::scaleChanged, this, [this](int axis, double scale) {
            choose(axis, &ViewType::setXScale, &ViewType::setYScale, &ViewType::setZScale, scale);
        });
        connect(panel, &SpacePanel::correctionChanged, this, [this](int axis, double correction) {
            choose(axis, &ViewType::setXScaleCorrection, &ViewType::setYScaleCorrection,
                &ViewType::setZScaleCorrection, correction);
            view().drawScene(); // brings the axes along
        });
        connect(panel, &SpacePanel::cameraPlaceChanged, this, [this](int axis, double place) {
            placeCamera(axis, place);
            view().resetCamera();
        });
    }

    ViewType& view() { return widget->view(); }

    void draw(const HeightMap& map, const std::vector<float>& values, double valueUnit,
        const Ranges& ranges) override
    {
        view().setScene(map.columns, map.rows);
        int index = 0;
        for (int row = 0; row < map.rows; ++row) {
            const double along = row * map.yPitch;
            for (int column = 0; column < map.columns; ++column, ++index) {
                const auto at = static_cast<std::size_t>(index);
                const auto height = static_cast<double>(map.heights[at]);
                if (std::isnan(height))
                    view().setNanPoint(index);
                else
                    view().setPoint(index, column * map.xPitch, along, height * map.zUnit,
                        static_cast<double>(values[at]) * valueUnit);
            }
        }
        for (int axis = 0; axis < 4; ++axis) {
            const Extent& extent = ranges[static_cast<std::size_t>(axis)];
            view().range(axis).set(extent.smallest, extent.largest);
        }
        view().drawScene();
    }

private:
    using Setter = void (ViewType::*)(double);

    void choose(int axis, Setter forX, Setter forY, Setter forZ, double value)
    {
        const Setter setters[3] = {forX, forY, forZ};
        (view().*setters[axis])(value);
    }

    void placeCamera(int axis, double place)
    {
        choose(axis, &ViewType::setXPositionCorrection, &ViewType::setYPositionCorrection,
            &ViewType::setZPositionCorrection, place);
    }

    hosting::ViewWidget<ViewType>* widget;
};

} // namespace ovl::gallery

#endif
