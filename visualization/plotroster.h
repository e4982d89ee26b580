// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: the plots of a chart as its events walk them.
#ifndef OVL_VISUALIZATION_PLOTROSTER_H
#define OVL_VISUALIZATION_PLOTROSTER_H

#include "intervallanes.h"
#include "outlines.h"
#include "plot.h"

#include <vtkAbstractContextItem.h>
#include <vtkType.h>
#include <vtkVector.h>
#include <vtkWeakPointer.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

class vtkContextMouseEvent;
class vtkContextTransform;
class vtkPlotPoints;

namespace ovl {

class Point;

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

/** Where the points of so many plots are, in plot space. */
struct PointBounds {
    static constexpr std::size_t kCount = IntervalLanes<float>::kCount;

    IntervalLanes<float> x;
    IntervalLanes<float> y;
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
    vtkMTimeType built = 0; ///< the state of the points that was measured; 0 for none
    bool isAscending = false; ///< each point lies to the right of the one before, and none is NaN
    /** The answer that was given in the event of this number. */
    std::uint64_t asked = 0;
    NearestPoint nearest {};
};

/** A corner that has plots, which stand in the order of its items: the last one is on top. */
struct RosterCorner {
    vtkContextTransform* transform;
    std::vector<RosterPlot> plots;
    std::vector<PointBounds> bounds {}; ///< of the plots in turn, to be gone through
    std::size_t firstSlot = 0; ///< the number of its first plot among all plots of the roster
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
 * Counts how often a chart may have changed the selection of a plot, be it another chart's that it
 * shares. Whoever changes one notes it.
 */
class SelectionNotes {
public:
    SelectionNotes() = delete;

    static void note() { ++count; }
    static std::uint64_t changes() { return count; }

private:
    inline static std::uint64_t count = 0;
};

/**
 * The corners of a chart that have plots, kept from event to event so that none has to look for
 * the Plot part of each plot again.
 *
 * Whoever changes the items tells the roster. It also looks by itself whether they are as it knows
 * them, whenever it is asked: at all of them in a chart of some hundred plots, where that takes no
 * time; among thousands only at their number and at some of them in turn.
 *
 * An event that asks more than one question about the same place asks each plot once: within an
 * Event, the plots' answers are kept. Plots whose points are all too far away are not asked at all;
 * where a plot's points are is measured anew when the plot has built them anew. Nor are shapes
 * asked that lie elsewhere; where they are is told by Outlines.
 */
class PlotRoster {
public:
    /** `corners` are the chart's own and must outlive the roster. */
    explicit PlotRoster(const std::vector<vtkContextTransform*>& corners);

    /** To be called whenever the plots' points or transforms may have changed. */
    void forgetAnswers();
    /** To be called whenever the plots may have built their points anew. */
    void pointsChanged();
    /** To be called whenever the corners or their items have changed. */
    void itemsChanged();

    /**
     * As their items are now. Good until the next call after one of them has changed; within an
     * Event until that ends, whatever else happens meanwhile but that plots go.
     */
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

    /**
     * Calls `visit` with each plot of the corner with that index whose shape may contain the
     * position, in their order. The position is in the units of the shapes. `visit` may change the
     * shapes, and then meets the plots that come after it as they are then; it may also bring about
     * another event, which looks for shapes elsewhere.
     */
    template <class Visit>
    void visitShapes(std::size_t cornerIndex, const Point& position, Visit visit)
    {
        const std::vector<std::size_t>& slots = shapesNear(position);
        const RosterCorner& corner = known[cornerIndex];
        const std::size_t end = corner.firstSlot + corner.plots.size();
        const std::uint64_t before = shapeChanges();
        const std::uint64_t search = searches;
        auto slot = std::lower_bound(slots.begin(), slots.end(), corner.firstSlot);
        for (; slot != slots.end() && *slot < end; ++slot) {
            visit(*corner.plots[*slot - corner.firstSlot].part);
            if (shapeChanges() != before || searches != search) {
                visitRest(corner, *slot + 1 - corner.firstSlot, visit);
                return;
            }
        }
    }

    /** The plots that are drag targets, in their order. */
    std::vector<const RosterPlot*> dragTargets();

    /** The plots that have selected rows, in their order. */
    std::vector<const RosterPlot*> selected();

private:
    /** The shapes with a number, by the plots that draw them. */
    struct ShapeIndex {
        void clear();
        void build(const std::vector<RosterCorner>& corners);

        static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

        std::vector<Plot*> parts; ///< of each slot
        OutlineNumber first = 1; ///< the least number, and in `last` the greatest
        OutlineNumber last = 0;
        std::vector<std::size_t> slotOf; ///< of each number from the first on, or kNone
        std::vector<std::size_t> nextSlot; ///< of each slot: the next one of the same number
        std::vector<std::size_t> unnumbered; ///< the slots of shapes that have no number
    };

    template <class Visit>
    static void visitRest(const RosterCorner& corner, std::size_t from, Visit visit)
    {
        for (std::size_t i = from; i < corner.plots.size(); ++i)
            if (corner.plots[i].part->shape)
                visit(*corner.plots[i].part);
    }

    const std::vector<std::size_t>& near(RosterCorner& corner, const PointProbe& probe);
    void measurePoints();
    static std::uint64_t shapeChanges()
    {
        return Outlines::changes() + Outlines::moves() + Noted<Shape*>::changes();
    }
    const std::vector<std::size_t>& shapesNear(const Point& position);
    void findShapes(Position place);
    void sortNearShapes();
    bool isCurrent();
    void look();
    const NearestPoint& nearestPoint(RosterPlot& plot, const PointProbe& probe);
    static NearestPoint ask(const RosterPlot& plot, const PointProbe& probe);

    const std::vector<vtkContextTransform*>& transforms;
    std::vector<RosterCorner> known;
    std::vector<std::vector<RosterCorner>>
        former; ///< that somebody may walk over until the event ends
    /**
     * Each corner and then its items, as they were found. Weak, since a new plot may come to lie
     * where one that has gone was.
     */
    std::vector<vtkWeakPointer<vtkAbstractContextItem>> seen;
    std::size_t plotCount = 0;
    std::size_t inspected = 0; ///< where among `seen` the next look begins
    bool areItemsKnown = false;
    bool arePointsKnown = false;
    ShapeIndex shapes;
    std::uint64_t shapesPointedAt = 0; ///< the state of the plots' pointers that was looked at
    std::uint64_t shapesMoved = 0;
    std::vector<std::size_t> nearShapes; ///< the slots that may be inside at `nearPlace`
    Position nearPlace {0.0, 0.0};
    std::uint64_t nearAt = 0; ///< the state of the shapes that they were found in
    bool areNearShapesKnown = false;
    std::uint64_t searches = 0; ///< how often they have been looked for
    std::vector<const RosterPlot*> targets;
    std::uint64_t targetsAt = 0;
    bool areTargetsKnown = false;
    std::vector<const RosterPlot*> selections;
    std::uint64_t selectedAt = 0;
    bool areSelectedKnown = false;
    int events = 0; ///< under way; one may raise another
    std::uint64_t serial = 1; ///< answers with another number are out of date
};

} // namespace ovl

#endif
