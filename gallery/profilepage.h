// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_PROFILEPAGE_H
#define OVL_GALLERY_PROFILEPAGE_H

#include "curvelist.h"
#include "page.h"
#include "profilesimulation.h"
#include "scannersimulation.h"
#include <hosting/viewwidget.h>
#include <visualization/profileview.h>

#include <optional>

namespace ovl::gallery {

class MeasuringTools;
class ProfilePanel;

/** The profile view: a simulated laser line, or the columns of a table from a file. */
class ProfilePage : public Page {
    Q_OBJECT

public:
    explicit ProfilePage(ScannerSimulation& scanner, QWidget* parent = nullptr);

    QString open(const QString& path) override;
    void showSimulation() override;
    bool canPlay() const override;
    bool step() override;
    void resetView() override;
    void prepareForPicture() override;

private:
    void connectPanel();
    bool showsFile() const { return fileShown; }
    const Table& table() const { return showsFile() ? *fileTable : simulation.table(); }
    void showFile();
    /** A view has as many curves as it was made with: other data get a new one. */
    void makeView(const std::vector<CurveLook>& looks);
    void applyFrame();
    void fill();
    /** Lays joining lines and measuring tools over the curves, anew. */
    void layShapes();
    void measure();
    void suitHomeRanges();
    void chooseExponents();
    ProfileView& view() { return widget->view(); }
    void showEvent(QShowEvent* event) override;

    ProfileSimulation& simulation;
    std::optional<Table> fileTable; // the last file
    QString fileName;
    bool fileShown = false;
    int xExponent = 0; // powers of ten between the table and the view
    int yExponent = 0;
    std::vector<CurveLook> curves;
    hosting::ViewWidget<ProfileView>* widget = nullptr;
    ProfilePanel* panel;
    MeasuringTools* tools;
};

} // namespace ovl::gallery

#endif
