// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_FRAMEMETER_H
#define OVL_GALLERY_FRAMEMETER_H

#include <cstdint>

namespace ovl::gallery {

/** Measures how many frames are really painted in a second, smoothed so that it can be read. */
class FrameMeter {
public:
    /** A frame was painted; times in ms of any clock that does not go back. */
    void addFrame(std::int64_t now);

    /** Frames a second; 0 for a picture that stands still. */
    double rate(std::int64_t now) const;

private:
    bool seen = false; // a frame at all
    std::int64_t last = 0;
    double interval = 0; // ms, smoothed; 0 while only one frame is known
};

} // namespace ovl::gallery

#endif
