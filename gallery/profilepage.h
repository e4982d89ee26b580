// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PROFILEPAGE_H
#define OVL_GALLERY_PROFILEPAGE_H

#include "axisscale.h"
#include "page.h"
#include "setting.h"
#include <hosting/viewwidget.h>
#include <visualization/profileview.h>

class QLabel;

namespace ovl::gallery {

class MeasuringTools;

/** How a curve is shown. */
struct CurveLook {
    QString title;
    QColor colour;
    int corner = 0; // as the profile view counts them
    bool visible = true;
    QString format = QStringLiteral("%l   x %a   y %b   row %j");
};

/** The profile view: the laser line over the belt, or the columns of a table from a file. */
class ProfilePage : public Page {
    Q_OBJECT

public:
    explicit ProfilePage(Scanner& scanner, QWidget* parent = nullptr);

    bool canShow(FileKind kind) const override { return kind == FileKind::Table; }
    std::unique_ptr<Filling> fill(const SharedContents& file) override;
    void showScanner() override;
    void resetView() override;
    void prepareForPicture() override;

private:
    class ProfileFilling;
    using Widget = hosting::ViewWidget<ProfileView>;

    SettingGroup regionSettings();
    SettingGroup curveSettings();
    SettingGroup titleSettings();
    SettingGroup axisSettings();
    SettingRow titleRow(const QString& name, const char* key,
        void (ProfileView::*setTitle)(const QString&),
        void (ProfileView::*setColour)(const QColor&));
    SettingRow rangeRow(const QString& name, const char* from, const char* to);
    Setting curveSetting(Setting setting, std::function<void(CurveLook&, const QVariant&)> change);

    bool takeFrame() override;
    void show(const SharedContents& file, std::unique_ptr<Widget> filled, int xPower, int yPower);
    /** Takes over a view whose table is filled. */
    void showView(std::unique_ptr<Widget> filled, std::vector<CurveLook> looks);
    void showTitles(const QStringList& leftBottomRight, const QString& title);
    void showCurve(int index);
    void applyCurve(std::size_t index);
    void applyTooltipNumbers();
    /** Lays joining lines and measuring tools over the curves, anew. */
    void layShapes();
    void measure();
    void suitHomeRanges();
    void showHomeRange(const char* from, const char* to, const HomeRange& range);
    HomeRange homeRange(const char* from, const char* to) const;

    const Table& table() const;
    ProfileView& view() const { return viewed->view(); }
    void resizeEvent(QResizeEvent* event) override;

    bool touched = false; // by the mouse since the home ranges were shown
    int xExponent = 0; // powers of ten between the table and the view
    int yExponent = 0;
    std::vector<CurveLook> curves;
    Widget* viewed = nullptr;
    MeasuringTools* tools;
    QLabel* readOut = nullptr;
};

} // namespace ovl::gallery

#endif
