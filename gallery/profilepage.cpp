// SPDX-License-Identifier: BSD-3-Clause
#include "profilepage.h"

#include "axisscale.h"
#include "csvfile.h"
#include "joinedcurve.h"
#include "measuringtools.h"
#include "profilepanel.h"
#include "sourcecontrols.h"

#include <QFileInfo>
#include <QOpenGLWidget>

#include <array>
#include <cmath>

namespace ovl::gallery {
namespace {

constexpr int kFrameInterval = 40; // ms
constexpr double kTenth = 0.1; // mm of belt for a step of the speed's slider
constexpr std::size_t kMostJoined = 20000; // rows; each becomes a line of a shape
constexpr double kRoom = 0.05; // of an extent, above and below the curves

const std::array<QColor, 8> kColours {QColor(0x4f, 0xc3, 0xf7), QColor(0xff, 0xb7, 0x4d),
    QColor(0x9c, 0x7b, 0xe0), QColor(0x81, 0xc7, 0x84), QColor(0xe5, 0x73, 0x73),
    QColor(0xff, 0xf1, 0x76), QColor(0xf0, 0x8c, 0xc8), QColor(0xb0, 0xbe, 0xc5)};

enum Corner { BottomLeft, BottomRight };

bool isRight(int corner) { return corner == 1 || corner == 2; }

QString scaledTitle(const QString& title, int exponent)
{
    return exponent == 0 ? title : QStringLiteral("%1 x 1e%2").arg(title).arg(exponent);
}

} // namespace

ProfilePage::ProfilePage(ScannerSimulation& scanner, QWidget* parent)
    : Page(kFrameInterval, parent)
    , simulation(scanner.profile())
    , panel(new ProfilePanel)
    , tools(new MeasuringTools(this))
{
    simulation.moveTo(0.28 * Conveyor::kPitch);
    connectPanel();
}

void ProfilePage::connectPanel()
{
    connectSource(panel->source());
    connect(&panel->source(), &SourceControls::sourceChosen, this, &ProfilePage::showSimulation);
    connect(&panel->source(), &SourceControls::fileChosen, this, &ProfilePage::showFile);
    connect(panel, &ProfilePanel::frameChanged, this, &ProfilePage::applyFrame);
    connect(panel, &ProfilePanel::resetViewWanted, this, &ProfilePage::resetView);
    connect(panel, &ProfilePanel::overlayChanged, this, &ProfilePage::layShapes);
    connect(tools, &MeasuringTools::moved, this, &ProfilePage::measure);
    const CurveList& list = panel->curves();
    const auto look
        = [this](int column) -> CurveLook& { return curves[static_cast<std::size_t>(column - 1)]; };
    connect(&list, &CurveList::visibilityChanged, this, [this, look](int column, bool visible) {
        look(column).visible = visible;
        view().setPlotVisibily(column, visible);
        layShapes();
    });
    connect(&list, &CurveList::titleChanged, this, [this](int column, const QString& title) {
        view().setPlotTitle(column, title);
        view().drawPlots(); // the curve looks for its data under the new title
    });
    connect(&list, &CurveList::colourChanged, this, [this, look](int column, const QColor& colour) {
        look(column).colour = colour;
        view().setColor(column, colour);
        layShapes();
    });
    connect(&list, &CurveList::cornerChanged, this, [this, look](int column, int corner) {
        look(column).corner = corner;
        view().setPlotCorner(column, corner);
        suitHomeRanges();
        layShapes();
        resetView();
    });
}

QString ProfilePage::open(const QString& path)
{
    Outcome<Table> read = readCsvFile(path);
    if (!read)
        return read.problem();
    fileTable = std::move(read.value());
    fileName = QFileInfo(path).fileName();
    showFile();
    const QString bad = badLinesText(*fileTable);
    if (!bad.isEmpty())
        Q_EMIT remarked(QStringLiteral("%1: %2").arg(path, bad));
    return QString();
}

void ProfilePage::showFile()
{
    fileShown = true;
    panel->source().showFile(fileName);
    panel->setTitle(fileName);
    chooseExponents();
    std::vector<CurveLook> looks;
    for (int i = 1; i < fileTable->titles.size(); ++i)
        looks.push_back({fileTable->titles[i],
            kColours[static_cast<std::size_t>(i - 1) % kColours.size()], BottomLeft});
    makeView(looks);
    view().setBottomTitle(scaledTitle(fileTable->titles.constFirst(), xExponent));
    view().setLeftTitle(scaledTitle(tr("Value"), yExponent));
    resetView();
    Q_EMIT sourceChanged(tr("%1, %2 rows of %3 columns")
                             .arg(fileName)
                             .arg(fileTable->rows())
                             .arg(fileTable->titles.size()));
}

void ProfilePage::showSimulation()
{
    fileShown = false;
    panel->source().showSource(0);
    panel->setTitle(tr("Laser line"));
    xExponent = 0;
    yExponent = 0;
    const QStringList& titles = table().titles;
    makeView({{titles[ProfileSimulation::Height], kColours[0], BottomLeft},
        {titles[ProfileSimulation::Smoothed], kColours[1], BottomLeft},
        {titles[ProfileSimulation::Intensity], kColours[2], BottomRight}});
    view().setBottomTitle(tr("Across the belt [mm]"));
    view().setLeftTitle(tr("Height [mm]"));
    view().setRightTitle(tr("Intensity [%]"));
    view().setLeftColorTitle(kColours[0]);
    view().setRightColorTitle(kColours[2]);
    resetView();
    Q_EMIT sourceChanged(tr("Simulated laser line, %1 samples").arg(table().rows()));
}

void ProfilePage::makeView(const std::vector<CurveLook>& looks)
{
    curves = looks;
    delete widget;
    widget = new hosting::ViewWidget<ProfileView>(nullptr, static_cast<int>(looks.size()) + 1);
    setContent(widget, panel);
    for (std::size_t i = 0; i < looks.size(); ++i) {
        const int column = static_cast<int>(i) + 1;
        view().setPlotTitle(column, looks[i].title);
        view().setColor(column, looks[i].colour);
        view().setPlotCorner(column, looks[i].corner);
        view().setPlotFormat(column, QStringLiteral("%l   x %a   y %b   row %j"));
    }
    // The view's numbers may be scaled for its axes; the tooltips tell the table's.
    const double xFactor = std::pow(10.0, -xExponent);
    const double yFactor = std::pow(10.0, -yExponent);
    view().xCustomTooltip([xFactor](int, double x) { return x * xFactor; });
    view().yCustomTooltip([yFactor](int, double y) { return y * yFactor; });
    panel->curves().setCurves(looks);
    panel->setJoiningPossible(showsFile() && table().rows() <= kMostJoined);
    suitHomeRanges();
    const HomeRanges home = panel->homeRanges();
    tools->place(home.bottom, home.left);
    if (!showsFile())
        tools->placeOnPart();
    tools->setScale(xExponent, yExponent, showsFile() ? QString() : QStringLiteral("mm"));
    applyFrame();
    fill();
    layShapes();
}

void ProfilePage::layShapes()
{
    view().clearShape();
    if (panel->joinsSamples())
        for (std::size_t i = 0; i < curves.size(); ++i)
            if (curves[i].visible && curves[i].corner == BottomLeft) // where shapes are drawn
                view().addShape(joinedCurve(table(), i + 1, std::pow(10.0, xExponent),
                    std::pow(10.0, yExponent), curves[i].colour));
    if (panel->showsTools())
        tools->addTo(view());
    view().drawShapes();
    measure();
}

void ProfilePage::measure()
{
    tools->measure(table());
    panel->setReadOut(panel->showsTools() ? tools->readOut() : QString());
}

void ProfilePage::applyFrame()
{
    view().setTitle(panel->title());
    view().enableHorizontalZoom(panel->zooms(ProfilePanel::Horizontal));
    view().enabledLeftVerticalZoom(panel->zooms(ProfilePanel::Left));
    view().enabledRightVerticalZoom(panel->zooms(ProfilePanel::Right));
    view().setCrosshairCursor(panel->hasCrosshair());
    view().setDirty(true);
}

void ProfilePage::fill()
{
    const Table& shown = table();
    const auto rows = static_cast<int>(shown.rows());
    if (view().numberOfValues() != rows)
        view().setNumberOfValues(rows);
    for (std::size_t column = 0; column < shown.columns.size(); ++column) {
        const double factor = std::pow(10.0, column == 0 ? xExponent : yExponent);
        for (int row = 0; row < rows; ++row)
            view().setValue(static_cast<int>(column), row,
                shown.columns[column][static_cast<std::size_t>(row)] * factor);
    }
    view().drawPlots();
    measure();
}

void ProfilePage::chooseExponents()
{
    const Table& shown = table();
    Extent y = extentOf(shown.columns[1]);
    for (const std::vector<double>& column : shown.columns)
        if (&column != &shown.columns.front())
            y = united(y, extentOf(column));
    xExponent = exponentFor(extentOf(shown.columns.front()));
    yExponent = exponentFor(y);
}

void ProfilePage::suitHomeRanges()
{
    if (!showsFile()) {
        // Heights above, intensities below them.
        panel->setHomeRanges({{0, static_cast<int>(Conveyor::kFieldOfView)}, {-8, 14}, {0, 200}});
        return;
    }
    const Table& shown = table();
    std::optional<Extent> sides[2]; // left and right
    for (std::size_t i = 0; i < curves.size(); ++i) {
        std::optional<Extent>& side = sides[isRight(curves[i].corner) ? 1 : 0];
        const Extent extent = extentOf(shown.columns[i + 1]);
        side = side ? united(*side, extent) : extent;
    }
    const auto home = [](const Extent& extent, int exponent, double room) {
        const double factor = std::pow(10.0, exponent);
        return homeRangeFor({extent.smallest * factor, extent.largest * factor}, room);
    };
    panel->setHomeRanges({home(extentOf(shown.columns.front()), xExponent, 0),
        sides[0] ? home(*sides[0], yExponent, kRoom) : HomeRange {},
        sides[1] ? home(*sides[1], yExponent, kRoom) : HomeRange {}});
}

bool ProfilePage::canPlay() const { return !showsFile(); }

bool ProfilePage::step()
{
    simulation.advance(kTenth * panel->source().speed());
    fill();
    return true;
}

void ProfilePage::resetView()
{
    const HomeRanges home = panel->homeRanges();
    const QSize size = widget->surface()->size() * devicePixelRatioF();
    const HomeRange bottom = beforeWidening(home.bottom, home.left, size.width(), size.height());
    const HomeRange left = beforeWidening(home.left, home.bottom, size.height(), size.width());
    view().setBottomRange(bottom.from, bottom.to);
    view().setTopRange(home.bottom.from, home.bottom.to);
    view().setLeftRange(left.from, left.to);
    view().setRightRange(home.right.from, home.right.to);
    view().resetView();
}

void ProfilePage::prepareForPicture()
{
    if (!showsFile())
        simulation.moveTo(2.42 * Conveyor::kPitch); // through boss, slot and pads
    fill();
    resetView();
}

void ProfilePage::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    // Not yet: the view gets its size with the events that follow.
    QMetaObject::invokeMethod(this, "resetView", Qt::QueuedConnection);
}

} // namespace ovl::gallery
