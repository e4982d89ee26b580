// SPDX-License-Identifier: BSD-3-Clause
// Internal, may change at any time.
#ifndef OVL_VISUALIZATION_IMAGECORRECTIONALGORITHM_H
#define OVL_VISUALIZATION_IMAGECORRECTIONALGORITHM_H

#include <vtkThreadedImageAlgorithm.h>

namespace ovl {

/**
 * What happens to a sample between the raw image and its display: it is shifted right, channels in
 * the order blue, green, red are reversed, and the result is cast to the wanted output type,
 * without scaling or saturation. On request every pixel gets four components and each channel an OR
 * and an AND word on the way.
 *
 * Input types are the integers from char to unsigned long; the output may be any type of the
 * framework's arrays. An input of five or more components is left alone without a message.
 *
 * The setters only store, without Modified(): a setting takes effect when the input changes.
 * Nothing may be set during an update, since the workers read the settings without a lock.
 */
class ImageCorrectionAlgorithm : public vtkThreadedImageAlgorithm {
public:
    static ImageCorrectionAlgorithm* New();
    vtkTypeMacro(ImageCorrectionAlgorithm, vtkThreadedImageAlgorithm)

    ImageCorrectionAlgorithm(const ImageCorrectionAlgorithm&) = delete;
    ImageCorrectionAlgorithm& operator=(const ImageCorrectionAlgorithm&) = delete;

    void PrintSelf(ostream& os, vtkIndent indent) override;

    /**
     * By how many bits every sample is shifted right; 0 by default. Less than 0 counts as 0; the
     * sample's width or more leaves 0, or -1 of a negative sample.
     */
    void setShift(int bits);
    int shift() const;

    /** The framework's code of the output's type; -1, the default, keeps the input's. */
    void setOutputScalarType(int type);
    void setOutputScalarTypeToUnsignedChar();

    /**
     * -1, the default, passes the channels through; any other value makes four components of every
     * pixel and applies the masks. The count itself reaches the output only together with an
     * explicit output type: without one, as many of the four are stored as the input has.
     */
    void setOutputComponents(int count);

    /**
     * Words 0 to 3 are the AND words of the input's channels 0 to 3, words 4 to 7 their OR words,
     * which come first. They are cut to the width of the input's type. Any other index is the
     * caller's fault: it is dropped, and answers 0.
     */
    void setMask(int index, int value);
    int mask(int index) const;

    /**
     * Lets a filter behind this one shift the samples instead, which then must ask for
     * deferredShift(); off by default. Where nothing but the shift would happen to samples of up to
     * 16 bits, the output then shares the input's memory as long as it is not asked for.
     */
    void setShiftDeferred(bool defer);
    /** By how many bits the samples of the output have still to be shifted. */
    int deferredShift() const;
    /**
     * Makes the output what it would have been. It is left alone when the input has come in anew:
     * the next update corrects that anyway, and the memory of the old one may be gone.
     */
    void applyDeferredShift();

protected:
    ImageCorrectionAlgorithm();
    ~ImageCorrectionAlgorithm() override;

    int RequestInformation(vtkInformation* request, vtkInformationVector** inputVector,
        vtkInformationVector* outputVector) override;
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
