// SPDX-License-Identifier: BSD-3-Clause
#include <support/profilefixture.h>
#include <visualization/line.h>
#include <visualization/plot.h>
#include <visualization/plotline.h>
#include <visualization/plotpoints.h>
#include <visualization/point.h>
#include <visualization/range.h>
#include <visualization/shape.h>

#include <vtkAbstractArray.h>
#include <vtkContextItem.h>
#include <vtkContextMouseEvent.h>
#include <vtkDataArray.h>
#include <vtkPen.h>
#include <vtkPlot.h>
#include <vtkPlotLine.h>
#include <vtkPlotPoints.h>
#include <vtkRenderWindow.h>
#include <vtkSmartPointer.h>
#include <vtkTable.h>
#include <vtkVariant.h>
#include <vtkWeakPointer.h>

#include <QColor>
#include <QImage>
#include <QString>

#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using ovl::LineType;
using ovl::Plot;
using ovl::PlotLine;
using ovl::PlotPoints;
using ovl::Point;
using ovl::Shape;
using ovl::test::ProfileFixture;

namespace {

constexpr int kColumns = 2;

/** One line from (x, x) to (x + 2, x + 4). */
Shape makeShape(const QString& title, int identifier, double x)
{
    Shape shape;
    shape.setTitle(title);
    shape.setIdentifier(identifier);
    shape.addLine(Point(x, x), Point(x + 2.0, x + 4.0));
    return shape;
}

/** A view that tells what its shapes have become in the chart. */
class ProfileViewShapes : public testing::Test {
protected:
    /** Adds a shape of one line for each letter, with identifiers 0, 1 ... and x 0, 10 ... */
    void add(const std::string& titles)
    {
        for (const char title : titles) {
            const int number = added++;
            f.view->addShape(makeShape(QString(title), number, 10.0 * number));
        }
    }

    /** The plots of shapes in the order in which the chart has them. */
    std::vector<vtkPlot*> plots(bool handles)
    {
        std::vector<vtkPlot*> found;
        for (int i = kColumns; i < f.chart()->GetNumberOfPlots(); ++i)
            if (part(f.plot(i))->isHandle == handles)
                found.push_back(f.plot(i));
        return found;
    }
    std::vector<vtkPlot*> linePlots() { return plots(false); }
    std::vector<vtkPlot*> handlePlots() { return plots(true); }

    static Plot* part(vtkPlot* plot) { return dynamic_cast<Plot*>(plot); }

    static double cell(vtkPlot* plot, int row, int column)
    {
        return plot->GetInput()->GetValue(row, column).ToDouble();
    }
    static std::string columnName(vtkPlot* plot, int column)
    {
        return plot->GetInput()->GetColumnName(column);
    }

    /** For each line plot the title of its shape and the x at which its line begins. */
    std::string drawn()
    {
        std::string text;
        for (vtkPlot* plot : linePlots())
            text += part(plot)->shape->title().toStdString() + std::to_string(int(cell(plot, 0, 0)))
                + ' ';
        return text;
    }

    /** The items of corner 0 from the bottom: l or h with the identifier, or c for a curve. */
    std::string stack()
    {
        std::string text;
        vtkAbstractContextItem* corner = f.plot(0)->GetParent();
        for (vtkIdType i = 0; i < corner->GetNumberOfItems(); ++i) {
            const Plot* item = dynamic_cast<Plot*>(corner->GetItem(i));
            if (item && !item->shape)
                text += "c ";
            else if (item)
                text += (item->isHandle ? 'h' : 'l') + std::to_string(item->shape->identifier())
                    + ' ';
        }
        return text;
    }

