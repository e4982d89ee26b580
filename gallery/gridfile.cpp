// SPDX-License-Identifier: BSD-3-Clause
#include "gridfile.h"

#include "filebytes.h"
#include "numbertext.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <string_view>

namespace ovl::gallery {
namespace {

using Failure = Outcome<HeightMap>;

constexpr double kLargestSide = 100000;
constexpr double kGreatestHeight = 1e37; // up or down: the whole extent is a float too
constexpr float kNoHeight = std::numeric_limits<float>::quiet_NaN();
constexpr double kMostDecimals = 15; // that a double can tell
constexpr double kReadShare = 0.2; // of the time; the rest is parsing

QString atLine(int line, const QString& problem)
{
    return QStringLiteral("line %1: %2").arg(line).arg(problem);
}

/** Reads line by line; the first problem ends it. */
class GridReader {
public:
    GridReader(std::string_view text, const Stage& parsing)
        : stage(parsing)
        , rest(text)
        , size(text.size())
    {
    }

    QString read(HeightMap& map)
    {
        QString problem = readHeader();
        if (problem.isEmpty())
            problem = checkHeader();
        if (!problem.isEmpty())
            return problem;
        map.columns = static_cast<int>(header["ncols"]);
        map.rows = static_cast<int>(header["nrows"]);
        map.heights.reserve(map.samples());
        for (int row = 0; row < map.rows && problem.isEmpty(); ++row)
            problem = readRow(row, map);
        if (problem.isEmpty())
            problem = checkEnd();
        setRulers(map);
        return problem;
    }

private:
    QString readHeader()
    {
        while (!rest.empty()) {
            std::string_view after = rest;
            std::string_view text = takeLine(after);
            const std::string_view key = takeWord(text);
            if (numberFrom(key))
                return QString(); // the first row
            rest = after;
            ++line;
            const std::optional<double> value = numberFrom(trimmed(text));
            std::string name
                = QByteArray(key.data(), static_cast<int>(key.size())).toLower().toStdString();
            if (!isHeaderName(name) || !value || std::isnan(*value))
                return atLine(line, QStringLiteral("this is no header line of a grid"));
            if (!header.emplace(std::move(name), *value).second)
                return atLine(line, QStringLiteral("this header line stands twice"));
        }
        return QString();
    }

    static bool isHeaderName(const std::string& name)
    {
        for (const char* known : {"ncols", "nrows", "xllcorner", "xllcenter", "yllcorner",
                 "yllcenter", "cellsize", "nodata_value"})
            if (name == known)
                return true;
        return false;
    }

    QString checkHeader()
    {
        for (const char* wanted : {"ncols", "nrows", "cellsize"})
            if (header.find(wanted) == header.end())
                return atLine(
                    line + 1, QStringLiteral("the header lacks \"%1\"").arg(QLatin1String(wanted)));
        const double columns = header["ncols"];
        const double rows = header["nrows"];
        for (const double side : {columns, rows})
            if (side != std::floor(side) || side < 2 || side > kLargestSide)
                return QStringLiteral("the header's %1 x %2 samples cannot be shown")
                    .arg(columns)
                    .arg(rows);
        if (!(header["cellsize"] > 0))
            return QStringLiteral("the header's cell size is not above 0");
        // A sample takes a digit and a blank at least; nothing is allocated before this.
        if (columns * rows * 2 > static_cast<double>(size) + 1)
            return QStringLiteral("the header tells %1 x %2 samples, which the file cannot hold")
                .arg(columns)
                .arg(rows);
        return QString();
    }

    QString readRow(int row, HeightMap& map)
    {
        if (stage.isCancelled())
            return QString::fromLatin1(kCancelled);
        stage.reach(static_cast<double>(row) / map.rows);
        if (trimmed(rest).empty())
            return atLine(line + 1,
                QStringLiteral("the file ends after %1 of %2 rows").arg(row).arg(map.rows));
        std::string_view text = takeLine(rest);
        ++line;
        const auto none = header.find("nodata_value");
        int count = 0;
        for (std::string_view word = takeWord(text); !word.empty(); word = takeWord(text)) {
            const std::optional<double> value = numberFrom(word);
            if (!value)
                return atLine(line,
                    QStringLiteral("\"%1\" is no number")
                        .arg(QString::fromUtf8(word.data(),
                            static_cast<int>(std::min<std::size_t>(word.size(), 20)))));
            if (++count > map.columns)
                break;
            const bool missing = none != header.end() && *value == none->second;
            if (!missing && std::abs(*value) > kGreatestHeight)
                return atLine(line, QStringLiteral("%1 is too great to be shown").arg(*value));
            map.heights.push_back(missing ? kNoHeight : static_cast<float>(*value));
        }
        if (count != map.columns)
            return atLine(line,
                count > map.columns
                    ? QStringLiteral("more than %1 samples").arg(map.columns)
                    : QStringLiteral("%1 of %2 samples").arg(count).arg(map.columns));
        return QString();
    }

    QString checkEnd()
    {
        while (!rest.empty()) {
            ++line;
            if (!trimmed(takeLine(rest)).empty())
                return atLine(line, QStringLiteral("more rows than the header tells"));
        }
        return QString();
    }

    /** Where the sample's centre lies along an axis whose low end the header gives one way or the
     * other. */
    double firstCentre(const char* corner, const char* centre)
    {
        const auto found = header.find(centre);
        return found != header.end() ? found->second : header[corner] + header["cellsize"] / 2;
    }

    void setRulers(HeightMap& map)
    {
        const double cell = header["cellsize"];
        const auto decimals
            = static_cast<int>(std::clamp(std::ceil(-std::log10(cell)), 0.0, kMostDecimals));
        const double south = firstCentre("yllcorner", "yllcenter");
        map.x = {firstCentre("xllcorner", "xllcenter"), cell, decimals, QString()};
        map.y = {south + (map.rows - 1) * cell, -cell, decimals, QString()};
        map.z = {0, 1, 1, QString()};
    }

    Stage stage;
    std::string_view rest;
    std::size_t size;
    int line = 0; // the last one read
    std::map<std::string, double> header;
};

} // namespace

Outcome<HeightMap> readGridFile(const QString& path, Progress* progress)
{
    Outcome<QByteArray> bytes = readFileBytes(path, Stage(progress, 0, kReadShare));
    if (!bytes)
        return Failure::failure(bytes.problem());
    HeightMap map;
    GridReader reader({bytes.value().constData(), static_cast<std::size_t>(bytes.value().size())},
        Stage(progress, kReadShare, 1));
    const QString problem = reader.read(map);
    if (!problem.isEmpty())
        return Failure::failure(problem);
    return map;
}

} // namespace ovl::gallery
