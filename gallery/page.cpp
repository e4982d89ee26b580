// SPDX-License-Identifier: BSD-3-Clause
#include "page.h"

#include "elidedlabel.h"
#include "settingspanel.h"
#include <hosting/viewwidget.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QOpenGLWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace ovl::gallery {
namespace {

ElidedLabel* makeLine(const QString& role)
{
    auto* label = new ElidedLabel;
    label->setProperty("role", role);
    return label;
}

} // namespace

Page::Page(Scanner& scanner, const QString& title, const QStringList& hints, QWidget* parent)
    : QWidget(parent)
    , panel(new SettingsPanel)
    , feeder(scanner)
    , heading(title)
    , frame(new QVBoxLayout(this))
    , strip(new QWidget)
    , sourceLabel(makeLine(QStringLiteral("source")))
{
    strip->setProperty("role", QStringLiteral("strip"));
    strip->setToolTip(tr("Double click: this view alone, or all four"));
    auto* name = new QLabel(title);
    name->setProperty("role", QStringLiteral("title"));
    sourceLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(12, 5, 12, 5);
    row->setSpacing(16);
    row->addWidget(name);
    row->addWidget(sourceLabel, 1);
    frame->setContentsMargins(0, 0, 0, 0);
    frame->setSpacing(0);
    frame->addWidget(strip);
    auto* hint = makeLine(QStringLiteral("hint"));
    hint->setContentsMargins(12, 4, 12, 4);
    hint->setParts(hints);
    frame->addWidget(hint);
    life.start();
    connect(&scanner, &Scanner::moved, this, &Page::noteScannerMoved);
    connect(&scanner, &Scanner::runningChanged, this, [this](bool running) {
        if (!running && awaitsFrame)
            noteScannerMoved(); // the last one is shown, even if its turn had not come
    });
}

Page::~Page() { delete static_cast<QWidget*>(shownView); }

void Page::setView(hosting::AbstractViewWidget* view)
{
    delete static_cast<QWidget*>(shownView);
    shownView = view;
    frame->insertWidget(1, shownView, 1);
    shownView->surface()->installEventFilter(this);
    awaitsPaint = false;
    connect(shownView, &hosting::AbstractViewWidget::rendered, this, &Page::notePaint);
}

void Page::setSource(const QString& text)
{
    sourceText = text;
    sourceLabel->setParts({text});
    Q_EMIT sourceChanged();
}

void Page::setActive(bool active)
{
    strip->setProperty("active", active);
    QList<QWidget*> widgets = strip->findChildren<QWidget*>();
    widgets.append(strip);
    for (QWidget* each : qAsConst(widgets)) {
        each->style()->unpolish(each); // the style sheet looks at the property once only
        each->style()->polish(each);
    }
}

QString Page::textAt(int, int) const { return QString(); }

QString Page::textAt(double, double, double) const { return QString(); }

void Page::noteScannerMoved()
{
    if (showsFile())
        return;
    awaitsFrame = true;
    if (isVisible() && (isDue() || !feeder.isRunning())) // nothing follows when it stands
        takeFrameNow();
}

void Page::takeFrameNow()
{
    awaitsFrame = false;
    sinceFrame.start();
    awaitsPaint = takeFrame();
    if (awaitsPaint)
        Q_EMIT frameTaken();
}

/**
 * No frame before the last one has been seen, and then a pause in proportion: where painting is
 * slow the frames become fewer, and the user still gets a turn.
 */
bool Page::isDue() const
{
    return !awaitsPaint && (!sincePaint.isValid() || sincePaint.elapsed() >= lastCost / 2);
}

void Page::notePaint()
{
    meter.addFrame(life.elapsed());
    if (!awaitsPaint)
        return;
    awaitsPaint = false;
    lastCost = sinceFrame.elapsed();
    sincePaint.start();
}

double Page::frameRate() const { return meter.rate(life.elapsed()); }

void Page::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    awaitsPaint = false; // a page that was hidden meanwhile has not been painted
    if (awaitsFrame && !showsFile())
        takeFrameNow();
}

bool Page::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        Q_EMIT pointedAt();
        break;
    case QEvent::Leave:
        Q_EMIT pointerLeft();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        Q_EMIT activated();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void Page::mousePressEvent(QMouseEvent*) { Q_EMIT activated(); }

void Page::mouseDoubleClickEvent(QMouseEvent*) { Q_EMIT maximiseWanted(); }

} // namespace ovl::gallery