    ProfileFixture f {kColumns};
    int added = 0;
};

// Adding ------------------------------------------------------------------------------------------

TEST_F(ProfileViewShapes, AddingShowsNothing)
{
    add("AB");
    EXPECT_EQ(f.chart()->GetNumberOfPlots(), kColumns);
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ProfileViewShapes, TheViewKeepsACopy)
{
    Shape original = makeShape("A", 7, 1.0);
    f.view->addShape(original);
    original.line(0)->p1()->set(90.0, 90.0);
    Shape* kept = f.view->shape(7);
    ASSERT_NE(kept, nullptr);
    EXPECT_NE(kept, &original);
    EXPECT_TRUE(*kept->line(0)->p1() == Point(1.0, 1.0));
}

TEST_F(ProfileViewShapes, AreFoundByTitleOrIdentifierTheFirstOfSeveral)
{
    f.view->addShape(makeShape("A", 7, 0.0));
    f.view->addShape(makeShape("A", 8, 10.0));
    f.view->addShape(makeShape("B", 8, 20.0));
    EXPECT_EQ(f.view->shape("A")->identifier(), 7);
    EXPECT_EQ(f.view->shape(8)->title(), "A");
    EXPECT_EQ(f.view->shape("B")->identifier(), 8);
    EXPECT_EQ(f.view->shape("a"), nullptr); // case counts
    EXPECT_EQ(f.view->shape(9), nullptr);
    EXPECT_EQ(f.view->shape(-1), nullptr);
    f.view->addShape(Shape());
    EXPECT_NE(f.view->shape(-1), nullptr); // one whose identifier was never set
    EXPECT_EQ(f.view->shape(-1), f.view->shape(QString()));
}

// Drawing -----------------------------------------------------------------------------------------

TEST_F(ProfileViewShapes, DrawingMakesALinePlotAndAHandlePlotOfEach)
{
    add("AB");
    f.view->drawShapes();
    EXPECT_TRUE(f.view->isDirty());
    ASSERT_EQ(f.chart()->GetNumberOfPlots(), kColumns + 4);
    for (int i = 0; i < 2; ++i) {
        SCOPED_TRACE(i);
        const auto at = static_cast<std::size_t>(i);
        vtkPlot* lines = linePlots()[at];
        vtkPlot* handles = handlePlots()[at];
        EXPECT_NE(dynamic_cast<PlotLine*>(lines), nullptr);
        EXPECT_NE(dynamic_cast<PlotPoints*>(handles), nullptr);
        EXPECT_EQ(part(lines)->sibling, handles);
        EXPECT_EQ(part(handles)->sibling, lines);
        EXPECT_EQ(part(lines)->shape, f.view->shape(i));
        EXPECT_EQ(part(handles)->shape, f.view->shape(i));
        EXPECT_EQ(f.chart()->GetPlotCorner(lines), 0);
    }
}

TEST_F(ProfileViewShapes, TablesHoldEndsTwoByTwoAndHandlesOneByOne)
{
    Shape shape = makeShape("A", 1, 1.0);
    shape.addLine(Point(10.0, 20.0), Point(30.0, 40.0));
    shape.line(1)->p2()->setVisible(false);
    shape.handle(0)->set(-1.0, -2.0); // handles are their own points
    f.view->addShape(shape);
    f.view->drawShapes();
    vtkPlot* lines = linePlots()[0];
    ASSERT_EQ(lines->GetInput()->GetNumberOfRows(), 4);
    EXPECT_EQ(cell(lines, 0, 0), 1.0);
    EXPECT_EQ(cell(lines, 0, 1), 1.0);
    EXPECT_EQ(cell(lines, 1, 0), 3.0);
    EXPECT_EQ(cell(lines, 1, 1), 5.0);
    EXPECT_EQ(cell(lines, 2, 0), 10.0);
    EXPECT_EQ(cell(lines, 2, 1), 20.0);
    EXPECT_TRUE(std::isnan(cell(lines, 3, 0)));
    EXPECT_TRUE(std::isnan(cell(lines, 3, 1)));
    vtkPlot* handles = handlePlots()[0];
    ASSERT_EQ(handles->GetInput()->GetNumberOfRows(), 6);
    EXPECT_EQ(cell(handles, 0, 0), -1.0);
    EXPECT_EQ(cell(handles, 1, 0), 2.0);
    EXPECT_EQ(cell(handles, 1, 1), 3.0);
    EXPECT_EQ(cell(handles, 5, 1), 40.0);
}

TEST_F(ProfileViewShapes, ColumnsAreNamedAfterTheTitle)
{
    f.view->addShape(makeShape(QString("gate") + QChar(0x3B1), 1, 0.0));
    f.view->drawShapes();
    vtkPlot* lines = linePlots()[0];
    EXPECT_EQ(columnName(lines, 0), "gate?_x");
    EXPECT_EQ(columnName(lines, 1), "gate?");
    EXPECT_EQ(lines->GetLabel(), "gate?");
    vtkPlot* handles = handlePlots()[0];
    EXPECT_EQ(columnName(handles, 0), "gate?_handle_x");
    EXPECT_EQ(columnName(handles, 1), "gate?_handle");
}

TEST_F(ProfileViewShapes, AnEmptyTitleWillDo)
{
    f.view->addShape(makeShape(QString(), 1, 0.0));
    f.view->drawShapes();
    f.render();
    EXPECT_EQ(columnName(linePlots()[0], 0), "_x");
    EXPECT_EQ(columnName(linePlots()[0], 1), "");
}

// A title may hold anything; the framework ends a name at the first null, and takes two columns of
// one name for one.
TEST_F(ProfileViewShapes, ANullWithinATitleEndsTheNamesOfTheColumns)
{
    for (const QString& title :
        {QString("A") + QChar(QChar::Null) + "B", QString(QChar(QChar::Null))})
        f.view->addShape(makeShape(title, 0, 3.0));
    f.view->drawShapes();
    ASSERT_EQ(linePlots().size(), 2U);
    EXPECT_EQ(columnName(linePlots()[0], 0), "A_x");
    EXPECT_EQ(columnName(linePlots()[0], 1), "A");
    EXPECT_EQ(columnName(linePlots()[1], 0), "_x");
    EXPECT_EQ(cell(linePlots()[0], 1, 0), 5.0);
    EXPECT_EQ(cell(linePlots()[0], 1, 1), 7.0);
    EXPECT_EQ(f.view->shape(0)->title().size(), 3); // the shape's own title is whole
}

TEST_F(ProfileViewShapes, ShapesOfOneTitleHaveTablesOfTheirOwn)
{
    add("AA");
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "A0 A10 ");
    EXPECT_EQ(linePlots()[0]->GetLabel(), linePlots()[1]->GetLabel());
}

