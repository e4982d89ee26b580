// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_IMAGEPANEL_H
#define OVL_GALLERY_IMAGEPANEL_H

#include "displayrange.h"
#include "settingspanel.h"

class QCheckBox;
class QGridLayout;
class QPushButton;
class QSpinBox;

namespace ovl {
class ImageView;
}

namespace ovl::gallery {

class ColourButton;
class SourceControls;

/** The settings of an image view. They go to the view at once; the page draws again. */
class ImagePanel : public SettingsPanel {
    Q_OBJECT

public:
    explicit ImagePanel(ImageView& view);

    SourceControls& source() const { return *controls; }

    /** Sets shift, table and range to suit an image. */
    void suit(const DisplayRange& range, bool table);
    /** Colour has no use for the table. */
    void setTablePossible(bool possible);

Q_SIGNALS:
    /** A setting waits for the next draw. */
    void redrawWanted();
    /** A setting waits for a draw with another size. */
    void rebuildWanted();
    void fitWanted();
    void resetViewWanted();

private:
    void addSourceSection();
    void addShiftSection();
    void addTableSection();
    void addForcedSection();
    void addMaskRow(QGridLayout* grid, int channel, const QString& name);
    void addViewSection();
    void updateControls();
    void applyRange();
    void suitShift();
    void enableTable(bool enable);
    void forceColour(bool force);

    ImageView& view;
    SourceControls* controls = nullptr;
    QSpinBox* shift = nullptr;
    QCheckBox* table = nullptr;
    QSpinBox* darkest = nullptr;
    QSpinBox* brightest = nullptr;
    QPushButton* fit = nullptr;
    QCheckBox* above = nullptr;
    QCheckBox* below = nullptr;
    ColourButton* aboveColour = nullptr;
    ColourButton* belowColour = nullptr;
    QCheckBox* forced = nullptr;
    QWidget* masks = nullptr;
    bool tablePossible = true;
    int suitableShift = 0; // of the present source
};

} // namespace ovl::gallery

#endif
