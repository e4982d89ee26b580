// SPDX-License-Identifier: BSD-3-Clause
#include <support/coordinatesrecorder.h>
#include <support/imagefixture.h>
#include <support/literalimageview.h>
#include <support/messagewatch.h>
#include <visualization/imageview.h>
#include <visualization/range.h>

#include <vtkImageAlgorithm.h>
#include <vtkImageMapToColors.h>
#include <vtkLookupTable.h>
#include <vtkThreadedImageAlgorithm.h>

#include <QColor>

#include <cfloat>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>

using ovl::Range;
using ovl::test::CoordinatesRecorder;
using ovl::test::HostFixture;
using ovl::test::ImageFixture;
using ovl::test::LiteralImageView;
using ovl::test::MessageWatch;

namespace {

using Words = std::vector<unsigned short>;

const QColor kBlack(0, 0, 0);
const QColor kRed(255, 0, 0);

class ImageViewLookupTable : public testing::Test {
protected:
    /** Two like rows of four 16-bit pixels, seen through the table; one row alone has no height. */
    void show(const Words& row)
    {
        samples = row;
        samples.insert(samples.end(), row.begin(), row.end());
        f.view->enableLookupTable(true);
        f.draw(samples, static_cast<int>(row.size()), 1, 2);
        f.render();
    }

    /** Draws without a repaint, which would build the table all the same. */
    void drawOnly()
    {
        samples.assign(4, 0);
        f.draw(samples, 2, 1, 2);
    }

    /** What maps the samples, while the table is enabled. */
    vtkImageMapToColors* map()
    {
        return vtkImageMapToColors::SafeDownCast(f.image()->GetMapper()->GetInputAlgorithm());
    }

    QColor firstColor()
    {
        auto* table = vtkLookupTable::SafeDownCast(map()->GetLookupTable());
        const unsigned char* rgba = table->GetPointer(0);
        return {rgba[0], rgba[1], rgba[2]};
    }

