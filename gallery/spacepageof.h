// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SPACEPAGEOF_H
#define OVL_GALLERY_SPACEPAGEOF_H

#include "settingspanel.h"
#include "spacepage.h"
#include <hosting/viewwidget.h>
#include <visualization/colorscheme.h>
#include <visualization/range.h>

#include <algorithm>
#include <cmath>

namespace ovl::gallery {

/** The part of a 3-D page that talks to its view; both views have the same operations. */
template <class ViewType> class SpacePageOf : public SpacePage {
public:
    void resetView() override { view().resetCamera(); }

    std::unique_ptr<Filling> fill(const SharedContents& file) override
    {
        return std::make_unique<SpaceFilling>(*this, file);
    }

    void showScanner() override
    {
        contents = nullptr;
        auto widget = std::make_unique<Widget>();
        const Samples taken = samples();
        widget->view().setScene(taken.map->columns, taken.map->rows);
        fillRows(widget->view(), taken, 0, taken.map->rows);
        showView(std::move(widget));
    }

protected:
    using Widget = hosting::ViewWidget<ViewType>;
    using PerAxis = std::array<double, 3>;

    SpacePageOf(Scanner& scanner, const QString& title, QWidget* parent)
        : SpacePage(scanner, title, parent)
    {
    }

    ViewType& view() const { return viewed->view(); }

    SettingGroup colourSettings(ColorScheme first)
    {
        constexpr int kNone = -1; // the first of the schemes
        return {tr("Colours"),
            {{tr("Scheme"),
                {choice("scheme", schemeNames(), static_cast<int>(first) - kNone,
                    [this](const QVariant& index) {
                        view().setColorScheme(static_cast<ColorScheme>(index.toInt() + kNone));
                        view().setDirty(true); // the scheme alone asks for no repaint
                    })}}}};
    }

    /** `place` is where the camera first stands, in lengths of the ranges. */
    SettingGroup axisSettings(const PerAxis& place)
    {
        const auto scale = [this](int axis, double value) {
            choose(axis, &ViewType::setXScale, &ViewType::setYScale, &ViewType::setZScale, value);
        };
        const auto correct = [this](int axis, double value) {
            choose(axis, &ViewType::setXScaleCorrection, &ViewType::setYScaleCorrection,
                &ViewType::setZScaleCorrection, value);
            view().drawScene(); // brings the axes along
        };
        const auto stand = [this](int axis, double value) {
            choose(axis, &ViewType::setXPositionCorrection, &ViewType::setYPositionCorrection,
                &ViewType::setZPositionCorrection, value);
            view().resetCamera();
        };
        return {tr("Axes and camera"),
            {{tr("Scale"), perAxis("Scale", {1, 1, 1}, scale)},
                {tr("Correction"), perAxis("Correction", {1, 1, 1}, correct)},
                {tr("Camera at"), perAxis("Place", place, stand)},
                {{}, {action("resetView", tr("Reset camera"), [this] { resetView(); })}}}};
    }

    void redraw()
    {
        const Samples taken = samples();
        view().setScene(taken.map->columns, taken.map->rows);
        fillRows(view(), taken, 0, taken.map->rows);
        applyRanges(taken.ranges);
        view().drawScene();
    }

    bool takeFrame() override
    {
        redraw();
        return true;
    }

private:
    /** Fills a view of its own, which then takes the place of the one that is shown. */
    class SpaceFilling : public Filling {
    public:
        SpaceFilling(SpacePageOf& shownOn, SharedContents read)
            : page(shownOn)
            , file(std::move(read))
            , widget(std::make_unique<Widget>())
        {
            widget->view().setScene(file->map.columns, file->map.rows);
        }

        double work() override
        {
            constexpr int kPatience = 8; // ms
            constexpr int kRowsAtOnce = 8; // between two looks at the watch
            const int rows = file->map.rows;
            const Samples taken = page.samplesOf(file.get());
            QElapsedTimer watch;
            watch.start();
            while (filled < rows && watch.elapsed() < kPatience) {
                const int to = std::min(filled + kRowsAtOnce, rows);
                fillRows(widget->view(), taken, filled, to);
                filled = to;
            }
            return static_cast<double>(filled) / rows;
        }

        void commit() override
        {
            page.contents = file;
            page.showView(std::move(widget));
        }

    private:
        SpacePageOf& page;
        SharedContents file;
        std::unique_ptr<Widget> widget;
        int filled = 0; // rows
    };

    using Setter = void (ViewType::*)(double);

    void choose(int axis, Setter forX, Setter forY, Setter forZ, double value)
    {
        const Setter setters[3] = {forX, forY, forZ};
        (view().*setters[axis])(value);
    }

    /** Settings called xScale, yScale, zScale, and so on. */
    template <class Apply>
    static std::vector<Setting> perAxis(const char* name, const PerAxis& values, Apply apply)
    {
        std::vector<Setting> result;
        result.reserve(3);
        for (int axis = 0; axis < 3; ++axis)
            result.push_back(real(QLatin1Char("xyz"[axis]) + QString::fromLatin1(name),
                values[static_cast<std::size_t>(axis)], [apply, axis](const QVariant& value) {
                    apply(axis, value.toDouble());
                }).withTip(tr("Along %1").arg(QLatin1Char("xyz"[axis]))));
        return result;
    }

    static void fillRows(ViewType& view, const Samples& samples, int from, int to)
    {
        const HeightMap& map = *samples.map;
        int index = from * map.columns;
        for (int row = from; row < to; ++row) {
            const double along = row * map.yPitch;
            for (int column = 0; column < map.columns; ++column, ++index) {
                const auto at = static_cast<std::size_t>(index);
                const auto height = static_cast<double>(map.heights[at]);
                if (std::isnan(height))
                    view.setNanPoint(index);
                else
                    view.setPoint(index, column * map.xPitch, along, height * map.zUnit,
                        static_cast<double>((*samples.values)[at]) * samples.valueUnit);
            }
        }
    }

    /** Takes over a view whose points are set. */
    void showView(std::unique_ptr<Widget> filled)
    {
        viewed = filled.release();
        setView(viewed);
        suitContents();
        applyRanges(samples().ranges); // the settings move the camera over them
        panel->applyToView();
        view().drawScene();
        view().resetCamera();
    }

    void applyRanges(const Ranges& ranges)
    {
        for (int axis = 0; axis < 4; ++axis) {
            const Extent& extent = ranges[static_cast<std::size_t>(axis)];
            view().range(axis).set(extent.smallest, extent.largest);
        }
        view().setAutoRange(panel->isOn("autoRange"));
        view().setXAxisRange(Range(panel->real("xFrom"), panel->real("xTo")));
        view().setYAxisRange(Range(panel->real("yFrom"), panel->real("yTo")));
        view().setZAxisRange(Range(panel->real("zFrom"), panel->real("zTo")));
    }

    Widget* viewed = nullptr;
};

} // namespace ovl::gallery

#endif
