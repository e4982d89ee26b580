// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_MEASURINGTOOLS_H
#define OVL_GALLERY_MEASURINGTOOLS_H

#include "axisscale.h"
#include "region.h"
#include "table.h"

#include <QObject>
#include <QString>

namespace ovl {
class Point;
class ProfileView;
class Shape;
} // namespace ovl

namespace ovl::gallery {

/** How the tools are shown, and what the mouse may do with them. */
struct ToolLook {
    bool interactive = true; // handles can be taken
    bool alongX = true; // may be dragged
    bool alongY = true;
    bool handles = true; // are seen
    int handleSize = 6; // pixels
    bool legend = false;
    bool tooltips = true; // of the tools as a whole
};

/**
 * Regions on a profile view that the user moves and resizes: two bands for the height of a step, a
 * box for mean and spread, a line for a distance. All measure the first curve.
 *
 * They keep their places in the view's coordinates; the shapes on the view follow them.
 */
class MeasuringTools : public QObject {
    Q_OBJECT

public:
    explicit MeasuringTools(QObject* parent);

    /** Between the view's numbers and the table's: powers of ten, and a unit for both axes. */
    void setScale(int xExponent, int yExponent, const QString& unit);
    /** For the tools that are added from now on. */
    void setLook(const ToolLook& wanted) { look = wanted; }
    /** Puts the tools where they can be seen in these ranges. */
    void place(const HomeRange& bottom, const HomeRange& left);
    /** Puts them on plate, boss, pocket and pads of the simulated part. */
    void placeOnPart();
    /** Adds their shapes to a view; the caller has it draw them. */
    void addTo(ProfileView& view);

    /** Measures the first curve again. */
    void measure(const Table& table);
    /** What the tools read, line by line. */
    QString readOut() const;

Q_SIGNALS:
    /** The user has moved one: the table is to be measured again. */
    void moved();

private:
    enum Tool { BandA = 1, BandB, Area, Distance };

    void addBox(ProfileView& view, Tool tool, bool alongY);
    void addDistance(ProfileView& view);
    Shape styledShape(Tool tool, bool alongY) const;
    Box& box(Tool tool);
    void moveShape(ProfileView& view, Tool tool);
    QString tooltip(Tool tool) const;
    Statistics statisticsOf(const Box& box, const Table& table, bool wholeHeight) const;
    QString number(double value) const;

    ToolLook look;
    Box bandA;
    Box bandB;
    Box area;
    Segment distance;
    double xReach = 1; // how near to the line counts as on it
    double yReach = 1;
    double xFactor = 1; // from the view's numbers to the table's
    double yFactor = 1;
    QString unit;
    Statistics inA;
    Statistics inB;
    Statistics inArea;
};

} // namespace ovl::gallery

#endif
