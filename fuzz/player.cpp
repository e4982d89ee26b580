// SPDX-License-Identifier: BSD-3-Clause
#include "player.h"

#include <vtkObject.h>

#include <QApplication>
#include <QSurfaceFormat>

#include <cstdio>

namespace ovl::fuzz {
namespace {

constexpr long kReportEvery = 100000;

long events = 0;

void count(int more)
{
    const long before = events;
    events += more;
    if (events / kReportEvery != before / kReportEvery)
        std::fprintf(stderr, "events: %ld\n", events);
}

} // namespace

long Player::eventCount() { return events; }

void Player::play(Deal& deal)
{
    rig.setGesturesRender(deal.rarely(16));
    make(deal);
    rig.wake();
    while (!deal.isEmpty())
        step(deal);
}

void Player::step(Deal& deal)
{
    const int kind = deal.below(16);
    if (kind < pace.calls) {
        call(deal);
        count(1);
    } else if (kind < 15) {
        count(rig.userActs(deal));
    } else {
        changeSurroundings(deal);
        count(1);
    }
}

void Player::changeSurroundings(Deal& deal)
{
    const int kind = deal.below(12);
    if (kind < pace.repaints) {
        rig.render();
    } else if (kind == 6 || kind == 7) {
        rig.resize(rig.size(deal));
    } else if (kind < 11) {
        QApplication::processEvents(); // the scene's timers among them
    } else if (pace.makings == 1 || deal.below(pace.makings) == 0) {
        make(deal);
        rig.wake();
    }
}

void playBytes(Rig& rig, const std::uint8_t* data, std::size_t size)
{
    Deal deal(data, size);
    makePlayer(rig)->play(deal);
    rig.calmDown();
}

void prepareApplication()
{
    QSurfaceFormat format = compat::HostWidget::defaultFormat();
    format.setSamples(0);
    QSurfaceFormat::setDefaultFormat(format);
}

void silenceMessages() { vtkObject::GlobalWarningDisplayOff(); }

} // namespace ovl::fuzz
