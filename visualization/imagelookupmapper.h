// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_IMAGELOOKUPMAPPER_H
#define OVL_VISUALIZATION_IMAGELOOKUPMAPPER_H

#include <vtkImageMapToColors.h>

namespace ovl {

/**
 * The framework's mapping of samples through a lookup table, at the cost of a look-up.
 *
 * Samples of up to 16 bits have few values: each is mapped once, by the framework's own code and
 * again only when the table has changed; a pixel then takes its colour from there. The bytes are
 * the same as the base class's, which maps everything but single components to RGBA by itself.
 *
 * Behind an ImageCorrectionAlgorithm that leaves its shift to it, it shifts the samples on the way.
 */
class ImageLookupMapper : public vtkImageMapToColors {
public:
    static ImageLookupMapper* New();
    vtkTypeMacro(ImageLookupMapper, vtkImageMapToColors)

    ImageLookupMapper(const ImageLookupMapper&) = delete;
    ImageLookupMapper& operator=(const ImageLookupMapper&) = delete;

protected:
    ImageLookupMapper();
    ~ImageLookupMapper() override;

    int RequestData(vtkInformation* request, vtkInformationVector** inputVector,
        vtkInformationVector* outputVector) override;
    void ThreadedRequestData(vtkInformation* request, vtkInformationVector** inputVector,
        vtkInformationVector* outputVector, vtkImageData*** inData, vtkImageData** outData,
        int outExt[6], int id) override;

private:
    class Private;
    Private* d;
};

} // namespace ovl

#endif
