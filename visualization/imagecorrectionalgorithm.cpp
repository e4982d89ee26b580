// SPDX-License-Identifier: BSD-3-Clause
#include "imagecorrectionalgorithm.h"

#include "imagecorrectionkernels.h"
#include "precondition.h"

#include <vtkDataArray.h>
#include <vtkDataObject.h>
#include <vtkImageData.h>
#include <vtkImageIterator.h>
#include <vtkImageProgressIterator.h>
#include <vtkInformation.h>
#include <vtkInformationVector.h>
#include <vtkObjectFactory.h>
#include <vtkPointData.h>

#include <algorithm>

namespace ovl {

namespace {

/** False for a buffer that was described with less than one component: it has no memory. */
bool holdsItsPixels(vtkImageData* image)
{
    vtkDataArray* samples = image->GetPointData()->GetScalars();
    return samples && samples->GetNumberOfTuples() >= image->GetNumberOfPoints();
}

bool hasSmallSamples(vtkImageData* image)
{
    const int type = image->GetScalarType();
    return type == VTK_UNSIGNED_CHAR || type == VTK_SHORT || type == VTK_UNSIGNED_SHORT;
}

/** Whether the output will hold samples like the input's; that may be older than the settings. */
bool isAnnouncedLike(vtkImageData* input, vtkInformation* output)
{
    return vtkImageData::GetScalarType(output) == input->GetScalarType()
        && vtkImageData::GetNumberOfScalarComponents(output)
        == input->GetNumberOfScalarComponents();
}

/** One piece of the output, what it is made from and how. */
struct Piece {
    ImageCorrectionAlgorithm* filter;
    vtkImageData* input;
    vtkImageData* output;
    int* extent;
    int id;
    int shift;
    bool passThrough;
    const int (&maskWords)[8];

