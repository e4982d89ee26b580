// SPDX-License-Identifier: BSD-3-Clause
#include "profilepage.h"

#include "joinedcurve.h"
#include "measuringtools.h"
#include "settingspanel.h"

#include <QLabel>
#include <QOpenGLWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace ovl::gallery {
namespace {

constexpr std::size_t kMostJoined = 40000; // samples of all curves; each becomes a line of a shape
constexpr double kRoom = 0.05; // of an extent, above and below the curves
constexpr int kGreatest = 200000000; // on an axis
constexpr int kPatience = 8; // ms of filling at once
constexpr std::size_t kRowsAtOnce = 512; // between two looks at the watch

const std::array<QColor, 8> kColours {QColor(0x4f, 0xc3, 0xf7), QColor(0xff, 0xb7, 0x4d),
    QColor(0x9c, 0x7b, 0xe0), QColor(0x81, 0xc7, 0x84), QColor(0xe5, 0x73, 0x73),
    QColor(0xff, 0xf1, 0x76), QColor(0xf0, 0x8c, 0xc8), QColor(0xb0, 0xbe, 0xc5)};

enum Corner { BottomLeft, BottomRight };

bool isRight(int corner) { return corner == 1 || corner == 2; }

QString scaledTitle(const QString& title, int exponent)
{
    return exponent == 0 ? title : QStringLiteral("%1 x 1e%2").arg(title).arg(exponent);
}

std::unique_ptr<hosting::ViewWidget<ProfileView>> makeWidget(const Table& table)
{
    const auto columns = static_cast<int>(table.columns.size());
    auto widget = std::make_unique<hosting::ViewWidget<ProfileView>>(nullptr, columns);
    widget->view().setNumberOfValues(static_cast<int>(table.rows()));
    return widget;
}

/** Writes some rows of a table into a view. */
void fillRows(ProfileView& view, const Table& table, std::size_t from, std::size_t to,
    double xFactor, double yFactor)
{
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
        const double factor = column == 0 ? xFactor : yFactor;
        for (std::size_t row = from; row < to; ++row)
            view.setValue(static_cast<int>(column), static_cast<int>(row),
                table.columns[column][row] * factor);
    }
}

double power(int exponent) { return std::pow(10.0, exponent); }

} // namespace

/** Fills a view of its own, which then takes the place of the one that is shown. */
class ProfilePage::ProfileFilling : public Filling {
public:
    ProfileFilling(ProfilePage& shownOn, SharedContents read)
        : page(shownOn)
        , file(std::move(read))
        , widget(makeWidget(file->table))
    {
        const Table& table = file->table;
        Extent y = extentOf(table.columns[1]);
        for (std::size_t column = 2; column < table.columns.size(); ++column)
            y = united(y, extentOf(table.columns[column]));
        xPower = exponentFor(extentOf(table.columns.front()));
        yPower = exponentFor(y);
    }

    double work() override
    {
        const Table& table = file->table;
        QElapsedTimer watch;
        watch.start();
        while (filled < table.rows() && watch.elapsed() < kPatience) {
            const std::size_t to = std::min(filled + kRowsAtOnce, table.rows());
            fillRows(widget->view(), table, filled, to, power(xPower), power(yPower));
            filled = to;
        }
        return static_cast<double>(filled) / static_cast<double>(table.rows());
    }

    void commit() override { page.show(file, std::move(widget), xPower, yPower); }

private:
    ProfilePage& page;
    SharedContents file;
    std::unique_ptr<Widget> widget;
    std::size_t filled = 0; // rows
    int xPower;
    int yPower;
};

ProfilePage::ProfilePage(Scanner& scanner, QWidget* parent)
    : Page(scanner, tr("Profile"),
        {tr("Left drag: pan, or move a region"), tr("wheel or right drag: zoom"),
            tr("hover: values")},
        parent)
    , tools(new MeasuringTools(this))
{
    panel->add({regionSettings()});
    readOut = panel->addReadOut("readOut");
    panel->add({curveSettings(), titleSettings(), axisSettings()});
    panel->finish();
    connect(tools, &MeasuringTools::moved, this, &ProfilePage::measure);
    connect(this, &Page::activated, this, [this] { touched = true; });
    showScanner();
}

SettingGroup ProfilePage::regionSettings()
{
    const auto lay = [this](const QVariant&) { layShapes(); };
    const auto own = [lay](const char* name, const QString& label, bool on) {
        return check(name, label, on, lay).ofPage();
    };
    return {tr("Regions of interest"),
        {{{}, {own("tools", tr("Show"), true), own("interactive", tr("Resizable"), true)}},
            {tr("Drag"), {own("alongX", tr("along x"), true), own("alongY", tr("along y"), true)}},
            {tr("Handles"),
                {own("handles", tr("Show"), true),
                    whole("handleSize", 2, 20, 6, lay).withSuffix(tr(" px")).ofPage()}},
            {tr("Labels"),
                {own("tooltips", tr("tooltips"), true), own("legend", tr("legend"), false)}}}};
}

