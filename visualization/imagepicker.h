// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_IMAGEPICKER_H
#define OVL_VISUALIZATION_IMAGEPICKER_H

#include <vtkCellPicker.h>

namespace ovl {

/**
 * A cell picker for a pick list of one image, as an image view shows it.
 *
 * The stock picker follows a ray through whatever it is given, at eight times the cost of an event.
 * Where an image stands on the display is one equation for each direction, which tells the pixel at
 * once. The answer is the stock picker's in every case: near the borders of pixels, where rounding
 * decides, and in every less plain situation the stock picker is asked. Answered are the path, the
 * indices of the point, and the events; the rest stays as if nothing had been hit.
 */
class ImagePicker : public vtkCellPicker {
public:
    static ImagePicker* New();
    vtkTypeMacro(ImagePicker, vtkCellPicker)

    ImagePicker(const ImagePicker&) = delete;
    ImagePicker& operator=(const ImagePicker&) = delete;

    using vtkCellPicker::Pick;
    int Pick(double x, double y, double z, vtkRenderer* renderer) override;

protected:
    ImagePicker();
    ~ImagePicker() override;

private:
    class Private;
    Private* d;
};

} // namespace ovl

#endif
