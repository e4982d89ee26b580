// SPDX-License-Identifier: BSD-3-Clause
#include "settingspanel.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace ovl::gallery {

SettingsPanel::SettingsPanel(QWidget* parent)
    : QScrollArea(parent)
    , column(nullptr)
{
    setObjectName(QStringLiteral("panel"));
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* content = new QWidget;
    column = new QVBoxLayout(content);
    column->setContentsMargins(16, 8, 16, 16);
    column->setSpacing(8);
    setWidget(content);
}

void SettingsPanel::add(const std::vector<SettingGroup>& groups)
{
    for (const SettingGroup& group : groups) {
        QFormLayout* rows = addGroup(group.heading);
        for (const SettingRow& row : group.rows)
            addRow(*rows, row);
    }
}

QFormLayout* SettingsPanel::addGroup(const QString& heading)
{
    if (column->count() > 0) {
        auto* rule = new QFrame;
        rule->setProperty("role", QStringLiteral("rule"));
        column->addWidget(rule);
    }
    auto* label = new QLabel(heading.toUpper());
    label->setProperty("role", QStringLiteral("section"));
    label->setIndent(0);
    column->addWidget(label);
    auto* rows = new QFormLayout;
    rows->setHorizontalSpacing(12);
    rows->setVerticalSpacing(7);
    rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    column->addLayout(rows);
    return rows;
}

void SettingsPanel::addRow(QFormLayout& rows, const SettingRow& row)
{
    auto* field = new QWidget;
    auto* line = new QHBoxLayout(field);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(6);
    for (const Setting& setting : row.settings) {
        const bool wide = setting.editor != Setting::Editor::Colour;
        line->addWidget(addEditor(setting), wide ? 1 : 0);
    }
    if (row.label.isEmpty()) {
        rows.addRow(field);
        return;
    }
    auto* label = new QLabel(row.label);
    label->setMinimumWidth(fontMetrics().averageCharWidth() * 12); // one column for all groups
    rows.addRow(label, field);
}

QWidget* SettingsPanel::addEditor(const Setting& setting)
{
    const SettingEditor editor = makeSettingEditor(setting);
    places[setting.name] = entries.size();
    entries.push_back({setting, editor});
    const QSignalBlocker quiet(editor.widget);
    editor.show(setting.value);
    return editor.widget;
}

QLabel* SettingsPanel::addReadOut(const char* name)
{
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setProperty("role", QStringLiteral("readout"));
    label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(label);
    return label;
}

void SettingsPanel::finish() { column->addStretch(1); }

const SettingsPanel::Entry& SettingsPanel::entry(const char* name) const
{
    return entries[places.at(QString::fromLatin1(name))];
}

QVariant SettingsPanel::value(const char* name) const { return entry(name).editor.value(); }

void SettingsPanel::show(const char* name, const QVariant& value)
{
    const QSignalBlocker quiet(entry(name).editor.widget);
    entry(name).editor.show(value);
}

void SettingsPanel::set(const char* name, const QVariant& value)
{
    show(name, value);
    entry(name).setting.apply(entry(name).editor.value());
}

void SettingsPanel::setChoices(const char* name, const QStringList& choices)
{
    auto* box = static_cast<QComboBox*>(editor(name));
    const QSignalBlocker quiet(box);
    box->clear();
    box->addItems(choices);
}

void SettingsPanel::enable(const char* name, bool enabled) { editor(name)->setEnabled(enabled); }

QWidget* SettingsPanel::editor(const char* name) const { return entry(name).editor.widget; }

void SettingsPanel::applyToView() const
{
    for (const Entry& each : entries)
        if (each.setting.ofView)
            each.setting.apply(each.editor.value());
}

QSize SettingsPanel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 46, QScrollArea::sizeHint().height()};
}

} // namespace ovl::gallery
