// SPDX-License-Identifier: BSD-3-Clause
#include "elidedlabel.h"

namespace ovl::gallery {
namespace {

const QString kBetween = QStringLiteral("   \u00b7   ");

} // namespace

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setIndent(0);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedLabel::setParts(const QStringList& text)
{
    parts = text;
    setToolTip(parts.join(kBetween));
    fit();
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    fit();
}

void ElidedLabel::fit()
{
    const int room = contentsRect().width();
    const auto fits
        = [&](const QString& text) { return fontMetrics().horizontalAdvance(text) <= room; };
    QString shown = parts.value(0);
    for (int i = 1; i < parts.size(); ++i) {
        const QString longer = shown + kBetween + parts[i];
        if (!fits(longer))
            break;
        shown = longer;
    }
    setText(fits(shown) ? shown : fontMetrics().elidedText(shown, Qt::ElideRight, room));
}

} // namespace ovl::gallery
