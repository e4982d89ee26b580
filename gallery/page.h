// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PAGE_H
#define OVL_GALLERY_PAGE_H

#include "filecontents.h"
#include "filling.h"
#include "framemeter.h"
#include "scanner.h"

#include <QElapsedTimer>
#include <QWidget>

class QVBoxLayout;

namespace ovl::hosting {
class AbstractViewWidget;
}

namespace ovl::gallery {

class ElidedLabel;
class SettingsPanel;

/** One view with its data, under a heading and over hints; its settings stand in the dock. */
class Page : public QWidget {
    Q_OBJECT

public:
    ~Page() override;

    const QString& title() const { return heading; }
    /** What is shown, in words. */
    const QString& source() const { return sourceText; }
    /** Owned by whoever shows it; the page must not outlive its use of it. */
    SettingsPanel* settings() const { return panel; }
    hosting::AbstractViewWidget* viewWidget() const { return shownView; }

    virtual bool canShow(FileKind kind) const = 0;
    /** Prepares to show a file's contents instead of the scanner. */
    virtual std::unique_ptr<Filling> fill(const SharedContents& contents) = 0;
    /** Shows the scanner: first of all, and back from a file. */
    virtual void showScanner() = 0;
    bool showsFile() const { return contents != nullptr; }

    Q_INVOKABLE virtual void resetView() = 0;
    /** Arranges the page as its picture is to show it. */
    virtual void prepareForPicture() = 0;

    // What lies at a place that the page's view has told, in words; empty for nothing.
    virtual QString textAt(int column, int row) const;
    virtual QString textAt(double x, double y, double z) const;

    /** Frames really painted in a second. */
    double frameRate() const;
    void setActive(bool active);

Q_SIGNALS:
    void sourceChanged();
    /** There are other samples under the mouse. */
    void frameTaken();
    /** The view is about to tell what lies under the mouse. */
    void pointedAt();
    void pointerLeft();
    /** The user has turned to this page. */
    void activated();
    void maximiseWanted();

protected:
    Page(Scanner& scanner, const QString& title, const QStringList& hints, QWidget* parent);

    /** Shows another view; the one before goes. */
    void setView(hosting::AbstractViewWidget* view);
    void setSource(const QString& text);
    /** Shows what the scanner has now; false when that is what was shown before. */
    virtual bool takeFrame() = 0;

    ScannerSimulation& scene() const { return feeder.simulation(); }

    SharedContents contents; // null while the scanner is shown
    SettingsPanel* const panel;

    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void noteScannerMoved();
    bool isDue() const;
    void notePaint();
    void takeFrameNow();

    Scanner& feeder;
    QString heading;
    QString sourceText;
    hosting::AbstractViewWidget* shownView = nullptr;
    QVBoxLayout* frame;
    QWidget* strip;
    ElidedLabel* sourceLabel;
    bool awaitsFrame = false; // the scanner has moved since the last one
    bool awaitsPaint = false; // the last frame has not been seen yet
    QElapsedTimer sinceFrame;
    QElapsedTimer sincePaint;
    qint64 lastCost = 0; // ms from a frame to its picture
    QElapsedTimer life;
    FrameMeter meter;
};

} // namespace ovl::gallery

#endif
