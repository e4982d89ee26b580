// SPDX-License-Identifier: BSD-3-Clause
#include "noticebar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>
#include <QVariant>

namespace ovl::gallery {
namespace {

constexpr int kLongestWord = 60; // characters; a label breaks lines between words only

/** A long path would widen the window: its middle is left out. */
QString withShortWords(const QString& text)
{
    QStringList words = text.split(QLatin1Char(' '));
    for (QString& word : words)
        if (word.size() > kLongestWord)
            word = word.left(kLongestWord / 2) + QChar(0x2026) + word.right(kLongestWord / 2);
    return words.join(QLatin1Char(' '));
}

} // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent)
    , label(new QLabel(this))
{
    setObjectName(QStringLiteral("notice"));
    label->setTextFormat(Qt::PlainText); // file names are not markup
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* close = new QToolButton(this);
    close->setText(QStringLiteral("\u2715"));
    close->setToolTip(tr("Close this message"));
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 4, 0);
    layout->addWidget(label, 1);
    layout->addWidget(close);
    hide();
}

void NoticeBar::showProblem(const QString& text) { showText(text, "problem"); }

void NoticeBar::showRemark(const QString& text) { showText(text, "remark"); }

void NoticeBar::showText(const QString& text, const char* kind)
{
    label->setText(withShortWords(text));
    label->setToolTip(text);
    setProperty("kind", QString::fromLatin1(kind));
    style()->unpolish(this); // the style sheet looks at the property once only
    style()->polish(this);
    show();
}

} // namespace ovl::gallery
