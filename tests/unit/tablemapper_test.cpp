// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/plotline.h>
#include <visualization/tablemapper.h>
#include <visualization/vtkcompat.h>

#include <vtkAxis.h>
#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkSmartPointer.h>
#include <vtkTable.h>

#include <gtest/gtest.h>
#include <vector>

namespace ovl {
namespace {

class TableMapperTest : public testing::Test {
protected:
    TableMapperTest()
    {
        for (const char* name : {"a", "b", "c"}) {
            const vtkNew<vtkDoubleArray> column;
            column->SetName(name);
            column->InsertNextValue(*name);
            table->AddColumn(column);
        }
    }

    vtkNew<vtkTable> table;
    vtkSmartPointer<TableMapper> mapper = vtkSmartPointer<TableMapper>::New();
};

TEST_F(TableMapperTest, HasNoTableAtFirst)
{
    EXPECT_EQ(mapper->GetInput(), nullptr);
    EXPECT_STREQ(mapper->GetClassName(), "TableMapper");
    EXPECT_EQ(mapper->IsA("vtkContextMapper2D"), 1);
}

TEST_F(TableMapperTest, KeepsItsTable)
{
    mapper->SetInputData(table);
    EXPECT_EQ(mapper->GetInput(), table.Get());
    EXPECT_EQ(table->GetReferenceCount(), 2);
    mapper->SetInputData(nullptr);
    EXPECT_EQ(mapper->GetInput(), nullptr);
    EXPECT_EQ(table->GetReferenceCount(), 1);
    mapper->SetInputData(table);
    mapper = nullptr;
    EXPECT_EQ(table->GetReferenceCount(), 1);
}

TEST_F(TableMapperTest, ChangesWithItsTableAndNotWithTheSame)
{
    const vtkMTimeType first = mapper->GetMTime();
    mapper->SetInputData(table);
    const vtkMTimeType second = mapper->GetMTime();
    EXPECT_GT(second, first);
    mapper->SetInputData(table);
    EXPECT_EQ(mapper->GetMTime(), second);
}

TEST_F(TableMapperTest, FindsItsColumnsByTheirNames)
{
    mapper->SetInputData(table);
    mapper->setColumns("c", "a");
    EXPECT_EQ(mapper->GetInputArrayToProcess(0, table), table->GetColumn(2));
    EXPECT_EQ(mapper->GetInputArrayToProcess(1, table), table->GetColumn(0));
    EXPECT_EQ(mapper->GetInputAbstractArrayToProcess(1, table), table->GetColumn(0));
    mapper->setColumns("b", "none");
    EXPECT_EQ(mapper->GetInputArrayToProcess(0, table), table->GetColumn(1));
    EXPECT_EQ(mapper->GetInputArrayToProcess(1, table), nullptr);
}

TEST_F(TableMapperTest, FeedsAPlotWhichBuildsItsPointsAnewWhenTheTableIsModified)
{
    const vtkNew<vtkAxis> axis;
    const vtkNew<PlotLine> plot;
    plot->SetXAxis(axis);
    plot->SetYAxis(axis);
    mapper->SetInputData(table);
    mapper->setColumns("a", "b");
    vtkSmartPointer<vtkContextMapper2D> handed = mapper;
    compat::handOver(handed, compat::PlotMapperAccess::mapper(plot));
    const auto bounds = [&plot] {
        double all[4];
        plot->Update();
        plot->GetBounds(all);
        return std::vector<double>(all, all + 4);
    };
    EXPECT_EQ(plot->GetInput(), table.Get());
    EXPECT_EQ(plot->GetLabel(), "b");
    EXPECT_EQ(bounds(), (std::vector<double> {'a', 'a', 'b', 'b'}));
    vtkDoubleArray::SafeDownCast(table->GetColumn(0))->SetValue(0, 7.0);
    table->Modified();
    EXPECT_EQ(bounds(), (std::vector<double> {7.0, 7.0, 'b', 'b'}));
}

} // namespace
} // namespace ovl
