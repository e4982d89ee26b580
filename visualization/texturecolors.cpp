// SPDX-License-Identifier: BSD-3-Clause
#include "texturecolors.h"

#include <vtkActor.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLImageSliceMapper.h>
#include <vtkTexture.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace ovl {

namespace {

constexpr int kRgba = 4;
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
constexpr bool isLittleEndian = false;
#else
constexpr bool isLittleEndian = true;
#endif

/** Opens what the mapper draws its picture with. */
struct TextureAccess : vtkOpenGLImageSliceMapper {
    static vtkTexture* texture(vtkOpenGLImageSliceMapper* mapper)
    {
        return (mapper->*(&TextureAccess::PolyDataActor))->GetTexture();
    }
};

/** Four bytes in the order of the memory, worked on as one number. */
using Word = std::uint32_t;

constexpr Word wordOf(std::array<unsigned char, sizeof(Word)> bytes)
{
    Word word = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const std::size_t place = isLittleEndian ? i : bytes.size() - 1 - i;
        word |= static_cast<Word>(bytes[i]) << (8 * place);
    }
    return word;
}

constexpr Word kOpaque = wordOf({0, 0, 0, 255});

void widenGrey(const unsigned char* __restrict in, unsigned char* __restrict out, vtkIdType pixels)
{
    constexpr Word thrice = wordOf({1, 1, 1, 0});
    for (vtkIdType i = 0; i < pixels; ++i) {
        const Word rgba = in[i] * thrice | kOpaque;
        std::memcpy(out + i * kRgba, &rgba, sizeof(rgba));
    }
}

void widenGreyAlpha(const unsigned char* in, unsigned char* out, vtkIdType pixels)
{
    for (vtkIdType i = 0; i < pixels; ++i, in += 2, out += kRgba) {
        out[0] = out[1] = out[2] = in[0];
        out[3] = in[1];
    }
}

void widenRgb(const unsigned char* in, unsigned char* out, vtkIdType pixels)
{
    constexpr Word three = wordOf({255, 255, 255, 0});
    for (vtkIdType i = 0; i + 1 < pixels; ++i, in += 3, out += kRgba) {
        Word rgba; // the fourth byte is the next pixel's
        std::memcpy(&rgba, in, sizeof(rgba));
        rgba = (rgba & three) | kOpaque;
        std::memcpy(out, &rgba, sizeof(rgba));
    }
    if (pixels > 0) {
        std::copy_n(in, 3, out);
        out[3] = 255;
    }
}

using Widening = void (*)(const unsigned char* in, unsigned char* out, vtkIdType pixels);

Widening wideningOf(int channels)
{
    switch (channels) {
    case 1:
        return widenGrey;
    case 2:
        return widenGreyAlpha;
    case 3:
        return widenRgb;
    default:
        return nullptr;
    }
}

} // namespace

vtkStandardNewMacro(TextureColors);

TextureColors::TextureColors() = default;

TextureColors::~TextureColors() = default;

vtkUnsignedCharArray* TextureColors::MapScalars(
    vtkAbstractArray* scalars, int colorMode, int component, int outputFormat)
{
    auto* const bytes = vtkUnsignedCharArray::SafeDownCast(scalars);
    const Widening widenAll = bytes ? wideningOf(bytes->GetNumberOfComponents()) : nullptr;
    const bool asColors = colorMode == VTK_COLOR_MODE_DEFAULT && outputFormat == VTK_RGBA;
    if (!widenAll || !asColors || GetAlpha() != 1.0)
        return Superclass::MapScalars(scalars, colorMode, component, outputFormat);
    const vtkIdType pixels = bytes->GetNumberOfTuples();
    vtkUnsignedCharArray* const result = freeColors();
    result->SetNumberOfComponents(kRgba);
    result->SetNumberOfTuples(pixels);
    widenAll(bytes->GetPointer(0), result->GetPointer(0), pixels);
    result->Modified();
    result->Register(nullptr); // the caller's, as from the stock table
    return result;
}

/** The last frame's colours if nobody else holds them any more. */
vtkUnsignedCharArray* TextureColors::freeColors()
{
    if (!colors || colors->GetReferenceCount() > 1)
        colors = vtkSmartPointer<vtkUnsignedCharArray>::New();
    return colors;
}

void colorTexture(vtkImageMapper3D* mapper)
{
    if (auto* const drawing = vtkOpenGLImageSliceMapper::SafeDownCast(mapper))
        TextureAccess::texture(drawing)->SetLookupTable(vtkSmartPointer<TextureColors>::New());
}

} // namespace ovl
