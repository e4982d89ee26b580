// SPDX-License-Identifier: BSD-3-Clause
#include "scannerbar.h"

#include "scanner.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace ovl::gallery {
namespace {

constexpr int kSliderLength = 120; // pixels

} // namespace

ScannerBar::ScannerBar(Scanner& scanner, QWidget* parent)
    : QWidget(parent)
{
    auto* run = new QPushButton;
    run->setObjectName(QStringLiteral("run"));
    run->setMinimumWidth(fontMetrics().averageCharWidth() * 12);
    const auto showRunning
        = [run](bool running) { run->setText(running ? tr("Pause") : tr("Start")); };
    connect(run, &QPushButton::clicked, &scanner,
        [&scanner] { scanner.setRunning(!scanner.isRunning()); });
    connect(&scanner, &Scanner::runningChanged, run, showRunning);
    showRunning(scanner.isRunning());

    auto* restart = new QPushButton(tr("Restart"));
    restart->setObjectName(QStringLiteral("restart"));
    connect(restart, &QPushButton::clicked, &scanner, &Scanner::restart);

    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(QStringLiteral("speed"));
    slider->setRange(Scanner::kSlowest, Scanner::kFastest);
    slider->setFixedWidth(kSliderLength);
    slider->setToolTip(tr("How fast the belt runs"));
    auto* number = new QLabel;
    number->setMinimumWidth(fontMetrics().horizontalAdvance(tr("%1 mm/s").arg(888)));
    const auto showSpeed = [slider, number](int speed) {
        slider->setValue(speed);
        number->setText(tr("%1 mm/s").arg(speed));
    };
    connect(slider, &QSlider::valueChanged, &scanner, &Scanner::setSpeed);
    connect(&scanner, &Scanner::speedChanged, slider, showSpeed);
    showSpeed(scanner.speed());

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 12, 0);
    layout->setSpacing(8);
    for (QWidget* each : {static_cast<QWidget*>(run), static_cast<QWidget*>(restart),
             static_cast<QWidget*>(slider), static_cast<QWidget*>(number)})
        layout->addWidget(each);
}

} // namespace ovl::gallery