TEST_F(ProfileViewShapes, PlotsStartWithWhatAPlainShapeSays)
{
    add("A");
    f.view->drawShapes();
    vtkPlot* lines = linePlots()[0];
    vtkPlot* handles = handlePlots()[0];
    EXPECT_TRUE(lines->GetLegendVisibility());
    EXPECT_FALSE(handles->GetLegendVisibility());
    for (vtkPlot* plot : {lines, handles}) {
        EXPECT_FALSE(plot->GetInteractive());
        EXPECT_TRUE(plot->GetVisible());
        EXPECT_TRUE(part(plot)->tooltipVisible);
        EXPECT_FALSE(part(plot)->canDragX || part(plot)->canDragY);
        EXPECT_TRUE(plot->GetTooltipLabelFormat().empty());
        double rgb[3];
        plot->GetColor(rgb);
        EXPECT_EQ(rgb[0] + rgb[1] + rgb[2], 3.0);
    }
    auto* line = vtkPlotLine::SafeDownCast(lines);
    EXPECT_FALSE(line->GetPolyLine());
    EXPECT_EQ(line->GetMarkerStyle(), vtkPlotPoints::NONE);
    EXPECT_EQ(line->GetMarkerSize(), 1.0F);
    EXPECT_EQ(vtkPlotPoints::SafeDownCast(handles)->GetMarkerStyle(), vtkPlotPoints::SQUARE);
    EXPECT_EQ(vtkPlotPoints::SafeDownCast(handles)->GetMarkerSize(), 2.0F);
}

TEST_F(ProfileViewShapes, PlotsTakeOverWhatTheShapeSays)
{
    Shape shape = makeShape("A", 1, 0.0);
    shape.setLegendVisible(false);
    shape.setInteractive(true);
    shape.setTooltipsVisibility(false);
    shape.setCanDragAlongX(true);
    shape.setColor(QColor(255, 0, 51));
    shape.setHandleColor(QColor(0, 255, 51));
    shape.setFormat("%x");
    shape.setHandleSize(7);
    f.view->addShape(shape);
    f.view->drawShapes();
    vtkPlot* lines = linePlots()[0];
    vtkPlot* handles = handlePlots()[0];
    EXPECT_FALSE(lines->GetLegendVisibility());
    EXPECT_TRUE(lines->GetInteractive() && handles->GetInteractive());
    EXPECT_FALSE(part(lines)->tooltipVisible);
    EXPECT_TRUE(part(handles)->tooltipVisible);
    EXPECT_TRUE(part(lines)->canDragX && part(handles)->canDragX);
    EXPECT_FALSE(part(lines)->canDragY || part(handles)->canDragY);
    unsigned char rgb[3];
    lines->GetPen()->GetColor(rgb);
    EXPECT_EQ(QColor(rgb[0], rgb[1], rgb[2]), QColor(255, 0, 51));
    handles->GetPen()->GetColor(rgb);
    EXPECT_EQ(QColor(rgb[0], rgb[1], rgb[2]), QColor(0, 255, 51));
    EXPECT_EQ(lines->GetTooltipLabelFormat(), "%x");
    EXPECT_TRUE(handles->GetTooltipLabelFormat().empty());
    EXPECT_EQ(vtkPlotPoints::SafeDownCast(handles)->GetMarkerSize(), 7.0F);
}

TEST_F(ProfileViewShapes, HandleSettingsAreApartFromThoseOfLines)
{
    Shape shape = makeShape("A", 1, 0.0);
    shape.setHandleTooltipVisibility(false);
    shape.setCanDragAlongY(true);
    f.view->addShape(shape);
    f.view->drawShapes();
    EXPECT_TRUE(part(linePlots()[0])->tooltipVisible);
    EXPECT_FALSE(part(handlePlots()[0])->tooltipVisible);
    EXPECT_TRUE(part(linePlots()[0])->canDragY && part(handlePlots()[0])->canDragY);
    EXPECT_FALSE(part(linePlots()[0])->canDragX || part(handlePlots()[0])->canDragX);
}

TEST_F(ProfileViewShapes, LineTypesBecomePatternsOfThePen)
{
    const std::vector<std::pair<LineType, int>> patterns {{ovl::Solid, 1}, {ovl::Dash, 2},
        {ovl::Dot, 3}, {ovl::DashDot, 4}, {ovl::DashDotDot, 5}, {static_cast<LineType>(5), 1},
        {static_cast<LineType>(-1), 1}};
    for (const auto& [type, pattern] : patterns) {
        SCOPED_TRACE(type);
        Shape shape = makeShape("A", 1, 0.0);
        shape.setLineType(type);
        f.view->clearShape();
        f.view->addShape(shape);
        f.view->drawShapes();
        EXPECT_EQ(linePlots()[0]->GetPen()->GetLineType(), pattern);
        EXPECT_EQ(handlePlots()[0]->GetPen()->GetLineType(), vtkPen::SOLID_LINE);
    }
}

TEST_F(ProfileViewShapes, AnInvisibleShapeHasInvisiblePlots)
{
    Shape shape = makeShape("A", 1, 0.0);
    shape.setVisible(false);
    f.view->addShape(shape);
    f.view->drawShapes();
    EXPECT_FALSE(linePlots()[0]->GetVisible());
    EXPECT_FALSE(handlePlots()[0]->GetVisible());
}

TEST_F(ProfileViewShapes, AShapeWithoutPlotIsKeptButNotDrawn)
{
    Shape shape = makeShape("A", 5, 0.0);
    shape.setHasPlot(false);
    f.view->addShape(shape);
    f.view->drawShapes();
    EXPECT_EQ(f.chart()->GetNumberOfPlots(), kColumns);
    EXPECT_NE(f.view->shape(5), nullptr);
    f.view->redrawShapes(); // it has no entry among the plots
}

