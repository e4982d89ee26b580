// SPDX-License-Identifier: BSD-3-Clause
// The tools on a view of 0 to 100 by 0 to 100, over a step from 10 to 30 at x = 30; the mouse is
// the user's.
#include <gallery/measuringtools.h>
#include <support/profilefixture.h>
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/shape.h>

#include <QCursor>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace ovl;
using namespace ovl::gallery;
using ovl::test::ProfileFixture;

namespace {

enum Tool { BandA = 1, BandB, Area, Distance };

constexpr double kClose = 0.3; // a pixel

class Tools : public testing::Test {
protected:
    Tools()
        : f(2, {500, 500})
    {
        table.titles = QStringList {"x", "y"};
        table.columns.resize(2);
        for (int i = 0; i <= 100; ++i) {
            table.columns[0].push_back(i);
            table.columns[1].push_back(i < 30 ? 10 : 30);
        }
        f.fill(table.columns);
        f.view->drawPlots();
        tools.place({0, 100}, {0, 100});
        tools.addTo(*f.view);
        f.view->drawShapes();
        f.view->setLeftRange(0, 100);
        f.view->setBottomRange(0, 100);
        f.view->resetView();
        f.render();
        QObject::connect(&tools, &MeasuringTools::moved, [this] { tools.measure(table); });
        tools.measure(table);
    }

    Line& line(Tool tool, int index) { return *f.view->shape(tool)->line(index); }
    double left(Tool tool) { return line(tool, 0).p1()->x(); }
    double right(Tool tool) { return line(tool, 0).p2()->x(); }
    double bottom(Tool tool) { return line(tool, 0).p1()->y(); }
    double top(Tool tool) { return line(tool, 2).p1()->y(); }

    void drag(Point from, Point to, int steps = 4)
    {
        const QPointF start = f.position(from.x(), from.y());
        f.move(start);
        f.drag(start, f.position(to.x(), to.y()), Qt::LeftButton, steps);
        f.render();
    }

    Table table;
    MeasuringTools tools {nullptr};
    ProfileFixture f;
};

TEST_F(Tools, BandsMeasureTheStepBetweenThem)
{
    EXPECT_TRUE(tools.readOut().contains("A             10 9 samples"))
        << qPrintable(tools.readOut());
    EXPECT_TRUE(tools.readOut().contains("B             30 9 samples"));
    EXPECT_TRUE(tools.readOut().contains("Step          20"));
}

TEST_F(Tools, ABandMovesAlongXOnlyAndIsMeasuredAgain)
{
    QSignalSpy moved(&tools, &MeasuringTools::moved);
    drag({36, 50}, {16, 80}); // band B, by its inside
    EXPECT_NEAR(left(BandB), 12, kClose);
    EXPECT_NEAR(right(BandB), 20, kClose);
    EXPECT_EQ(bottom(BandB), 6);
    EXPECT_EQ(top(BandB), 94);
    EXPECT_EQ(moved.count(), 4) << "at every move of the mouse";
    EXPECT_TRUE(tools.readOut().contains("Step           0")) << qPrintable(tools.readOut());
}

TEST_F(Tools, ABandIsResizedByTheHandleOfASide)
{
    drag({40, 50}, {60, 50}); // the middle of the right side
    EXPECT_NEAR(left(BandB), 32, 1e-9);
    EXPECT_NEAR(right(BandB), 60, kClose);
}

TEST_F(Tools, TheBoxMovesAlongBothAxes)
{
    drag({80, 50}, {70, 40}); // clear of the curve, whose points hold up a drag
    EXPECT_NEAR(left(Area), 62, kClose);
    EXPECT_NEAR(right(Area), 78, kClose);
    EXPECT_NEAR(bottom(Area), 20, kClose);
    EXPECT_NEAR(top(Area), 60, kClose);
    EXPECT_TRUE(tools.readOut().contains("Box           30 \u00b1 0"))
        << qPrintable(tools.readOut());
}

TEST_F(Tools, ACornerOfTheBoxResizesBothSides)
{
    drag({88, 70}, {94, 90});
    EXPECT_NEAR(left(Area), 72, 1e-9);
    EXPECT_NEAR(right(Area), 94, kClose);
    EXPECT_NEAR(bottom(Area), 30, 1e-9);
    EXPECT_NEAR(top(Area), 90, kClose);
}

TEST_F(Tools, ASideDraggedOverTheOtherChangesPlacesWithIt)
{
    drag({88, 50}, {60, 50}, 11);
    drag({66, 40}, {68, 40}); // what lies between the sides is the inside again
    EXPECT_NEAR(std::min(left(Area), right(Area)), 62, 2 * kClose);
    EXPECT_NEAR(std::max(left(Area), right(Area)), 74, 2 * kClose);
}

TEST_F(Tools, AnEndOfTheLineFollowsTheMouse)
{
    drag({62, 65}, {48, 75});
    EXPECT_NEAR(line(Distance, 0).p2()->x(), 48, kClose);
    EXPECT_NEAR(line(Distance, 0).p2()->y(), 75, kClose);
    EXPECT_NEAR(line(Distance, 0).p1()->x(), 48, 1e-9);
    EXPECT_NEAR(line(Distance, 0).length(), 40, kClose);
}

TEST_F(Tools, WhereToolsOverlapTheLineGoesFirst)
{
    drag({36, 50}, {54, 50}); // band B, under the line
    const double before = left(BandB);
    drag({53, 45.7}, {57, 45.7}); // on the line and in the band, away from the handles
    EXPECT_NEAR(left(BandB), before, 1e-9);
    EXPECT_NEAR(line(Distance, 0).p1()->x(), 52, kClose);
}

TEST_F(Tools, TheCursorTellsWhatCanBeMoved)
{
    f.move(f.position(80, 50));
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::SizeAllCursor);
    f.move(f.position(80, 80));
    EXPECT_EQ(f.widget()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Tools, ReadOutIsInTheTablesNumbers)
{
    tools.setScale(1, 2, QStringLiteral("mm")); // the view shows ten times x, a hundred times y
    for (double& x : table.columns[0])
        x /= 10;
    for (double& y : table.columns[1])
        y /= 100;
    tools.measure(table);
    EXPECT_TRUE(tools.readOut().contains("A          0.100")) << qPrintable(tools.readOut());
    EXPECT_TRUE(tools.readOut().contains("Step       0.200 mm"));
    EXPECT_TRUE(tools.readOut().contains("B          0.300 mm  9 samples"));
}

TEST_F(Tools, WhatIsLessThanADigitHasNoSign)
{
    tools.setScale(0, 0, QStringLiteral("mm"));
    for (std::size_t row = 0; row < table.rows(); ++row)
        table.columns[1][row] = -1e-5 * static_cast<double>(row); // the step is -0.0002
    tools.measure(table);
    EXPECT_TRUE(tools.readOut().contains("Step       0.000 mm")) << qPrintable(tools.readOut());
}

TEST_F(Tools, ABoxWithoutSamplesHasNoDeviation)
{
    for (double& y : table.columns[1])
        y = 1000;
    tools.measure(table);
    EXPECT_TRUE(tools.readOut().contains("Box            \u2013 no samples"))
        << qPrintable(tools.readOut());
}

} // namespace
