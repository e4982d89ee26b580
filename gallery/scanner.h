// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SCANNER_H
#define OVL_GALLERY_SCANNER_H

#include "scannersimulation.h"

#include <QElapsedTimer>
#include <QObject>

namespace ovl::gallery {

/** The simulated scanner with the only clock: as it runs, all pages are fed. */
class Scanner : public QObject {
    Q_OBJECT

public:
    static constexpr int kSlowest = 2; // mm a second
    static constexpr int kFastest = 120;
    static constexpr int kUsualSpeed = 20;

    explicit Scanner(QObject* parent = nullptr);

    ScannerSimulation& simulation() { return scene; }

    bool isRunning() const { return clock != 0; }
    int speed() const { return millimetres; }
    /** Held within its limits. */
    void setSpeed(int millimetresPerSecond);

    void setRunning(bool run);
    /** Moves on by one tick's way, for a scanner that stands. */
    void step();
    /** Back to the first part; a scanner that stands goes on standing. */
    void restart();
    void moveTo(double position);

Q_SIGNALS:
    /** New lines have come in. */
    void moved();
    void runningChanged(bool running);
    void speedChanged(int millimetresPerSecond);

private:
    void timerEvent(QTimerEvent* event) override;

    ScannerSimulation scene;
    int millimetres = kUsualSpeed;
    int clock = 0; // 0 while it stands
    QElapsedTimer sinceTick;
};

} // namespace ovl::gallery

#endif
