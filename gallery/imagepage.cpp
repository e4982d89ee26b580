// SPDX-License-Identifier: BSD-3-Clause
#include "imagepage.h"

#include "displayrange.h"
#include "imagefile.h"
#include "sourcecontrols.h"
#include <visualization/coordinatessender.h>

#include <QApplication>
#include <QFileInfo>
#include <QOpenGLWidget>
#include <QWheelEvent>

namespace ovl::gallery {
namespace {

constexpr int kFrameInterval = 33; // ms
constexpr int kCameraShift = 4; // the upper 8 of 12 bits
constexpr int kWideSample = 2; // the view's code of unsigned 16 bits

void turnWheel(QWidget& widget)
{
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120),
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

ImagePage::ImagePage(ScannerSimulation& simulation, QWidget* parent)
    : Page(kFrameInterval, parent)
    , scanner(simulation)
    , widget(new hosting::ViewWidget<ImageView>)
    , panel(new ImagePanel(widget->view()))
{
    setContent(widget, panel);
    connectPanel();
    const CoordinatesSender* sender = CoordinatesSender::instance();
    connect(sender, &CoordinatesSender::signal_sendCoordinates, this, &ImagePage::pointAt);
    connect(sender, &CoordinatesSender::signal_clearCoordinates, this, [this] { pointAt(-1, -1); });
}

ImagePage::~ImagePage()
{
    delete widget; // its view reads the image until then
}

void ImagePage::connectPanel()
{
    connectSource(panel->source());
    connect(&panel->source(), &SourceControls::sourceChosen, this,
        [this](int index) { startCamera(index == 1); });
    connect(&panel->source(), &SourceControls::fileChosen, this, &ImagePage::showFile);
    connect(panel, &ImagePanel::redrawWanted, this, [this] { widget->view().redraw(); });
    connect(panel, &ImagePanel::rebuildWanted, this, &ImagePage::rebuild);
    connect(panel, &ImagePanel::fitWanted, this, &ImagePage::fit);
    connect(panel, &ImagePanel::resetViewWanted, this, &ImagePage::resetView);
}

QString ImagePage::open(const QString& path)
{
    Outcome<Image> read = readImageFile(path);
    if (!read)
        return read.problem();
    const std::optional<Image> old = std::move(image); // the view reads it until the new one's draw
    image = std::move(read.value());
    fileName = QFileInfo(path).fileName();
    showFile();
    return QString();
}

void ImagePage::showSimulation() { startCamera(false); }

void ImagePage::startCamera(bool colour)
{
    camera = &scanner.camera(colour ? CameraKind::Colour : CameraKind::Mono);
    panel->source().showSource(colour ? 1 : 0);
    panel->setTablePossible(!colour);
    panel->suit({kCameraShift, 0, LineScanCamera::kWhite}, false);
    draw();
    Q_EMIT sourceChanged(
        colour ? tr("Simulated line-scan camera, colour") : tr("Simulated line-scan camera, mono"));
}

void ImagePage::showFile()
{
    camera = nullptr;
    panel->source().showFile(fileName);
    panel->setTablePossible(image->components == 1);
    panel->suit(displayRangeOf(*image), image->wide && image->components == 1);
    draw();
    Q_EMIT sourceChanged(tr("%1, %2 x %3 pixels, %4 of %5 bits")
                             .arg(fileName)
                             .arg(image->width)
                             .arg(image->height)
                             .arg(image->components == 1 ? tr("grey") : tr("colour"))
                             .arg(image->wide ? 16 : 8));
}

bool ImagePage::canPlay() const { return !showsFile(); }

bool ImagePage::step()
{
    camera->advance(panel->source().speed());
    draw();
    return true;
}

void ImagePage::draw() { drawRows(0); }

void ImagePage::drawRows(int missingRows)
{
    void* samples = showsFile() ? static_cast<void*>(image->bytes.data()) : camera->frame();
    const bool wide = !showsFile() || image->wide;
    widget->view().drawScene(
        samples, width(), height() - missingRows, {components(), wide ? kWideSample : 0});
    tellPixel();
}

/** Forced colour waits for a frame of another size; a frame that is one row short is one. */
void ImagePage::rebuild()
{
    drawRows(1);
    draw();
}

void ImagePage::fit()
{
    if (showsFile()) {
        panel->suit(displayRangeOf(*image), true);
    } else {
        Image frame {width(), height(), components(), true, {}};
        frame.allocate();
        std::memcpy(frame.bytes.data(), camera->frame(), frame.bytes.size());
        panel->suit(displayRangeOf(frame), true);
    }
    widget->view().redraw();
}

void ImagePage::resetView() { widget->view().resetCamera(); }

void ImagePage::prepareForPicture()
{
    constexpr int kZoomSteps = 2;
    if (!showsFile())
        camera->advance(2 * height()); // the third part, whole and scratched
    draw();
    for (int i = 0; i < kZoomSteps; ++i) // as a user would make it larger
        turnWheel(*widget->surface());
    pointAt(width() / 2, height() / 3);
}

void ImagePage::pointAt(int column, int row)
{
    if (!isVisible())
        return; // all views share one sender
    pointedColumn = column;
    pointedRow = row;
    tellPixel();
}

void ImagePage::tellPixel()
{
    const bool inside
        = pointedColumn >= 0 && pointedColumn < width() && pointedRow >= 0 && pointedRow < height();
    Q_EMIT coordinatesChanged(inside ? sampleText(pointedColumn, pointedRow) : QString());
}

int ImagePage::sampleAt(std::size_t index)
{
    return showsFile() ? image->sample(index) : camera->frame()[index];
}

QString ImagePage::sampleText(int column, int row)
{
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
