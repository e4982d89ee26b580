// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SETTINGSPANEL_H
#define OVL_GALLERY_SETTINGSPANEL_H

#include "settingeditor.h"

#include <QScrollArea>

#include <map>

class QFormLayout;
class QLabel;
class QVBoxLayout;

namespace ovl::gallery {

/** The settings of one page, group by group, made from tables. */
class SettingsPanel : public QScrollArea {
    Q_OBJECT

public:
    explicit SettingsPanel(QWidget* parent = nullptr);

    void add(const std::vector<SettingGroup>& groups);
    /** A line of text of the page's own, at the end of the last group. */
    QLabel* addReadOut(const char* name);
    /** Keeps what was added at the top; called once, at the end. */
    void finish();

    QVariant value(const char* name) const;
    bool isOn(const char* name) const { return value(name).toBool(); }
    int whole(const char* name) const { return value(name).toInt(); }
    double real(const char* name) const { return value(name).toDouble(); }

    /** Shows a value without applying it. */
    void show(const char* name, const QVariant& value);
    /** Shows a value and applies it, as if the user had set it. */
    void set(const char* name, const QVariant& value);
    void setChoices(const char* name, const QStringList& choices);
    void enable(const char* name, bool enabled);
    QWidget* editor(const char* name) const;

    /** Applies all that a new view has to be told, in the order of the tables. */
    void applyToView() const;

    QSize sizeHint() const override;

private:
    struct Entry {
        Setting setting;
        SettingEditor editor;
    };

    QFormLayout* addGroup(const QString& heading);
    void addRow(QFormLayout& rows, const SettingRow& row);
    QWidget* addEditor(const Setting& setting);
    const Entry& entry(const char* name) const;

    QVBoxLayout* column;
    std::vector<Entry> entries;
    std::map<QString, std::size_t> places; // by the name of the setting
};

} // namespace ovl::gallery

#endif
