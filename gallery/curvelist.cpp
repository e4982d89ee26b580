// SPDX-License-Identifier: BSD-3-Clause
#include "curvelist.h"

#include "colourbutton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace ovl::gallery {

CurveList::CurveList(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void CurveList::setCurves(const std::vector<CurveLook>& curves)
{
    delete rows;
    rows = new QWidget;
    auto* grid = new QGridLayout(rows);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(5);
    grid->setColumnStretch(1, 1);
    for (std::size_t i = 0; i < curves.size(); ++i)
        addRow(grid, static_cast<int>(i) + 1, curves[i]);
    layout()->addWidget(rows);
}

void CurveList::addRow(QGridLayout* grid, int column, const CurveLook& look)
{
    auto* shown = new QCheckBox;
    shown->setChecked(true);
    shown->setToolTip(tr("Shown or hidden"));
    auto* title = new QLineEdit(look.title);
    title->setMinimumWidth(60);
    auto* colour = new ColourButton(look.colour);
    colour->setIconSize({18, 10});
    auto* corner = new QComboBox;
    corner->addItems({tr("left"), tr("right"), tr("top right"), tr("top left")});
    corner->setCurrentIndex(look.corner);
    corner->setToolTip(tr("The axes that the curve is drawn against"));
    connect(shown, &QCheckBox::toggled, this,
        [this, column](bool visible) { Q_EMIT visibilityChanged(column, visible); });
    connect(title, &QLineEdit::editingFinished, this,
        [this, column, title] { Q_EMIT titleChanged(column, title->text()); });
    connect(colour, &ColourButton::colourChosen, this,
        [this, column](const QColor& chosen) { Q_EMIT colourChanged(column, chosen); });
    connect(corner, QOverload<int>::of(&QComboBox::activated), this,
        [this, column](int chosen) { Q_EMIT cornerChanged(column, chosen); });
    int place = 0;
    for (QWidget* control : {static_cast<QWidget*>(shown), static_cast<QWidget*>(title),
             static_cast<QWidget*>(colour), static_cast<QWidget*>(corner)})
        grid->addWidget(control, column, place++);
}

} // namespace ovl::gallery
