// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_REGION_H
#define OVL_GALLERY_REGION_H

#include <array>
#include <vector>

namespace ovl::gallery {

/** A place on a chart. */
struct Place {
    double x = 0;
    double y = 0;
};

/** From one place to another. */
struct Edge {
    Place from;
    Place to;
};

/** A rectangle on a chart that is moved as a whole and resized by its sides. */
struct Box {
    double left = 0;
    double right = 1;
    double bottom = 0;
    double top = 1;

    void moveX(double distance);
    void moveY(double distance);
    /** Moves the side on which a place lies; a place between the sides moves none. */
    void resizeX(double at, double distance);
    void resizeY(double at, double distance);

    std::array<Edge, 4> edges() const;
    /** A mouse that moves out of the box at one side may have crossed it: sides are put in order.
     */
    void putInOrder();
};

/** A line between two ends that are moved one by one or together. */
struct Segment {
    Place first;
    Place second;

    void moveX(double distance);
    void moveY(double distance);
    /** Moves the end at a place, or both when it is the middle. */
    void resizeX(const Place& at, double distance);
    void resizeY(const Place& at, double distance);

    double length() const;
    /** Whether a place lies at the line, within these distances along x and y. */
    bool passes(const Place& place, double xReach, double yReach) const;
};

/** What a region's samples come to. */
struct Statistics {
    int count = 0;
    double mean = 0;
    double deviation = 0; // of the samples, as a spread round the mean
};

/** Of the finite samples whose x and y lie in the box. */
Statistics statisticsIn(const Box& box, const std::vector<double>& x, const std::vector<double>& y);

} // namespace ovl::gallery

#endif
