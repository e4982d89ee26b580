// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_POINTCLOUDVIEW_H
#define OVL_VISUALIZATION_POINTCLOUDVIEW_H

#include "colorscheme.h"
#include "export.h"
#include "range.h"
#include "view.h"

class QOpenGLWidget;

namespace ovl {

/**
 * Shows the host's samples as a cloud of coloured points in a labelled box of axes.
 *
 * One frame: setScene(); setPoint() or setNanPoint() for every point; the new bounds through
 * range(); drawScene(); and resetCamera() where the view is to be framed anew. Then the host sees
 * isDirty(), renders the widget's window and calls setDirty(false). The view computes no range: the
 * axes, the colours and the camera all take what the host has stated.
 *
 * x, y and z are the host's axes. The scene lies on its side: world X carries the host's y and
 * world Y the host's x; the axes' titles and the published coordinates are the host's again.
 * Wherever a scale reaches the scene it is multiplied by a correction, and here the corrections
 * belong to the axes of the world: xScaleCorrection() goes with yScale() and yScaleCorrection()
 * with xScale().
 *
 * The left button turns the camera, the middle one pans, the right one and the wheel dolly; that
 * marks the view dirty. Every move of the mouse publishes the sample under it through
 * CoordinatesSender, whole numbers in the host's units, or that there is none. Keys of the
 * framework act too: r frames the scene, w and s show wires and surfaces.
 *
 * Nothing is reported and no argument is refused, unless said below. All calls belong on the GUI
 * thread.
 */
class OVL_EXPORT PointCloudView : public View {
public:
    /**
     * Attaches to `widget`, which must be the framework's Qt widget (any other is the caller's
     * fault, found at its first use), carry no other view and outlive this one. The view starts
     * clean and empty, its axes hidden.
     */
    explicit PointCloudView(QOpenGLWidget* widget);
    /** Takes the scene off the widget's window. The mouse on the widget then does nothing. */
    ~PointCloudView() override;

    PointCloudView(const PointCloudView&) = delete;
    PointCloudView& operator=(const PointCloudView&) = delete;

    /**
     * Begins a new scene of xResolution times yResolution points and drops the present one. The
     * product is that of 32-bit integers; where it is negative there are no points. Does not mark
     * the view dirty: the new scene shows with drawScene().
     */
    void setScene(int xResolution, int yResolution);
    /**
     * Sets the position and the value of the point `index`, counted from 0, and adds it to the
     * points to be drawn, which are listed in the order of the calls: a point that is set twice is
     * listed twice, one that is never set is not drawn. No range is widened and the view does not
     * become dirty. An index outside of the scene stops a debug build and is dropped otherwise.
     */
    void setPoint(int index, double x, double y, double z, double value);
    /** As setPoint(), for a point without a sample: it keeps its place and is not seen. */
    void setNanPoint(int index);
    /**
     * Shows the scene: takes over points, scales, the ranges for axes and colours. Marks the view
     * dirty. May be repeated. With range(3) never set the framework reports a bad table range and
     * the colours keep the range they had.
     */
    void drawScene();
    /**
     * Frames the data from its ranges: looks at their middle, with z upwards, from the point that
     * the position corrections name, at four times the distance. Marks the view dirty. With an
     * empty range the camera gets no usable place until the next call.
     */
    void resetCamera();

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
     * A further factor for the world's axis of the same letter: x for the axis that carries the
     * host's y, y for the one that carries the host's x. 1 by default. The data is stretched at
     * once, but the camera stays, the axes follow at the next drawScene() or change of a scale, and
     * the view does not become dirty.
     */
    double xScaleCorrection() const;
    double yScaleCorrection() const;
    double zScaleCorrection() const;
    void setXScaleCorrection(double correction);
    void setYScaleCorrection(double correction);
    void setZScaleCorrection(double correction);

    /**
     * Where resetCamera() stands along the host's axis, as a part of its range: 0 at the minimum, 1
     * (the default) at the maximum, any number is taken. Stored: takes effect at the next
     * resetCamera(), does not mark the view dirty.
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
