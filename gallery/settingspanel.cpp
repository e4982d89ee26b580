// SPDX-License-Identifier: BSD-3-Clause
#include "settingspanel.h"

#include <QFormLayout>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>
#include <QVariant>

namespace ovl::gallery {

SettingsPanel::SettingsPanel(QWidget* parent)
    : QScrollArea(parent)
    , column(nullptr)
{
    setObjectName(QStringLiteral("panel"));
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    auto* content = new QWidget;
    column = new QVBoxLayout(content);
    column->setContentsMargins(16, 8, 16, 16);
    column->setSpacing(8);
    setWidget(content);
}

QFormLayout* SettingsPanel::addSection(const QString& heading)
{
    if (column->count() > 0) {
        auto* rule = new QFrame;
        rule->setProperty("role", QStringLiteral("rule"));
        column->addWidget(rule);
    }
    auto* label = new QLabel(heading.toUpper());
    label->setProperty("role", QStringLiteral("section"));
    column->addWidget(label);
    auto* rows = new QFormLayout;
    rows->setHorizontalSpacing(12);
    rows->setVerticalSpacing(7);
    rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    column->addLayout(rows);
    return rows;
}

void SettingsPanel::finish() { column->addStretch(1); }

QSize SettingsPanel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 44, QScrollArea::sizeHint().height()};
}

} // namespace ovl::gallery
