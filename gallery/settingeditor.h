// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SETTINGEDITOR_H
#define OVL_GALLERY_SETTINGEDITOR_H

#include "setting.h"

class QWidget;

namespace ovl::gallery {

/** The widget in which a setting is edited, whichever kind it is of. */
struct SettingEditor {
    QWidget* widget = nullptr;
    std::function<QVariant()> value;
    std::function<void(const QVariant&)> show;
};

/** Makes the editor; each new value by the user goes to the setting's `apply` at once. */
SettingEditor makeSettingEditor(const Setting& setting);

} // namespace ovl::gallery

#endif
