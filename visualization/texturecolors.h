// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_TEXTURECOLORS_H
#define OVL_VISUALIZATION_TEXTURECOLORS_H

#include <vtkLookupTable.h>
#include <vtkSmartPointer.h>
#include <vtkUnsignedCharArray.h>

class vtkImageMapper3D;

namespace ovl {

/**
 * Makes the RGBA of a texture out of bytes that are colours already, in memory that stays.
 *
 * Whatever an image shows goes to the graphics as RGBA. The stock table allocates that anew for
 * every frame and fills it sample by sample, which takes longer than all the rest of a frame. The
 * bytes are the same; everything but one to three channels of bytes is left to the stock table.
 */
class TextureColors : public vtkLookupTable {
public:
    static TextureColors* New();
    vtkTypeMacro(TextureColors, vtkLookupTable)

    TextureColors(const TextureColors&) = delete;
    TextureColors& operator=(const TextureColors&) = delete;

    using vtkLookupTable::MapScalars;
    vtkUnsignedCharArray* MapScalars(
        vtkAbstractArray* scalars, int colorMode, int component, int outputFormat) override;

protected:
    TextureColors();
    ~TextureColors() override;

private:
    vtkUnsignedCharArray* freeColors();

    vtkSmartPointer<vtkUnsignedCharArray> colors; // those of the last frame
};

/** Lets the texture of an image's mapper take its colours from a table of this kind. */
void colorTexture(vtkImageMapper3D* mapper);

} // namespace ovl

#endif