    Words samples;
    ImageFixture f;
};

TEST_F(ImageViewLookupTable, IsOffByDefault)
{
    EXPECT_FALSE(f.view->lookupTableEnabled());
    f.view->enableLookupTable(true);
    EXPECT_TRUE(f.view->lookupTableEnabled());
    f.view->enableLookupTable(false);
    EXPECT_FALSE(f.view->lookupTableEnabled());
}

TEST_F(ImageViewLookupTable, DefaultIsAGreyRampOverABytesRange)
{
    EXPECT_EQ(f.view->lookupTableRange().min(), 0.0);
    EXPECT_EQ(f.view->lookupTableRange().max(), 255.0);
    show({0, 100, 255, 1000});
    EXPECT_EQ(f.colorOf(0, 0), QColor(0, 0, 0));
    EXPECT_EQ(f.colorOf(1, 0), QColor(100, 100, 100));
    EXPECT_EQ(f.colorOf(2, 0), QColor(255, 255, 255));
    EXPECT_EQ(f.colorOf(3, 0), QColor(255, 255, 255));
}

TEST_F(ImageViewLookupTable, MapsTheRangeOntoTheRamp)
{
    f.view->setLookupTableRange(Range(1000.0, 2000.0));
    show({999, 1000, 1500, 2000});
    EXPECT_EQ(f.colorOf(0, 0).red(), 0);
    EXPECT_EQ(f.colorOf(1, 0).red(), 0);
    EXPECT_NEAR(f.colorOf(2, 0).red(), 128, 1);
    EXPECT_EQ(f.colorOf(3, 0).red(), 255);
}

TEST_F(ImageViewLookupTable, RangeComesBackAndDoesNotMarkDirty)
{
    f.view->setLookupTableRange(Range(7.0, 3.0));
    EXPECT_EQ(f.view->lookupTableRange().min(), 3.0);
    EXPECT_EQ(f.view->lookupTableRange().max(), 7.0);
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ImageViewLookupTable, EmptyRangeIsHandedOnUncheckedAndRefusedByTheFramework)
{
    MessageWatch::expect("Bad table range");
    f.view->setLookupTableRange(Range());
    EXPECT_EQ(f.view->lookupTableRange().min(), 0.0);
    EXPECT_EQ(f.view->lookupTableRange().max(), 255.0);
}

TEST_F(ImageViewLookupTable, ShiftStillApplies)
{
    f.view->setShift(4);
    show({0x0640, 0, 0, 0});
    EXPECT_EQ(f.colorOf(0, 0).red(), 0x64);
}

TEST_F(ImageViewLookupTable, KeepsTheTypeOfTheSamplesUntilItIsDisabled)
{
    show({300, 300, 300, 300});
    const auto outputType = [&] {
        vtkAlgorithm* last = f.image()->GetMapper()->GetInputAlgorithm();
        vtkAlgorithm* correction = f.view->lookupTableEnabled() ? last->GetInputAlgorithm() : last;
        return vtkImageAlgorithm::SafeDownCast(correction)->GetOutput()->GetScalarType();
    };
    EXPECT_EQ(outputType(), VTK_UNSIGNED_SHORT);
    f.view->enableLookupTable(false);
    f.view->redraw();
    f.render();
    EXPECT_EQ(outputType(), VTK_UNSIGNED_CHAR);
    EXPECT_EQ(f.colorOf(0, 0).red(), 300 - 256);
}

TEST_F(ImageViewLookupTable, TurningItOffShowsTheOldSamplesUntilTheNextDraw)
{
    f.view->setShift(4);
    show({0x0640, 0, 0, 0});
    f.view->setShift(0);
    f.view->enableLookupTable(false);
    f.render();
    EXPECT_EQ(f.shown()->GetScalarType(), VTK_UNSIGNED_SHORT);
    EXPECT_EQ(f.shown()->GetScalarComponentAsDouble(0, 0, 0, 0), 0x64);
    f.view->redraw();
    f.render();
    EXPECT_EQ(f.shown()->GetScalarType(), VTK_UNSIGNED_CHAR);
    EXPECT_EQ(f.shown()->GetScalarComponentAsDouble(0, 0, 0, 0), 0x40);
    EXPECT_EQ(samples[0], 0x0640) << "the host's memory is never written to";
}

TEST_F(ImageViewLookupTable, TurningItOnAfterAMoveShowsTheDrawnFrameAsItWasAnnounced)
{
    samples.assign(64, 0x012C); // 300, of which a byte keeps 44
    f.draw(samples, 8, 1, 2);
    f.render();
    f.view->redraw();
    f.move({150, 100}); // the pick asks what the frame will be like
    f.view->enableLookupTable(true);
    EXPECT_EQ(f.colorOf(4, 4), QColor(44, 44, 44)) << "the new type waits for the next draw";
    f.view->redraw();
    EXPECT_EQ(f.colorOf(4, 4), QColor(255, 255, 255));
}

TEST_F(ImageViewLookupTable, ABufferIsNotReadAnyMoreOnceAnotherWasDrawn)
{
    auto first = std::make_unique<Words>(Words(64, 200));
    f.view->enableLookupTable(true);
    f.view->setShift(1);
    f.draw(*first, 8, 1, 2);
    f.render();
    std::vector<unsigned char> second(16, 100);
    f.draw(second, 4, 1, 0);
    first.reset();
    f.view->enableLookupTable(false);
    f.move({150, 100});
    f.render();
    EXPECT_EQ(f.colorOf(1, 1), QColor(50, 50, 50));
}

TEST_F(ImageViewLookupTable, ColoursOfItsOwnAboveAndBelowTheRange)
{
    f.view->setLookupTableRange(Range(10.0, 20.0));
    f.view->setAboveRangeColor(QColor(255, 0, 0, 7));
    f.view->setBelowRangeColor(QColor(0, 0, 255));
    EXPECT_FALSE(f.view->aboveRangeColorEnabled());
    EXPECT_FALSE(f.view->belowRangeColorEnabled());
    show({5, 10, 20, 25});
    EXPECT_EQ(f.colorOf(0, 0), QColor(0, 0, 0));
    EXPECT_EQ(f.colorOf(3, 0), QColor(255, 255, 255));

    f.view->enableAboveRangeColor(true);
    f.view->redraw();
    EXPECT_TRUE(f.view->aboveRangeColorEnabled());
    EXPECT_FALSE(f.view->belowRangeColorEnabled());
    EXPECT_EQ(f.colorOf(0, 0), QColor(0, 0, 0));
    EXPECT_EQ(f.colorOf(3, 0), QColor(255, 0, 0)); // its alpha of 7 is ignored

    f.view->enableBelowRangeColor(true);
    f.view->redraw();
    EXPECT_TRUE(f.view->belowRangeColorEnabled());
    EXPECT_EQ(f.colorOf(0, 0), QColor(0, 0, 255));
    EXPECT_EQ(f.colorOf(1, 0), QColor(0, 0, 0));
    EXPECT_EQ(f.colorOf(2, 0), QColor(255, 255, 255));

    f.view->enableAboveRangeColor(false);
    f.view->enableBelowRangeColor(false);
    f.view->redraw();
    EXPECT_FALSE(f.view->aboveRangeColorEnabled());
    EXPECT_FALSE(f.view->belowRangeColorEnabled());
    EXPECT_EQ(f.colorOf(0, 0), QColor(0, 0, 0));
}

TEST_F(ImageViewLookupTable, RangeColoursComeBackCutToNothingOrOne)
{
    f.view->setAboveRangeColor(QColor::fromRgbF(1.0, 0.5, 0.0, 0.25));
    EXPECT_EQ(f.view->aboveRangeColor(), QColor(1, 0, 0, 1));
    f.view->setBelowRangeColor(QColor::fromRgbF(0.5, 1.0, 1.0));
    EXPECT_EQ(f.view->belowRangeColor(), QColor(0, 1, 1, 1));
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ImageViewLookupTable, NoOperationMarksDirty)
{
    f.view->enableLookupTable(true);
    f.view->enableLookupTable(false);
    f.view->setLookupTableRange(Range(0.0, 1.0));
    f.view->enableAboveRangeColor(true);
    f.view->enableBelowRangeColor(true);
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ImageViewLookupTable, EnablingBuildsTheTableAtTheNextDraw)
{
    f.view->enableLookupTable(true);
    EXPECT_EQ(firstColor(), kRed) << "until a draw it holds the framework's own colours";
    drawOnly();
    EXPECT_EQ(firstColor(), kBlack);
}

TEST_F(ImageViewLookupTable, ANewRangeBuildsTheTableAtTheNextDrawEvenWhileItIsOff)
{
    f.view->setLookupTableRange(Range(0.0, 100.0));
    drawOnly();
    f.view->enableLookupTable(true);
    EXPECT_EQ(firstColor(), kBlack);
}

TEST_F(ImageViewLookupTable, DisablingKeepsAPendingRebuild)
{
    f.view->enableLookupTable(true);
    f.view->enableLookupTable(false);
    drawOnly();
    f.view->enableLookupTable(true);
    EXPECT_EQ(firstColor(), kBlack);
}

TEST_F(ImageViewLookupTable, TheMapPassesAlphaOn)
{
    f.view->enableLookupTable(true);
    EXPECT_NE(map()->GetPassAlphaToOutput(), 0);
}

TEST_F(ImageViewLookupTable, BothFiltersRunOnTheFrameworksPoolWhateverItsDefault)
{
    const bool usual = vtkThreadedImageAlgorithm::GetGlobalDefaultEnableSMP();
    vtkThreadedImageAlgorithm::SetGlobalDefaultEnableSMP(false);
    f.view = std::make_unique<ovl::ImageView>(f.widget());
    vtkThreadedImageAlgorithm::SetGlobalDefaultEnableSMP(usual);
    f.view->enableLookupTable(true);
    EXPECT_TRUE(map()->GetEnableSMP());
    auto* correction = vtkThreadedImageAlgorithm::SafeDownCast(map()->GetInputAlgorithm());
    ASSERT_NE(correction, nullptr);
    EXPECT_TRUE(correction->GetEnableSMP());
}

TEST_F(ImageViewLookupTable, ForcedColourBesideTheTableStaysInsideTheOutput)
{
    f.view->forceColor(true);
    show({10, 50, 200, 255});
    EXPECT_EQ(f.colorOf(0, 0), QColor(10, 10, 10));
    EXPECT_EQ(f.colorOf(2, 0), QColor(200, 200, 200));
    std::vector<unsigned char> colour(3 * 8, 40);
    f.draw(colour, 4, 3, 0);
    f.render();
}

/** The same calls, in an order that chance decides, on an image view and on the plainest one. */
class ImageViewBesideThePlainest : public testing::Test {
protected:
    ImageViewBesideThePlainest()
    {
        // One sample a pixel: software rasterisers do not always blend the edge of an image.
        for (HostFixture* host : {static_cast<HostFixture*>(&ourHost), &plainHost})
            host->window()->SetMultiSamples(0);
        draw();
    }

