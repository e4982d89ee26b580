// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PROFILEPANEL_H
#define OVL_GALLERY_PROFILEPANEL_H

#include "axisscale.h"
#include "settingspanel.h"

#include <array>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace ovl::gallery {

class CurveList;
class SourceControls;

/** The home ranges of the axes that a page uses. */
struct HomeRanges {
    HomeRange bottom;
    HomeRange left;
    HomeRange right;
};

/** The settings of a profile view, and what its measuring tools read. */
class ProfilePanel : public SettingsPanel {
    Q_OBJECT

public:
    enum Zoom { Horizontal, Left, Right };

    ProfilePanel();

    SourceControls& source() const { return *controls; }
    CurveList& curves() const { return *curveList; }
    QString title() const;
    void setTitle(const QString& title);
    HomeRanges homeRanges() const;
    void setHomeRanges(const HomeRanges& ranges);
    bool zooms(Zoom axis) const;
    bool hasCrosshair() const;
    bool showsTools() const;
    bool joinsSamples() const;
    /** Lines are made for what stands still. */
    void setJoiningPossible(bool possible);
    void setReadOut(const QString& text);

Q_SIGNALS:
    /** Title, zoom switches or crosshair. */
    void frameChanged();
    /** Tools are shown or hidden, or samples joined or not. */
    void overlayChanged();
    void resetViewWanted();

private:
    using Ends = std::array<QSpinBox*, 2>;

    void addSource();
    void addTools();
    void addCurves();
    void addAxes();
    Ends addHomeRow(QGridLayout* grid, const QString& label);

    SourceControls* controls = nullptr;
    CurveList* curveList = nullptr;
    QCheckBox* tools = nullptr;
    QCheckBox* join = nullptr;
    QLabel* readOut = nullptr;
    QLineEdit* titleEdit = nullptr;
    QCheckBox* crosshair = nullptr;
    std::array<QCheckBox*, 3> zoom {};
    Ends bottom {};
    Ends left {};
    Ends right {};
};

} // namespace ovl::gallery

#endif
