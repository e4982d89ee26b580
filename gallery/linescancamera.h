// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_LINESCANCAMERA_H
#define OVL_GALLERY_LINESCANCAMERA_H

#include "conveyor.h"
#include "noise.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovl::gallery {

/** What a camera over the belt delivers. */
enum class CameraKind {
    Range, // heights from the laser line, 16 bits
    Mono, // 12 bits
    Colour, // 12 bits for each of blue, green, red
};

/**
 * A simulated line-scan camera over a conveyor: lines come in at the bottom, the frame holds the
 * last ones.
 *
 * The frame is one contiguous piece of memory that moves on through the camera's buffer: nothing is
 * copied or allocated per frame.
 */
class LineScanCamera {
public:
    static constexpr int kWhite = 4095; // a 12-bit sensor's full scale
    static constexpr int kCountsPerMillimetre = 5000; // of a range; 0 where no light came back

    /** Square pixels: the line pitch follows from the width. Full of lines from the start. */
    LineScanCamera(int width, int height, CameraKind kind);

    /** Takes the next lines, `count` of them. */
    void advance(int count);
    /** Takes the lines up to `position` mm; backwards, or far on, the frame is filled anew. */
    void moveTo(double position);

    int width() const { return columns; }
    int height() const { return rows; }
    /** 1, or 3 in the order blue, green, red. */
    int components() const { return channels; }
    /** Height rows of width pixels of `components()` 16-bit samples; valid until advance(). */
    std::uint16_t* frame() { return ring.data() + oldest * rowLength(); }
    /** Where the newest line lies, in mm along the belt. */
    double position() const { return belt; }

private:
    std::size_t rowLength() const;
    void expose(std::uint16_t* row);
    void measure(std::uint16_t* row);
    float brightness(std::size_t column) const;

    int columns;
    int rows;
    CameraKind kind;
    int channels;
    Conveyor conveyor;
    Noise noise {20260801};
    double belt = 0;
    std::size_t oldest = 0;
    std::vector<Spot> line;
    std::vector<float> lastHeights;
    std::vector<float> lamp; // the light's fall-off times the pixels' own gain, column by column
    std::vector<std::uint16_t> ring; // each line twice, `rows` apart, so that any frame is whole
};

} // namespace ovl::gallery

#endif
