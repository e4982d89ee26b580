// SPDX-License-Identifier: BSD-3-Clause
#include "tifffile.h"

#include "filebytes.h"
#include "tiffheader.h"

#include <vtkCallbackCommand.h>
#include <vtkCommand.h>
#include <vtkExecutive.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkTIFFReader.h>

namespace ovl::gallery {
namespace {

using Failure = Outcome<Image>;

void noteError(vtkObject*, unsigned long, void* failed, void*)
{
    *static_cast<bool*>(failed) = true;
}

/** The reader gives the top row first, whichever way the file has it, and red, green, blue. */
Image imageFrom(vtkImageData& read, int components)
{
    Image image;
    const int* size = read.GetDimensions();
    const int stored = read.GetNumberOfScalarComponents(); // with alpha, if there is any
    image.width = size[0];
    image.height = size[1];
    image.components = components;
    image.wide = read.GetScalarType() == VTK_UNSIGNED_SHORT;
    image.allocate();
    std::size_t at = 0;
    for (int row = 0; row < image.height; ++row) {
        const void* line = read.GetScalarPointer(0, row, 0);
        for (int pixel = 0; pixel < image.width * stored; pixel += stored)
            for (int sample = pixel + components - 1; sample >= pixel; --sample)
                image.setSample(at++,
                    image.wide ? static_cast<const std::uint16_t*>(line)[sample]
                               : static_cast<const unsigned char*>(line)[sample]);
    }
    return image;
}

} // namespace

bool looksLikeTiff(const QByteArray& beginning)
{
    return beginning.startsWith(QByteArray::fromRawData("II*\0", 4))
        || beginning.startsWith(QByteArray::fromRawData("MM\0*", 4));
}

Outcome<Image> readTiff(const QString& path, const QByteArray& bytes)
{
    const Outcome<TiffHeader> header = readTiffHeader(bytes);
    if (!header)
        return Failure::failure(header.problem());
    bool failed = false;
    vtkNew<vtkCallbackCommand> observer;
    observer->SetCallback(noteError);
    observer->SetClientData(&failed);
    vtkNew<vtkTIFFReader> reader;
    reader->AddObserver(vtkCommand::ErrorEvent, observer);
    reader->GetExecutive()->AddObserver(vtkCommand::ErrorEvent, observer); // which speaks up for it
    reader->SetFileName(path.toLocal8Bit().constData());
    reader->Update();
    vtkImageData* read = reader->GetOutput();
    const int components = read->GetNumberOfScalarComponents();
    const int type = read->GetScalarType();
    if (failed || read->GetNumberOfPoints() < 1 || read->GetScalarPointer() == nullptr)
        return Failure::failure(QStringLiteral("the TIFF file is damaged"));
    if (type != VTK_UNSIGNED_CHAR && type != VTK_UNSIGNED_SHORT)
        return Failure::failure(QStringLiteral("only TIFF files of 8 or 16 bits can be shown"));
    return imageFrom(*read, components < 3 ? 1 : 3);
}

} // namespace ovl::gallery
