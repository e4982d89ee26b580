// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_MACHINEDPART_H
#define OVL_GALLERY_MACHINEDPART_H

namespace ovl::gallery {

/** One spot of the scene as sensors meet it. */
struct Spot {
    float height = 0; // mm above the belt
    float red = 0; // share of the light that comes back, 0 to 1
    float green = 0;
    float blue = 0;
    float gloss = 0; // how much of a highlight a slope towards the lamp gives
    bool hole = false; // light that falls in does not come back
};

/**
 * A machined plate with a turned boss, counterbored holes, a slot, a stair of gauge pads, an
 * engraved number and a code. No two are alike: number and code differ, some are scratched.
 */
class MachinedPart {
public:
    static constexpr float kWidth = 100.0F; // mm, across the belt
    static constexpr float kLength = 70.0F; // mm, along the belt
    static constexpr float kTop = 8.0F; // mm, the plate's upper face

    explicit MachinedPart(int serialNumber);

    /** The spot at (u, v) mm from the part's centre; `onPart` tells whether the part is there. */
    Spot at(float u, float v, bool& onPart) const;

private:
    void addBoss(float u, float v, Spot& spot) const;
    void addHoles(float u, float v, Spot& spot) const;
    void addSlot(float u, float v, Spot& spot) const;
    void addPads(float u, float v, Spot& spot) const;
    void addMarks(float u, float v, Spot& spot) const;
    bool isEngraved(float u, float v) const;
    bool isCode(float u, float v) const;
    bool isScratched(float u, float v) const;

    int serialNumber;
};

} // namespace ovl::gallery

#endif
