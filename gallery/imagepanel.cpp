// SPDX-License-Identifier: BSD-3-Clause
#include "imagepanel.h"

#include "colourbutton.h"
#include "sourcecontrols.h"
#include <visualization/imageview.h>
#include <visualization/range.h>

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace ovl::gallery {
namespace {

constexpr int kLargestSample = 65535;
constexpr int kLargestShift = 15;

QSpinBox* makeSpinBox(int smallest, int largest, int value)
{
    auto* box = new QSpinBox;
    box->setRange(smallest, largest);
    box->setValue(value);
    return box;
}

QSpinBox* makeWordBox(int value)
{
    QSpinBox* box = makeSpinBox(0, kLargestSample, value);
    box->setDisplayIntegerBase(16);
    box->setPrefix(QStringLiteral("0x"));
    return box;
}

} // namespace

ImagePanel::ImagePanel(ImageView& imageView)
    : view(imageView)
{
    addSourceSection();
    addShiftSection();
    addTableSection();
    addForcedSection();
    addViewSection();
    finish();
    updateControls();
}

void ImagePanel::addSourceSection()
{
    controls = new SourceControls(
        {tr("Line-scan camera, mono 12 bits"), tr("Line-scan camera, colour 12 bits")});
    controls->setSpeedRange(tr("Belt speed"), 1, 24, 5); // lines per frame
    addSection(tr("Source"))->addRow(controls);
}

void ImagePanel::addShiftSection()
{
    QFormLayout* rows = addSection(tr("Shift"));
    shift = makeSpinBox(0, kLargestShift, 4);
    shift->setSuffix(tr(" bits right"));
    shift->setToolTip(tr("What is shown is the low byte of the shifted sample"));
    view.setShift(shift->value());
    connect(shift, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int bits) {
        view.setShift(bits);
        Q_EMIT redrawWanted();
    });
    rows->addRow(tr("Samples"), shift);
}

void ImagePanel::addTableSection()
{
    QFormLayout* rows = addSection(tr("Lookup table"));
    table = new QCheckBox(tr("Map samples through the table"));
    connect(table, &QCheckBox::toggled, this, &ImagePanel::enableTable);
    darkest = makeSpinBox(0, kLargestSample, 0);
    brightest = makeSpinBox(0, kLargestSample, 255);
    for (QSpinBox* box : {darkest, brightest})
        connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, &ImagePanel::applyRange);
    fit = new QPushButton(tr("Fit to image"));
    connect(fit, &QPushButton::clicked, this, &ImagePanel::fitWanted);
    above = new QCheckBox(tr("Above"));
    below = new QCheckBox(tr("Below"));
    aboveColour = new ColourButton(QColor(0xff, 0x4d, 0x3d));
    belowColour = new ColourButton(QColor(0x1f, 0x4f, 0xd0));
    view.setAboveRangeColor(aboveColour->colour());
    view.setBelowRangeColor(belowColour->colour());
    connect(above, &QCheckBox::toggled, this, [this](bool on) {
        view.enableAboveRangeColor(on);
        Q_EMIT redrawWanted();
    });
    connect(below, &QCheckBox::toggled, this, [this](bool on) {
        view.enableBelowRangeColor(on);
        Q_EMIT redrawWanted();
    });
    connect(aboveColour, &ColourButton::colourChosen, this, [this](const QColor& colour) {
        view.setAboveRangeColor(colour);
        Q_EMIT redrawWanted();
    });
    connect(belowColour, &ColourButton::colourChosen, this, [this](const QColor& colour) {
        view.setBelowRangeColor(colour);
        Q_EMIT redrawWanted();
    });
    rows->addRow(table);
    rows->addRow(tr("Black at"), darkest);
    rows->addRow(tr("White at"), brightest);
    rows->addRow(fit);
    rows->addRow(above, aboveColour);
    rows->addRow(below, belowColour);
}

void ImagePanel::addForcedSection()
{
    QFormLayout* rows = addSection(tr("Forced colour and masks"));
    forced = new QCheckBox(tr("Show four channels, masked"));
    connect(forced, &QCheckBox::toggled, this, &ImagePanel::forceColour);
    masks = new QWidget;
    auto* grid = new QGridLayout(masks);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel(tr("AND")), 0, 1);
    grid->addWidget(new QLabel(tr("OR")), 0, 2);
    addMaskRow(grid, 0, tr("Blue"));
    addMaskRow(grid, 1, tr("Green"));
    addMaskRow(grid, 2, tr("Red"));
    addMaskRow(grid, 3, tr("Alpha"));
    rows->addRow(forced);
    rows->addRow(masks);
}

void ImagePanel::addMaskRow(QGridLayout* grid, int channel, const QString& name)
{
    constexpr int kOrWords = 4; // their indices follow those of the AND words
    grid->addWidget(new QLabel(name), channel + 1, 0);
    QSpinBox* andWord = makeWordBox(kLargestSample);
    QSpinBox* orWord = makeWordBox(channel == 3 ? kLargestSample : 0);
    grid->addWidget(andWord, channel + 1, 1);
    grid->addWidget(orWord, channel + 1, 2);
    connect(andWord, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, channel](int word) {
        view.setMask(channel, word);
        Q_EMIT redrawWanted();
    });
    connect(orWord, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, channel](int word) {
        view.setMask(channel + kOrWords, word);
        Q_EMIT redrawWanted();
    });
}

void ImagePanel::addViewSection()
{
    QFormLayout* rows = addSection(tr("View"));
    auto* reset = new QPushButton(tr("Show the whole image"));
    connect(reset, &QPushButton::clicked, this, &ImagePanel::resetViewWanted);
    rows->addRow(reset);
}

void ImagePanel::suit(const DisplayRange& range, bool useTable)
{
    const QSignalBlocker quiet(this); // one draw follows for all of it
    suitableShift = range.shift;
    darkest->setValue(range.darkest);
    brightest->setValue(range.brightest);
    applyRange();
    table->setChecked(useTable && tablePossible);
    suitShift();
}

void ImagePanel::setTablePossible(bool possible)
{
    tablePossible = possible;
    if (!possible)
        table->setChecked(false);
    updateControls();
}

void ImagePanel::applyRange()
{
    if (darkest->value() < brightest->value()) // while both are being typed they may cross
        view.setLookupTableRange(Range(darkest->value(), brightest->value()));
    Q_EMIT redrawWanted();
}

/** The table's range is told in raw samples, which needs them unshifted. */
void ImagePanel::suitShift() { shift->setValue(table->isChecked() ? 0 : suitableShift); }

void ImagePanel::enableTable(bool enable)
{
    if (enable)
        forced->setChecked(false); // the view does not combine the two
    view.enableLookupTable(enable);
    suitShift();
    updateControls();
    Q_EMIT redrawWanted();
}

void ImagePanel::forceColour(bool force)
{
    if (force)
        table->setChecked(false);
    view.forceColor(force);
    updateControls();
    Q_EMIT rebuildWanted();
}

void ImagePanel::updateControls()
{
    const bool mapped = table->isChecked();
    table->setEnabled(tablePossible);
    for (QWidget* control : {static_cast<QWidget*>(darkest), static_cast<QWidget*>(brightest),
             static_cast<QWidget*>(fit), static_cast<QWidget*>(above), static_cast<QWidget*>(below),
             static_cast<QWidget*>(aboveColour), static_cast<QWidget*>(belowColour)})
        control->setEnabled(mapped);
    masks->setVisible(forced->isChecked());
}

} // namespace ovl::gallery