TEST_F(ProfileViewShapes, AShapeWithoutLinesHasAHandlePlotWithoutRows)
{
    Shape shape;
    shape.setTitle("A");
    f.view->addShape(shape);
    f.view->drawShapes();
    EXPECT_TRUE(linePlots().empty());
    ASSERT_EQ(handlePlots().size(), 1u);
    EXPECT_EQ(handlePlots()[0]->GetInput()->GetNumberOfRows(), 0);
    EXPECT_EQ(part(handlePlots()[0])->sibling, nullptr);
}

TEST_F(ProfileViewShapes, AShapeWithoutHandlesHasALinePlotOnly)
{
    Shape shape = makeShape("A", 5, 0.0);
    shape.setHandleVisibility(false);
    shape.setCanDragAlongX(true);
    f.view->addShape(shape);
    f.view->drawShapes();
    EXPECT_TRUE(handlePlots().empty());
    ASSERT_EQ(linePlots().size(), 1u);
    EXPECT_EQ(part(linePlots()[0])->sibling, nullptr);
    EXPECT_TRUE(part(linePlots()[0])->canDragX);
    f.view->redrawShapes();
    f.view->shape(5)->setHandleVisibility(true);
    f.view->drawShapes();
    EXPECT_EQ(columnName(handlePlots()[0], 1), "A_handle"); // named at last
}

TEST_F(ProfileViewShapes, CurvesLieOverHandlesOverLinesAndEarlierShapesOverLater)
{
    add("ABC");
    f.view->drawShapes();
    EXPECT_EQ(stack(), "l2 l1 l0 h2 h1 h0 c c ");
}

TEST_F(ProfileViewShapes, PriorityDoesNotChangeTheStack)
{
    add("ABC");
    f.view->shape(2)->setPriority(100);
    f.view->shape(0)->setPlotStackPriority(ovl::HighPlotStackPriority);
    f.view->drawShapes();
    EXPECT_EQ(stack(), "l2 l1 l0 h2 h1 h0 c c ");
}

TEST_F(ProfileViewShapes, TheStackHasNoGapsForPlotsThatAreNotThere)
{
    add("ABC");
    f.view->shape(0)->setHandleVisibility(false);
    f.view->shape(1)->setHasPlot(false);
    f.view->shape(2)->clear();
    f.view->drawShapes();
    EXPECT_EQ(stack(), "l0 h2 c c ");
}

TEST_F(ProfileViewShapes, CurvesInOtherCornersStayThere)
{
    f.view->setPlotCorner(1, 2);
    add("AB");
    f.view->drawShapes();
    EXPECT_EQ(stack(), "l1 l0 h1 h0 c ");
    EXPECT_EQ(f.view->plotCorner(1), 2);
}

TEST_F(ProfileViewShapes, DrawingTwiceIsDrawingOnceWithNewPlots)
{
    add("AB");
    f.view->drawShapes();
    const vtkSmartPointer<vtkPlot> before = linePlots()[0];
    f.view->drawShapes();
    EXPECT_EQ(f.chart()->GetNumberOfPlots(), kColumns + 4);
    EXPECT_EQ(stack(), "l1 l0 h1 h0 c c ");
    EXPECT_EQ(drawn(), "A0 B10 ");
    EXPECT_NE(linePlots()[0], before);
}

TEST_F(ProfileViewShapes, APlotThatSomebodyElseHoldsKeepsItsTableWhenItIsReplaced)
{
    add("A");
    f.view->drawShapes();
    const vtkSmartPointer<vtkPlot> held = linePlots()[0];
    f.view->drawShapes();
    f.view->drawShapes();
    EXPECT_EQ(held->GetInput(), linePlots()[0]->GetInput());
    EXPECT_EQ(held->GetLabel(), "A");
    EXPECT_NE(held->GetData(), linePlots()[0]->GetData());
}

TEST_F(ProfileViewShapes, EveryDrawingTakesTheColumnsByTheirPresentNames)
{
    add("A");
    for (const char* title : {"B", "B", "C"}) {
        f.view->drawShapes();
        f.view->shape(0)->setTitle(title);
        f.view->drawShapes();
        EXPECT_EQ(linePlots()[0]->GetLabel(), title);
        EXPECT_EQ(handlePlots()[0]->GetLabel(), std::string(title) + "_handle");
        f.render();
        for (const std::vector<vtkPlot*>& plots : {linePlots(), handlePlots()}) {
            double bounds[4];
            plots[0]->GetBounds(bounds);
            EXPECT_EQ(bounds[0], cell(plots[0], 0, 0)); // its points are there
        }
    }
}

TEST_F(ProfileViewShapes, DrawingUndoesWhatSomebodyElseHasFedAPlotWith)
{
    add("AB");
    f.view->drawShapes();
    vtkTable* own = linePlots()[0]->GetInput();
    linePlots()[0]->SetInputData(linePlots()[1]->GetInput(), 0, 1);
    handlePlots()[0]->SetInputArray(1, "A_handle_x");
    f.view->drawShapes();
    EXPECT_EQ(linePlots()[0]->GetInput(), own);
    EXPECT_EQ(handlePlots()[0]->GetLabel(), "A_handle");
    EXPECT_EQ(drawn(), "A0 B10 ");
}

