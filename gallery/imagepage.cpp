// SPDX-License-Identifier: BSD-3-Clause
#include "imagepage.h"

#include "settingspanel.h"
#include <visualization/range.h>

#include <QApplication>
#include <QOpenGLWidget>
#include <QWheelEvent>

#include <cstring>

namespace ovl::gallery {
namespace {

constexpr int kRangeShift = 8; // the upper 8 of 16 bits
constexpr int kCameraShift = 4; // the upper 8 of 12 bits
constexpr int kWideSample = 2; // the view's code of unsigned 16 bits
constexpr int kLargestSample = 65535;
constexpr int kLargestShift = 15;
constexpr int kMaskChannels = 4;
constexpr int kHighestPart = 12; // mm
constexpr int kNoCamera = -1; // chosen while a file is shown

void turnWheel(QWidget& widget)
{
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120),
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

/** An image is drawn where it was read to: nothing is left to fill. */
class ImagePage::ImageFilling : public Filling {
public:
    ImageFilling(ImagePage& shownOn, SharedContents read)
        : page(shownOn)
        , file(std::move(read))
    {
    }

    double work() override { return 1; }
    void commit() override { page.show(file); }

private:
    ImagePage& page;
    SharedContents file;
};

ImagePage::ImagePage(Scanner& scanner, QWidget* parent)
    : Page(scanner, tr("Range image"),
        {tr("Left drag: pan"), tr("wheel or right drag: zoom"),
            tr("the status line tells the sample under the mouse")},
        parent)
    , viewed(new hosting::ViewWidget<ImageView>)
{
    setView(viewed);
    panel->add({sampleSettings(), tableSettings(), colourSettings()});
    panel->finish();
    panel->applyToView();
    showScanner();
}

/** Wraps what a setting does: the view takes most of them over at the next draw. */
Setting::Apply ImagePage::applied(std::function<void(const QVariant&)> apply)
{
    return [this, apply = std::move(apply)](const QVariant& value) {
        apply(value);
        view().redraw();
    };
}

SettingGroup ImagePage::sampleSettings()
{
    return {tr("Samples"),
        {{tr("Camera"),
             {choice("camera", {tr("Range, 16 bits"), tr("Grey, 12 bits"), tr("Colour, 12 bits")},
                 0,
                 [this](
                     const QVariant& kind) { chooseCamera(static_cast<CameraKind>(kind.toInt())); })
                     .ofPage()
                     .withTip(tr("From a file, a camera leads back to the scanner"))}},
            {tr("Shift"),
                {whole("shift", 0, kLargestShift, 0,
                    applied([this](const QVariant& bits) { view().setShift(bits.toInt()); }))
                        .withSuffix(tr(" bits right"))
                        .withTip(tr("What is shown is the low byte of the shifted sample"))}},
            {{}, {action("resetView", tr("Show the whole image"), [this] { resetView(); })}}}};
}

SettingGroup ImagePage::tableSettings()
{
    const auto range = [this](const QVariant&) { applyRange(); };
    return {tr("Lookup table"),
        {{{},
             {check("table", tr("Map samples through the table"), false,
                 [this](const QVariant& on) { enableTable(on.toBool()); })}},
            {tr("Range"),
                {whole("darkest", 0, kLargestSample, 0, range).withTip(tr("Black from here down")),
                    whole("brightest", 0, kLargestSample, 255, range)
                        .withTip(tr("White from here up"))}},
            {{}, {action("fit", tr("Fit to image"), [this] { fitTable(); })}},
            outsideRow(tr("Above"), "above", QColor(0xff, 0x4d, 0x3d),
                &ImageView::enableAboveRangeColor, &ImageView::setAboveRangeColor),
            outsideRow(tr("Below"), "below", QColor(0x14, 0x22, 0x44),
                &ImageView::enableBelowRangeColor, &ImageView::setBelowRangeColor)}};
}

SettingRow ImagePage::outsideRow(const QString& name, const char* key, const QColor& first,
    void (ImageView::*enable)(bool), void (ImageView::*setColour)(const QColor&))
{
    const QByteArray colourKey = QByteArray(key) + "Colour";
    return {name,
        {check(key, tr("In this colour"), false,
             applied([this, enable](const QVariant& on) { (view().*enable)(on.toBool()); })),
            colour(colourKey.constData(), first, applied([this, setColour](const QVariant& value) {
                (view().*setColour)(value.value<QColor>());
            }))}};
}

SettingGroup ImagePage::colourSettings()
{
    return {tr("Forced colour"),
        {{{},
             {check("forced", tr("Show four channels, masked"), false,
                 [this](const QVariant& on) { forceColour(on.toBool()); })}},
            maskRow(tr("Blue"), 0), maskRow(tr("Green"), 1), maskRow(tr("Red"), 2),
            maskRow(tr("Alpha"), 3)}};
}

SettingRow ImagePage::maskRow(const QString& name, int channel)
{
    const auto mask = [this](int index) {
        return applied(
            [this, index](const QVariant& bits) { view().setMask(index, bits.toInt()); });
    };
    const QByteArray number = QByteArray::number(channel);
    return {name,
        {word(("and" + number).constData(), kLargestSample, mask(channel))
                .withTip(tr("Bits that are kept")),
            word(("or" + number).constData(), channel == 3 ? kLargestSample : 0,
                mask(channel + kMaskChannels))
                .withTip(tr("Bits that are set"))}};
}

std::unique_ptr<Filling> ImagePage::fill(const SharedContents& file)
{
    return std::make_unique<ImageFilling>(*this, file);
}

void ImagePage::show(const SharedContents& file)
{
    const SharedContents old = std::exchange(contents, file); // read until the new one's draw
    const Image& image = file->image;
    panel->show("camera", kNoCamera);
    panel->set("below", false);
    suit(file->range, image.wide && image.components == 1);
    draw();
    setSource(tr("%1, %2 x %3 pixels, %4 of %5 bits")
                  .arg(file->name)
                  .arg(image.width)
                  .arg(image.height)
                  .arg(image.components == 1 ? tr("grey") : tr("colour"))
                  .arg(image.wide ? 16 : 8));
}

void ImagePage::showScanner() { chooseCamera(cameraKind); }

void ImagePage::chooseCamera(CameraKind wanted)
{
    const QString names[] = {tr("Heights, 0.2 \u00b5m a count"), tr("Grey, 12 bits"),
        tr("Colour, 12 bits for each channel")};
    cameraKind = wanted;
    camera = &scene().camera(cameraKind);
    const SharedContents old = std::exchange(contents, nullptr); // read until the camera's draw
    panel->show("camera", static_cast<int>(cameraKind));
    if (cameraKind == CameraKind::Range) {
        suit({kRangeShift, 1, kHighestPart * LineScanCamera::kCountsPerMillimetre}, true);
        panel->set("below", true); // where no light came back
    } else {
        panel->set("below", false);
        suit({kCameraShift, 0, LineScanCamera::kWhite}, false);
    }
    draw();
    setSource(names[static_cast<std::size_t>(cameraKind)]);
}

bool ImagePage::takeFrame()
{
    camera = &scene().camera(cameraKind);
    draw();
    return true;
}

int ImagePage::components() const
{
    return showsFile() ? contents->image.components : camera->components();
}

void ImagePage::draw() { drawRows(0); }

void ImagePage::drawRows(int missingRows)
{
    void* samples
        = showsFile() ? static_cast<void*>(contents->image.bytes.data()) : camera->frame();
    const bool wide = !showsFile() || contents->image.wide;
    view().drawScene(
        samples, width(), height() - missingRows, {components(), wide ? kWideSample : 0});
}

void ImagePage::suit(const DisplayRange& range, bool table)
{
    panel->show("darkest", range.darkest);
    panel->show("brightest", range.brightest);
    applyRange();
    panel->set("table", table && components() == 1);
}

void ImagePage::applyRange()
{
    const int darkest = panel->whole("darkest");
    const int brightest = panel->whole("brightest");
    if (darkest < brightest) // while both are being typed they may cross
        view().setLookupTableRange(Range(darkest, brightest));
    view().redraw();
}

void ImagePage::enableTable(bool enable)
{
    if (enable && panel->isOn("forced"))
        panel->set("forced", false); // the view does not combine the two
    view().enableLookupTable(enable);
    const int usual = showsFile()         ? contents->range.shift
        : cameraKind == CameraKind::Range ? kRangeShift
                                          : kCameraShift;
    panel->set("shift", enable ? 0 : usual); // the table's range is told in raw samples
    updateSettings();
    view().redraw();
}

void ImagePage::forceColour(bool force)
{
    if (force && panel->isOn("table"))
        panel->set("table", false);
    view().forceColor(force);
    updateSettings();
    if (!camera)
        return; // nothing is drawn yet
    drawRows(1); // forced colour waits for a frame of another size
    draw();
}

void ImagePage::updateSettings()
{
    for (const char* name :
        {"darkest", "brightest", "fit", "above", "below", "aboveColour", "belowColour"})
        panel->enable(name, panel->isOn("table"));
    for (const char* name : {"and0", "and1", "and2", "and3", "or0", "or1", "or2", "or3"})
        panel->enable(name, panel->isOn("forced"));
    panel->enable("table", !camera || components() == 1); // colour has no use for it
}

void ImagePage::fitTable()
{
    if (showsFile())
        return suit(contents->range, true);
    Image copy {width(), height(), components(), true, {}};
    copy.allocate();
    std::memcpy(copy.bytes.data(), camera->frame(), copy.bytes.size());
    suit(displayRangeOf(copy), true);
}

void ImagePage::resetView() { view().resetCamera(); }

void ImagePage::prepareForPicture()
{
    constexpr int kZoomSteps = 2;
    resetView();
    for (int i = 0; i < kZoomSteps; ++i) // as a user would make it larger
        turnWheel(*viewed->surface());
}

int ImagePage::sampleAt(std::size_t index) const
{
    return showsFile() ? contents->image.sample(index) : camera->frame()[index];
}

QString ImagePage::textAt(int column, int row) const
{
    if (column < 0 || column >= width() || row < 0 || row >= height())
        return QString();
    const std::size_t index = (static_cast<std::size_t>(row) * static_cast<std::size_t>(width())
                                  + static_cast<std::size_t>(column))
        * static_cast<std::size_t>(components());
    const QString place = tr("column %1   row %2   ").arg(column, 4).arg(row, 4);
    if (components() == 1)
        return place + tr("sample %1").arg(sampleAt(index), 5);
    return place
        + tr("red %1   green %2   blue %3")
              .arg(sampleAt(index + 2), 5)
              .arg(sampleAt(index + 1), 5)
              .arg(sampleAt(index), 5);
}

} // namespace ovl::gallery
