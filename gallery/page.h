// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PAGE_H
#define OVL_GALLERY_PAGE_H

#include "filekind.h"

#include <QElapsedTimer>
#include <QWidget>

namespace ovl::hosting {
class AbstractViewWidget;
}

namespace ovl::gallery {

class SettingsPanel;
class SourceControls;

/** One view with its data and its settings; the window shows one page at a time. */
class Page : public QWidget {
    Q_OBJECT

public:
    /** Shows a file instead of the simulation. Returns the problem; on one, what was there stays.
     */
    virtual QString open(const QString& path) = 0;
    /** Shows the simulated source: first of all, and back from a file. */
    virtual void showSimulation() = 0;

    /** Lets the source run, or holds it. A page that is not on the screen never runs. */
    void setPlaying(bool playing);
    bool isPlaying() const { return playing; }
    /** Whether there is anything to run: a file stands still. */
    virtual bool canPlay() const = 0;
    /** Takes the next frame; the clock does so while the page plays. False when none is due. */
    virtual bool step() = 0;

    Q_INVOKABLE virtual void resetView() = 0;
    /** Runs the source until the page shows what it is made for. */
    virtual void prepareForPicture() = 0;

    void setPanelVisible(bool visible);
    hosting::AbstractViewWidget* viewWidget() const { return view; }

Q_SIGNALS:
    /** What lies under the mouse, in words; empty for nothing. */
    void coordinatesChanged(const QString& text);
    /** What the page shows. */
    void sourceChanged(const QString& text);
    void playingChanged(bool playing);
    /** Something about the shown file that the user should know. */
    void remarked(const QString& text);

protected:
    explicit Page(int frameInterval, QWidget* parent);

    /** Lays out the page; called again with another view in the place of one that is gone. */
    void setContent(hosting::AbstractViewWidget* viewWidget, SettingsPanel* settings);
    /** Lets the controls play and pause the page, and show which it does. */
    void connectSource(SourceControls& controls);

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void updateClock();
    bool isDue() const;
    void notePaint();

    hosting::AbstractViewWidget* view = nullptr;
    SettingsPanel* panel = nullptr;
    int interval; // ms
    int clock = 0; // 0 while it stands
    bool awaitsPaint = false; // the last frame has not been seen yet
    QElapsedTimer sinceStep;
    QElapsedTimer sincePaint;
    qint64 lastCost = 0; // ms from a step to its picture
    bool playing = true;
};

} // namespace ovl::gallery

#endif