/** A setting of the curve that is chosen. */
Setting ProfilePage::curveSetting(
    Setting setting, std::function<void(CurveLook&, const QVariant&)> change)
{
    setting.apply = [this, change = std::move(change)](const QVariant& value) {
        const auto index = static_cast<std::size_t>(panel->whole("curve"));
        change(curves[index], value);
        applyCurve(index);
        layShapes();
    };
    return std::move(setting).ofPage();
}

SettingGroup ProfilePage::curveSettings()
{
    return {tr("Curves"),
        {{tr("Curve"),
             {choice("curve", {}, 0, [this](const QVariant& index) { showCurve(index.toInt()); })
                     .ofPage()}},
            {tr("Look"),
                {curveSetting(check("visible", tr("Visible"), true, {}),
                     [](CurveLook& look, const QVariant& on) { look.visible = on.toBool(); }),
                    curveSetting(colour("colour", Qt::white, {}),
                        [](CurveLook& look, const QVariant& value) {
                            look.colour = value.value<QColor>();
                        })}},
            {tr("Title"),
                {curveSetting(text("curveTitle", {}, {}),
                    [](CurveLook& look, const QVariant& value) {
                        look.title = value.toString();
                    })}},
            {tr("Axes"),
                {curveSetting(choice("corner",
                                  {tr("bottom, left"), tr("bottom, right"), tr("top, right"),
                                      tr("top, left")},
                                  0, {}),
                    [this](CurveLook& look, const QVariant& corner) {
                        look.corner = corner.toInt();
                        suitHomeRanges();
                        resetView();
                    })}},
            {tr("Tooltip"),
                {curveSetting(text("format", {}, {}),
                    [](CurveLook& look, const QVariant& value) {
                        look.format = value.toString();
                    }).withTip(tr("%l title, %x %y the point, %a %b the numbers below, %j row"))}},
            {tr("%a and %b"),
                {choice("numbers", {tr("as in the table"), tr("the row"), tr("nothing")}, 0,
                    [this](const QVariant&) { applyTooltipNumbers(); })}},
            {{}, {check("join", tr("Join the samples by lines"), true, [this](const QVariant&) {
                 layShapes();
             }).ofPage()}}}};
}

SettingGroup ProfilePage::titleSettings()
{
    return {tr("Titles"),
        {{tr("Chart"),
             {text("title", {},
                 [this](const QVariant& title) {
                     view().setTitle(title.toString());
                     view().setDirty(true);
                 })}},
            titleRow(
                tr("Left"), "left", &ProfileView::setLeftTitle, &ProfileView::setLeftColorTitle),
            titleRow(tr("Bottom"), "bottom", &ProfileView::setBottomTitle,
                &ProfileView::setBottomColorTitle),
            titleRow(tr("Right"), "right", &ProfileView::setRightTitle,
                &ProfileView::setRightColorTitle),
            titleRow(tr("Top"), "top", &ProfileView::setTopTitle, &ProfileView::setTopColorTitle)}};
}

SettingRow ProfilePage::titleRow(const QString& name, const char* key,
    void (ProfileView::*setTitle)(const QString&), void (ProfileView::*setColour)(const QColor&))
{
    const QByteArray titleKey = QByteArray(key) + "Title";
    const QByteArray colourKey = QByteArray(key) + "Colour";
    return {name,
        {text(titleKey.constData(), {},
             [this, setTitle](const QVariant& title) {
                 (view().*setTitle)(title.toString());
                 view().setDirty(true);
             }),
            colour(colourKey.constData(), Qt::white, [this, setColour](const QVariant& value) {
                (view().*setColour)(value.value<QColor>());
                view().setDirty(true);
            })}};
}

SettingGroup ProfilePage::axisSettings()
{
    return {tr("Axes and mouse"),
        {rangeRow(tr("Left"), "leftFrom", "leftTo"),
            rangeRow(tr("Bottom"), "bottomFrom", "bottomTo"),
            rangeRow(tr("Right"), "rightFrom", "rightTo"), rangeRow(tr("Top"), "topFrom", "topTo"),
            {{}, {action("resetView", tr("Show the home ranges"), [this] { resetView(); })}},
            {tr("Wheel zooms"),
                {check("zoomX", tr("x"), true,
                     [this](const QVariant& on) { view().enableHorizontalZoom(on.toBool()); }),
                    check("zoomLeft", tr("left"), true,
                        [this](
                            const QVariant& on) { view().enabledLeftVerticalZoom(on.toBool()); }),
                    check("zoomRight", tr("right"), true,
                        [this](const QVariant& on) {
                            view().enabledRightVerticalZoom(on.toBool());
                        })}},
            {{}, {check("crosshair", tr("Crosshair cursor"), false, [this](const QVariant& on) {
                 view().setCrosshairCursor(on.toBool());
             })}}}};
}

