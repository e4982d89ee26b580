// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/surfacewarp.h>

#include <vtkDataArray.h>
#include <vtkDoubleArray.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

#include <cstring>
#include <gtest/gtest.h>
#include <limits>

using ovl::SurfaceWarp;

namespace {

class SurfaceWarpTest : public testing::Test {
public:
    SurfaceWarpTest()
    {
        data->SetPoints(points);
        data->GetPointData()->SetScalars(values);
        fill(4);
        for (vtkWarpScalar* filter : {static_cast<vtkWarpScalar*>(ours), stock.Get()}) {
            filter->SetInputData(data);
            filter->XYPlaneOn();
        }
    }

    void fill(int count)
    {
        points->SetNumberOfPoints(count);
        values->SetNumberOfTuples(count);
        for (int index = 0; index < count; ++index) {
            points->SetPoint(index, 0.1 * index, -3.0 + index, 1.7 * index - 2.0);
            values->SetValue(index, index);
        }
        touch();
    }

    void touch()
    {
        points->Modified();
        values->Modified();
    }

    /** That every bit of the points is the stock filter's. */
    void expectTheStockPoints()
    {
        ours->Update();
        stock->Update();
        vtkPoints* warped = ours->GetPolyDataOutput()->GetPoints();
        vtkPoints* expected = stock->GetPolyDataOutput()->GetPoints();
        ASSERT_EQ(warped->GetNumberOfPoints(), expected->GetNumberOfPoints());
        ASSERT_EQ(warped->GetDataType(), VTK_FLOAT);
        for (vtkIdType index = 0; index < warped->GetNumberOfPoints(); ++index)
            for (int axis = 0; axis < 3; ++axis) {
                const double a = warped->GetPoint(index)[axis];
                const double b = expected->GetPoint(index)[axis];
                EXPECT_TRUE(a == b || (a != a && b != b)) << index << ' ' << axis;
            }
        EXPECT_EQ(ours->GetPolyDataOutput()->GetPointData()->GetScalars(), values.Get());
    }

    vtkSmartPointer<vtkPoints> points = vtkSmartPointer<vtkPoints>::New();
    vtkSmartPointer<vtkDoubleArray> values = vtkSmartPointer<vtkDoubleArray>::New();
    vtkSmartPointer<vtkPolyData> data = vtkSmartPointer<vtkPolyData>::New();
    vtkSmartPointer<SurfaceWarp> ours = vtkSmartPointer<SurfaceWarp>::New();
    vtkSmartPointer<vtkWarpScalar> stock = vtkSmartPointer<vtkWarpScalar>::New();
};

TEST_F(SurfaceWarpTest, WarpsAsTheStockFilter) { expectTheStockPoints(); }

TEST_F(SurfaceWarpTest, OddNumbersPassAsThroughTheStockFilter)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    points->SetPoint(0, nan, nan, nan);
    points->SetPoint(1, 1.0, 2.0, infinity);
    points->SetPoint(2, 1.0, 2.0, nan);
    points->SetPoint(3, infinity, nan, 3.0e38);
    touch();
    expectTheStockPoints();
}

TEST_F(SurfaceWarpTest, AGridOfTheSameSizeIsWrittenIntoTheSamePoints)
{
    ours->Update();
    const vtkPoints* first = ours->GetPolyDataOutput()->GetPoints();
    const vtkMTimeType before = ours->GetPolyDataOutput()->GetPoints()->GetMTime();
    points->SetPoint(2, 5.0, 6.0, 7.0);
    touch();
    expectTheStockPoints();
    EXPECT_EQ(ours->GetPolyDataOutput()->GetPoints(), first);
    EXPECT_GT(ours->GetPolyDataOutput()->GetPoints()->GetMTime(), before);
}

TEST_F(SurfaceWarpTest, PointsThatSomebodyHasKeptAreLeftAlone)
{
    ours->Update();
    const vtkSmartPointer<vtkPoints> kept = ours->GetPolyDataOutput()->GetPoints();
    const double height = kept->GetPoint(2)[2];
    points->SetPoint(2, 5.0, 6.0, 70.0);
    touch();
    expectTheStockPoints();
    EXPECT_EQ(kept->GetPoint(2)[2], height);
}

TEST_F(SurfaceWarpTest, AnotherSizeGetsPointsOfItsOwn)
{
    ours->Update();
    for (const int count : {9, 2, 0, 3}) {
        SCOPED_TRACE(count);
        fill(count);
        if (count > 0)
            expectTheStockPoints();
        else
            ours->Update();
    }
}

TEST_F(SurfaceWarpTest, AnotherFactorOrNormalIsLeftToTheStockFilter)
{
    for (vtkWarpScalar* filter : {static_cast<vtkWarpScalar*>(ours), stock.Get()}) {
        filter->SetScaleFactor(2.5);
        filter->XYPlaneOff();
    }
    expectTheStockPoints();
}

} // namespace
