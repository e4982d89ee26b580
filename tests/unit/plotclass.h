// SPDX-License-Identifier: BSD-3-Clause
// What holds for each plot class, written once: a file of each class's name runs it for that class.
#ifndef OVL_TESTS_UNIT_PLOTCLASS_H
#define OVL_TESTS_UNIT_PLOTCLASS_H

#include <visualization/plot.h>

#include <vtkIndent.h>
#include <vtkPlot.h>
#include <vtkSmartPointer.h>

#include <QRegularExpression>
#include <QString>

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <type_traits>

namespace ovl::test {

template <class PlotClass, class FrameworkClass> struct PlotClasses {
    using Ours = PlotClass;
    using Framework = FrameworkClass;
};

/** What a plot prints, without the addresses and times that no two objects share. */
inline std::string printed(vtkPlot* plot)
{
    std::ostringstream text;
    plot->PrintSelf(text, vtkIndent());
    QString plain = QString::fromStdString(text.str());
    plain.replace(QRegularExpression("0x[0-9a-f]+"), "address");
    plain.replace(QRegularExpression("(Modified Time|MTime): *[0-9]+"), "time");
    return plain.toStdString();
}

template <class Classes> class PlotClassTest : public testing::Test {
protected:
    using Ours = typename Classes::Ours;
    using Framework = typename Classes::Framework;
    static_assert(std::is_base_of_v<Framework, Ours>);
    static_assert(std::is_base_of_v<Plot, Ours>);

    /** "vtkPlotLine" becomes "PlotLine". */
    static std::string ourName()
    {
        return std::string(vtkSmartPointer<Framework>::New()->GetClassName()).substr(3);
    }

    vtkSmartPointer<Ours> plot = vtkSmartPointer<Ours>::New();
};

TYPED_TEST_SUITE_P(PlotClassTest);

TYPED_TEST_P(PlotClassTest, StartsAsAPlotOfDataWithATooltip)
{
    const Plot& part = *this->plot;
    EXPECT_EQ(part.sibling, nullptr);
    EXPECT_EQ(part.shape, nullptr);
    EXPECT_FALSE(part.isHandle);
    EXPECT_TRUE(part.tooltipVisible);
    EXPECT_FALSE(part.canDragX);
    EXPECT_FALSE(part.canDragY);
    EXPECT_FALSE(part.dragTarget);
}

TYPED_TEST_P(PlotClassTest, NamesItselfAndItsBases)
{
    EXPECT_EQ(this->plot->GetClassName(), this->ourName());
    EXPECT_EQ(this->plot->IsA(this->ourName().c_str()), 1);
    EXPECT_EQ(this->plot->IsA(("vtk" + this->ourName()).c_str()), 1);
    EXPECT_EQ(this->plot->IsA("vtkPlot"), 1);
    EXPECT_EQ(this->plot->IsA("vtkObjectBase"), 1);
    EXPECT_EQ(this->plot->IsA("Plot"), 0);
}

TYPED_TEST_P(PlotClassTest, PrintsWhatItsBasePrints)
{
    const auto base = vtkSmartPointer<typename TypeParam::Framework>::New();
    const std::string text = printed(base);
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(printed(this->plot), text);
}

TYPED_TEST_P(PlotClassTest, IsReachedFromTheFrameworksPlot)
{
    vtkPlot* base = this->plot;
    auto* part = dynamic_cast<Plot*>(base);
    ASSERT_NE(part, nullptr);
    part->canDragX = true;
    EXPECT_TRUE(this->plot->canDragX);
}

TYPED_TEST_P(PlotClassTest, HasTheFrameworksPlotAsItsFirstBase)
{
    typename TypeParam::Framework* base = this->plot;
    EXPECT_EQ(static_cast<void*>(base), static_cast<void*>(this->plot.GetPointer()));
}

/** Whether an operation that is named in our class is the framework's. */
template <class Operation> struct IsOfTheFramework;
template <class Result, class Class, class... Arguments>
struct IsOfTheFramework<Result (Class::*)(Arguments...)>
    : std::bool_constant<!std::is_base_of_v<Plot, Class>> {
};

TYPED_TEST_P(PlotClassTest, LeavesWhatAPlotDoesToItsBase)
{
    using Plotted = typename TypeParam::Ours;
    EXPECT_TRUE(IsOfTheFramework<decltype(&Plotted::Paint)>());
    EXPECT_TRUE(IsOfTheFramework<decltype(&Plotted::PaintLegend)>());
    EXPECT_TRUE(IsOfTheFramework<decltype(&Plotted::Update)>());
    EXPECT_TRUE(IsOfTheFramework<decltype(&Plotted::SelectPoints)>());
    EXPECT_TRUE(IsOfTheFramework<decltype(&Plotted::SelectPointsInPolygon)>());
    EXPECT_TRUE(IsOfTheFramework<decltype(&Plotted::SetSelection)>());
}

TYPED_TEST_P(PlotClassTest, MakesNewObjectsOfItsOwnKindWithOneReference)
{
    this->plot->tooltipVisible = false;
    auto* other = this->plot->NewInstance();
    EXPECT_EQ(other->GetClassName(), this->ourName());
    EXPECT_EQ(other->GetReferenceCount(), 1);
    EXPECT_TRUE(other->tooltipVisible);
    other->Delete();
}

REGISTER_TYPED_TEST_SUITE_P(PlotClassTest, StartsAsAPlotOfDataWithATooltip, NamesItselfAndItsBases,
    PrintsWhatItsBasePrints, IsReachedFromTheFrameworksPlot, HasTheFrameworksPlotAsItsFirstBase,
    LeavesWhatAPlotDoesToItsBase, MakesNewObjectsOfItsOwnKindWithOneReference);

} // namespace ovl::test

#endif
