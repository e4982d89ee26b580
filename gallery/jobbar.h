// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_JOBBAR_H
#define OVL_GALLERY_JOBBAR_H

#include <QFrame>
#include <QTimer>

class QLabel;
class QProgressBar;

namespace ovl::gallery {

/** A strip that tells how far a long piece of work is, and lets the user stop it. */
class JobBar : public QFrame {
    Q_OBJECT

public:
    explicit JobBar(QWidget* parent = nullptr);

    /** Comes up after a moment: short work is not worth a look. */
    void begin(const QString& what);
    void setShare(double share);
    void end();

Q_SIGNALS:
    void cancelWanted();

private:
    QLabel* label;
    QProgressBar* bar;
    QTimer moment;
};

} // namespace ovl::gallery

#endif
