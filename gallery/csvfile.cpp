// SPDX-License-Identifier: BSD-3-Clause
#include "csvfile.h"

#include "filebytes.h"
#include "numbertext.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace ovl::gallery {
namespace {

using Failure = Outcome<Table>;

constexpr std::size_t kMostColumns = 64; // more curves than anybody can tell apart
constexpr int kLongestTitle = 80; // letters; a legend has no room for more
constexpr int kNamedLines = 8; // bad lines told one by one
constexpr double kReadShare = 0.2; // of the time; the rest is parsing
constexpr int kLinesAtOnce = 1024; // between two looks at the progress

/** Splits lines into fields; keeps its memory from line to line. */
class FieldSplitter {
public:
    explicit FieldSplitter(char separatorSign)
        : separator(separatorSign)
    {
    }

    /**
     * The fields of a line, without quotes; valid until the next call. One more than can be shown
     * is the last one, whatever follows: a field takes more memory than its comma.
     */
    const std::vector<std::string>& split(std::string_view line)
    {
        count = 0;
        bool quoted = false;
        std::string* field = &next();
        for (std::size_t i = 0; i < line.size(); ++i) {
            const char sign = line[i];
            if (sign == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"')
                field->push_back(line[++i]); // two stand for one
            else if (sign == '"')
                quoted = !quoted;
            else if (sign == separator && !quoted && count > kMostColumns)
                break;
            else if (sign == separator && !quoted)
                field = &next();
            else
                field->push_back(sign);
        }
        fields.resize(count);
        return fields;
    }

private:
    std::string& next()
    {
        if (count == fields.size())
            fields.emplace_back();
        fields[count].clear();
        return fields[count++];
    }

    char separator;
    std::vector<std::string> fields;
    std::size_t count = 0;
};

QString titleFrom(const std::string& field)
{
    const QString title = QString::fromUtf8(field.c_str()).trimmed();
    return title.size() <= kLongestTitle
        ? title
        : title.left(kLongestTitle - 1) + QChar(0x2026); // an ellipsis
}

char separatorOf(std::string_view header)
{
    char best = ',';
    for (const char candidate : {';', '\t'})
        if (std::count(header.begin(), header.end(), candidate)
            > std::count(header.begin(), header.end(), best))
            best = candidate;
    return best;
}

/** The numbers of a row; false when one is none or their count is wrong. */
bool readRow(const std::vector<std::string>& fields, bool decimalComma, std::vector<double>& row)
{
    if (fields.size() != row.size())
        return false;
    for (std::size_t column = 0; column < row.size(); ++column) {
        std::string text(trimmed(fields[column]));
        if (decimalComma)
            std::replace(text.begin(), text.end(), ',', '.');
        const std::optional<double> value
            = text.empty() ? std::numeric_limits<double>::quiet_NaN() : numberFrom(text);
        if (!value)
            return false;
        row[column] = *value;
    }
    return !std::isnan(row.front());
}

QString headerProblem(const std::vector<std::string>& titles)
{
    if (titles.size() < 2)
        return QStringLiteral("line 1: the names of two columns at least are wanted");
    if (titles.size() > kMostColumns)
        return QStringLiteral("line 1: more than %1 columns are not shown").arg(kMostColumns);
    const auto isNumber
        = [](const std::string& title) { return numberFrom(trimmed(title)).has_value(); };
    if (std::all_of(titles.begin(), titles.end(), isNumber))
        return QStringLiteral("line 1: numbers stand where the names of the columns are wanted");
    return QString();
}

/** False when it was told to stop. */
bool readRows(std::string_view rest, FieldSplitter& splitter, bool decimalComma, Table& table,
    const Stage& stage)
{
    const auto size = static_cast<double>(rest.size());
    std::vector<double> row(table.columns.size());
    for (int line = 2; !rest.empty(); ++line) {
        if (line % kLinesAtOnce == 0) {
            if (stage.isCancelled())
                return false;
            stage.reach(1 - static_cast<double>(rest.size()) / size);
        }
        const std::string_view text = takeLine(rest);
        if (trimmed(text).empty())
            continue;
        if (!readRow(splitter.split(text), decimalComma, row)) {
            table.badLines.push_back(line);
            continue;
        }
        for (std::size_t column = 0; column < row.size(); ++column)
            table.columns[column].push_back(row[column]);
    }
    return true;
}

} // namespace

Outcome<Table> readCsvFile(const QString& path, Progress* progress)
{
    Outcome<QByteArray> bytes = readFileBytes(path, Stage(progress, 0, kReadShare));
    if (!bytes)
        return Failure::failure(bytes.problem());
    std::string_view rest(
        bytes.value().constData(), static_cast<std::size_t>(bytes.value().size()));
    if (rest.substr(0, 3) == "\xEF\xBB\xBF") // some programs put a mark in front
        rest.remove_prefix(3);
    if (rest.find('\0') != std::string_view::npos)
        return Failure::failure(QStringLiteral("this is no text"));
    const std::string_view header = takeLine(rest);
    const char separator = separatorOf(header);
    FieldSplitter splitter(separator);
    const std::vector<std::string>& titles = splitter.split(header);
    const QString problem = headerProblem(titles);
    if (!problem.isEmpty())
        return Failure::failure(problem);
    Table table;
    table.columns.resize(titles.size());
    for (const std::string& title : titles)
        table.titles.append(titleFrom(title));
    if (!readRows(rest, splitter, separator == ';', table, Stage(progress, kReadShare, 1)))
        return Failure::failure(QString::fromLatin1(kCancelled));
    if (table.rows() == 0) {
        const QString bad = badLinesText(table);
        return Failure::failure(
            bad.isEmpty() ? QStringLiteral("there are no rows under the header") : bad);
    }
    return table;
}

QString badLinesText(const Table& table)
{
    if (table.badLines.empty())
        return QString();
    QStringList named;
    for (const int line : table.badLines) {
        if (named.size() == kNamedLines)
            break;
        named.append(QString::number(line));
    }
    const auto more = static_cast<int>(table.badLines.size()) - named.size();
    if (more == 0 && named.size() == 1)
        return QStringLiteral("line %1 does not fit and is left out").arg(named.constFirst());
    const QString last = more > 0 ? QStringLiteral("%1 more").arg(more) : named.takeLast();
    return QStringLiteral("lines %1 and %2 do not fit and are left out")
        .arg(named.join(QStringLiteral(", ")), last);
}

} // namespace ovl::gallery
