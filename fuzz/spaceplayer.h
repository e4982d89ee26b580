// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_FUZZ_SPACEPLAYER_H
#define OVL_FUZZ_SPACEPLAYER_H

#include "player.h"
#include <visualization/colorscheme.h>

namespace ovl::fuzz {

/** What the two 3-D views have in common, which is all of their interface but one operation. */
template <class ViewType> class SpacePlayer : public Player {
public:
    /**
     * A move of the mouse may take two renderings, to see what lies under it: so there are few. A
     * view and a repaint take tens of milliseconds: the axes make an object for every label.
     */
    explicit SpacePlayer(Rig& livingRig)
        : Player(livingRig, {13, 3, 4})
    {
    }

    void make(Deal&) override
    {
        view.reset();
        view = std::make_unique<ViewType>(rig.widget());
    }

    void call(Deal& deal) override
    {
        static constexpr void (SpacePlayer::*calls[])(Deal&)
            = {&SpacePlayer::frame, &SpacePlayer::frame, &SpacePlayer::frame,
                &SpacePlayer::setScene, &SpacePlayer::setSomePoints, &SpacePlayer::drawScene,
                &SpacePlayer::resetCamera, &SpacePlayer::setRange, &SpacePlayer::setAxisRange,
                &SpacePlayer::setScale, &SpacePlayer::setCorrection, &SpacePlayer::setLook,
                &SpacePlayer::setOwn, &SpacePlayer::ask};
        callOneOf(*this, calls, deal);
    }

protected:
    /** What only this view has. */
    virtual void setOwn(Deal&) { }

    std::unique_ptr<ViewType> view;

private:
    /** How many points a host may set. */
    int points() const
    {
        const int x = view->xResolution();
        const int y = view->yResolution();
        return x > 0 && y > 0 ? x * y : 0;
    }

    void setScene(Deal& deal)
    {
        const bool odd = deal.rarely(8);
        view->setScene(deal.between(odd ? -2 : 1, odd ? 40 : 9), deal.between(odd ? -2 : 1, 9));
    }

    void setPoint(Deal& deal, int index)
    {
        if (deal.rarely(16))
            view->setNanPoint(index);
        else if (deal.rarely(4))
            view->setPoint(index, deal.number(), deal.number(), deal.number(), deal.number());
        else
            view->setPoint(index, index % 5, deal.below(9), deal.below(9), deal.below(256));
    }

    void setSomePoints(Deal& deal)
    {
        for (int count = points() > 0 ? deal.between(1, 6) : 0; count > 0; --count)
            setPoint(deal, deal.below(points()));
    }

    /** A scene as it ought to be: every point, and ranges that hold the data. */
    void frame(Deal& deal)
    {
        setScene(deal);
        const bool wild = deal.rarely(4);
        const double top = deal.rarely(4) ? deal.number() : deal.between(1, 9);
        for (int i = 0; i < points(); ++i) {
            if (wild && i % 5 == 0)
                setPoint(deal, i);
            else
                view->setPoint(i, i % view->xResolution(), i / view->xResolution(), i % 3 * top, i);
        }
        view->range(0).set(0.0, view->xResolution());
        view->range(1).set(0.0, view->yResolution());
        view->range(2).set(0.0, 2.0 * top);
        view->range(3).set(0.0, points());
        view->drawScene();
        if (deal.flag())
            view->resetCamera();
    }

    void drawScene(Deal&) { view->drawScene(); }
    void resetCamera(Deal&) { view->resetCamera(); }

    void setRange(Deal& deal)
    {
        Range& range = view->range(deal.below(4));
        switch (deal.below(3)) {
        case 0:
            range = deal.range();
            break;
        case 1:
            range.accumulate(deal.number());
            break;
        default:
            range.reset();
        }
    }

    void setAxisRange(Deal& deal)
    {
        switch (deal.below(4)) {
        case 0:
            return view->setXAxisRange(deal.range());
        case 1:
            return view->setYAxisRange(deal.range());
        case 2:
            return view->setZAxisRange(deal.range());
        default:
            return view->setAutoRange(deal.flag());
        }
    }

    void setScale(Deal& deal)
    {
        const int axis = deal.below(3);
        const double scale = deal.number();
        if (axis == 0)
            view->setXScale(scale);
        else if (axis == 1)
            view->setYScale(scale);
        else
            view->setZScale(scale);
    }

    void setCorrection(Deal& deal)
    {
        const int which = deal.below(6);
        const double correction = deal.number();
        switch (which) {
        case 0:
            return view->setXScaleCorrection(correction);
        case 1:
            return view->setYScaleCorrection(correction);
        case 2:
            return view->setZScaleCorrection(correction);
        case 3:
            return view->setXPositionCorrection(correction);
        case 4:
            return view->setYPositionCorrection(correction);
        default:
            return view->setZPositionCorrection(correction);
        }
    }

    void setLook(Deal& deal)
    {
        switch (deal.below(3)) {
        case 0:
            return view->setAbsoluteMaximum(deal.number());
        case 1:
            return view->setDirty(deal.flag());
        default:
            return view->setColorScheme(
                static_cast<ColorScheme>(deal.rarely(8) ? deal.integer() : deal.between(-1, 62)));
        }
    }

    void ask(Deal& deal)
    {
        using Getter = double (ViewType::*)() const;
        static constexpr Getter getters[]
            = {&ViewType::absoluteMaximum, &ViewType::xScale, &ViewType::yScale, &ViewType::zScale,
                &ViewType::xScaleCorrection, &ViewType::yScaleCorrection,
                &ViewType::zScaleCorrection, &ViewType::xPositionCorrection,
                &ViewType::yPositionCorrection, &ViewType::zPositionCorrection};
        for (const Getter get : getters)
            (view.get()->*get)();
        view->range(deal.below(4)).length();
        view->isDirty();
        view->autoRange();
        view->colorScheme();
        view->xAxisRange();
        view->yAxisRange();
        view->zAxisRange();
    }
};

} // namespace ovl::fuzz

#endif
