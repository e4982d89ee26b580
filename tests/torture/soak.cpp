// SPDX-License-Identifier: BSD-3-Clause
// An hour's worth of frames through one view, as fast as they go:
//     torture_soak image|profile|cloud|surface FRAMES
// Prints for each sixtieth part, a minute of that hour, what a frame took of the processor and how
// much memory the program had at its end.
#include <support/hostfixture.h>
#include <support/residentmemory.h>
#include <visualization/imageview.h>
#include <visualization/point.h>
#include <visualization/pointcloudview.h>
#include <visualization/profileview.h>
#include <visualization/shape.h>
#include <visualization/surfaceview.h>

#include <QApplication>
#include <QSurfaceFormat>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <vector>

using ovl::test::HostFixture;
using ovl::test::residentBytes;

namespace {

constexpr int kMinutes = 60;
constexpr std::size_t kLargestFrame = std::size_t {320} * 240 * 4 * 4; // bytes

class Stream {
public:
    virtual ~Stream() = default;
    /** Hands frame `number` to the view; the numbers of a minute run from 0. */
    virtual void draw(int number) = 0;
};

/** Frames of another size and layout each time, with and without the lookup table. */
class ImageStream : public Stream {
public:
    explicit ImageStream(HostFixture& host)
        : view(host.widget())
    {
    }

    void draw(int number) override
    {
        std::vector<unsigned char>& frame = frames[static_cast<std::size_t>(number % 2)];
        frame.assign(kLargestFrame, static_cast<unsigned char>(number));
        const int width = 16 + number * 37 % 304;
        const int height = 16 + number * 53 % 224;
        view.enableLookupTable(number % 3 == 0);
        view.forceColor(number % 5 == 0);
        view.setShift(number % 4);
        view.drawScene(frame.data(), width, height, {1 + number % 4, number % 4});
    }

private:
    std::array<std::vector<unsigned char>, 2> frames; // the host's, in turn
    ovl::ImageView view;
};

/** Curves of another length each time, under shapes that move. */
class ProfileStream : public Stream {
public:
    explicit ProfileStream(HostFixture& host)
        : view(host.widget(), 3)
    {
        for (int i = 0; i < 4; ++i)
            view.addShape(shape(i, 0));
        view.drawShapes();
        view.resetView();
    }

    void draw(int number) override
    {
        view.setNumberOfValues(10 + number * 61 % 1990);
        for (int row = 0; row < view.numberOfValues(); ++row) {
            view.setValue(0, row, row % 1000);
            view.setValue(1, row, (row + number) % 500);
            view.setValue(2, row, 500 + (row * 3 + number) % 500);
        }
        view.drawPlots();
        view.updateShape(shape(number % 4, number));
        if (number % 16 == 0)
            view.drawShapes();
    }

private:
    static ovl::Shape shape(int identifier, int number)
    {
        ovl::Shape shape;
        shape.setIdentifier(identifier);
        shape.setTitle(QString::number(identifier));
        for (int line = 0; line <= (identifier + number) % 5; ++line)
            shape.addLine({100.0 * line, double(number % 900)}, {100.0 * line + 80.0, 500.0});
        return shape;
    }

    ovl::ProfileView view;
};

/** A scene that grows from one frame of a minute to the next. */
template <class ViewType> class SpaceStream : public Stream {
public:
    explicit SpaceStream(HostFixture& host)
        : view(host.widget())
    {
    }

    void draw(int number) override
    {
        const int edge = 4 + number % 96;
        view.setScene(edge, edge);
        for (int i = 0; i < edge * edge; ++i)
            view.setPoint(i, i % edge, i / edge, (i + number) % 7, i % 256);
        view.range(0).set(0, edge);
        view.range(1).set(0, edge);
        view.range(2).set(0, 7);
        view.range(3).set(0, 255);
        view.drawScene();
        view.resetCamera();
    }

private:
    ViewType view;
};

std::unique_ptr<Stream> makeStream(const char* name, HostFixture& host)
{
    if (std::strcmp(name, "image") == 0)
        return std::make_unique<ImageStream>(host);
    if (std::strcmp(name, "profile") == 0)
        return std::make_unique<ProfileStream>(host);
    if (std::strcmp(name, "cloud") == 0)
        return std::make_unique<SpaceStream<ovl::PointCloudView>>(host);
    if (std::strcmp(name, "surface") == 0)
        return std::make_unique<SpaceStream<ovl::SurfaceView>>(host);
    return nullptr;
}

void runMinute(Stream& stream, HostFixture& host, int minute, int frames)
{
    const std::clock_t start = std::clock();
    for (int frame = 0; frame < frames; ++frame) {
        stream.draw(frame);
        host.render();
        QApplication::processEvents();
    }
    const double milliseconds = 1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC / frames;
    std::printf("minute %d ms_per_frame %.3f resident_mb %.1f\n", minute, milliseconds,
        double(residentBytes()) / (1024.0 * 1024.0));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    QSurfaceFormat format = ovl::compat::HostWidget::defaultFormat();
    format.setSamples(0);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication application(argc, argv);
    HostFixture host;
    const auto stream = argc == 3 ? makeStream(argv[1], host) : nullptr;
    if (!stream) {
        std::fprintf(stderr, "usage: torture_soak image|profile|cloud|surface FRAMES\n");
        return 2;
    }
    const int frames = std::max(std::atoi(argv[2]) / kMinutes, 1);
    for (int minute = 1; minute <= kMinutes; ++minute)
        runMinute(*stream, host, minute, frames);
    return 0;
}
