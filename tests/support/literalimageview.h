// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_LITERALIMAGEVIEW_H
#define OVL_TESTS_SUPPORT_LITERALIMAGEVIEW_H

#include <visualization/bufferdescriptor.h>
#include <visualization/imagecorrectionalgorithm.h>
#include <visualization/imageinteractorstyle.h>
#include <visualization/range.h>
#include <visualization/vtkcompat.h>

#include <QVTKInteractor.h>
#include <vtkCellPicker.h>
#include <vtkImageActor.h>
#include <vtkImageImport.h>
#include <vtkImageMapToColors.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkRenderer.h>

#include <QColor>

#include <array>

namespace ovl::test {

/**
 * An ImageView in the plainest way, out of the framework's own parts: every frame goes through all
 * of them, and nothing is kept from one to the next. What ImageView shows and tells is compared
 * with it.
 */
class LiteralImageView {
public:
    explicit LiteralImageView(compat::HostWidget* widget);

    void drawScene(void* data, int width, int height, const BufferDescriptor& descriptor);
    void redraw() { drawScene(buffer, imageWidth, imageHeight, layout); }
    void resetCamera();

    void setShift(int shift) { correction->setShift(shift); }
    void setMask(int index, int value) { correction->setMask(index, value); }
    void forceColor(bool force) { forcedComponents = force ? 4 : -1; }

    void enableLookupTable(bool enable);
    void setLookupTableRange(const Range& range);
    void setAboveRangeColor(const QColor& color);
    void enableAboveRangeColor(bool enable) { table->SetUseAboveRangeColor(enable ? 1 : 0); }
    void setBelowRangeColor(const QColor& color);
    void enableBelowRangeColor(bool enable) { table->SetUseBelowRangeColor(enable ? 1 : 0); }

private:
    void setLayout(int width, int height, const BufferDescriptor& descriptor);

    vtkNew<vtkRenderer> renderer;
    vtkNew<vtkImageImport> import;
    vtkNew<vtkImageActor> actor;
    vtkNew<QVTKInteractor> interactor;
    vtkNew<ImageCorrectionAlgorithm> correction;
    vtkNew<vtkCellPicker> picker;
    vtkNew<ImageInteractorStyle> style;
    vtkNew<vtkImageMapToColors> map;
    vtkNew<vtkLookupTable> table;
    std::array<unsigned char, 100> placeholder {};
    void* buffer = placeholder.data();
    int imageWidth = 0;
    int imageHeight = 0;
    BufferDescriptor layout {1, 0};
    int forcedComponents = -1;
    bool stale = false;
};

} // namespace ovl::test

#endif