    int below(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }

    template <class Call> void both(const std::string& name, Call call)
    {
        log += name + "; ";
        call(ours);
        call(plain);
    }

    template <class Deed> void onBothHosts(const std::string& name, Deed deed)
    {
        log += name + "; ";
        deed(static_cast<HostFixture&>(ourHost));
        deed(plainHost);
    }

    void fill()
    {
        for (unsigned char& byte : *buffer)
            byte = static_cast<unsigned char>(random());
    }

    /** A frame in memory of its own; that of the last one is gone at once. */
    void draw()
    {
        constexpr std::array<std::array<int, 2>, 9> sizes
            = {{{1, 1}, {1, 7}, {7, 1}, {0, 0}, {5, 4}, {5, 4}, {23, 17}, {64, 48}, {65, 48}}};
        const std::array<int, 2> size = drawn ? sizes.at(below(9)) : sizes.back();
        const int components = 1 + below(4) * below(2);
        const int type = below(4);
        auto next = std::make_unique<std::vector<unsigned char>>(
            static_cast<std::size_t>(size[0] * size[1] * components) * (type == 3 ? 4 : 2) + 1);
        next.swap(buffer);
        fill();
        both("draw " + std::to_string(size[0]) + "x" + std::to_string(size[1]) + "x"
                + std::to_string(components) + " of " + std::to_string(type),
            [&](auto& view) {
                view.drawScene(buffer->data(), size[0], size[1], {components, type});
            });
        drawn = true;
    }