TEST_F(ProfileViewShapes, TheHandlePlotOfAShapeComesIntoTheChartFirst)
{
    add("AB");
    f.view->drawShapes();
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(part(f.plot(kColumns + i))->isHandle, i % 2 == 0);
}

TEST_F(ProfileViewShapes, AShapeIsSeenOverTheChart)
{
    Shape shape;
    shape.setColor(Qt::green);
    shape.setHandleVisibility(false);
    shape.addLine(Point(100.0, 300.0), Point(900.0, 300.0));
    shape.addLine(Point(100.0, 700.0), Point(900.0, 700.0));
    f.view->resetView();
    f.view->addShape(shape);
    f.view->drawShapes();
    f.render();
    const auto green = [&](double x, double y) {
        const QImage picture = f.picture();
        const QPoint at = f.position(x, y).toPoint();
        int most = 0; // a line is one pixel thick
        for (int dy = -1; dy <= 1; ++dy) {
            const QColor color = picture.pixelColor(at + QPoint(0, dy));
            most = std::max(most, color.green() - color.red());
        }
        return most;
    };
    f.render();
    EXPECT_GT(green(510.0, 300.0), 100);
    EXPECT_GT(green(510.0, 700.0), 100);
    EXPECT_EQ(green(510.0, 500.0), 0); // the two lines are not joined
}

// Updating ----------------------------------------------------------------------------------------

TEST_F(ProfileViewShapes, UpdatingReplacesTheFirstMatchInItsPlace)
{
    add("ABB");
    f.view->drawShapes();
    f.view->setDirty(false);
    Shape* place = f.view->shape(1);
    Shape update = makeShape("new", 1, 55.0);
    update.addLine(Point(1.0, 2.0), Point(3.0, 4.0));
    f.view->updateShape("B", update);
    EXPECT_EQ(f.view->shape("new"), place);
    EXPECT_EQ(f.view->shape("B")->identifier(), 2);
    EXPECT_EQ(linePlots()[1]->GetInput()->GetNumberOfRows(), 4);
    EXPECT_EQ(handlePlots()[1]->GetInput()->GetNumberOfRows(), 6);
    EXPECT_EQ(drawn(), "A0 new55 B20 ");
    EXPECT_FALSE(f.view->isDirty());
}

TEST_F(ProfileViewShapes, UpdatingFindsByTheArgumentsOrAGivenIdentifier)
{
    add("AB");
    f.view->drawShapes();
    f.view->updateShape(makeShape("C", 1, 70.0));
    EXPECT_EQ(drawn(), "A0 C70 ");
    f.view->updateShape(0, makeShape("D", 9, 80.0));
    EXPECT_EQ(drawn(), "D80 C70 ");
    EXPECT_EQ(f.view->shape(0), nullptr);
    EXPECT_EQ(f.view->shape(9)->title(), "D");
}

TEST_F(ProfileViewShapes, UpdatingWhatIsNotThereDoesNothing)
{
    add("AB");
    f.view->drawShapes();
    f.view->updateShape(makeShape("C", 5, 70.0));
    f.view->updateShape(5, makeShape("C", 1, 70.0));
    f.view->updateShape("C", makeShape("A", 1, 70.0));
    EXPECT_EQ(drawn(), "A0 B10 ");
    EXPECT_EQ(f.view->shape("C"), nullptr);
}

TEST_F(ProfileViewShapes, UpdatingChangesNoNameAndNoPlot)
{
    add("A");
    f.view->drawShapes();
    vtkPlot* lines = linePlots()[0];
    vtkPlot* handles = handlePlots()[0];
    Shape update = makeShape("new", 0, 5.0);
    update.setColor(Qt::red);
    update.setVisible(false);
    update.setCanDragAlongX(true);
    update.setLineType(ovl::Dot);
    f.view->updateShape(update);
    EXPECT_EQ(linePlots()[0], lines);
    EXPECT_EQ(columnName(lines, 0), "A_x");
    EXPECT_EQ(columnName(lines, 1), "A");
    EXPECT_EQ(columnName(handles, 1), "A_handle");
    EXPECT_TRUE(lines->GetVisible() && handles->GetVisible());
    EXPECT_FALSE(part(lines)->canDragX);
    EXPECT_EQ(lines->GetPen()->GetLineType(), vtkPen::SOLID_LINE);
    EXPECT_EQ(part(lines)->shape, f.view->shape("new"));
    f.view->drawShapes();
    EXPECT_EQ(columnName(linePlots()[0], 0), "A_x");
    EXPECT_EQ(columnName(linePlots()[0], 1), "new");
    EXPECT_EQ(columnName(handlePlots()[0], 0), "A_handle_x");
    EXPECT_EQ(columnName(handlePlots()[0], 1), "new_handle");
    EXPECT_FALSE(linePlots()[0]->GetVisible());
}

TEST_F(ProfileViewShapes, UpdatedPointsAreSeenAtTheNextRepaint)
{
    Shape shape = makeShape("A", 0, 100.0);
    shape.setHandleColor(Qt::green);
    shape.setHandleSize(6);
    f.view->resetView();
    f.view->addShape(shape);
    f.view->drawShapes();
    f.render();
    const auto isGreen = [&](double x, double y) {
        const QColor color = f.pixel(f.position(x, y));
        return color.green() > 100 && color.red() == 0;
    };
    EXPECT_FALSE(isGreen(500.0, 510.0));
    Shape update = shape;
    update.clear();
    update.addLine(Point(500.0, 510.0), Point(300.0, 310.0));
    f.view->updateShape(update);
    EXPECT_TRUE(isGreen(500.0, 510.0));
    EXPECT_FALSE(isGreen(100.0, 100.0));
}

