// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/chartselection.h>

#include <vtkAnnotationLink.h>
#include <vtkContextMouseEvent.h>
#include <vtkIdTypeArray.h>
#include <vtkInformation.h>
#include <vtkInformationObjectBaseKey.h>
#include <vtkNew.h>
#include <vtkPlotLine.h>
#include <vtkRenderWindowInteractor.h>
#include <vtkSelection.h>
#include <vtkSelectionNode.h>
#include <vtkSmartPointer.h>
#include <vtkTable.h>

#include <gtest/gtest.h>
#include <initializer_list>
#include <vector>

namespace ovl {
namespace {

using Ids = std::vector<vtkIdType>;

vtkSmartPointer<vtkIdTypeArray> arrayOf(const Ids& ids)
{
    auto array = vtkSmartPointer<vtkIdTypeArray>::New();
    for (vtkIdType id : ids)
        array->InsertNextValue(id);
    return array;
}

Ids idsOf(vtkAbstractArray* array)
{
    auto* ids = vtkIdTypeArray::SafeDownCast(array);
    return ids ? Ids(ids->GetPointer(0), ids->GetPointer(ids->GetNumberOfTuples())) : Ids {-1};
}

Ids combined(int mode, const Ids& selection, const Ids& oldSelection)
{
    const auto first = arrayOf(selection);
    const auto second = arrayOf(oldSelection);
    BuildSelection(nullptr, mode, first, second, nullptr);
    EXPECT_EQ(idsOf(second), oldSelection) << "the old selection is only read";
    return idsOf(first);
}

TEST(ChartSelection, CombinesTheNewSelectionWithTheOldByMode)
{
    EXPECT_EQ(combined(1, {3, 4}, {1, 3, 5}), (Ids {3, 4}));
    EXPECT_EQ(combined(2, {3, 4}, {1, 3, 5}), (Ids {1, 3, 4, 5}));
    EXPECT_EQ(combined(3, {3, 4}, {1, 3, 5}), (Ids {1, 5}));
    EXPECT_EQ(combined(4, {3, 4}, {1, 3, 5}), (Ids {1, 4, 5}));
}

TEST(ChartSelection, ReplacesTheOldSelectionInAnyOtherMode)
{
    for (int mode : {0, 5, -1}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(combined(mode, {3, 4}, {1, 3, 5}), (Ids {3, 4}));
    }
}

TEST(ChartSelection, CombinesEmptyAndDisjointAndEqualSelections)
{
    struct Case {
        Ids selection, old, sum, difference, toggled;
    };
    const Case cases[] = {
        {{}, {}, {}, {}, {}},
        {{1, 2}, {}, {1, 2}, {}, {1, 2}},
        {{}, {1, 2}, {1, 2}, {1, 2}, {1, 2}},
        {{1, 2}, {1, 2}, {1, 2}, {}, {}},
        {{7, 9}, {0, 3}, {0, 3, 7, 9}, {0, 3}, {0, 3, 7, 9}},
        {{0, 3}, {7, 9}, {0, 3, 7, 9}, {7, 9}, {0, 3, 7, 9}},
        {{5}, {1, 5, 9}, {1, 5, 9}, {1, 9}, {1, 9}},
        {{1, 5, 9}, {5}, {1, 5, 9}, {}, {1, 9}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(
            testing::PrintToString(c.selection) + " with " + testing::PrintToString(c.old));
        EXPECT_EQ(combined(2, c.selection, c.old), c.sum);
        EXPECT_EQ(combined(3, c.selection, c.old), c.difference);
        EXPECT_EQ(combined(4, c.selection, c.old), c.toggled);
    }
}

TEST(ChartSelection, MarksTheCombinedArrayModified)
{
    for (int mode : {2, 3, 4}) {
        SCOPED_TRACE(mode);
        const auto selection = arrayOf({3, 4});
        const vtkMTimeType before = selection->GetMTime();
        BuildSelection(nullptr, mode, selection, arrayOf({1, 3, 5}), nullptr);
        EXPECT_GT(selection->GetMTime(), before);
    }
}

TEST(ChartSelection, StopsQuietlyAtANullArray)
{
    vtkNew<vtkAnnotationLink> link;
    vtkSelection* current = link->GetCurrentSelection();
    const auto array = arrayOf({1, 2});
    for (int mode : {1, 2, 3, 4}) {
        BuildSelection(link, mode, nullptr, array, nullptr);
        BuildSelection(link, mode, array, nullptr, nullptr);
        BuildSelection(link, mode, nullptr, nullptr, nullptr);
    }
    EXPECT_EQ(idsOf(array), (Ids {1, 2}));
    EXPECT_EQ(link->GetCurrentSelection(), current);
}

TEST(ChartSelection, GivesTheLinkANewSelectionOfOneNodeWithoutAPlot)
{
    vtkNew<vtkAnnotationLink> link;
    const vtkSmartPointer<vtkSelection> before = link->GetCurrentSelection();
    const auto rows = arrayOf({2, 4});
    BuildSelection(link, SelectionMode::Addition, rows, arrayOf({3}), nullptr);

    vtkSelection* current = link->GetCurrentSelection();
    ASSERT_NE(current, before.Get());
    ASSERT_EQ(current->GetNumberOfNodes(), 1u);
    vtkSelectionNode* node = current->GetNode(0);
    EXPECT_EQ(node->GetContentType(), 4);
    EXPECT_EQ(node->GetFieldType(), 1);
    EXPECT_EQ(node->GetSelectionList(), rows.Get()) << "the array itself, no copy";
    EXPECT_EQ(idsOf(rows), (Ids {2, 3, 4}));
    EXPECT_FALSE(node->GetProperties()->Has(vtkSelectionNode::PROP()));
}

TEST(ChartSelection, GivesTheLinkOneNodeForEachPlot)
{
    vtkNew<vtkAnnotationLink> link;
    vtkNew<vtkTable> table;
    vtkNew<vtkPlotLine> first;
    vtkNew<vtkPlotLine> second;
    first->SetInputData(table);
    vtkSelection* current = link->GetCurrentSelection();
    const unsigned int present = current->GetNumberOfNodes();

    const auto firstRows = arrayOf({1});
    const auto secondRows = arrayOf({2});
    MakeSelection(link, firstRows, first);
    MakeSelection(link, secondRows, second);
    ASSERT_EQ(link->GetCurrentSelection(), current);
    ASSERT_EQ(current->GetNumberOfNodes(), present + 2);

    vtkSelectionNode* node = current->GetNode(present);
    EXPECT_EQ(node->GetContentType(), 4);
    EXPECT_EQ(node->GetFieldType(), 1);
    EXPECT_EQ(node->GetProperties()->Get(vtkSelectionNode::PROP()), first.Get());
    EXPECT_EQ(node->GetProperties()->Get(vtkSelectionNode::SOURCE()), table.Get());
    EXPECT_EQ(node->GetSelectionList(), firstRows.Get());
    vtkSelectionNode* other = current->GetNode(present + 1);
    EXPECT_EQ(other->GetProperties()->Get(vtkSelectionNode::PROP()), second.Get());
    EXPECT_FALSE(other->GetProperties()->Has(vtkSelectionNode::SOURCE())) << "it has no input";

    const auto replacement = arrayOf({7, 8});
    MakeSelection(link, replacement, first);
    ASSERT_EQ(current->GetNumberOfNodes(), present + 2) << "the plot's node is found again";
    EXPECT_EQ(node->GetSelectionList(), replacement.Get());
    EXPECT_EQ(other->GetSelectionList(), secondRows.Get());
}

TEST(ChartSelection, TakesTheModeFromShiftAndControlOnly)
{
    struct Case {
        int alt, shift, control, mode;
    };
    constexpr int fallback = 17;
    const Case cases[] = {{0, 0, 0, fallback}, {0, 0, 1, 2}, {0, 1, 0, 3}, {0, 1, 1, 4},
        {1, 0, 0, fallback}, {1, 0, 1, 2}, {1, 1, 0, 3}, {1, 1, 1, 4}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
            << "alt " << c.alt << " shift " << c.shift << " control " << c.control);
        vtkNew<vtkRenderWindowInteractor> interactor;
        interactor->SetAltKey(c.alt);
        interactor->SetShiftKey(c.shift);
        interactor->SetControlKey(c.control);
        vtkContextMouseEvent mouse {};
        mouse.SetInteractor(interactor);
        EXPECT_EQ(GetMouseSelectionMode(mouse, fallback), c.mode);
    }
}

} // namespace
} // namespace ovl
