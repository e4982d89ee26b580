// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_VIEW_H
#define OVL_VISUALIZATION_VIEW_H

namespace ovl {

/**
 * What all views have in common: a flag by which they ask for a repaint.
 *
 * A view never renders by itself. It raises its dirty flag when what it shows has changed, be it by
 * a call of the host or by the user's mouse; the host looks at isDirty(), renders the widget's
 * window and calls setDirty(false). All calls belong on the GUI thread. One widget carries one view
 * at a time; the widget must outlive the view.
 */
class View {
public:
    virtual ~View() = default;

    /** Writes the dirty flag, nothing else: it asks nobody for a repaint. Only the host clears it.
     */
    virtual void setDirty(bool dirty) = 0;
    /** Whether the scene has changed since the host last cleared the flag; false at first. */
    virtual bool isDirty() const = 0;
};

} // namespace ovl

#endif
