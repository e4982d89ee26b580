// SPDX-License-Identifier: BSD-3-Clause
#include "settingeditor.h"

#include "colourbutton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr int kUsualDecimals = 3;
constexpr int kMostDecimals = 12;

SettingEditor makeCheck(const Setting& setting)
{
    auto* box = new QCheckBox(setting.label);
    QObject::connect(
        box, &QCheckBox::toggled, box, [apply = setting.apply](bool on) { apply(on); });
    return {box, [box] { return box->isChecked(); },
        [box](const QVariant& value) { box->setChecked(value.toBool()); }};
}

SettingEditor makeWhole(const Setting& setting)
{
    auto* box = new QSpinBox;
    box->setRange(static_cast<int>(setting.smallest), static_cast<int>(setting.largest));
    box->setKeyboardTracking(false);
    box->setSuffix(setting.suffix);
    if (setting.editor == Setting::Editor::Hexadecimal) {
        box->setDisplayIntegerBase(16);
        box->setPrefix(QStringLiteral("0x"));
    }
    if (setting.largest - setting.smallest > 99)
        box->setButtonSymbols(QAbstractSpinBox::NoButtons); // typed, or turned by the wheel
    QObject::connect(box, QOverload<int>::of(&QSpinBox::valueChanged), box,
        [apply = setting.apply](int number) { apply(number); });
    return {box, [box] { return box->value(); },
        [box](const QVariant& value) { box->setValue(value.toInt()); }};
}

/** As many decimals as two digits of the number need. */
int decimalsFor(double value)
{
    const double size = std::abs(value);
    const int needed = size > 0 ? 1 - static_cast<int>(std::floor(std::log10(size))) : 0;
    return std::clamp(needed, kUsualDecimals, kMostDecimals);
}

SettingEditor makeReal(const Setting& setting)
{
    auto* box = new QDoubleSpinBox;
    box->setDecimals(kUsualDecimals);
    box->setRange(setting.smallest, setting.largest);
    box->setSingleStep(0.1);
    box->setKeyboardTracking(false);
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("00.000")));
    QObject::connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), box,
        [apply = setting.apply](double number) { apply(number); });
    return {box, [box] { return box->value(); },
        [box](const QVariant& value) {
            box->setDecimals(decimalsFor(value.toDouble()));
            box->setValue(value.toDouble());
        }};
}

SettingEditor makeText(const Setting& setting)
{
    auto* line = new QLineEdit;
    QObject::connect(line, &QLineEdit::textEdited, line,
        [apply = setting.apply](const QString& content) { apply(content); });
    return {line, [line] { return line->text(); },
        [line](const QVariant& value) {
            line->setText(value.toString());
            line->setCursorPosition(0); // the beginning tells more than the end
        }};
}

SettingEditor makeColour(const Setting& setting)
{
    auto* button = new ColourButton(setting.value.value<QColor>());
    QObject::connect(button, &ColourButton::colourChosen, button,
        [apply = setting.apply](const QColor& colour) { apply(colour); });
    return {button, [button] { return button->colour(); },
        [button](const QVariant& value) { button->display(value.value<QColor>()); }};
}

SettingEditor makeChoice(const Setting& setting)
{
    auto* box = new QComboBox;
    box->addItems(setting.choices);
    box->setPlaceholderText(QStringLiteral("\u2013")); // while nothing is chosen
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(6);
    QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box,
        [apply = setting.apply](int index) { apply(index); });
    return {box, [box] { return box->currentIndex(); },
        [box](const QVariant& value) { box->setCurrentIndex(value.toInt()); }};
}

SettingEditor makeAction(const Setting& setting)
{
    auto* button = new QPushButton(setting.label);
    QObject::connect(
        button, &QPushButton::clicked, button, [apply = setting.apply] { apply(QVariant()); });
    return {button, [] { return QVariant(); }, [](const QVariant&) {}};
}

SettingEditor makeBare(const Setting& setting)
{
    switch (setting.editor) {
    case Setting::Editor::Check:
        return makeCheck(setting);
    case Setting::Editor::Whole:
    case Setting::Editor::Hexadecimal:
        return makeWhole(setting);
    case Setting::Editor::Real:
        return makeReal(setting);
    case Setting::Editor::Text:
        return makeText(setting);
    case Setting::Editor::Colour:
        return makeColour(setting);
    case Setting::Editor::Choice:
        return makeChoice(setting);
    case Setting::Editor::Action:
        break;
    }
    return makeAction(setting);
}

} // namespace

SettingEditor makeSettingEditor(const Setting& setting)
{
    SettingEditor editor = makeBare(setting);
    editor.widget->setObjectName(setting.name);
    editor.widget->setToolTip(setting.tip);
    return editor;
}

} // namespace ovl::gallery
