// SPDX-License-Identifier: BSD-3-Clause
#include "page.h"

#include "settingspanel.h"
#include "sourcecontrols.h"
#include <hosting/viewwidget.h>

#include <QHBoxLayout>

namespace ovl::gallery {

Page::Page(int frameInterval, QWidget* parent)
    : QWidget(parent)
    , interval(frameInterval)
{
}

void Page::setContent(hosting::AbstractViewWidget* viewWidget, SettingsPanel* settings)
{
    view = viewWidget;
    panel = settings;
    if (!layout()) {
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(0);
        row->addWidget(panel);
    }
    static_cast<QHBoxLayout*>(layout())->insertWidget(0, view, 1);
    awaitsPaint = false;
    connect(view, &hosting::AbstractViewWidget::rendered, this, &Page::notePaint);
}

void Page::connectSource(SourceControls& controls)
{
    connect(&controls, &SourceControls::playingChosen, this, &Page::setPlaying);
    connect(this, &Page::playingChanged, &controls, &SourceControls::showPlaying);
    controls.showPlaying(playing);
}

void Page::setPlaying(bool on)
{
    if (playing == on)
        return;
    playing = on;
    updateClock();
    Q_EMIT playingChanged(on);
}

void Page::setPanelVisible(bool visible) { panel->setVisible(visible); }

void Page::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    updateClock();
}

void Page::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    updateClock();
}

void Page::timerEvent(QTimerEvent*)
{
    if (!canPlay() || !isDue())
        return;
    sinceStep.start();
    awaitsPaint = step();
}

/**
 * No frame before the last one has been seen, and then a pause in proportion: where painting is
 * slow the frames become fewer, and the user still gets a turn.
 */
bool Page::isDue() const
{
    return !awaitsPaint && (!sincePaint.isValid() || sincePaint.elapsed() >= lastCost / 2);
}

void Page::notePaint()
{
    if (!awaitsPaint)
        return;
    awaitsPaint = false;
    lastCost = sinceStep.elapsed();
    sincePaint.start();
}

void Page::updateClock()
{
    const bool run = playing && isVisible();
    awaitsPaint = false; // a page that was hidden meanwhile has not been painted
    if (run && clock == 0) {
        clock = startTimer(interval);
    } else if (!run && clock != 0) {
        killTimer(clock);
        clock = 0;
    }
}

} // namespace ovl::gallery
