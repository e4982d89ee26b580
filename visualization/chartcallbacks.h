// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_CHARTCALLBACKS_H
#define OVL_VISUALIZATION_CHARTCALLBACKS_H

#include "cursortype.h"

#include <functional>

namespace ovl {

/**
 * The four hooks through which a chart reaches the view that owns it, without knowing it. Each is
 * empty until set, and an empty function empties it again. A call of an empty hook answers false
 * and does nothing; any other answers true.
 */
class ChartCallbacks {
public:
    ChartCallbacks();
    ~ChartCallbacks();

    ChartCallbacks(const ChartCallbacks&) = delete;
    ChartCallbacks& operator=(const ChartCallbacks&) = delete;

    /** Told `true` when interaction has changed what must be drawn. */
    void setDirtyCallback(std::function<void(bool)> callback);
    /** Given a point's row and x, answers the number that a tooltip shows for it. */
    void setCustomXCallback(std::function<double(int, double)> callback);
    /** Given a point's row and y, answers the number that a tooltip shows for it. */
    void setCustomYCallback(std::function<double(int, double)> callback);
    /** Told the cursor to show, at every move of the mouse over the chart. */
    void setCursorCallback(std::function<void(CursorType)> callback);

    bool notifyDirty(bool dirty) const;
    /** Replaces `value` by the hook's answer. */
    bool customX(int seriesIndex, double& value) const;
    /** Replaces `value` by the hook's answer. */
    bool customY(int seriesIndex, double& value) const;
    bool notifyCursor(CursorType type) const;

private:
    class Private;
    Private* d;
};

} // namespace ovl

#endif
