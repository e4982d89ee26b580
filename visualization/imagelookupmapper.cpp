// SPDX-License-Identifier: BSD-3-Clause
#include "imagelookupmapper.h"

#include "imagecorrectionalgorithm.h"
#include "imagecorrectionkernels.h"

#include <vtkAbstractArray.h>
#include <vtkDataArray.h>
#include <vtkImageData.h>
#include <vtkImageIterator.h>
#include <vtkImageProgressIterator.h>
#include <vtkInformation.h>
#include <vtkInformationVector.h>
#include <vtkLookupTable.h>
#include <vtkObjectFactory.h>
#include <vtkPointData.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <vector>

namespace ovl {
namespace {

/** Everything that the colour of a value depends on. */
struct MappingKey {
    const vtkScalarsToColors* table = nullptr;
    vtkMTimeType tableTime = 0;
    vtkMTimeType annotationsTime = 0;
    std::vector<unsigned char> entries; // they may be written in place, which no time tells of
    int sampleType = 0;
    int shift = 0;

    bool operator==(const MappingKey& other) const
    {
        return table == other.table && tableTime == other.tableTime
            && annotationsTime == other.annotationsTime && sampleType == other.sampleType
            && shift == other.shift && entries == other.entries;
    }
};

MappingKey keyOf(vtkScalarsToColors* table, int sampleType, int shift)
{
    MappingKey key;
    key.table = table;
    key.tableTime = table->GetMTime();
    if (vtkAbstractArray* annotations = table->GetAnnotatedValues())
        key.annotationsTime = annotations->GetMTime();
    if (auto* lookupTable = vtkLookupTable::SafeDownCast(table)) {
        vtkUnsignedCharArray* const entries = lookupTable->GetTable();
        const unsigned char* const first = entries->GetPointer(0);
        key.entries.assign(first, first + entries->GetNumberOfValues());
    }
    key.sampleType = sampleType;
    key.shift = shift;
    return key;
}

/** The values that samples have once they are shifted, from the least to the greatest. */
template <class Sample> std::vector<Sample> shiftedValues(int shift)
{
    const int first = kernels::shifted(std::numeric_limits<Sample>::lowest(), shift);
    const int last = kernels::shifted(std::numeric_limits<Sample>::max(), shift);
    std::vector<Sample> values;
    values.reserve(static_cast<std::size_t>(last - first) + 1);
    for (int value = first; value <= last; ++value)
        values.push_back(static_cast<Sample>(value));
    return values;
}

using Color = std::array<unsigned char, 4>; // red, green, blue, alpha

/** The colours of all values. */
struct Mapping {
    std::vector<Color> colors;
    int first = 0; // the least value, 0 or less
    int shift = 0;
};

template <class Sample> void mapValues(vtkScalarsToColors* table, int sampleType, Mapping& mapping)
{
    std::vector<Sample> values = shiftedValues<Sample>(mapping.shift);
    mapping.first = values.front();
    mapping.colors.resize(values.size());
    table->MapScalarsThroughTable(values.data(), mapping.colors.front().data(), sampleType,
        static_cast<int>(values.size()), 1, VTK_RGBA);
}

inline void fetchToRead(const void* address)
{
#if defined(__GNUC__)
    __builtin_prefetch(address, 0);
#endif
}

inline void fetchToWrite(const void* address)
{
#if defined(__GNUC__)
    __builtin_prefetch(address, 1);
#endif
}

/** `zero` is the colour of the value 0. */
template <class Sample>
void takeColors(
    const Color* zero, const Sample* values, std::ptrdiff_t count, Color* __restrict out)
{
    constexpr std::ptrdiff_t ahead = 2048; // bytes; what the loop needs soon
    constexpr std::ptrdiff_t together = 16;
    std::ptrdiff_t i = 0;
    for (; count - i >= together; i += together) {
        fetchToRead(reinterpret_cast<const char*>(values + i) + ahead);
        fetchToWrite(reinterpret_cast<const char*>(out + i) + ahead);
#pragma GCC unroll 16
        for (std::ptrdiff_t k = i; k < i + together; ++k)
            out[k] = zero[values[k]];
    }
    for (; i < count; ++i)
        out[i] = zero[values[i]];
}

template <class Sample>
void lookUp(const Mapping& mapping, const Sample* in, const Sample* inEnd, Color* out)
{
    constexpr std::ptrdiff_t blockSamples = 512;
    const Color* const zero = mapping.colors.data() - mapping.first;
    const int shift = mapping.shift;
    if (shift == 0)
        return takeColors(zero, in, inEnd - in, out);
    // Shifted by the block, which is done with wide instructions.
    Sample block[blockSamples];
    while (in != inEnd) {
        const std::ptrdiff_t count = std::min(inEnd - in, blockSamples);
        for (std::ptrdiff_t i = 0; i < count; ++i)
            block[i] = static_cast<Sample>(kernels::shifted(in[i], shift));
        takeColors(zero, block, count, out);
        in += count;
        out += count;
    }
}

/** One piece of the output and what it is made from. */
struct Piece {
    vtkAlgorithm* filter;
    vtkImageData* input;
    vtkImageData* output;
    int* extent;
    int id;
};

template <class Sample> void lookUpPiece(const Mapping& mapping, const Piece& piece)
{
    vtkImageIterator<Sample> in(piece.input, piece.extent);
    vtkImageProgressIterator<unsigned char> out(piece.output, piece.extent, piece.filter, piece.id);
    for (; !out.IsAtEnd(); in.NextSpan(), out.NextSpan())
        lookUp<Sample>(
            mapping, in.BeginSpan(), in.EndSpan(), reinterpret_cast<Color*>(out.BeginSpan()));
}

/** What is done with samples of one type. */
struct SampleRoad {
    void (*mapValues)(vtkScalarsToColors* table, int sampleType, Mapping& mapping);
    void (*lookUpPiece)(const Mapping& mapping, const Piece& piece);
};

template <class Sample> constexpr SampleRoad roadOf = {mapValues<Sample>, lookUpPiece<Sample>};

/** Null for samples that have too many values, or that no image view asks for. */
const SampleRoad* roadFor(int sampleType)
{
    switch (sampleType) {
    case VTK_UNSIGNED_CHAR:
        return &roadOf<unsigned char>;
    case VTK_SHORT:
        return &roadOf<short>;
    case VTK_UNSIGNED_SHORT:
        return &roadOf<unsigned short>;
    default:
        return nullptr;
    }
}

} // namespace

class ImageLookupMapper::Private {
public:
    /** Maps all values unless that has been done with the same table before. */
    void prepare(const SampleRoad* newRoad, vtkScalarsToColors* table, const MappingKey& wanted)
    {
        road = newRoad;
        if (key == wanted)
            return;
        mapping.shift = wanted.shift;
        road->mapValues(table, wanted.sampleType, mapping);
        key = wanted;
    }

