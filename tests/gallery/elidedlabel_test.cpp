// SPDX-License-Identifier: BSD-3-Clause
#include <gallery/elidedlabel.h>

#include <gtest/gtest.h>

using ovl::gallery::ElidedLabel;

namespace {

const QString kDot = QStringLiteral("   \u00b7   ");

/** A label that has room for a text and its margins, and not a pixel more. */
struct Fitted {
    Fitted(const QStringList& parts, const QString& room)
    {
        label.setContentsMargins(12, 4, 20, 4);
        label.setParts(parts);
        label.show();
        label.resize(label.fontMetrics().horizontalAdvance(room) + 32, 30);
    }

    ElidedLabel label;
};

TEST(ElidedLabel, TellsAllPartsWhereThereIsRoom)
{
    const Fitted f({"pan", "zoom", "hover"}, "pan" + kDot + "zoom" + kDot + "hover");
    EXPECT_EQ(f.label.text(), "pan" + kDot + "zoom" + kDot + "hover");
}

TEST(ElidedLabel, LeavesOutWholePartsFromTheEnd)
{
    Fitted f({"pan", "zoom", "hover"}, "pan" + kDot + "zoom" + kDot + "hov");
    EXPECT_EQ(f.label.text(), "pan" + kDot + "zoom");
    f.label.resize(f.label.fontMetrics().horizontalAdvance("pan" + kDot + "z") + 32, 30);
    EXPECT_EQ(f.label.text(), "pan");
    EXPECT_EQ(f.label.toolTip(), "pan" + kDot + "zoom" + kDot + "hover");
}

TEST(ElidedLabel, TellsTheBeginningOfAPartThatIsTooLong)
{
    const Fitted f({"terrain.asc, 403 x 344 samples"}, "terrain.asc, 403 x");
    EXPECT_TRUE(f.label.text().startsWith("terrain.asc")) << qPrintable(f.label.text());
    EXPECT_TRUE(f.label.text().endsWith(QChar(0x2026))) << qPrintable(f.label.text());
    EXPECT_EQ(f.label.toolTip(), "terrain.asc, 403 x 344 samples");
}

TEST(ElidedLabel, GrowsAgainAndTakesAnotherText)
{
    Fitted f({"pan", "zoom"}, "pan");
    EXPECT_EQ(f.label.text(), "pan");
    f.label.resize(500, 30);
    EXPECT_EQ(f.label.text(), "pan" + kDot + "zoom");
    f.label.setParts({"turn"});
    EXPECT_EQ(f.label.text(), "turn");
}

TEST(ElidedLabel, NeverKeepsAWindowFromBecomingNarrow)
{
    QWidget window;
    auto* label = new ElidedLabel(&window);
    label->setParts({QString(1000, 'w')});
    EXPECT_EQ(label->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
}

} // namespace
