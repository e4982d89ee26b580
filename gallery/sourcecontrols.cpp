// SPDX-License-Identifier: BSD-3-Clause
#include "sourcecontrols.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace ovl::gallery {

SourceControls::SourceControls(const QStringList& simulated, QWidget* parent)
    : QWidget(parent)
    , simulatedCount(simulated.count())
    , choice(new QComboBox)
    , speedLabel(new QLabel)
    , speedSlider(new QSlider(Qt::Horizontal))
    , play(new QPushButton)
{
    choice->addItems(simulated);
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    play->setCheckable(true);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(7);
    layout->addWidget(choice, 0, 0, 1, 2);
    layout->addWidget(speedLabel, 1, 0);
    layout->addWidget(speedSlider, 1, 1);
    layout->addWidget(play, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    connect(choice, QOverload<int>::of(&QComboBox::activated), this, &SourceControls::choose);
    connect(play, &QPushButton::clicked, this, &SourceControls::playingChosen);
    showPlaying(true);
}

void SourceControls::setSpeedRange(const QString& label, int slowest, int fastest, int value)
{
    speedLabel->setText(label);
    speedSlider->setRange(slowest, fastest);
    speedSlider->setValue(value);
}

int SourceControls::speed() const { return speedSlider->value(); }

void SourceControls::showSource(int index)
{
    choice->setCurrentIndex(index);
    enableSimulation(true);
}

void SourceControls::showFile(const QString& name)
{
    if (choice->count() > simulatedCount)
        choice->setItemText(simulatedCount, name);
    else
        choice->addItem(name);
    choice->setCurrentIndex(simulatedCount);
    enableSimulation(false);
}

void SourceControls::showPlaying(bool playing)
{
    play->setChecked(playing);
    play->setText(playing ? tr("Pause") : tr("Play"));
}

void SourceControls::choose(int index)
{
    if (index < simulatedCount)
        Q_EMIT sourceChosen(index);
    else
        Q_EMIT fileChosen();
}

void SourceControls::enableSimulation(bool enable)
{
    speedLabel->setEnabled(enable);
    speedSlider->setEnabled(enable);
    play->setEnabled(enable);
}

} // namespace ovl::gallery
