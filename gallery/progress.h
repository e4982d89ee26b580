// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PROGRESS_H
#define OVL_GALLERY_PROGRESS_H

#include <atomic>

namespace ovl::gallery {

/** How far a long piece of work is, and whether it is still wanted. Any thread may call. */
class Progress {
public:
    void reach(double share) { done = share; }
    /** From 0 to 1. */
    double share() const { return done; }

    void cancel() { unwanted = true; }
    bool isCancelled() const { return unwanted; }

private:
    std::atomic<double> done {0};
    std::atomic<bool> unwanted {false};
};

/** A part of the work, which counts its own share from 0 to 1. Without a Progress it tells nobody.
 */
class Stage {
public:
    Stage() = default;
    Stage(Progress* progress, double from, double to)
        : whole(progress)
        , start(from)
        , length(to - from)
    {
    }

    void reach(double share) const
    {
        if (whole)
            whole->reach(start + share * length);
    }
    bool isCancelled() const { return whole && whole->isCancelled(); }

private:
    Progress* whole = nullptr;
    double start = 0;
    double length = 1;
};

/** What a reader answers that was told to stop; nobody gets to see it. */
inline constexpr char kCancelled[] = "cancelled";

} // namespace ovl::gallery

#endif
