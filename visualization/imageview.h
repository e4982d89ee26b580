// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_IMAGEVIEW_H
#define OVL_VISUALIZATION_IMAGEVIEW_H

#include "bufferdescriptor.h"
#include "export.h"
#include "view.h"

class QColor;
class QOpenGLWidget;

namespace ovl {

class Range;

/**
 * Shows a two-dimensional image straight out of the host's pixel buffer.
 *
 * A frame costs no copy of the host's data: drawScene() keeps the pointer, and the repaint that
 * follows shifts and converts every sample on its way to the screen. The buffer stays the host's;
 * it must stay valid, with its layout, until another one is drawn or the view is destroyed, since
 * every repaint reads it again.
 *
 * Row 0 is shown at the top. The user pans with the left or middle button and zooms with the right
 * button or the wheel; the pixel under the mouse is published by CoordinatesSender.
 *
 * A sample becomes the low 8 bits of `sample >> shift()`; nothing is scaled and nothing saturates.
 * Colour samples come in the order blue, green, red and are shown as red, green, blue. With the
 * lookup table enabled the shifted samples keep their type and are mapped through the table
 * instead.
 *
 * Settings are only stored: unless told otherwise they take effect at the next drawScene() or
 * redraw() and the repaint after it, and leave the dirty flag alone.
 */
class OVL_EXPORT ImageView : public View {
public:
    /**
     * Attaches to `widget`, which must be the framework's Qt/OpenGL widget (not checked), must not
     * carry another view, and must outlive this one. Until the first frame the view shows a black
     * square and is clean.
     */
    explicit ImageView(QOpenGLWidget* widget);
    /** Takes the view off the widget, which lives on. */
    ~ImageView() override;

    ImageView(const ImageView&) = delete;
    ImageView& operator=(const ImageView&) = delete;

    void setDirty(bool dirty) override;
    bool isDirty() const override;

    /**
     * Shows `data`: `height` rows of `width` pixels as `descriptor` says, that is
     * `width * height * descriptor.components` samples without a gap. Marks the view dirty.
     *
     * When size or layout differ from the last frame's the camera is reset; otherwise the user's
     * pan and zoom stay. A null `data` changes nothing at all. Sizes of 0 or less are not checked;
     * nothing sensible is shown then.
     */
    void drawScene(void* data, int width, int height, const BufferDescriptor& descriptor);

    /**
     * Draws the last buffer again, with the present settings. Marks the view dirty. Before the
     * first frame nothing else happens.
     */
    void redraw();

    /**
     * Shows the whole image, upright: the circle round it fits the shorter side of the window,
     * which counts as square until it has a size. Marks the view dirty.
     *
     * Repeated on the same image it moves camera and image together by half a pixel in the scene,
     * which the picture does not show.
     */
    void resetCamera();

    /**
     * By how many bits each sample is shifted right; default 0. 8 shows the top byte of 16-bit
     * data. Less than 0 counts as 0; the sample's width or more leaves 0, or -1 for a negative
     * sample. shift() answers what was set.
     */
    void setShift(int shift);
    int shift();

    /**
     * The words that are combined with the samples of each channel while colour is forced: `index`
     * 0 to 3 are AND words, 4 to 7 OR words, of the channels 0 to 3 in the buffer's order. They
     * work behind the shift, OR first, cut to the width of a sample.
     *
     * AND words are 0x7FFFFFFF by default, OR words 0, but the one of channel 3 is 0x7FFFFFFF: so 8
     * and 16-bit samples stay what they are, samples of 32 bits lose their sign, and alpha is full.
     *
     * mask() answers -1 for an index of 4 or more, whatever the word is. Any other index outside 0
     * to 7 is the caller's fault: it stops a debug build, and is dropped, or answers 0, otherwise.
     */
    void setMask(int index, int value);
    int mask(int index);

    /**
     * Shows every image with four components, a single channel as red and two as red and green,
     * with the masks at work; alpha is 255 where the buffer has none. Default off. Takes effect
     * with the first frame after the call whose size or layout differs from the one before;
     * isColorForced() answers what was asked for at once. Together with the lookup table the masks
     * work, but the number of components stays the buffer's.
     */
    void forceColor(bool force);
    bool isColorForced() const;

    /**
     * Maps samples through the lookup table, at first a grey ramp over 0 to 255. Default off. Meant
     * for images with one channel: of several the first that is shown is mapped, of three or four
     * red, and of 8-bit samples the last that is shown becomes the opacity.
     */
    void enableLookupTable(bool enable);
    bool lookupTableEnabled() const;

    /**
     * The samples, after the shift, that get the first and the last colour of the table; default 0
     * to 255. An empty range is passed on as it is; the framework rejects it with an error and
     * keeps the old one.
     */
    void setLookupTableRange(const Range& range);
    Range lookupTableRange() const;

    /**
     * The colour of samples above the table's range, while it is enabled; default white. Alpha is
     * ignored. The getter is cruder than the setter: it answers 1 of 255 for a channel that is
     * full, alpha always, and 0 for any other.
     */
    void setAboveRangeColor(const QColor& color);
    QColor aboveRangeColor() const;
    /** Default off: samples above the range get the table's last colour. */
    void enableAboveRangeColor(bool enable);
    bool aboveRangeColorEnabled() const;

    /** The same for samples below the range; default black. */
    void setBelowRangeColor(const QColor& color);
    QColor belowRangeColor() const;
    /** Default off: samples below the range get the table's first colour. */
    void enableBelowRangeColor(bool enable);
    bool belowRangeColorEnabled() const;

private:
    class Private;
    Private* d;
};

} // namespace ovl

#endif