SettingRow ProfilePage::rangeRow(const QString& name, const char* from, const char* to)
{
    const auto reset = [this](const QVariant&) { resetView(); };
    return {name,
        {whole(from, -kGreatest, kGreatest, 0, reset).ofPage(),
            whole(to, -kGreatest, kGreatest, 1, reset).ofPage()}};
}

std::unique_ptr<Filling> ProfilePage::fill(const SharedContents& file)
{
    return std::make_unique<ProfileFilling>(*this, file);
}

void ProfilePage::show(
    const SharedContents& file, std::unique_ptr<Widget> filled, int xPower, int yPower)
{
    contents = file;
    xExponent = xPower;
    yExponent = yPower;
    const QStringList& titles = file->table.titles;
    std::vector<CurveLook> looks;
    for (int i = 1; i < titles.size(); ++i)
        looks.push_back({titles[i], kColours[static_cast<std::size_t>(i - 1) % kColours.size()]});
    showTitles({scaledTitle(tr("Value"), yExponent), scaledTitle(titles.constFirst(), xExponent),
                   tr("Value")},
        file->name);
    panel->show("leftColour", QColor(Qt::white));
    panel->show("rightColour", QColor(Qt::white));
    showView(std::move(filled), std::move(looks));
    setSource(
        tr("%1, %2 rows of %3 columns").arg(file->name).arg(file->table.rows()).arg(titles.size()));
}

void ProfilePage::showScanner()
{
    contents = nullptr;
    xExponent = 0;
    yExponent = 0;
    const Table& line = table();
    showTitles(
        {tr("Height [mm]"), tr("Across the belt [mm]"), tr("Intensity [%]")}, tr("Laser line"));
    panel->show("leftColour", kColours[0]);
    panel->show("rightColour", kColours[2]);
    std::unique_ptr<Widget> filled = makeWidget(line);
    fillRows(filled->view(), line, 0, line.rows(), 1, 1);
    showView(std::move(filled),
        {{line.titles[ProfileSimulation::Height], kColours[0], BottomLeft},
            {line.titles[ProfileSimulation::Smoothed], kColours[1], BottomLeft},
            {line.titles[ProfileSimulation::Intensity], kColours[2], BottomRight}});
    setSource(tr("Laser line, %1 samples").arg(line.rows()));
}

void ProfilePage::showTitles(const QStringList& leftBottomRight, const QString& title)
{
    panel->show("title", title);
    panel->show("leftTitle", leftBottomRight[0]);
    panel->show("bottomTitle", leftBottomRight[1]);
    panel->show("rightTitle", leftBottomRight[2]);
    panel->show("topTitle", QString());
}

void ProfilePage::showView(std::unique_ptr<Widget> filled, std::vector<CurveLook> looks)
{
    curves = std::move(looks);
    viewed = filled.release();
    setView(viewed);
    QStringList names;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        names.append(curves[i].title);
        applyCurve(i);
    }
    panel->setChoices("curve", names);
    showCurve(0);
    const bool joining = showsFile() && table().rows() * curves.size() <= kMostJoined;
    panel->enable("join", joining); // lines are made for what stands still
    panel->applyToView();
    suitHomeRanges();
    tools->place(homeRange("bottomFrom", "bottomTo"), homeRange("leftFrom", "leftTo"));
    if (!showsFile())
        tools->placeOnPart();
    tools->setScale(xExponent, yExponent, showsFile() ? QString() : QStringLiteral("mm"));
    view().drawPlots();
    layShapes();
    resetView();
}

void ProfilePage::showCurve(int index)
{
    const CurveLook& look = curves[static_cast<std::size_t>(index)];
    panel->show("curve", index);
    panel->show("visible", look.visible);
    panel->show("colour", look.colour);
    panel->show("curveTitle", look.title);
    panel->show("corner", look.corner);
    panel->show("format", look.format);
}

void ProfilePage::applyCurve(std::size_t index)
{
    const CurveLook& look = curves[index];
    const int column = static_cast<int>(index) + 1;
    view().setPlotTitle(column, look.title);
    view().setColor(column, look.colour);
    view().setPlotCorner(column, look.corner);
    view().setPlotVisibily(column, look.visible);
    view().setPlotFormat(column, look.format);
    view().drawPlots(); // the curve looks for its data under a new title
}

