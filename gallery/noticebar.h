// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_NOTICEBAR_H
#define OVL_GALLERY_NOTICEBAR_H

#include <QFrame>

class QLabel;

namespace ovl::gallery {

/** A strip that says what went wrong, and stays until it is closed: nothing has to be answered. */
class NoticeBar : public QFrame {
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent);

    /** Something was refused. */
    void showProblem(const QString& text);
    /** Something was done, with a reservation. */
    void showRemark(const QString& text);

private:
    void showText(const QString& text, const char* kind);

    QLabel* label;
};

} // namespace ovl::gallery

#endif
