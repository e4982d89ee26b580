// SPDX-License-Identifier: BSD-3-Clause
#include "scanner.h"

#include <algorithm>

namespace ovl::gallery {
namespace {

constexpr int kTick = 33; // ms
constexpr qint64 kLongestTick = 100; // ms; a busy window sees the belt slow down, not jump

double wayIn(qint64 milliseconds, int speed)
{
    return speed * static_cast<double>(milliseconds) / 1000.0;
}

} // namespace

Scanner::Scanner(QObject* parent)
    : QObject(parent)
{
}

void Scanner::setSpeed(int millimetresPerSecond)
{
    const int wanted = std::clamp(millimetresPerSecond, kSlowest, kFastest);
    if (wanted == millimetres)
        return;
    millimetres = wanted;
    Q_EMIT speedChanged(wanted);
}

void Scanner::setRunning(bool run)
{
    if (run == isRunning())
        return;
    if (run) {
        clock = startTimer(kTick);
        sinceTick.start();
    } else {
        killTimer(clock);
        clock = 0;
    }
    Q_EMIT runningChanged(run);
}

void Scanner::step()
{
    scene.advance(wayIn(kTick, millimetres));
    Q_EMIT moved();
}

void Scanner::restart()
{
    scene.restart();
    Q_EMIT moved();
}

void Scanner::moveTo(double position)
{
    scene.moveTo(position);
    Q_EMIT moved();
}

void Scanner::timerEvent(QTimerEvent*)
{
    scene.advance(wayIn(std::min(sinceTick.restart(), kLongestTick), millimetres));
    Q_EMIT moved();
}

} // namespace ovl::gallery