    const SampleRoad* road = nullptr; // null leaves the update at hand to the base class
    Mapping mapping;
    MappingKey key;
};

vtkStandardNewMacro(ImageLookupMapper);

ImageLookupMapper::ImageLookupMapper()
    : d(new Private)
{
}

ImageLookupMapper::~ImageLookupMapper() { delete d; }

int ImageLookupMapper::RequestData(
    vtkInformation* request, vtkInformationVector** inputVector, vtkInformationVector* outputVector)
{
    vtkImageData* const input = vtkImageData::GetData(inputVector[0]);
    auto* const correction = ImageCorrectionAlgorithm::SafeDownCast(GetInputAlgorithm());
    const SampleRoad* const road = roadFor(input->GetScalarType());
    d->road = nullptr;
    // A pixel of several components may bring its own alpha.
    if (road && LookupTable && ActiveComponent == 0 && input->GetNumberOfScalarComponents() == 1
        && OutputFormat == VTK_RGBA) {
        LookupTable->Build();
        d->prepare(road, LookupTable,
            keyOf(
                LookupTable, input->GetScalarType(), correction ? correction->deferredShift() : 0));
    } else if (correction) {
        correction->applyDeferredShift();
    }
    return Superclass::RequestData(request, inputVector, outputVector);
}

void ImageLookupMapper::ThreadedRequestData(vtkInformation* request,
    vtkInformationVector** inputVector, vtkInformationVector* outputVector, vtkImageData*** inData,
    vtkImageData** outData, int outExt[6], int id)
{
    if (d->road)
        d->road->lookUpPiece(d->mapping, {this, inData[0][0], outData[0], outExt, id});
    else
        Superclass::ThreadedRequestData(
            request, inputVector, outputVector, inData, outData, outExt, id);
}

} // namespace ovl
