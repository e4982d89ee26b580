// SPDX-License-Identifier: BSD-3-Clause
#include "chartcallbacks.h"

#include <utility>

namespace ovl {
namespace {

template <class... Arguments>
bool notify(const std::function<void(Arguments...)>& hook, Arguments... arguments)
{
    if (!hook)
        return false;
    hook(arguments...);
    return true;
}

bool replace(const std::function<double(int, double)>& hook, int seriesIndex, double& value)
{
    if (!hook)
        return false;
    value = hook(seriesIndex, value);
    return true;
}

} // namespace

class ChartCallbacks::Private {
public:
    std::function<void(bool)> dirty;
    std::function<double(int, double)> customX;
    std::function<double(int, double)> customY;
    std::function<void(CursorType)> cursor;
};

ChartCallbacks::ChartCallbacks()
    : d(new Private)
{
}

ChartCallbacks::~ChartCallbacks() { delete d; }

void ChartCallbacks::setDirtyCallback(std::function<void(bool)> callback)
{
    d->dirty.swap(callback);
}

void ChartCallbacks::setCustomXCallback(std::function<double(int, double)> callback)
{
    d->customX.swap(callback);
}

void ChartCallbacks::setCustomYCallback(std::function<double(int, double)> callback)
{
    d->customY.swap(callback);
}

void ChartCallbacks::setCursorCallback(std::function<void(CursorType)> callback)
{
    d->cursor.swap(callback);
}

bool ChartCallbacks::notifyDirty(bool dirty) const { return notify(d->dirty, dirty); }

bool ChartCallbacks::customX(int seriesIndex, double& value) const
{
    return replace(d->customX, seriesIndex, value);
}

bool ChartCallbacks::customY(int seriesIndex, double& value) const
{
    return replace(d->customY, seriesIndex, value);
}

bool ChartCallbacks::notifyCursor(CursorType type) const { return notify(d->cursor, type); }

} // namespace ovl
