// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what a shape keeps, for the class that looks at many of them.
#ifndef OVL_VISUALIZATION_SHAPE_P_H
#define OVL_VISUALIZATION_SHAPE_P_H

#include "line_p.h"
#include "outlines.h"
#include "range.h"
#include "shape.h"
#include "valuecontents.h"

#include <cstdint>
#include <vector>

namespace ovl {

/** What lines and handles have each of their own. Some fields serve only one of the two. */
struct ShapeStyle {
    QColor color = QColor::fromRgbF(1.0, 1.0, 1.0, 1.0);
    QString firstText; // the texts, `flag` and `number` are copied along, but not read yet
    QString secondText;
    bool interactive = false;
    bool hasPlot = true;
    bool tooltips = true;
    bool canDragX = false;
    bool canDragY = false;
    bool flag = true;
    int number = 0;
};

struct OVL_HIDDEN Shape::Private {
    /**
     * Calls `visit` with each line and makes it and its ends parts of the outline. Stops, with
     * false, at a line that has been moved away or has lost an end.
     */
    template <class Visit> bool visitLines(Visit visit, OutlineNumber number)
    {
        for (const Line& line : lines) {
            if (!line.d || !line.d->isWhole())
                return false;
            line.d->joinOutline(number);
            visit(line.d->segment());
        }
        return true;
    }

    OutlineOwner outline; // goes last: the lines still tell it that they go
    std::vector<Line> lines;
    std::vector<Point> handles; // of line i: 3i its first end, 3i + 1 its centre, 3i + 2 its second
    std::function<void()> onMousePressCallback;
    std::function<void(double)> xTranslationCallback;
    std::function<void(double)> yTranslationCallback;
    std::function<void(const Point&, double)> xResizeCallback;
    std::function<void(const Point&, double)> yResizeCallback;
    std::function<void()> onMouseReleaseCallback;
    std::function<bool(const Point&)> insidePolygonCallback;
    std::function<QString(const Point&)> shapeTooltipCallback;
    ShapeStyle lineStyle;
    ShapeStyle handleStyle; // its drag permissions govern the lines too
    QString title;
    QString format;
    Range xAxisRange;
    Range yAxisRange;
    std::int64_t identifier = -1;
    double tolerance = static_cast<double>(0.05f);
    LineType lineType = Solid;
    PlotStackPriority plotStackPriority = NormalPlotStackPriority;
    int handleSize = 2;
    int priority = 0;
    bool handleVisible = true;
    bool legendVisible = true;
    bool visible = true;
};

} // namespace ovl

#endif