    bool hasPixels() const
    {
        return extent[0] <= extent[1] && extent[2] <= extent[3] && extent[4] <= extent[5]
            && holdsItsPixels(input) && holdsItsPixels(output);
    }
};

/** Pixels that lie without a gap in both images: rows side by side, mostly. */
template <class In, class Out> struct Run {
    const In* in;
    const In* inEnd;
    Out* out;
    Out* outEnd;

    bool goesOnWith(const In* nextIn, const Out* nextOut) const
    {
        // Not endless, since the progress is reported while a run is gathered.
        constexpr std::ptrdiff_t longest = 1 << 16;
        return nextIn == inEnd && nextOut == outEnd && outEnd - out < longest;
    }
};

/**
 * Corrects as long runs as there are. Each has its beginning and end beside the cache lines'
 * borders, and a row on its own would be read ahead no further than it reaches.
 */
template <class In, class Out, class InIterator, class CorrectSpan>
void correctSpans(const Piece& piece, InIterator in, CorrectSpan correctSpan)
{
    vtkImageProgressIterator<Out> out(piece.output, piece.extent, piece.filter, piece.id);
    Run<In, Out> run = {in.BeginSpan(), in.BeginSpan(), out.BeginSpan(), out.BeginSpan()};
    for (; !out.IsAtEnd(); in.NextSpan(), out.NextSpan()) {
        if (!run.goesOnWith(in.BeginSpan(), out.BeginSpan())) {
            correctSpan(run.in, run.inEnd, run.out);
            run.in = in.BeginSpan();
            run.out = out.BeginSpan();
        }
        run.inEnd = in.EndSpan();
        run.outEnd = out.EndSpan();
    }
    correctSpan(run.in, run.inEnd, run.out);
}

/** What is read and written of the whole frame, of which the piece is a part. */
template <class In, class Out>
std::ptrdiff_t frameBytes(const Piece& piece, const kernels::PixelLayout& layout)
{
    return piece.output->GetNumberOfPoints()
        * (std::ptrdiff_t {sizeof(In)} * layout.inComponents
            + std::ptrdiff_t {sizeof(Out)} * layout.outComponents);
}

/** Whatever is the same for all pixels is decided here, in front of the walk. */
template <class In, class Out> void correctPiece(const Piece& piece)
{
    const int components = piece.input->GetNumberOfScalarComponents();
    const kernels::PixelLayout layout = {components, piece.output->GetNumberOfScalarComponents(),
        piece.passThrough ? components : 4};
    const auto stores
        = layout.fits() ? kernels::storesFor(frameBytes<In, Out>(piece, layout)) : Stores::Cached;
    const auto whole = kernels::bestSpan<In, Out>(components, !piece.passThrough, stores);
    if (!whole || !piece.hasPixels())
        return;
    const auto correction = kernels::makeCorrection<In>(piece.shift, piece.maskWords);
    const auto correctSpan = [&](const In* in, const In* inEnd, Out* out) {
        const std::ptrdiff_t pixels = (inEnd - in) / components;
        if (layout.fits())
            whole(in, out, pixels, correction);
        else
            kernels::correctFittedSpan(whole, layout, in, out, pixels, correction);
    };
    // Observers of the filter see which walk reports the progress of its input too.
    if (piece.passThrough && components < 4)
        correctSpans<In, Out>(piece, vtkImageIterator<In>(piece.input, piece.extent), correctSpan);
    else
        correctSpans<In, Out>(piece,
            vtkImageProgressIterator<In>(piece.input, piece.extent, piece.filter, piece.id),
            correctSpan);
    complete(stores);
}

// Every pair is an instance of its own, all of the same shape. The linter's path analysis would go
// through each, for minutes: a few stand for all there.
#if defined(__clang_analyzer__)
#define OVL_ALL_PAIRS 0
#else
#define OVL_ALL_PAIRS 1
#endif

/** The pair's correction of a piece; null for an output that there is no path to. */
template <class In> void (*correctionInto(int outputType))(const Piece&)
{
    switch (outputType) {
    case VTK_UNSIGNED_CHAR:
        return correctPiece<In, unsigned char>;
    case VTK_DOUBLE:
        return correctPiece<In, double>;
#if OVL_ALL_PAIRS
    case VTK_CHAR:
        return correctPiece<In, char>;
    case VTK_SIGNED_CHAR:
        return correctPiece<In, signed char>;
    case VTK_SHORT:
        return correctPiece<In, short>;
    case VTK_UNSIGNED_SHORT:
        return correctPiece<In, unsigned short>;
    case VTK_INT:
        return correctPiece<In, int>;
    case VTK_UNSIGNED_INT:
        return correctPiece<In, unsigned int>;
    case VTK_LONG:
        return correctPiece<In, long>;
    case VTK_UNSIGNED_LONG:
        return correctPiece<In, unsigned long>;
    case VTK_LONG_LONG:
        return correctPiece<In, long long>;
    case VTK_UNSIGNED_LONG_LONG:
        return correctPiece<In, unsigned long long>;
    case VTK_ID_TYPE: // one of the integers above, and the same instance
        return correctPiece<In, vtkIdType>;
    case VTK_FLOAT:
        return correctPiece<In, float>;
#endif
    default:
        return nullptr;
    }
}

using CorrectionChooser = void (*(*)(int outputType))(const Piece&);

/** Null for an input that there is no path from, as from floating-point images on purpose. */
CorrectionChooser correctionFrom(int inputType)
{
    switch (inputType) {
    case VTK_UNSIGNED_SHORT:
        return correctionInto<unsigned short>;
    case VTK_INT:
        return correctionInto<int>;
#if OVL_ALL_PAIRS
    case VTK_CHAR:
        return correctionInto<char>;
    case VTK_UNSIGNED_CHAR:
        return correctionInto<unsigned char>;
    case VTK_SHORT:
        return correctionInto<short>;
    case VTK_UNSIGNED_INT:
        return correctionInto<unsigned int>;
    case VTK_LONG:
        return correctionInto<long>;
    case VTK_UNSIGNED_LONG:
        return correctionInto<unsigned long>;
#endif
    default:
        return nullptr;
    }
}

bool isMaskIndex(int index) { return index >= 0 && index < 8; }

} // namespace

class ImageCorrectionAlgorithm::Private {
public:
    int shift = 0;
    int outputScalarType = -1;
    int outputComponents = -1;
    int reserved = 255; // no operation reads it
    int maskWords[8] = {0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0, 0, 0, 0x7FFFFFFF};
    bool mayDefer = false;
    bool shared = false; // the output has the input's memory
    int deferredShift = 0;
    vtkMTimeType sharedInput = 0; // when it came in

    bool passThrough() const { return outputComponents == -1; }

    bool nothingButShifts(vtkImageData* input) const
    {
        return outputScalarType == -1 && passThrough() && input->GetNumberOfScalarComponents() == 1
            && hasSmallSamples(input) && holdsItsPixels(input);
    }

    void share(vtkImageData* input, vtkImageData* output)
    {
        output->SetExtent(input->GetExtent());
        output->GetPointData()->PassData(input->GetPointData());
        shared = true;
        deferredShift = std::max(shift, 0);
        sharedInput = input->GetUpdateTime();
    }

