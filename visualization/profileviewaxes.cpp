// SPDX-License-Identifier: BSD-3-Clause
// The chart's frame: titles, axes, zoom switches and home ranges.
#include "profileview.h"
#include "profileview_p.h"

#include <vtkAxis.h>
#include <vtkRenderWindow.h>
#include <vtkTextProperty.h>

#include <QColor>
#include <QString>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace ovl {
namespace {

double extent(int minimum, int maximum)
{
    return static_cast<double>(static_cast<std::int64_t>(maximum) - minimum);
}

/** Towards zero; home ranges are whole numbers. What no int can hold becomes the nearest. */
int truncated(double bound)
{
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double greatest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(std::max(bound, least), greatest));
}

double sideLength(int pixels) { return pixels == 0 ? 1.0 : pixels; }

} // namespace

QString ProfileView::Private::axisTitle(int axis) const
{
    return {chart->GetAxis(axis)->GetTitle().c_str()};
}

void ProfileView::Private::setAxisTitle(int axis, const QString& title)
{
    chart->GetAxis(axis)->SetTitle(title.toStdString());
}

// Truncation of 0.0 to 1.0 onto a scale of 0 to 255: only a full channel survives, as 1. This is
// how the interface has always answered.
QColor ProfileView::Private::axisColor(int axis) const
{
    const double* rgb = chart->GetAxis(axis)->GetTitleProperties()->GetColor();
    QColor color;
    color.setRgb(static_cast<int>(rgb[0]), static_cast<int>(rgb[1]), static_cast<int>(rgb[2]), 255);
    return color;
}

void ProfileView::Private::setAxisColor(int axis, const QColor& color)
{
    chart->GetAxis(axis)->GetTitleProperties()->SetColor(
        color.redF(), color.greenF(), color.blueF());
}

void ProfileView::Private::showHome(int axis, const HomeRange& home)
{
    chart->GetAxis(axis)->SetRange(double(home.minimum), double(home.maximum));
}

QString ProfileView::title() const { return {d->chart->GetTitle().c_str()}; }

void ProfileView::setTitle(const QString& title) { d->chart->SetTitle(title.toStdString()); }

QString ProfileView::leftTitle() const { return d->axisTitle(vtkAxis::LEFT); }

void ProfileView::setLeftTitle(const QString& title) { d->setAxisTitle(vtkAxis::LEFT, title); }

QString ProfileView::bottomTitle() const { return d->axisTitle(vtkAxis::BOTTOM); }

void ProfileView::setBottomTitle(const QString& title) { d->setAxisTitle(vtkAxis::BOTTOM, title); }

QString ProfileView::rightTitle() const { return d->axisTitle(vtkAxis::RIGHT); }

void ProfileView::setRightTitle(const QString& title) { d->setAxisTitle(vtkAxis::RIGHT, title); }

QString ProfileView::topTitle() const { return d->axisTitle(vtkAxis::TOP); }

void ProfileView::setTopTitle(const QString& title) { d->setAxisTitle(vtkAxis::TOP, title); }

QColor ProfileView::leftColorTitle() const { return d->axisColor(vtkAxis::LEFT); }

void ProfileView::setLeftColorTitle(const QColor& color) { d->setAxisColor(vtkAxis::LEFT, color); }

QColor ProfileView::bottomColorTitle() const { return d->axisColor(vtkAxis::BOTTOM); }

void ProfileView::setBottomColorTitle(const QColor& color)
{
    d->setAxisColor(vtkAxis::BOTTOM, color);
}

QColor ProfileView::rightColorTitle() const { return d->axisColor(vtkAxis::RIGHT); }

void ProfileView::setRightColorTitle(const QColor& color)
{
    d->setAxisColor(vtkAxis::RIGHT, color);
}

QColor ProfileView::topColorTitle() const { return d->axisColor(vtkAxis::TOP); }

void ProfileView::setTopColorTitle(const QColor& color) { d->setAxisColor(vtkAxis::TOP, color); }

// The getters and the setters of visibility are about two flags: a setter shows or hides the axis
// as an item of the scene, a getter tells whether the axis would draw its line. That is meant.
bool ProfileView::leftAxisVisibility() const
{
    return d->chart->GetAxis(vtkAxis::LEFT)->GetAxisVisible();
}