    void redraw()
    {
        if (below(2))
            fill();
        both("redraw", [](auto& view) { view.redraw(); });
    }

    void changeSetting()
    {
        switch (below(4)) {
        case 0: {
            const int shift = below(20) - 2;
            return both("shift " + std::to_string(shift), [&](auto& v) { v.setShift(shift); });
        }
        case 1: {
            const int index = below(8);
            const int word = static_cast<int>(random());
            return both("mask", [&](auto& view) { view.setMask(index, word); });
        }
        case 2: {
            const bool force = below(3) == 0;
            return both(force ? "force" : "unforce", [&](auto& v) { v.forceColor(force); });
        }
        default:
            return both("reset", [](auto& view) { view.resetCamera(); });
        }
    }

    void changeTable()
    {
        const bool on = below(2) != 0;
        const QColor color(below(256), below(256), below(256));
        switch (below(6)) {
        case 0:
        case 1:
            return both(on ? "on" : "off", [&](auto& v) { v.enableLookupTable(on); });
        case 2: {
            const double least = below(2000) - 1000.0;
            const Range range(least, least + below(3000));
            return both("range", [&](auto& view) { view.setLookupTableRange(range); });
        }
        case 3:
            return both("above", [&](auto& view) { view.setAboveRangeColor(color); });
        case 4:
            return both("below", [&](auto& view) { view.setBelowRangeColor(color); });
        default:
            return both("colours", [&](auto& view) {
                view.enableAboveRangeColor(on);
                view.enableBelowRangeColor(color.red() > 127);
            });
        }
    }

    QPointF place() { return {double(below(kWidth)), double(below(kHeight))}; }

    void useTheMouse()
    {
        const QPointF from = place();
        const QPointF to = place();
        const bool forward = below(2) != 0;
        const auto button = forward ? Qt::LeftButton : Qt::RightButton;
        if (below(2))
            onBothHosts("wheel", [&](HostFixture& host) { host.wheel(from, forward ? 1 : -1); });
        else
            onBothHosts("drag", [&](HostFixture& host) { host.drag(from, to, button, 2); });
    }

    void changeWindow()
    {
        if (below(2)) {
            const QSize size(kWidth + below(60) - 30, kHeight + below(40) - 20);
            return onBothHosts("resize", [&](HostFixture& host) { host.resize(size); });
        }
        onBothHosts("hide", [](HostFixture& host) {
            host.widget()->hide();
            host.widget()->show();
        });
    }

    void compareMoves()
    {
        log += "moves; ";
        for (int move = 0; move < 3; ++move) {
            const QPointF at = place();
            CoordinatesRecorder told;
            ourHost.move(at);
            const auto pixels = told.pixels;
            const int cleared = told.cleared;
            told.clear();
            plainHost.move(at);
            ASSERT_EQ(pixels, told.pixels) << log;
            ASSERT_EQ(cleared, told.cleared) << log;
        }
    }

    void compareRepaints()
    {
        log += "repaint; ";
        ourHost.render();
        plainHost.render();
        ASSERT_TRUE(ourHost.picture() == plainHost.picture()) << log;
    }

    void step()
    {
        const int kind = below(20);
        if (kind < 4)
            draw();
        else if (kind < 6)
            redraw();
        else if (kind < 9)
            changeSetting();
        else if (kind < 13)
            changeTable();
        else if (kind < 14)
            useTheMouse();
        else if (kind < 15)
            changeWindow();
        else if (kind < 17)
            compareMoves();
        else
            compareRepaints();
    }

    static constexpr int kWidth = 120; // of the windows, pixels
    static constexpr int kHeight = 90;

    std::mt19937 random;
    bool drawn = false;
    std::string log;
    std::unique_ptr<std::vector<unsigned char>> buffer;
    ImageFixture ourHost {{kWidth, kHeight}};
    HostFixture plainHost {{kWidth, kHeight}};
    ovl::ImageView& ours = *ourHost.view;
    LiteralImageView plain {plainHost.widget()};
};

TEST_F(ImageViewBesideThePlainest, ShowsAndTellsTheSameInAnyOrderOfCalls)
{
    MessageWatch::allow("extent"); // the framework's, of an image of one pixel
    compareRepaints();
    for (int seed = 0; seed < 25 && !HasFatalFailure(); ++seed) {
        log.clear();
        random.seed(static_cast<unsigned>(seed));
        for (int i = 0; i < 40 && !HasFatalFailure(); ++i)
            step();
    }
}

} // namespace
