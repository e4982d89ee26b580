// SPDX-License-Identifier: BSD-3-Clause
#include <visualization/texturecolors.h>

#include <vtkDoubleArray.h>
#include <vtkSmartPointer.h>

#include <gtest/gtest.h>
#include <random>
#include <vector>

using ovl::TextureColors;

namespace {

using Colors = vtkSmartPointer<vtkUnsignedCharArray>;

template <class Array> vtkSmartPointer<Array> noise(int components, int pixels)
{
    auto array = vtkSmartPointer<Array>::New();
    array->SetNumberOfComponents(components);
    array->SetNumberOfTuples(pixels);
    std::mt19937 generator(static_cast<unsigned>(components));
    for (vtkIdType i = 0; i < array->GetNumberOfValues(); ++i)
        array->SetValue(i, static_cast<typename Array::ValueType>(generator() & 0xFF));
    return array;
}

Colors colorsOf(
    vtkScalarsToColors* table, vtkAbstractArray* scalars, int mode = VTK_COLOR_MODE_DEFAULT)
{
    return Colors::Take(table->MapScalars(scalars, mode, -1, VTK_RGBA));
}

std::vector<int> bytesOf(vtkUnsignedCharArray* colors)
{
    return {colors->GetPointer(0), colors->GetPointer(0) + colors->GetNumberOfValues()};
}

class TextureTable : public testing::Test {
protected:
    /** Compares the bytes with those of the framework's own table. */
    void compare(vtkAbstractArray* scalars, int mode = VTK_COLOR_MODE_DEFAULT)
    {
        const Colors ours = colorsOf(table, scalars, mode);
        const Colors stocks = colorsOf(stock, scalars, mode);
        ASSERT_EQ(ours->GetNumberOfComponents(), 4);
        EXPECT_EQ(bytesOf(ours), bytesOf(stocks));
    }

    vtkSmartPointer<TextureColors> table = vtkSmartPointer<TextureColors>::New();
    vtkSmartPointer<vtkLookupTable> stock = vtkSmartPointer<vtkLookupTable>::New();
};

TEST_F(TextureTable, HasItsName)
{
    EXPECT_STREQ(table->GetClassName(), "TextureColors");
    EXPECT_TRUE(table->IsA("vtkLookupTable"));
}

TEST_F(TextureTable, MakesTheStockTablesBytesOfAnyChannels)
{
    for (int components = 1; components <= 4; ++components)
        for (const int pixels : {0, 1, 15, 1000}) {
            SCOPED_TRACE(testing::Message() << components << " of " << pixels);
            compare(noise<vtkUnsignedCharArray>(components, pixels));
        }
}

TEST_F(TextureTable, GreyIsRepeatedAndOpaque)
{
    const auto grey = noise<vtkUnsignedCharArray>(1, 1);
    grey->SetValue(0, 77);
    EXPECT_EQ(bytesOf(colorsOf(table, grey)), (std::vector<int> {77, 77, 77, 255}));
}

TEST_F(TextureTable, LeavesEverythingElseToTheStockTable)
{
    table->Build(); // as a mapper does before it asks
    stock->Build();
    compare(noise<vtkDoubleArray>(1, 100));
    compare(noise<vtkUnsignedCharArray>(1, 100), VTK_COLOR_MODE_MAP_SCALARS);
    compare(noise<vtkUnsignedCharArray>(3, 100), VTK_COLOR_MODE_DIRECT_SCALARS);
    table->SetAlpha(0.5);
    stock->SetAlpha(0.5);
    for (int components = 1; components <= 4; ++components) {
        SCOPED_TRACE(components);
        compare(noise<vtkUnsignedCharArray>(components, 100));
    }
    const auto grey = noise<vtkUnsignedCharArray>(1, 10);
    const auto asGrey = [&](vtkScalarsToColors* by) {
        return bytesOf(
            Colors::Take(by->MapScalars(grey, VTK_COLOR_MODE_DEFAULT, -1, VTK_LUMINANCE)));
    };
    EXPECT_EQ(asGrey(table), asGrey(stock));
}

TEST_F(TextureTable, FramesOfAnySizeShareOneMemory)
{
    const vtkUnsignedCharArray* first = nullptr;
    for (const int pixels : {1000, 1000, 10, 500}) {
        const auto frame = noise<vtkUnsignedCharArray>(1, pixels);
        const Colors colors = colorsOf(table, frame);
        EXPECT_TRUE(!first || colors == first);
        EXPECT_EQ(bytesOf(colors), bytesOf(colorsOf(stock, frame)));
        first = colors;
    }
}

TEST_F(TextureTable, ColorsThatAreStillHeldStayAsTheyAre)
{
    const Colors held = colorsOf(table, noise<vtkUnsignedCharArray>(1, 10));
    const std::vector<int> before = bytesOf(held);
    const Colors next = colorsOf(table, noise<vtkUnsignedCharArray>(3, 10));
    EXPECT_NE(held, next);
    EXPECT_EQ(bytesOf(held), before);
}

} // namespace