TEST_F(ProfileViewShapes, AShapeMayBeUpdatedWithItself)
{
    add("A");
    f.view->drawShapes();
    f.view->shape(0)->line(0)->p1()->set(42.0, 43.0);
    f.view->updateShape(*f.view->shape(0));
    EXPECT_EQ(cell(linePlots()[0], 0, 0), 42.0);
    EXPECT_EQ(f.view->shape(0)->numberOfLines(), 1);
    f.view->addShape(*f.view->shape(0));
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "A42 A42 ");
}

// Removing ----------------------------------------------------------------------------------------

TEST_F(ProfileViewShapes, RemovingByIdentifierIsExact)
{
    add("ABC");
    f.view->drawShapes();
    f.view->setDirty(false);
    f.view->removeShape(0);
    EXPECT_FALSE(f.view->isDirty());
    EXPECT_EQ(linePlots().size(), 3u); // the chart learns of it later
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "B10 C20 ");
    f.view->removeShape(2);
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "B10 ");
}

TEST_F(ProfileViewShapes, RemovingByIdentifierTakesTheFirst)
{
    f.view->addShape(makeShape("A", 7, 0.0));
    f.view->addShape(makeShape("B", 7, 10.0));
    f.view->removeShape(7);
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "B10 ");
}

TEST_F(ProfileViewShapes, RemovingWhatIsNotThereDoesNothing)
{
    add("ABC");
    f.view->removeShape(7);
    f.view->removeShape("a");
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "A0 B10 C20 ");
}

TEST_F(ProfileViewShapes, RemovingTheFirstByTitleLeavesTheOthersWithTheTablesInFront)
{
    add("ABC");
    f.view->removeShape("A");
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "B0 C10 ");
    EXPECT_EQ(cell(handlePlots()[1], 0, 0), 10.0);
    f.view->updateShape(makeShape("B", 1, 10.0)); // which puts it right
    EXPECT_EQ(drawn(), "B10 C10 ");
}

TEST_F(ProfileViewShapes, RemovingTheMiddleByTitleMovesTheTablesBehindIt)
{
    add("ABC");
    f.view->removeShape("B");
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "A0 C10 ");
}

TEST_F(ProfileViewShapes, RemovingTheLastByTitleIsExact)
{
    add("ABC");
    f.view->removeShape("C");
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "A0 B10 ");
}

TEST_F(ProfileViewShapes, RemovingATitleThatSeveralEndWithTakesOne)
{
    add("ABXX");
    f.view->removeShape("X");
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "A0 B10 X30 "); // with the tables of the last: entry 2 is the one erased
    f.view->removeShape("X");
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "A0 B10 ");
}

TEST_F(ProfileViewShapes, TheMouseMayComeBetweenARemovalAndTheNextDrawing)
{
    struct Case {
        const char* titles;
        const char* removed;
    };
    const Case cases[] = {
        {"ABC", "A"}, {"ABC", "C"}, {"XBXC", "X"}, // leaves one behind that cannot be used
        {"XXBC", "X"}, // so does this
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.titles) + " without " + c.removed);
        f.view->clearShape();
        added = 0;
        add(c.titles);
        for (int i = 0; i < added; ++i)
            f.view->shape(i)->setCanDragAlongX(true);
        f.view->drawShapes();
        f.render();
        f.view->removeShape(QString(c.removed));
        vtkContextMouseEvent mouse {};
        mouse.SetInteractor(f.window()->GetInteractor());
        mouse.SetButton(vtkContextMouseEvent::LEFT_BUTTON);
        mouse.SetScreenPos(vtkVector2i(200, 150));
        mouse.SetLastScreenPos(vtkVector2i(190, 150));
        mouse.SetPos(vtkVector2f(200, 150));
        mouse.SetScenePos(vtkVector2f(200, 150));
        f.chart()->MouseButtonPressEvent(mouse);
        f.chart()->MouseMoveEvent(mouse);
        f.chart()->MouseButtonReleaseEvent(mouse);
        f.chart()->MouseWheelEvent(mouse, 1);
    }
}

TEST_F(ProfileViewShapes, ClearingTakesShapesAndPlotsAway)
{
    add("ABC");
    f.view->drawShapes();
    f.view->setDirty(false);
    f.view->clearShape();
    EXPECT_FALSE(f.view->isDirty());
    EXPECT_EQ(f.chart()->GetNumberOfPlots(), kColumns);
    EXPECT_EQ(f.view->shape("A"), nullptr);
    EXPECT_EQ(stack(), "c c ");
    f.view->drawShapes();
    f.view->redrawShapes();
    EXPECT_EQ(f.chart()->GetNumberOfPlots(), kColumns);
    f.view->clearShape();
    f.render();
}

/** As many times cleared before as asked for, the same shapes and what is seen of them. */
QImage pictureAfterClearing(int times)
{
    ProfileFixture f {kColumns};
    for (int round = 0; round <= times; ++round) {
        f.view->clearShape();
        Shape first = makeShape(round == times ? "A" : "other", 1, 2.0 + round);
        if (round < times)
            first.addLine(Point(0.0, 3.0), Point(round, 9.0));
        f.view->addShape(first);
        f.view->addShape(makeShape("B", 2, 5.0));
        f.view->drawShapes();
        f.render();
        if (round < times)
            continue;
        f.view->updateShape(1, makeShape("A", 1, 2.0));
        f.render();
    }
    return f.picture();
}

