// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SETTINGSPANEL_H
#define OVL_GALLERY_SETTINGSPANEL_H

#include <QScrollArea>

class QFormLayout;
class QVBoxLayout;

namespace ovl::gallery {

/** The column beside a view that holds its settings, section by section. */
class SettingsPanel : public QScrollArea {
    Q_OBJECT

public:
    explicit SettingsPanel(QWidget* parent = nullptr);

    /** Opens a section under a heading; its rows go into the layout returned. */
    QFormLayout* addSection(const QString& heading);
    /** Keeps what was added at the top; called once, at the end. */
    void finish();

    QSize sizeHint() const override;

private:
    QVBoxLayout* column;
};

} // namespace ovl::gallery

#endif
