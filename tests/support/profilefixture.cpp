// SPDX-License-Identifier: BSD-3-Clause
#include "profilefixture.h"

#include <vtkAxis.h>
#include <vtkContextActor.h>
#include <vtkContextScene.h>
#include <vtkPlotPoints.h>
#include <vtkPropCollection.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkTable.h>

namespace ovl::test {
namespace {

/** Where a value lies on an axis, in the framework's pixels along it. */
double along(vtkAxis* axis, double value, int coordinate)
{
    const double share = (value - axis->GetMinimum()) / (axis->GetMaximum() - axis->GetMinimum());
    const float* first = axis->GetPoint1();
    const float* last = axis->GetPoint2();
    return first[coordinate] + share * (last[coordinate] - first[coordinate]);
}

} // namespace

ProfileFixture::ProfileFixture(int columns, QSize size)
    : ViewFixture<ProfileView>(size, columns)
{
}

ChartXY* ProfileFixture::chart()
{
    vtkPropCollection* props = renderer()->GetViewProps();
    for (int i = 0; i < props->GetNumberOfItems(); ++i)
        if (auto* actor = vtkContextActor::SafeDownCast(props->GetItemAsObject(i)))
            return ChartXY::SafeDownCast(actor->GetScene()->GetItem(0));
    return nullptr;
}

vtkPlotPoints* ProfileFixture::points(int index)
{
    return vtkPlotPoints::SafeDownCast(plot(index));
}

vtkTable* ProfileFixture::table(int plotIndex) { return plot(plotIndex)->GetInput(); }

void ProfileFixture::fill(const std::vector<std::vector<double>>& columns)
{
    view->setNumberOfValues(static_cast<int>(columns.front().size()));
    for (std::size_t column = 0; column < columns.size(); ++column)
        for (std::size_t row = 0; row < columns[column].size(); ++row)
            view->setValue(static_cast<int>(column), static_cast<int>(row), columns[column][row]);
}

QPointF ProfileFixture::position(double x, double y)
{
    const double fromLeft = along(axis(vtkAxis::BOTTOM), x, 0);
    const double fromBottom = along(axis(vtkAxis::LEFT), y, 1);
    return {fromLeft, window()->GetSize()[1] - 1 - fromBottom};
}

} // namespace ovl::test
