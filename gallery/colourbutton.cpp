// SPDX-License-Identifier: BSD-3-Clause
#include "colourbutton.h"

#include <QColorDialog>
#include <QPixmap>

namespace ovl::gallery {

ColourButton::ColourButton(const QColor& colour, QWidget* parent)
    : QPushButton(parent)
{
    setIconSize({32, 12});
    display(colour);
    connect(this, &QPushButton::clicked, this, &ColourButton::choose);
}

void ColourButton::choose()
{
    auto* dialog = new QColorDialog(chosen, this); // not modal: the stream goes on meanwhile
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this, [this](const QColor& colour) {
        display(colour);
        Q_EMIT colourChosen(colour);
    });
    dialog->show();
}

void ColourButton::display(const QColor& colour)
{
    chosen = colour;
    QPixmap swatch(iconSize());
    swatch.fill(colour);
    setIcon(swatch);
}

} // namespace ovl::gallery
