// SPDX-License-Identifier: BSD-3-Clause
#include "filecontents.h"

#include "axisscale.h"
#include "csvfile.h"
#include "gridfile.h"
#include "imagefile.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <new>

namespace ovl::gallery {
namespace {

using Failure = Outcome<SharedContents>;

/** Moves what a reader answers to its place; returns the problem. */
template <class Value> QString take(Outcome<Value> read, Value& place)
{
    if (!read)
        return read.problem();
    place = std::move(read.value());
    return QString();
}

QString fill(FileContents& contents, const QString& path, Progress* progress)
{
    switch (contents.kind) {
    case FileKind::Image:
        return take(readImageFile(path, progress), contents.image);
    case FileKind::Table:
        return take(readCsvFile(path, progress), contents.table);
    case FileKind::Grid:
        return take(readGridFile(path, progress), contents.map);
    }
    return QString();
}

Outcome<SharedContents> read(const QString& path, Progress* progress)
{
    Outcome<FileKind> kind = fileKindOf(path);
    if (!kind)
        return Failure::failure(kind.problem());
    auto contents = std::make_shared<FileContents>();
    contents->name = QFileInfo(path).fileName();
    contents->kind = kind.value();
    const QString problem = fill(*contents, path, progress);
    if (!problem.isEmpty())
        return Failure::failure(problem);
    summarise(*contents);
    return contents;
}

} // namespace

namespace {

/** Powers of ten bring heights that the view's axes cannot label to where they can. */
double unitFor(const Extent& heights)
{
    constexpr double kLeastSpan = 1e-3;
    constexpr double kGreatest = 1e6;
    const double span = heights.largest - heights.smallest;
    const double greatest = std::max(std::abs(heights.largest), std::abs(heights.smallest));
    const bool usual = greatest <= kGreatest && (span == 0 || span >= kLeastSpan);
    return usual ? 1 : std::pow(10.0, exponentFor(heights));
}

} // namespace

void summarise(FileContents& contents)
{
    if (contents.kind == FileKind::Image)
        contents.range = displayRangeOf(contents.image);
    if (contents.kind == FileKind::Table)
        contents.remark = badLinesText(contents.table);
    if (contents.kind == FileKind::Grid) {
        contents.heights = extentOf(contents.map.heights, contents.map.samples());
        contents.map.zUnit = unitFor(contents.heights);
        contents.gaps = static_cast<std::size_t>(std::count_if(contents.map.heights.begin(),
            contents.map.heights.end(), [](float height) { return std::isnan(height); }));
    }
}

Outcome<SharedContents> readContents(const QString& path, Progress* progress)
{
    try {
        return read(path, progress);
    } catch (const std::bad_alloc&) {
        return Failure::failure(QStringLiteral("there is not enough memory for it"));
    }
}

} // namespace ovl::gallery