/** The view's numbers may be scaled for its axes; the tooltips tell the table's. */
void ProfilePage::applyTooltipNumbers()
{
    enum { AsInTable, TheRow };
    const int wanted = panel->whole("numbers");
    const auto teller = [wanted](double factor) -> std::function<double(int, double)> {
        if (wanted == AsInTable)
            return [factor](int, double value) { return value * factor; };
        if (wanted == TheRow)
            return [](int row, double) { return static_cast<double>(row); };
        return {};
    };
    view().xCustomTooltip(teller(power(-xExponent)));
    view().yCustomTooltip(teller(power(-yExponent)));
}

void ProfilePage::layShapes()
{
    ProfileView& shown = view();
    shown.clearShape();
    if (panel->editor("join")->isEnabled() && panel->isOn("join"))
        for (std::size_t i = 0; i < curves.size(); ++i)
            if (curves[i].visible && curves[i].corner == BottomLeft) // where shapes are drawn
                shown.addShape(joinedCurve(
                    table(), i + 1, power(xExponent), power(yExponent), curves[i].colour));
    tools->setLook({panel->isOn("interactive"), panel->isOn("alongX"), panel->isOn("alongY"),
        panel->isOn("handles"), panel->whole("handleSize"), panel->isOn("legend"),
        panel->isOn("tooltips")});
    if (panel->isOn("tools"))
        tools->addTo(shown);
    shown.drawShapes();
    measure();
}

void ProfilePage::measure()
{
    tools->measure(table());
    readOut->setText(panel->isOn("tools") ? tools->readOut() : QString());
}

const Table& ProfilePage::table() const
{
    return showsFile() ? contents->table : scene().profile().table();
}

bool ProfilePage::takeFrame()
{
    const Table& line = table();
    fillRows(view(), line, 0, line.rows(), 1, 1);
    view().drawPlots();
    measure();
    return true;
}

void ProfilePage::suitHomeRanges()
{
    if (!showsFile()) { // heights above, intensities below them
        const HomeRange across {0, static_cast<int>(Conveyor::kFieldOfView)};
        showHomeRange("bottomFrom", "bottomTo", across);
        showHomeRange("topFrom", "topTo", across);
        showHomeRange("leftFrom", "leftTo", {-8, 18}); // the legend has room above the parts
        return showHomeRange("rightFrom", "rightTo", {0, 240});
    }
    std::optional<Extent> sides[2]; // left and right
    for (std::size_t i = 0; i < curves.size(); ++i) {
        std::optional<Extent>& side = sides[isRight(curves[i].corner) ? 1 : 0];
        const Extent extent = extentOf(table().columns[i + 1]);
        side = side ? united(*side, extent) : extent;
    }
    const auto home = [](const Extent& extent, int exponent, double room) {
        const double factor = power(exponent);
        return homeRangeFor({extent.smallest * factor, extent.largest * factor}, room);
    };
    const HomeRange along = home(extentOf(table().columns.front()), xExponent, 0);
    showHomeRange("bottomFrom", "bottomTo", along);
    showHomeRange("topFrom", "topTo", along);
    showHomeRange(
        "leftFrom", "leftTo", sides[0] ? home(*sides[0], yExponent, kRoom) : HomeRange {});
    showHomeRange(
        "rightFrom", "rightTo", sides[1] ? home(*sides[1], yExponent, kRoom) : HomeRange {});
}

void ProfilePage::showHomeRange(const char* from, const char* to, const HomeRange& range)
{
    panel->show(from, range.from);
    panel->show(to, range.to);
}

HomeRange ProfilePage::homeRange(const char* from, const char* to) const
{
    return {panel->whole(from), panel->whole(to)};
}

void ProfilePage::resetView()
{
    const HomeRange across = homeRange("bottomFrom", "bottomTo");
    const HomeRange up = homeRange("leftFrom", "leftTo");
    const HomeRange right = homeRange("rightFrom", "rightTo");
    const HomeRange top = homeRange("topFrom", "topTo");
    const QSize size = viewed->surface()->size() * devicePixelRatioF();
    const HomeRange bottom = beforeWidening(across, up, size.width(), size.height());
    const HomeRange left = beforeWidening(up, across, size.height(), size.width());
    view().setBottomRange(bottom.from, bottom.to);
    view().setTopRange(top.from, top.to);
    view().setLeftRange(left.from, left.to);
    view().setRightRange(right.from, right.to);
    view().resetView();
    touched = false;
}

void ProfilePage::prepareForPicture() { resetView(); }

void ProfilePage::resizeEvent(QResizeEvent* event)
{
    Page::resizeEvent(event);
    // What the user has chosen to see stays. Not yet: the view gets its size with the events that
    // follow.
    if (!touched)
        QMetaObject::invokeMethod(this, "resetView", Qt::QueuedConnection);
}

} // namespace ovl::gallery