    /** The output must never write into memory of the input. */
    void unshare(vtkImageData* output)
    {
        if (shared)
            output->GetPointData()->SetScalars(nullptr);
        shared = false;
        deferredShift = 0;
    }
};

vtkStandardNewMacro(ImageCorrectionAlgorithm);

ImageCorrectionAlgorithm::ImageCorrectionAlgorithm()
    : d(new Private)
{
    // The framework's 64 KiB make two hundred pieces of a large frame, and each one fetches its
    // beginning anew.
    constexpr vtkIdType pieceBytes = 256 << 10;
    SetDesiredBytesPerPiece(pieceBytes);
}

ImageCorrectionAlgorithm::~ImageCorrectionAlgorithm() { delete d; }

void ImageCorrectionAlgorithm::PrintSelf(ostream& os, vtkIndent indent)
{
    Superclass::PrintSelf(os, indent);
    os << indent << "Shift: " << d->shift << "\n";
    os << indent << "Output Scalar Type: " << d->outputScalarType << "\n";
}

void ImageCorrectionAlgorithm::setShift(int bits) { d->shift = bits; }

int ImageCorrectionAlgorithm::shift() const { return d->shift; }

void ImageCorrectionAlgorithm::setOutputScalarType(int type) { d->outputScalarType = type; }

void ImageCorrectionAlgorithm::setOutputScalarTypeToUnsignedChar()
{
    setOutputScalarType(VTK_UNSIGNED_CHAR);
}

void ImageCorrectionAlgorithm::setOutputComponents(int count) { d->outputComponents = count; }

void ImageCorrectionAlgorithm::setMask(int index, int value)
{
    OVL_PRECONDITION("ImageCorrectionAlgorithm::setMask", isMaskIndex(index), index);
    if (isMaskIndex(index))
        d->maskWords[index] = value;
}

int ImageCorrectionAlgorithm::mask(int index) const
{
    OVL_PRECONDITION("ImageCorrectionAlgorithm::mask", isMaskIndex(index), index);
    return isMaskIndex(index) ? d->maskWords[index] : 0;
}

void ImageCorrectionAlgorithm::setShiftDeferred(bool defer) { d->mayDefer = defer; }

int ImageCorrectionAlgorithm::deferredShift() const { return d->deferredShift; }

void ImageCorrectionAlgorithm::applyDeferredShift()
{
    auto* const input = vtkImageData::SafeDownCast(GetInputDataObject(0, 0));
    if (!d->shared || !input || input->GetUpdateTime() != d->sharedInput)
        return;
    vtkImageData* const output = GetOutput();
    const int shift = d->deferredShift;
    const int type = input->GetScalarType();
    d->unshare(output);
    output->AllocateScalars(type, 1);
    correctionFrom(type)(type)(
        {this, input, output, output->GetExtent(), 1, shift, true, d->maskWords});
}

int ImageCorrectionAlgorithm::RequestInformation(
    vtkInformation*, vtkInformationVector**, vtkInformationVector* outputVector)
{
    // A component count without a type is not passed on: the output then keeps the input's.
    if (d->outputScalarType != -1)
        vtkDataObject::SetPointDataActiveScalarInfo(
            outputVector->GetInformationObject(0), d->outputScalarType, d->outputComponents);
    return 1;
}

int ImageCorrectionAlgorithm::RequestData(
    vtkInformation* request, vtkInformationVector** inputVector, vtkInformationVector* outputVector)
{
    vtkImageData* const input = vtkImageData::GetData(inputVector[0]);
    vtkImageData* const output = vtkImageData::GetData(outputVector);
    d->unshare(output);
    if (!d->mayDefer || !d->nothingButShifts(input)
        || !isAnnouncedLike(input, outputVector->GetInformationObject(0)))
        return Superclass::RequestData(request, inputVector, outputVector);
    d->share(input, output);
    return 1;
}

void ImageCorrectionAlgorithm::ThreadedRequestData(vtkInformation*, vtkInformationVector**,
    vtkInformationVector*, vtkImageData*** inData, vtkImageData** outData, int outExt[6], int id)
{
    vtkImageData* const input = inData[0][0];
    vtkImageData* const output = outData[0];
    const CorrectionChooser correctionTo = correctionFrom(input->GetScalarType());
    if (!correctionTo) {
        vtkErrorMacro("ThreadedRequestData: Unknown input ScalarType");
        return;
    }
    const auto correct = correctionTo(output->GetScalarType());
    if (!correct) {
        vtkErrorMacro("ThreadedRequestData: Unknown output ScalarType");
        return;
    }
    correct({this, input, output, outExt, id, d->shift, d->passThrough(), d->maskWords});
}

} // namespace ovl
