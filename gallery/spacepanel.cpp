// SPDX-License-Identifier: BSD-3-Clause
#include "spacepanel.h"

#include "sourcecontrols.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr int kDecimals = 3;

struct Scheme {
    const char* name;
    ColorScheme scheme;
};

/** Of the many series, one of each kind; the first is where the page begins. */
constexpr Scheme kSchemes[] = {
    {QT_TR_NOOP("Smooth rainbow"), ColorScheme::None},
    {QT_TR_NOOP("Spectral, 11 colours"), ColorScheme::BREWER_DIVERGING_SPECTRAL_11},
    {QT_TR_NOOP("Purple to orange, 11 colours"), ColorScheme::BREWER_DIVERGING_PURPLE_ORANGE_11},
    {QT_TR_NOOP("Brown to green, 11 colours"), ColorScheme::BREWER_DIVERGING_BROWN_BLUE_GREEN_11},
    {QT_TR_NOOP("Yellow to brown, 9 colours"),
        ColorScheme::BREWER_SEQUENTIAL_YELLOW_ORANGE_BROWN_9},
    {QT_TR_NOOP("Blue to green, 9 colours"), ColorScheme::BREWER_SEQUENTIAL_BLUE_GREEN_9},
    {QT_TR_NOOP("Blue to purple, 9 colours"), ColorScheme::BREWER_SEQUENTIAL_BLUE_PURPLE_9},
    {QT_TR_NOOP("Spectrum"), ColorScheme::SPECTRUM},
    {QT_TR_NOOP("Warm"), ColorScheme::WARM},
    {QT_TR_NOOP("Cool"), ColorScheme::COOL},
    {QT_TR_NOOP("Blues"), ColorScheme::BLUES},
    {QT_TR_NOOP("Wild flower"), ColorScheme::WILD_FLOWER},
    {QT_TR_NOOP("Citrus"), ColorScheme::CITRUS},
};

} // namespace

SpacePanel::SpacePanel(const PerAxis& cameraPlace)
    : controls(new SourceControls({tr("Scan of a part")}))
{
    controls->setSpeedRange(tr("Profiles"), 1, 30, 6); // per frame
    addSection(tr("Source"))->addRow(controls);
    addColours();
    addNumbers(cameraPlace);
}

void SpacePanel::addColours()
{
    QFormLayout* rows = addSection(tr("Colours"));
    schemes = new QComboBox;
    for (const Scheme& scheme : kSchemes)
        schemes->addItem(tr(scheme.name), static_cast<int>(scheme.scheme));
    connect(schemes, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        [this] { Q_EMIT schemeChosen(static_cast<ColorScheme>(schemes->currentData().toInt())); });
    value = new QComboBox;
    value->addItem(tr("Height"));
    value->addItem(tr("Intensity"));
    connect(value, QOverload<int>::of(&QComboBox::activated), this,
        [this](int index) { Q_EMIT intensityChosen(index == 1); });
    for (QComboBox* box : {schemes, value})
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    rows->addRow(tr("Scheme"), schemes);
    rows->addRow(tr("Show"), value);
}

void SpacePanel::addRepresentation()
{
    auto* shapes = new QComboBox;
    shapes->addItem(tr("Surface"), static_cast<int>(Representation::Surface));
    shapes->addItem(tr("Wireframe"), static_cast<int>(Representation::Wireframe));
    shapes->addItem(tr("Points"), static_cast<int>(Representation::Points));
    connect(shapes, QOverload<int>::of(&QComboBox::activated), this, [this, shapes] {
        Q_EMIT representationChosen(static_cast<Representation>(shapes->currentData().toInt()));
    });
    addSection(tr("Representation"))->addRow(shapes);
}

void SpacePanel::addNumbers(const PerAxis& cameraPlace)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(7);
    grid->addWidget(new QLabel(QStringLiteral("X")), 0, 1, Qt::AlignHCenter);
    grid->addWidget(new QLabel(QStringLiteral("Y")), 0, 2, Qt::AlignHCenter);
    grid->addWidget(new QLabel(QStringLiteral("Z")), 0, 3, Qt::AlignHCenter);
    const PerAxis ones {1, 1, 1};
    heightScale = addNumberRow(grid, tr("Scale"), ones, &SpacePanel::scaleChanged)[2];
    addNumberRow(grid, tr("Correction"), ones, &SpacePanel::correctionChanged);
    addNumberRow(grid, tr("Camera at"), cameraPlace, &SpacePanel::cameraPlaceChanged);
    addSection(tr("Axes"))->addRow(grid);
}

std::array<QDoubleSpinBox*, 3> SpacePanel::addNumberRow(
    QGridLayout* grid, const QString& label, const PerAxis& values, Signal signal)
{
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(label), row, 0);
    std::array<QDoubleSpinBox*, 3> boxes {};
    for (int axis = 0; axis < 3; ++axis) {
        auto* box = new QDoubleSpinBox;
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
        box->setKeyboardTracking(false);
        box->setDecimals(kDecimals);
        box->setRange(-1e6, 1e6);
        box->setSingleStep(0.1);
        box->setValue(values[static_cast<std::size_t>(axis)]);
        box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("00.000")));
        connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, signal, axis](double number) {
                Q_EMIT(this->*signal)
                (axis, number);
            });
        grid->addWidget(box, row, axis + 1);
        boxes[static_cast<std::size_t>(axis)] = box;
    }
    return boxes;
}

void SpacePanel::finishWithCamera()
{
    auto* reset = new QPushButton(tr("Reset camera"));
    connect(reset, &QPushButton::clicked, this, &SpacePanel::resetCameraWanted);
    addSection(tr("View"))->addRow(reset);
    finish();
}

void SpacePanel::chooseScheme(ColorScheme scheme)
{
    schemes->setCurrentIndex(schemes->findData(static_cast<int>(scheme)));
}

void SpacePanel::setHeightScale(double scale)
{
    constexpr int kMostDecimals = 12;
    const int needed = scale > 0 ? 1 - static_cast<int>(std::floor(std::log10(scale))) : 0;
    heightScale->setDecimals(std::clamp(needed, kDecimals, kMostDecimals));
    heightScale->setValue(scale);
}

void SpacePanel::setIntensityPossible(bool possible)
{
    if (!possible && value->currentIndex() == 1) {
        value->setCurrentIndex(0);
        Q_EMIT intensityChosen(false);
    }
    value->setEnabled(possible);
}

} // namespace ovl::gallery
