// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_ELIDEDLABEL_H
#define OVL_GALLERY_ELIDEDLABEL_H

#include <QLabel>
#include <QStringList>

namespace ovl::gallery {

/**
 * A line of text that becomes shorter where its widget is too narrow for it, and never keeps the
 * window from becoming narrow. The tooltip tells the whole.
 */
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /** Parts that are told one after the other; those at the end are left out first. */
    void setParts(const QStringList& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    QStringList parts;
};

} // namespace ovl::gallery

#endif
