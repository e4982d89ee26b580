// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SOURCECONTROLS_H
#define OVL_GALLERY_SOURCECONTROLS_H

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QSlider;

namespace ovl::gallery {

/** Where a page's data come from: one of some simulated sources, or the last file. */
class SourceControls : public QWidget {
    Q_OBJECT

public:
    explicit SourceControls(const QStringList& simulated, QWidget* parent = nullptr);

    /** Offers how fast the simulated sources run. */
    void setSpeedRange(const QString& label, int slowest, int fastest, int value);
    int speed() const;

    /** Shows that a simulated source runs. */
    void showSource(int index);
    /** Shows that a file is looked at, and keeps it among the choices. */
    void showFile(const QString& name);
    void showPlaying(bool playing);

Q_SIGNALS:
    void sourceChosen(int index);
    /** The last file again. */
    void fileChosen();
    void playingChosen(bool playing);

private:
    void choose(int index);
    void enableSimulation(bool enable);

    int simulatedCount;
    QComboBox* choice;
    QLabel* speedLabel;
    QSlider* speedSlider;
    QPushButton* play;
};

} // namespace ovl::gallery

#endif