TEST_F(ProfileViewShapes, ShapesAfterAClearingLookLikeTheFirstOnes)
{
    const QImage first = pictureAfterClearing(0);
    f.render();
    ASSERT_NE(first, f.picture()) << "the shapes are seen";
    EXPECT_EQ(pictureAfterClearing(1), first);
    EXPECT_EQ(pictureAfterClearing(3), first);
}

TEST_F(ProfileViewShapes, ShapesAfterAClearingHaveNamesAndRowsOfTheirOwn)
{
    add("AB");
    f.view->drawShapes();
    f.view->clearShape();
    Shape box = makeShape("C", 7, 30.0);
    box.addLine(Point(1.0, 2.0), Point(3.0, 4.0));
    f.view->addShape(box);
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "C30 ");
    EXPECT_EQ(linePlots()[0]->GetInput()->GetNumberOfRows(), 4);
    EXPECT_EQ(handlePlots()[0]->GetInput()->GetNumberOfRows(), box.numberOfHandles());
    EXPECT_EQ(columnName(linePlots()[0], 0), "C_x");
    EXPECT_EQ(columnName(handlePlots()[0], 1), "C_handle");
    EXPECT_EQ(linePlots()[0]->GetLabel(), "C");
    add("DE"); // more than were cleared
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "C30 D20 E30 ");
}

TEST_F(ProfileViewShapes, ATableThatSomebodyElseHoldsIsLeftAloneByShapesAfterAClearing)
{
    add("AB");
    f.view->drawShapes();
    const vtkSmartPointer<vtkTable> table = linePlots()[0]->GetInput();
    const vtkSmartPointer<vtkAbstractArray> column = linePlots()[1]->GetInput()->GetColumn(0);
    f.view->clearShape();
    add("CD");
    f.view->drawShapes();
    EXPECT_EQ(drawn(), "C20 D30 ");
    EXPECT_STREQ(table->GetColumnName(1), "A");
    EXPECT_EQ(table->GetValue(0, 0).ToDouble(), 0.0);
    EXPECT_STREQ(column->GetName(), "B_x");
    EXPECT_EQ(column->GetVariantValue(0).ToDouble(), 10.0);
}

TEST_F(ProfileViewShapes, APlotThatSomebodyElseHoldsKeepsItsPointsAfterAClearing)
{
    add("A");
    f.view->drawShapes();
    const vtkSmartPointer<vtkPlot> plot = linePlots()[0];
    f.view->clearShape();
    add("B");
    f.view->drawShapes();
    EXPECT_EQ(plot->GetLabel(), "A");
    EXPECT_EQ(cell(plot, 0, 0), 0.0);
    EXPECT_EQ(drawn(), "B10 ");
}

TEST_F(ProfileViewShapes, ATableThatSomebodyElseHasChangedIsNotUsedAgain)
{
    add("A");
    f.view->drawShapes();
    linePlots()[0]->GetInput()->RemoveColumn(0);
    f.view->clearShape();
    add("B");
    f.view->drawShapes();
    EXPECT_EQ(linePlots()[0]->GetInput()->GetNumberOfColumns(), 2);
    EXPECT_EQ(drawn(), "B10 ");
}

TEST_F(ProfileViewShapes, ARangeThatAColumnRemembersIsThatOfThePresentShape)
{
    for (const double x : {0.0, 50.0}) {
        f.view->clearShape();
        f.view->addShape(makeShape("A", 1, x));
        f.view->drawShapes();
        double range[2];
        auto* column = vtkDataArray::SafeDownCast(linePlots()[0]->GetInput()->GetColumn(0));
        column->GetRange(range);
        EXPECT_EQ(range[0], x);
        EXPECT_EQ(range[1], x + 2.0);
    }
}

TEST_F(ProfileViewShapes, TheMemoryOfClearedShapesIsGoneAfterTheNextDrawing)
{
    add("A");
    f.view->drawShapes();
    const vtkWeakPointer<vtkTable> table = linePlots()[0]->GetInput();
    f.view->clearShape();
    f.view->drawShapes();
    EXPECT_EQ(table, nullptr);
}

// Redrawing and the rest --------------------------------------------------------------------------

TEST_F(ProfileViewShapes, RedrawingTakesOverTheVisibilityAndNothingElse)
{
    add("AB");
    f.view->drawShapes();
    f.view->setDirty(false);
    vtkPlot* lines = linePlots()[0];
    vtkPlot* handles = handlePlots()[0];
    f.view->shape(0)->setVisible(false);
    f.view->shape(0)->setInteractive(true);
    f.view->shape(0)->line(0)->p1()->set(77.0, 77.0);
    const vtkMTimeType before = handlePlots()[1]->GetMTime();
    f.view->redrawShapes();
    EXPECT_TRUE(f.view->isDirty());
    EXPECT_EQ(linePlots()[0], lines);
    EXPECT_FALSE(lines->GetVisible() || handles->GetVisible());
    EXPECT_FALSE(lines->GetInteractive());
    EXPECT_EQ(cell(lines, 0, 0), 0.0);
    EXPECT_TRUE(linePlots()[1]->GetVisible() && handlePlots()[1]->GetVisible());
    for (vtkPlot* plot : {lines, handles, linePlots()[1], handlePlots()[1]})
        EXPECT_GT(plot->GetMTime(), before);
    f.view->shape(0)->setVisible(true);
    f.view->redrawShapes();
    EXPECT_TRUE(lines->GetVisible() && handles->GetVisible());
}

