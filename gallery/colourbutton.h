// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_COLOURBUTTON_H
#define OVL_GALLERY_COLOURBUTTON_H

#include <QColor>
#include <QPushButton>

namespace ovl::gallery {

/** Shows a colour and lets the user choose another. */
class ColourButton : public QPushButton {
    Q_OBJECT

public:
    explicit ColourButton(const QColor& colour, QWidget* parent = nullptr);

    const QColor& colour() const { return chosen; }
    void display(const QColor& colour);

Q_SIGNALS:
    void colourChosen(const QColor& colour);

private:
    void choose();

    QColor chosen;
};

} // namespace ovl::gallery

#endif
