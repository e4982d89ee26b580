// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_IMAGEPAGE_H
#define OVL_GALLERY_IMAGEPAGE_H

#include "image.h"
#include "imagepanel.h"
#include "page.h"
#include "scannersimulation.h"
#include <hosting/viewwidget.h>
#include <visualization/imageview.h>

#include <optional>

namespace ovl::gallery {

/** The image view: a simulated line-scan camera, or a picture from a file. */
class ImagePage : public Page {
    Q_OBJECT

public:
    explicit ImagePage(ScannerSimulation& scanner, QWidget* parent = nullptr);
    ~ImagePage() override;

    QString open(const QString& path) override;
    void showSimulation() override;
    bool canPlay() const override;
    bool step() override;
    void resetView() override;
    void prepareForPicture() override;

private:
    void connectPanel();
    void startCamera(bool colour);
    void showFile();
    void draw();
    /** `missingRows` at the bottom are left out. */
    void drawRows(int missingRows);
    void rebuild();
    void fit();
    void pointAt(int column, int row);
    void tellPixel();
    QString sampleText(int column, int row);
    bool showsFile() const { return camera == nullptr; }
    int width() const { return showsFile() ? image->width : camera->width(); }
    int height() const { return showsFile() ? image->height : camera->height(); }
    int components() const { return showsFile() ? image->components : camera->components(); }
    int sampleAt(std::size_t index);

    ScannerSimulation& scanner;
    LineScanCamera* camera = nullptr; // the one that is shown; null while a file is
    std::optional<Image> image; // the last file; the view reads it in place and goes first
    QString fileName;
    int pointedColumn = -1; // under the mouse; -1 for none
    int pointedRow = -1;
    hosting::ViewWidget<ImageView>* widget;
    ImagePanel* panel;
};

} // namespace ovl::gallery

#endif
