// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_BUFFERDESCRIPTOR_H
#define OVL_VISUALIZATION_BUFFERDESCRIPTOR_H

namespace ovl {

/**
 * How the samples of a host's pixel buffer are laid out.
 *
 * The buffer holds the rows from top to bottom without padding; in a row the pixels from left to
 * right; in a pixel its samples side by side, colour as blue, green, red and, with four, alpha.
 * Samples have the machine's byte order and alignment.
 */
struct BufferDescriptor {
    /** Samples per pixel, 1 to 4. Not checked: what any other number shows means nothing. */
    int components = 1;

    /**
     * Type of one sample: 1 signed 16 bits, 2 unsigned 16 bits, 3 signed 32 bits, 4 float, 5
     * double; 0 and any other value mean unsigned 8 bits. Float and double are accepted but have no
     * way to the screen: the framework reports an error at the next repaint, and what is shown
     * means nothing.
     */
    int sampleType = 0;
};

} // namespace ovl

#endif
