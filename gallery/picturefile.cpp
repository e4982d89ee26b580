// SPDX-License-Identifier: BSD-3-Clause
#include "picturefile.h"

#include <QImage>
#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace ovl::gallery {
namespace {

constexpr std::size_t kMostColours = 256;
constexpr int kCellBits = 5; // of each channel: colours that share a cell are taken for one
constexpr std::size_t kCells = 1 << (3 * kCellBits);

std::size_t cellOf(QRgb colour)
{
    constexpr int kDropped = 8 - kCellBits;
    return static_cast<std::size_t>(qRed(colour) >> kDropped << (2 * kCellBits)
        | qGreen(colour) >> kDropped << kCellBits | qBlue(colour) >> kDropped);
}

/** Colours that lie near each other, how often they occur and their sum. */
struct Cell {
    std::uint64_t count = 0;
    std::array<std::uint64_t, 3> sum {};

    double mean(std::size_t channel) const
    {
        return static_cast<double>(sum[channel]) / static_cast<double>(count);
    }
};

/** Some cells that get one colour of the table. */
struct Box {
    std::size_t from;
    std::size_t to;
    std::size_t widest = 0; // channel
    double weight = 0; // how much it wants to be split

    Box(const std::vector<Cell>& cells, std::size_t first, std::size_t behind)
        : from(first)
        , to(behind)
    {
        std::uint64_t count = 0;
        for (std::size_t i = from; i < to; ++i)
            count += cells[i].count;
        double length = 0;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const auto [low, high] = std::minmax_element(cells.begin() + at(from),
                cells.begin() + at(to), [channel](const Cell& one, const Cell& other) {
                    return one.mean(channel) < other.mean(channel);
                });
            const double extent = high->mean(channel) - low->mean(channel);
            widest = extent > length ? channel : widest;
            length = std::max(length, extent);
        }
        weight = length * std::max(1.0, static_cast<double>(count) / 64);
    }

    static std::ptrdiff_t at(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }
};

std::vector<Cell> cellsOf(const QImage& picture)
{
    std::vector<Cell> all(kCells);
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            Cell& cell = all[cellOf(line[x])];
            ++cell.count;
            cell.sum[0] += static_cast<std::uint64_t>(qRed(line[x]));
            cell.sum[1] += static_cast<std::uint64_t>(qGreen(line[x]));
            cell.sum[2] += static_cast<std::uint64_t>(qBlue(line[x]));
        }
    }
    all.erase(
        std::remove_if(all.begin(), all.end(), [](const Cell& cell) { return cell.count == 0; }),
        all.end());
    return all;
}

/** Splits the box that wants it most, at the middle of its cells, until there are enough. */
std::vector<Box> boxesOf(std::vector<Cell>& cells)
{
    std::vector<Box> boxes {Box(cells, 0, cells.size())};
    while (boxes.size() < kMostColours) {
        const auto box = std::max_element(boxes.begin(), boxes.end(),
            [](const Box& one, const Box& other) { return one.weight < other.weight; });
        if (box->weight <= 0)
            break; // every cell has a colour of its own
        const std::size_t channel = box->widest;
        std::sort(cells.begin() + Box::at(box->from), cells.begin() + Box::at(box->to),
            [channel](const Cell& one, const Cell& other) {
                return one.mean(channel) < other.mean(channel);
            });
        const std::size_t middle = (box->from + box->to) / 2;
        const Box upper(cells, middle, box->to);
        *box = Box(cells, box->from, middle);
        boxes.push_back(upper);
    }
    return boxes;
}

} // namespace

QImage withFewColours(const QImage& picture)
{
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    std::vector<Cell> cells = cellsOf(source);
    QVector<QRgb> colours;
    std::vector<uchar> colourOf(kCells);
    for (const Box& box : boxesOf(cells)) {
        Cell all;
        for (std::size_t i = box.from; i < box.to; ++i) {
            const Cell& cell = cells[i];
            colourOf[cellOf(qRgb(static_cast<int>(cell.mean(0)), static_cast<int>(cell.mean(1)),
                static_cast<int>(cell.mean(2))))]
                = static_cast<uchar>(colours.size());
            all.count += cell.count;
            for (std::size_t channel = 0; channel < 3; ++channel)
                all.sum[channel] += cell.sum[channel];
        }
        colours.append(qRgb(qRound(all.mean(0)), qRound(all.mean(1)), qRound(all.mean(2))));
    }
    QImage result(source.size(), QImage::Format_Indexed8);
    result.setColorTable(colours);
    for (int y = 0; y < source.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* to = result.scanLine(y);
        for (int x = 0; x < source.width(); ++x)
            to[x] = colourOf[cellOf(from[x])];
    }
    return result;
}

bool writePng(const QImage& picture, const QString& path)
{
    constexpr int kSmallest = 0; // "quality", which for PNG is the size
    return withFewColours(picture).save(path, "png", kSmallest);
}

} // namespace ovl::gallery