TEST_F(ProfileViewShapes, UpdateDepthPriorityDoesNothing)
{
    add("AB");
    f.view->drawShapes();
    f.view->shape(1)->setPriority(9);
    f.view->setDirty(false);
    const vtkMTimeType before = linePlots()[0]->GetMTime();
    f.view->updateDepthPriority();
    EXPECT_EQ(stack(), "l1 l0 h1 h0 c c ");
    EXPECT_FALSE(f.view->isDirty());
    EXPECT_EQ(linePlots()[0]->GetMTime(), before);
    EXPECT_EQ(drawn(), "A0 B10 ");
}

TEST_F(ProfileViewShapes, ResetViewTellsShapesTheRangesOfBottomAndLeft)
{
    f.resize({400, 200});
    f.view->setTopRange(0, 7);
    f.view->setRightRange(0, 7);
    add("A"); // from (0, 0)
    Shape* shape = f.view->shape(0);
    shape->setTolerance(0.5);
    EXPECT_FALSE(shape->closeToLine(Point(1.0, 1.0)));
    f.view->resetView(); // bottom -250 to 1250, left 0 to 1000
    EXPECT_TRUE(shape->closeToLine(Point(749.0, 5000.0)));
    EXPECT_FALSE(shape->closeToLine(Point(750.0, 5000.0)));
    EXPECT_TRUE(shape->closeToLine(Point(5000.0, 499.0)));
    EXPECT_FALSE(shape->closeToLine(Point(5000.0, 500.0)));
}

TEST_F(ProfileViewShapes, CallbacksAreCopiedWithTheShapeAndGoWithTheView)
{
    const auto token = std::make_shared<int>(0);
    {
        Shape shape = makeShape("A", 0, 0.0);
        shape.setXTranslationCallback([token](double) { ++*token; });
        f.view->addShape(shape);
    }
    EXPECT_EQ(token.use_count(), 2);
    f.view->drawShapes();
    part(linePlots()[0])->shape->xTranslate(1.0);
    EXPECT_EQ(*token, 1);
    f.view.reset();
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(ProfileViewShapes, ManyShapesAreDrawnInTheRightOrder)
{
    for (int i = 0; i < 500; ++i)
        f.view->addShape(makeShape("S", i, i));
    f.view->drawShapes();
    f.view->drawShapes();
    std::string expected;
    for (const char* kind : {"l", "h"})
        for (int i = 499; i >= 0; --i)
            expected += kind + std::to_string(i) + ' ';
    EXPECT_EQ(stack(), expected + "c c ");
}

// What the host must not do -----------------------------------------------------------------------

#ifndef NDEBUG
using ProfileViewShapesDeathTest = ProfileViewShapes;

TEST_F(ProfileViewShapesDeathTest, AShapeLeftUnusableByRemovalIsNamed)
{
    add("XBXC");
    f.view->removeShape("X"); // leaves B, C and a moved-from one
    EXPECT_DEATH(f.view->drawShapes(), "ProfileView::drawShapes.* 2");
    EXPECT_DEATH(f.view->resetView(), "ProfileView::resetView.* 2");
    EXPECT_DEATH(static_cast<void>(f.view->shape("X")), "ProfileView::shape.* 2");
    EXPECT_EQ(f.view->shape("C")->identifier(), 3);
}

TEST_F(ProfileViewShapesDeathTest, RedrawingAShapeWithoutLinesIsNamed)
{
    add("A");
    f.view->addShape(Shape());
    f.view->drawShapes();
    EXPECT_DEATH(f.view->redrawShapes(), "ProfileView::redrawShapes.* 1");
}

TEST_F(ProfileViewShapesDeathTest, RedrawingAfterARemovalIsNamed)
{
    add("AB");
    f.view->drawShapes();
    f.view->removeShape(0);
    EXPECT_DEATH(f.view->redrawShapes(), "ProfileView::redrawShapes");
}
#else
TEST_F(ProfileViewShapes, AShapeLeftUnusableByRemovalIsLeftOut)
{
    add("XBXC");
    f.view->removeShape("X");
    f.view->drawShapes();
    f.view->resetView();
    f.view->redrawShapes();
    EXPECT_EQ(drawn(), "B0 C10 ");
    EXPECT_EQ(f.view->shape("X"), nullptr);
    f.view->removeShape("X");
    f.view->clearShape();
}

TEST_F(ProfileViewShapes, RedrawingPassesOverAShapeWithoutLines)
{
    add("A");
    f.view->addShape(Shape());
    f.view->drawShapes();
    f.view->shape(0)->setVisible(false);
    f.view->redrawShapes();
    EXPECT_FALSE(linePlots()[0]->GetVisible());
}

TEST_F(ProfileViewShapes, RedrawingAfterARemovalLeavesOtherPlotsAlone)
{
    add("AB");
    f.view->drawShapes();
    f.view->removeShape(0);
    f.view->redrawShapes();
    EXPECT_EQ(linePlots().size(), 2u);
}
#endif

} // namespace
