// SPDX-License-Identifier: BSD-3-Clause
#include "jobbar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace ovl::gallery {
namespace {

constexpr int kMoment = 150; // ms
constexpr int kThousandths = 1000;
constexpr int kWidest = 400; // of the text, so that a long name leaves room for the bar

} // namespace

JobBar::JobBar(QWidget* parent)
    : QFrame(parent)
    , label(new QLabel)
    , bar(new QProgressBar)
{
    setObjectName(QStringLiteral("job"));
    label->setTextFormat(Qt::PlainText); // file names are not markup
    bar->setRange(0, kThousandths);
    bar->setTextVisible(false);
    auto* cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName(QStringLiteral("cancel"));
    cancel->setToolTip(tr("What was shown before stays (Esc)"));
    connect(cancel, &QPushButton::clicked, this, &JobBar::cancelWanted);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(14, 5, 8, 5);
    layout->setSpacing(14);
    layout->addWidget(label);
    layout->addWidget(bar, 1);
    layout->addWidget(cancel);
    moment.setSingleShot(true);
    connect(&moment, &QTimer::timeout, this, &QWidget::show);
    hide();
}

void JobBar::begin(const QString& what)
{
    label->setText(fontMetrics().elidedText(what, Qt::ElideMiddle, kWidest));
    label->setToolTip(what);
    bar->setValue(0);
    if (isHidden())
        moment.start(kMoment);
}

void JobBar::setShare(double share) { bar->setValue(static_cast<int>(share * kThousandths)); }

void JobBar::end()
{
    moment.stop();
    hide();
}

} // namespace ovl::gallery
