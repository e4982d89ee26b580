// SPDX-License-Identifier: BSD-3-Clause
#include "viewwidget.h"

#include <visualization/export.h>
#include <visualization/vtkcompat.h>

#include <vtkRenderWindowInteractor.h>

#include <QEvent>
#include <QScreen>
#include <QSurfaceFormat>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

namespace ovl::hosting {
namespace {

constexpr double kUsualRefreshRate = 60.0; // Hz, where the screen does not tell

int refreshInterval(const QWidget& widget)
{
    const QWindow* window = widget.window()->windowHandle();
    const QScreen* screen = window ? window->screen() : nullptr;
    const double rate = screen ? screen->refreshRate() : kUsualRefreshRate;
    return static_cast<int>(1000.0 / (rate > 1.0 ? rate : kUsualRefreshRate));
}

} // namespace

class OVL_HIDDEN AbstractViewWidget::Private {
public:
    compat::HostWidget* surface = nullptr; // a child of the widget
    View* view = nullptr;
    QTimer pace;
    bool rendered = false; // since the present view is watched
};

void prepareApplication() { QSurfaceFormat::setDefaultFormat(compat::HostWidget::defaultFormat()); }

AbstractViewWidget::AbstractViewWidget(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    d->surface = new compat::HostWidget(this);
    d->surface->setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d->surface);
    d->pace.setTimerType(Qt::PreciseTimer);
    QObject::connect(&d->pace, &QTimer::timeout, this, [this] {
        if (d->view && (d->view->isDirty() || !d->rendered))
            render();
    });
}

AbstractViewWidget::~AbstractViewWidget() = default;

QOpenGLWidget* AbstractViewWidget::surface() const { return d->surface; }

void AbstractViewWidget::render()
{
    // A hidden widget has nothing to draw on yet: the flag stays up until it is shown.
    if (!d->view || !d->surface->isVisible() || !d->surface->isValid())
        return;
    compat::renderWindow(d->surface)->Render();
    d->view->setDirty(false);
    d->rendered = true;
    Q_EMIT rendered();
}

void AbstractViewWidget::watch(View* view)
{
    d->view = view;
    d->rendered = false;
    if (!view)
        return d->pace.stop();
    // The view has put an interactor of its own on the window. Woken only after the widget is
    // shown, it would leave the window black until the first resize.
    compat::renderWindow(d->surface)->GetInteractor()->Initialize();
    d->pace.start(refreshInterval(*this));
}

bool AbstractViewWidget::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        event->accept(); // the framework's widget lets them through after it has used them
        return true;
    default:
        return QWidget::event(event);
    }
}

void AbstractViewWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    d->pace.setInterval(refreshInterval(*this)); // the screen is known by now
}

} // namespace ovl::hosting
