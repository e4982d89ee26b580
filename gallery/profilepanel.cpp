// SPDX-License-Identifier: BSD-3-Clause
#include "profilepanel.h"

#include "curvelist.h"
#include "sourcecontrols.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVariant>

namespace ovl::gallery {
namespace {

constexpr int kGreatest = 200000000; // on an axis

} // namespace

ProfilePanel::ProfilePanel()
{
    addSource();
    addTools();
    addCurves();
    addAxes();
    finish();
}

void ProfilePanel::addSource()
{
    controls = new SourceControls({tr("Laser line over the belt")});
    controls->setSpeedRange(tr("Belt speed"), 1, 20, 4); // tenths of a mm per frame
    addSection(tr("Source"))->addRow(controls);
}

void ProfilePanel::addTools()
{
    QFormLayout* rows = addSection(tr("Measure"));
    tools = new QCheckBox(tr("Bands, box and distance"));
    tools->setChecked(true);
    connect(tools, &QCheckBox::toggled, this, &ProfilePanel::overlayChanged);
    readOut = new QLabel;
    readOut->setProperty("role", QStringLiteral("readout"));
    readOut->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    readOut->setTextFormat(Qt::PlainText);
    rows->addRow(tools);
    rows->addRow(readOut);
}

void ProfilePanel::addCurves()
{
    curveList = new CurveList;
    join = new QCheckBox(tr("Join the samples by lines"));
    join->setChecked(true);
    connect(join, &QCheckBox::toggled, this, &ProfilePanel::overlayChanged);
    QFormLayout* rows = addSection(tr("Curves"));
    rows->addRow(curveList);
    rows->addRow(join);
}

void ProfilePanel::addAxes()
{
    QFormLayout* rows = addSection(tr("Axes"));
    titleEdit = new QLineEdit;
    connect(titleEdit, &QLineEdit::editingFinished, this, &ProfilePanel::frameChanged);
    rows->addRow(tr("Title"), titleEdit);
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(5);
    bottom = addHomeRow(grid, tr("Bottom"));
    left = addHomeRow(grid, tr("Left"));
    right = addHomeRow(grid, tr("Right"));
    rows->addRow(grid);
    auto* switches = new QHBoxLayout;
    switches->addWidget(new QLabel(tr("Wheel")));
    const std::array<QString, 3> names {tr("x"), tr("left"), tr("right")};
    for (std::size_t i = 0; i < zoom.size(); ++i) {
        zoom[i] = new QCheckBox(names[i]);
        zoom[i]->setChecked(true);
        connect(zoom[i], &QCheckBox::toggled, this, &ProfilePanel::frameChanged);
        switches->addWidget(zoom[i]);
    }
    rows->addRow(switches);
    crosshair = new QCheckBox(tr("Crosshair cursor"));
    connect(crosshair, &QCheckBox::toggled, this, &ProfilePanel::frameChanged);
    rows->addRow(crosshair);
    auto* reset = new QPushButton(tr("Show the home ranges"));
    connect(reset, &QPushButton::clicked, this, &ProfilePanel::resetViewWanted);
    rows->addRow(reset);
}

ProfilePanel::Ends ProfilePanel::addHomeRow(QGridLayout* grid, const QString& label)
{
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(label), row, 0);
    Ends ends {};
    for (int i = 0; i < 2; ++i) {
        auto* box = new QSpinBox;
        box->setRange(-kGreatest, kGreatest);
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
        box->setKeyboardTracking(false);
        connect(box, &QSpinBox::editingFinished, this, &ProfilePanel::resetViewWanted);
        grid->addWidget(box, row, i + 1);
        ends[static_cast<std::size_t>(i)] = box;
    }
    return ends;
}

QString ProfilePanel::title() const { return titleEdit->text(); }

void ProfilePanel::setTitle(const QString& title) { titleEdit->setText(title); }

HomeRanges ProfilePanel::homeRanges() const
{
    return {{bottom[0]->value(), bottom[1]->value()}, {left[0]->value(), left[1]->value()},
        {right[0]->value(), right[1]->value()}};
}

void ProfilePanel::setHomeRanges(const HomeRanges& ranges)
{
    const auto set = [](const Ends& ends, const HomeRange& range) {
        ends[0]->setValue(range.from);
        ends[1]->setValue(range.to);
    };
    set(bottom, ranges.bottom);
    set(left, ranges.left);
    set(right, ranges.right);
}

bool ProfilePanel::zooms(Zoom axis) const
{
    return zoom[static_cast<std::size_t>(axis)]->isChecked();
}

bool ProfilePanel::hasCrosshair() const { return crosshair->isChecked(); }

bool ProfilePanel::showsTools() const { return tools->isChecked(); }

bool ProfilePanel::joinsSamples() const { return join->isEnabled() && join->isChecked(); }

void ProfilePanel::setJoiningPossible(bool possible)
{
    join->setEnabled(possible);
    join->setVisible(possible);
}

void ProfilePanel::setReadOut(const QString& text) { readOut->setText(text); }

} // namespace ovl::gallery
