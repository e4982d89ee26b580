// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_SURFACEVIEW_H
#define OVL_VISUALIZATION_SURFACEVIEW_H

#include "colorscheme.h"
#include "export.h"
#include "range.h"
#include "representation.h"
#include "view.h"

class QOpenGLWidget;

namespace ovl {

/**
 * Shows a regular grid of the host's samples as a coloured surface in a labelled box of axes.
 *
 * One frame: setScene(); setPoint() or setNanPoint() for every point; the new bounds through
 * range(); drawScene(); and resetCamera() where the view is to be framed anew. Then the host sees
 * isDirty(), renders the widget's window and calls setDirty(false). The view computes no range: the
 * axes, the colours and the camera all take what the host has stated.
 *
 * x, y and z are the host's axes. The scene lies on its side: world X carries the host's y and
 * world Y the host's x; the axes' titles and the published coordinates are the host's again.
 * Wherever a scale reaches the scene it is multiplied by the correction of its own letter.
 *
 * The left button turns the camera, the middle one pans, the right one and the wheel dolly; that
 * marks the view dirty. Every move of the mouse publishes the sample under it through
 * CoordinatesSender, whole numbers in the host's units, or that there is none. Keys of the
 * framework act too: r frames the scene, w and s show wires and surfaces.
 *
 * Nothing is reported and no argument is refused, unless said below. All calls belong on the GUI
 * thread.
 */
class OVL_EXPORT SurfaceView : public View {
public:
    /**
     * Attaches to `widget`, which must be the framework's Qt widget (any other is the caller's
     * fault, found at its first use), carry no other view and outlive this one. The view starts
     * clean and empty, its axes hidden.
     */
    explicit SurfaceView(QOpenGLWidget* widget);
    /** Takes the scene off the widget's window. The mouse on the widget then does nothing. */
    ~SurfaceView() override;

    SurfaceView(const SurfaceView&) = delete;
    SurfaceView& operator=(const SurfaceView&) = delete;

    /**
     * Begins a new scene of xResolution times yResolution points. All of them must be set again.
     * Does not mark the view dirty; drawScene() then waits for a first setPoint().
     *
     * The grid of the last scene stays, with its size, where either argument is smaller by exactly
     * one than the last grid's; so does the empty grid of the beginning where either is 1. Calls of
     * setPoint() then write to that grid, and what has no place there is dropped. A grid with a
     * side below 1 is empty. A number of points that no 32-bit integer holds leaves the last grid
     * in place.
     */
    void setScene(int xResolution, int yResolution);
    /**
     * Sets the position and the value of the point `index`. The index runs along the first side
     * fastest, i + j * xResolution: this is what joins neighbours into quadrilaterals. The surface
     * stands at z; the value gives the colour only. Positions are kept in single precision. No
     * range is widened and the view does not become dirty. An index outside of the scene stops a
     * debug build and is dropped otherwise.
     */
    void setPoint(int index, double x, double y, double z, double value);
    /**
     * As setPoint(), for a point without a sample: the quadrilaterals around it are not seen. A
     * scene of nothing else is not drawn.
     */
    void setNanPoint(int index);
    /**
     * Shows the scene: takes over points, scales, the ranges for axes and colours. Marks the view
     * dirty. May be repeated. Does nothing before the first setPoint() after setScene(). With
     * range(3) never set the framework reports a bad table range and the colours keep the range
     * they had.
     */
    void drawScene();
    /**
     * Frames the data from its ranges: looks at their middle, with z upwards, from the point that
     * the position corrections name, at four times the distance. Marks the view dirty. With an
     * empty range the camera gets no usable place until the next call.
     */
    void resetCamera();

    /**
     * How the surface is drawn: filled by default. Takes effect at once and marks the view dirty,
     * also where nothing changes. Numbers other than those of Points and Wireframe mean Surface.
     */
    void setRepresentation(Representation representation);

    /** Whether the scene has changed since the host last cleared the flag; false at first. */
    bool isDirty() const override;
    /** Writes the dirty flag, nothing else. */
    void setDirty(bool dirty) override;

    /**
     * The range of the host's x (0), y (1), z (2) or of the value (3), to be filled by the host;
     * empty at first. 0 to 2 serve the camera and, with autoRange(), the axes; 3 is what the
     * colours run over. Takes effect at the next drawScene() or resetCamera(), does not mark the
     * view dirty. Any other index stops a debug build; otherwise it gives a range that nobody
     * reads.
     */
    Range& range(int index);

    /**
     * Whether the axes extend over range(0) to range(2) (true, the default) or over the three axis
     * ranges. The host's numbers either way; colours are not concerned. Stored: takes effect at the
     * next drawScene() or change of a scale.
     */
    bool autoRange() const;
    void setAutoRange(bool enabled);

    /** A number that is kept for the host and limits nothing; 65535 by default. */
    double absoluteMaximum() const;
    void setAbsoluteMaximum(double maximum);

    /**
     * The series of colours that the values run through; ColorScheme::None by default. A series
     * that does not exist is reported by the framework and SPECTRUM used instead. Shows at the next
     * repaint but does not mark the view dirty. Setting the present one does nothing.
     */
    ColorScheme colorScheme() const;
    void setColorScheme(ColorScheme scheme);

    /** The arguments of the last setScene(), as they were given; 0 at first. */
    int xResolution() const;
    int yResolution() const;

    /**
     * How much the data is stretched along the host's axis; 1 by default, any number is taken.
     * Takes effect at once: the camera moves along with the data's middle and looks at the middle
     * of the axis' range, the axes are shown as by drawScene(), and the view becomes dirty.
     */
    double xScale() const;
    double yScale() const;
    double zScale() const;
    void setXScale(double scale);
    void setYScale(double scale);
    void setZScale(double scale);

    /**
     * A further factor for the host's axis of the same letter, 1 by default. The data is stretched
     * at once, but the camera stays, the axes follow at the next drawScene() or change of a scale,
     * and the view does not become dirty.
     */
    double xScaleCorrection() const;
    double yScaleCorrection() const;
    double zScaleCorrection() const;
    void setXScaleCorrection(double correction);
    void setYScaleCorrection(double correction);
    void setZScaleCorrection(double correction);

    /**
     * How far outside of the range of the host's axis resetCamera() stands, in lengths of the
     * range: below the minimum for x and y, above the maximum for z. 1 by default, any number is
     * taken. Stored: takes effect at the next resetCamera(), does not mark the view dirty.
     */
    double xPositionCorrection() const;
    double yPositionCorrection() const;
    double zPositionCorrection() const;
    void setXPositionCorrection(double correction);
    void setYPositionCorrection(double correction);
    void setZPositionCorrection(double correction);

    /**
     * What the axes extend over without autoRange(), in the host's unscaled units; empty at first.
     * Stored: takes effect at the next drawScene() or change of a scale, does not mark the view
     * dirty.
     */
    Range xAxisRange() const;
    Range yAxisRange() const;
    Range zAxisRange() const;
    void setXAxisRange(Range const& range);
    void setYAxisRange(Range const& range);
    void setZAxisRange(Range const& range);

private:
    class Private;
    Private* d;
};

} // namespace ovl

#endif
