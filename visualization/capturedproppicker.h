// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_CAPTUREDPROPPICKER_H
#define OVL_VISUALIZATION_CAPTUREDPROPPICKER_H

#include <vtkPropPicker.h>

namespace ovl {

/**
 * A prop picker for a pick list of one actor that remembers the picture it has picked from.
 *
 * The stock picker renders the whole scene for every pick, only to look at one pixel. What it
 * renders depends on camera, actor, data and window, not on the position; so the first pick is the
 * stock one, whose depths are kept, and the following ones read the kept depths, for as long as
 * nothing of all that has changed. The answer is the stock picker's in every case: where that
 * cannot be told for sure, the stock picker is asked.
 */
class CapturedPropPicker : public vtkPropPicker {
public:
    static CapturedPropPicker* New();
    vtkTypeMacro(CapturedPropPicker, vtkPropPicker)

    CapturedPropPicker(const CapturedPropPicker&) = delete;
    CapturedPropPicker& operator=(const CapturedPropPicker&) = delete;

    using vtkPropPicker::Pick;
    int Pick(double x, double y, double z, vtkRenderer* renderer) override;

protected:
    CapturedPropPicker();
    ~CapturedPropPicker() override;

private:
    int answer(double x, double y, vtkRenderer* renderer);

    class Private;
    Private* d;
};

} // namespace ovl

#endif
