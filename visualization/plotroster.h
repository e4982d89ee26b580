// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: the plots of a chart as its events walk them.
#ifndef OVL_VISUALIZATION_PLOTROSTER_H
#define OVL_VISUALIZATION_PLOTROSTER_H

#include "plot.h"

#include <vtkAbstractContextItem.h>
#include <vtkType.h>
#include <vtkVector.h>
#include <vtkWeakPointer.h>

#include <cstdint>
#include <vector>

class vtkContextMouseEvent;
class vtkContextTransform;
class vtkPlotPoints;

namespace ovl {

/** The mouse in a corner's plot space, and the distance within which a point is still hit. */
struct PointProbe {
    PointProbe() = default;
    PointProbe(vtkContextTransform* corner, const vtkContextMouseEvent& mouse);

    bool operator==(const PointProbe& other) const
    {
        return position == other.position && tolerance == other.tolerance;
    }

    vtkVector2f position {0, 0};
    vtkVector2f tolerance {0, 0};
};

/** Where the points of a plot are, in plot space; empty while `left` is greater than `right`. */
struct PointBounds {
    vtkMTimeType built = 0; ///< the state of the points that was measured; 0 for none
    float left = 1, right = 0, bottom = 1, top = 0;
};

/** A plot's answer to a probe; `row` is -1 when none of its points is near. */
struct NearestPoint {
    vtkIdType row = -1;
    vtkIdType segment = -1;
    vtkVector2f position {0, 0}; ///< in plot space
};

/** A plot as an item of its corner, both of its classes at hand. */
struct RosterPlot {
    vtkPlot* plot;
    Plot* part;
    /** The same plot when it is of a kind whose points can be looked at, else null. */
    vtkPlotPoints* points;
    PointBounds bounds {};
    /** The answer that was given in the event of this number. */
    std::uint64_t asked = 0;
    NearestPoint nearest {};
};

/** A corner that has plots, which stand in the order of its items: the last one is on top. */
struct RosterCorner {
    vtkContextTransform* transform;
    std::vector<RosterPlot> plots;
    /** The plots that the probe may hit, the topmost first; as it was for the event's number. */
    std::vector<std::size_t> near {};
    PointProbe probe {};
    std::uint64_t probed = 0;
};

/** No plot of the corner is dragged any more. */
inline void clearDragTargets(const RosterCorner& corner)
{
    for (const RosterPlot& entry : corner.plots)
        entry.part->dragTarget = false;
}

/**
 * The corners of a chart that have plots, kept from event to event so that none has to look for
 * the Plot part of each plot again.
 *
 * Anybody may add, remove and restack a corner's items, so the roster compares them with what it
 * has seen whenever it is asked; that takes a fraction of the search for the parts.
 *
 * An event that asks more than one question about the same place asks each plot once: within an
 * Event, the plots' answers are kept. Plots whose points are all too far away are not asked at all;
 * where a plot's points are is measured anew whenever the plot has built them anew.
 */
class PlotRoster {
public:
    /** `corners` are the chart's own and must outlive the roster. */
    explicit PlotRoster(const std::vector<vtkContextTransform*>& corners);

    /** To be called whenever the plots' points or transforms may have changed. */
    void forgetAnswers();

    /** As their items are now. Good until the next call after one of them has changed. */
    std::vector<RosterCorner>& corners();

    /** Keeps the plots' answers as long as it lives, that is for one event of the mouse. */
    class Event {
    public:
        explicit Event(PlotRoster& roster);
        ~Event();
        Event(const Event&) = delete;
        Event& operator=(const Event&) = delete;

    private:
        PlotRoster& owner;
    };

    /** Whether an Event lives, and with it somebody walks over the plots. */
    bool isInEvent() const { return events > 0; }

    /**
     * The topmost plot of the corner that `accepts` and has a point under the probe; null when
     * there is none. Plots that are not accepted are not asked.
     */
    template <class Accepts>
    const RosterPlot* topmost(RosterCorner& corner, const PointProbe& probe, Accepts accepts)
    {
        for (const std::size_t i : near(corner, probe)) {
            RosterPlot& plot = corner.plots[i];
            if (accepts(plot) && nearestPoint(plot, probe).row >= 0)
                return &plot;
        }
        return nullptr;
    }

private:
    const std::vector<std::size_t>& near(RosterCorner& corner, const PointProbe& probe);
    bool isCurrent() const;
    void look();
    const NearestPoint& nearestPoint(RosterPlot& plot, const PointProbe& probe);

    const std::vector<vtkContextTransform*>& transforms;
    std::vector<RosterCorner> known;
    /**
     * Each corner and then its items, as they were found. Weak, since a new plot may come to lie
     * where one that has gone was.
     */
    std::vector<vtkWeakPointer<vtkAbstractContextItem>> seen;
    int events = 0; ///< under way; one may raise another
    std::uint64_t serial = 1; ///< answers with another number are out of date
};

} // namespace ovl

#endif
