// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_FUZZ_PLAYER_H
#define OVL_FUZZ_PLAYER_H

#include "rig.h"
#include <visualization/view.h>

#include <memory>

namespace ovl::fuzz {

/** How often things happen that take their time in some views. */
struct Pace {
    int calls = 8; ///< of 16 steps; all but one of the others are the user's
    int repaints = 6; ///< of 12 changes of the surroundings
    int makings = 1; ///< every so often a view that is to be made anew is
};

/** A host of one view, which calls it as the bytes say but never against its rules. */
class Player {
public:
    explicit Player(Rig& livingRig, const Pace& usualPace = {})
        : rig(livingRig)
        , pace(usualPace)
    {
    }
    virtual ~Player() = default;

    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    /** Destroys the view, if there is one, and makes a new one on the widget. */
    virtual void make(Deal& deal) = 0;
    /** One call of the view. */
    virtual void call(Deal& deal) = 0;

    /** All that the bytes say, from the first view to the last one's end. */
    void play(Deal& deal);

    /** Calls and events since the program began. */
    static long eventCount();

protected:
    Rig& rig;

private:
    void step(Deal& deal);
    void changeSurroundings(Deal& deal);

    Pace pace;
};

/** The player that this program is about. */
std::unique_ptr<Player> makePlayer(Rig& rig);

/** Plays one file of a corpus. */
void playBytes(Rig& rig, const std::uint8_t* data, std::size_t size);

/** Before the application is made. */
void prepareApplication();

/** Keeps the framework's messages to itself: bad numbers are reported by right. */
void silenceMessages();

/** One of a table of calls, chosen by the next byte. */
template <class Host, std::size_t count>
void callOneOf(Host& host, void (Host::*const (&calls)[count])(Deal&), Deal& deal)
{
    (host.*calls[static_cast<std::size_t>(deal.below(int(count)))])(deal);
}

} // namespace ovl::fuzz

#endif
