// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time: what the value classes share. Each keeps its contents on the
// heap behind one owning pointer; a moved-from value has a null one.
#ifndef OVL_VISUALIZATION_VALUECONTENTS_H
#define OVL_VISUALIZATION_VALUECONTENTS_H

#include "precondition.h"

#include <utility>

namespace ovl {

/** What lies behind `d`. Only destruction and assignment are open to a moved-from value. */
template <class Private> Private& contents([[maybe_unused]] const char* operation, Private* d)
{
    OVL_PRECONDITION(operation, d != nullptr, 0);
    return *d;
}

/** A copy of what lies behind `d`; a release build copies a moved-from value as one. */
template <class Private>
Private* copyOfContents([[maybe_unused]] const char* operation, const Private* d)
{
    OVL_PRECONDITION(operation, d != nullptr, 0);
    return d ? new Private(*d) : nullptr;
}

/** Copy assignment from another value: the new contents are complete before the old ones go. */
template <class Private>
void copyContents(const char* operation, Private*& target, const Private* source)
{
    Private* copy = copyOfContents<Private>(operation, source);
    delete std::exchange(target, copy);
}

/**
 * Move assignment. The target's contents go before source and target are compared, so that a value
 * moved onto itself ends up without contents: that is meant.
 */
template <class Private> void moveContents(Private*& target, Private*& source)
{
    delete std::exchange(target, nullptr);
    if (&target == &source)
        return;
    target = std::exchange(source, nullptr);
}

} // namespace ovl

#endif
