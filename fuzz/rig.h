// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_FUZZ_RIG_H
#define OVL_FUZZ_RIG_H

#include "deal.h"
#include <support/hostfixture.h>

namespace ovl::fuzz {

/** The one host widget on which view after view is made, and the user in front of it. */
class Rig : public test::HostFixture {
public:
    Rig();

    /** Whether gestures render as they do for a user; without it only render() does, for speed. */
    void setGesturesRender(bool render) { gesturesRender = render; }
    /** Lets the mouse reach the view that has just been made, as the first repaint would. */
    void wake();

    /** One thing that the user does; answers how many of Qt's events that were. */
    int userActs(Deal& deal);
    /** Lets go of all buttons, so that what follows does not depend on what was. */
    void calmDown();

    QSize size(Deal& deal) const;

private:
    QPointF place(Deal& deal);

    bool gesturesRender = false;
};

} // namespace ovl::fuzz

#endif
