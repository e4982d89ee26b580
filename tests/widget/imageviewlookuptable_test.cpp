// SPDX-License-Identifier: BSD-3-Clause
#include <support/imagefixture.h>
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

using ovl::Range;
using ovl::test::ImageFixture;
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

} // namespace