void ProfileView::setleftAxisVisibility(bool visible)
{
    d->chart->GetAxis(vtkAxis::LEFT)->SetVisible(visible);
}

bool ProfileView::bottomAxisVisibility() const
{
    return d->chart->GetAxis(vtkAxis::BOTTOM)->GetAxisVisible();
}

void ProfileView::setBottomAxisVisibility(bool visible)
{
    d->chart->GetAxis(vtkAxis::BOTTOM)->SetVisible(visible);
}

bool ProfileView::RightAxisVisibility() const
{
    return d->chart->GetAxis(vtkAxis::RIGHT)->GetAxisVisible();
}

void ProfileView::setRightAxisVisibility(bool visible)
{
    d->chart->GetAxis(vtkAxis::RIGHT)->SetVisible(visible);
}

bool ProfileView::topAxisVisibility() const
{
    return d->chart->GetAxis(vtkAxis::TOP)->GetAxisVisible();
}

void ProfileView::setTopAxisVisibility(bool visible)
{
    d->chart->GetAxis(vtkAxis::TOP)->SetVisible(visible);
}

void ProfileView::setLeftRange(int minimum, int maximum) { d->leftRange = {minimum, maximum}; }

void ProfileView::setBottomRange(int minimum, int maximum) { d->bottomRange = {minimum, maximum}; }

void ProfileView::setRightRange(int minimum, int maximum) { d->rightRange = {minimum, maximum}; }

void ProfileView::setTopRange(int minimum, int maximum) { d->topRange = {minimum, maximum}; }

Range& ProfileView::range(int index)
{
    Range* range = elementAt("ProfileView::range", d->ranges, index);
    return range ? *range : d->ranges.front();
}

void ProfileView::enableHorizontalZoom(bool enabled)
{
    d->chart->GetAxisZoomEnabled()[vtkAxis::BOTTOM] = enabled;
}

bool ProfileView::horizontalZoomEnabled() const
{
    return d->chart->GetAxisZoomEnabled()[vtkAxis::BOTTOM];
}

void ProfileView::enabledLeftVerticalZoom(bool enabled)
{
    d->chart->GetAxisZoomEnabled()[vtkAxis::LEFT] = enabled;
}

bool ProfileView::leftVerticalZoomEnabled() const
{
    return d->chart->GetAxisZoomEnabled()[vtkAxis::LEFT];
}

void ProfileView::enabledRightVerticalZoom(bool enabled)
{
    d->chart->GetAxisZoomEnabled()[vtkAxis::RIGHT] = enabled;
}

bool ProfileView::rightVerticalZoomEnabled() const
{
    return d->chart->GetAxisZoomEnabled()[vtkAxis::RIGHT];
}

void ProfileView::setCrosshairCursor(bool crosshair) { d->chart->SetCrosshairCursor(crosshair); }

bool ProfileView::usingCrosshairCursor() const { return d->chart->GetCrosshairCursor(); }

// An axis is widened by the extent of the other one, not its own: that is meant.
void ProfileView::resetView()
{
    const int* size = d->renderWindow->GetSize();
    const double width = sideLength(size[0]);
    const double height = sideLength(size[1]);
    Private::HomeRange bottom = d->bottomRange;
    Private::HomeRange left = d->leftRange;
    const auto widen = [](Private::HomeRange& home, double other, double ratio) {
        const double delta = std::fabs(other * ratio - other) * 0.5;
        home = {truncated(home.minimum - delta), truncated(home.maximum + delta)};
    };
    if (height / width < 1.0)
        widen(bottom, extent(left.minimum, left.maximum), height / width);
    else if (width / height < 1.0)
        widen(left, extent(bottom.minimum, bottom.maximum), width / height);

    d->showHome(vtkAxis::BOTTOM, bottom);
    d->showHome(vtkAxis::LEFT, left);
    d->showHome(vtkAxis::TOP, d->topRange);
    d->showHome(vtkAxis::RIGHT, d->rightRange);
    const Range x(bottom.minimum, bottom.maximum);
    const Range y(left.minimum, left.maximum);
    for (std::size_t i = 0; i < d->shapes.size(); ++i)
        if (d->hasShape("ProfileView::resetView", i)) {
            d->shapes[i].setXAxisRange(x);
            d->shapes[i].setYAxisRange(y);
        }
    d->chart->RecalculateBounds();
    d->dirty = true;
}

} // namespace ovl
