// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_IMAGEPAGE_H
#define OVL_GALLERY_IMAGEPAGE_H

#include "page.h"
#include "setting.h"
#include <hosting/viewwidget.h>
#include <visualization/imageview.h>

namespace ovl::gallery {

/** The image view: what the cameras over the belt deliver, or a picture from a file. */
class ImagePage : public Page {
    Q_OBJECT

public:
    explicit ImagePage(Scanner& scanner, QWidget* parent = nullptr);

    bool canShow(FileKind kind) const override { return kind == FileKind::Image; }
    std::unique_ptr<Filling> fill(const SharedContents& file) override;
    void showScanner() override;
    void resetView() override;
    void prepareForPicture() override;
    using Page::textAt;
    QString textAt(int column, int row) const override;

private:
    class ImageFilling;

    SettingGroup sampleSettings();
    SettingGroup tableSettings();
    SettingGroup colourSettings();
    SettingRow maskRow(const QString& name, int channel);
    SettingRow outsideRow(const QString& name, const char* key, const QColor& first,
        void (ImageView::*enable)(bool), void (ImageView::*setColour)(const QColor&));
    Setting::Apply applied(std::function<void(const QVariant&)> apply);

    bool takeFrame() override;
    void show(const SharedContents& file);
    void chooseCamera(CameraKind kind);
    /** Sets shift, table and range to suit what is shown. */
    void suit(const DisplayRange& range, bool table);
    void applyRange();
    void enableTable(bool enable);
    void forceColour(bool force);
    void updateSettings();
    void fitTable();
    void draw();
    /** `missingRows` at the bottom are left out. */
    void drawRows(int missingRows);

    int width() const { return showsFile() ? contents->image.width : camera->width(); }
    int height() const { return showsFile() ? contents->image.height : camera->height(); }
    int components() const;
    int sampleAt(std::size_t index) const;

    ImageView& view() const { return viewed->view(); }

    CameraKind cameraKind = CameraKind::Range;
    LineScanCamera* camera = nullptr; // of the present kind
    hosting::ViewWidget<ImageView>* viewed;
};

} // namespace ovl::gallery

#endif
