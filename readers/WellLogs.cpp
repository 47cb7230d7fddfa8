// SPDX-License-Identifier: MIT
#include "readers/WellLogs.h"

#include "readers/LasFile.h"
#include "readers/LoadError.h"
#include "readers/TableColumn.h"
#include "readers/TableReader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

bool isMissing(const AttributeColumn& column, std::size_t row)
{
    if (column.kind == AttributeKind::Real)
        return column.missing && (*column.missing)[row];
    return column.values[static_cast<int>(row)].isNull();
}

/// Values of a column put together one by one.
struct Picker
{
    AttributeColumn column;
    std::vector<double> numbers;
    std::vector<unsigned char> missing;
    bool any = false;

    explicit Picker(const AttributeColumn& source)
    {
        column.name = source.name;
        column.kind = source.kind;
        column.unit = source.unit;
        column.meaning = source.meaning;
    }
    void addMissing()
    {
        if (column.kind != AttributeKind::Real) {
            column.values.append(QVariant());
            return;
        }
        numbers.push_back(0.0);
        missing.push_back(1);
        any = true;
    }
    void addNumber(double number)
    {
        numbers.push_back(number);
        missing.push_back(0);
    }
    void add(const AttributeColumn& source, std::size_t row)
    {
        if (isMissing(source, row))
            addMissing();
        else if (column.kind == AttributeKind::Real)
            addNumber((*source.numbers)[row]);
        else
            column.values.append(source.values[static_cast<int>(row)]);
    }
    AttributeColumn take()
    {
        if (column.kind == AttributeKind::Real) {
            column.numbers = std::make_shared<const std::vector<double>>(std::move(numbers));
            if (any)
                column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
        }
        return std::move(column);
    }
};

} // namespace

const QStringList& holeNames()
{
    static const QStringList names{QStringLiteral("BHID"), QStringLiteral("HOLEID"), QStringLiteral("HOLE_ID"),
                                   QStringLiteral("WELL"), QStringLiteral("NAME")};
    return names;
}

WellLogs::WellLogs(const LoadOptions& options)
{
    for (const QString& path : options.logs) {
        if (path.endsWith(QLatin1String(".las"), Qt::CaseInsensitive))
            readLas(path, options);
        else
            readIntervals(path, options);
    }
}

/// Which row holds each of the depths, as an index of \a rows; none where no row does. At a boundary it is the lower one,
/// in an overlap the one that begins deepest, of several that begin together the shortest. A depth at which a hole's
/// intervals end is held by the one that ends there.
std::vector<std::optional<std::size_t>> WellLogs::heldAt(const Rows& rows, const std::vector<double>& depths)
{
    const Log& log = *rows.log;
    double bottom = std::numeric_limits<double>::lowest();
    for (const std::size_t row : rows.rows)
        bottom = std::max(bottom, log.to[row]);
    std::vector<std::optional<std::size_t>> held;
    std::vector<std::size_t> open; // begun and not known to have ended, the last one to begin behind
    std::size_t next = 0;
    for (const double depth : depths) {
        while (next < rows.rows.size() && log.from[rows.rows[next]] <= depth)
            open.push_back(next++);
        const auto ended = [&](std::size_t index) {
            const double to = log.to[rows.rows[index]];
            return to < depth || (to == depth && to < bottom);
        };
        while (!open.empty() && ended(open.back()))
            open.pop_back();
        held.push_back(open.empty() ? std::nullopt : std::optional<std::size_t>(open.back()));
    }
    return held;
}

void WellLogs::add(const QString& path, std::shared_ptr<const Log> log, const QStringList& holes)
{
    QHash<QString, Rows> rows;
    for (std::size_t row = 0; row < log->from.size(); ++row)
        rows[holes[static_cast<int>(row)]].rows.push_back(row);
    int overlaps = 0;
    int hidden = 0;
    QString firstOverlap;
    QString firstHidden;
    const auto place = [&log](const QString& hole, std::size_t row) {
        return QStringLiteral("%1 at %2").arg(hole).arg(log->from[row]);
    };
    for (auto hole = rows.begin(); hole != rows.end(); ++hole) {
        Rows& list = hole.value();
        list.log = log;
        std::stable_sort(list.rows.begin(), list.rows.end(), [&log](std::size_t a, std::size_t b) {
            const bool together = log->intervals && log->from[a] == log->from[b];
            return together ? log->to[a] > log->to[b] : log->from[a] < log->from[b];
        });
        if (log->intervals) {
            double end = std::numeric_limits<double>::lowest();
            for (const std::size_t row : list.rows) {
                if (log->from[row] < end && overlaps++ == 0)
                    firstOverlap = place(hole.key(), row);
                end = std::max(end, log->to[row]);
            }
            std::vector<bool> seen(list.rows.size(), false);
            std::vector<double> depths = depthsOf(list);
            std::sort(depths.begin(), depths.end());
            for (const auto& index : heldAt(list, depths)) {
                if (index)
                    seen[*index] = true;
            }
            for (std::size_t index = 0; index < seen.size(); ++index) {
                if (!seen[index] && hidden++ == 0)
                    firstHidden = place(hole.key(), list.rows[index]);
            }
        }
        m_byHole[hole.key()].push_back(list);
    }
    if (overlaps > 0)
        m_notes.append(QStringLiteral("%1: %2 intervals overlap one before them; where they do, the one that begins "
                                      "deepest counts; the first is in hole %3")
                           .arg(path, QString::number(overlaps), firstOverlap));
    if (hidden > 0)
        m_notes.append(
            QStringLiteral("%1: %2 intervals lie wholly under others and were left out; the first is in hole %3")
                .arg(path, QString::number(hidden), firstHidden));
}

void WellLogs::readIntervals(const QString& path, const LoadOptions& options)
{
    const TextTable table(path, options.encoding);
    const auto need = [&](const QStringList& names, const char* what) {
        const int column = table.columnNamed(names);
        if (column < 0)
            throw LoadError(path,
                            QStringLiteral("there is no column with the %1; the columns are %2")
                                .arg(QLatin1String(what), table.columns().join(QStringLiteral(", "))),
                            QStringLiteral("name it %1").arg(names.front()));
        return column;
    };
    const int hole = need(holeNames(), "hole");
    const int from = need({QStringLiteral("FROM"), QStringLiteral("DEPTH_FROM"), QStringLiteral("FROM_DEPTH")},
                          "beginning of the interval");
    const int to =
        need({QStringLiteral("TO"), QStringLiteral("DEPTH_TO"), QStringLiteral("TO_DEPTH")}, "end of the interval");
    auto log = std::make_shared<Log>();
    std::vector<int> rows;
    QStringList holes;
    int bad = 0;
    int firstBad = 0;
    for (int row = 0; row < table.rowCount(); ++row) {
        const auto begin = table.number(row, from);
        const auto end = table.number(row, to);
        if (!begin || !end || !std::isfinite(*begin) || !std::isfinite(*end) || *end <= *begin
            || *end > options.maxDepth) {
            if (bad++ == 0)
                firstBad = table.line(row);
            continue;
        }
        rows.push_back(row);
        log->from.push_back(*begin);
        log->to.push_back(*end);
        const std::string_view name = table.cell(row, hole);
        holes.append(QString::fromUtf8(name.data(), static_cast<int>(name.size())));
    }
    m_notes += notesOf(table);
    if (bad > 0)
        m_notes.append(
            QStringLiteral("%1: %2 intervals do not go down from one depth to another and were left out; the "
                           "first is line %3")
                .arg(path)
                .arg(bad)
                .arg(firstBad));
    QStringList notes;
    for (int column = 0; column < table.columns().size(); ++column) {
        if (column != hole && column != from && column != to)
            log->columns.push_back(
                tableColumn(table, column, rows, options.columnTypes.value(table.columns()[column]), notes));
    }
    for (const QString& note : qAsConst(notes))
        m_notes.append(QStringLiteral("%1: %2").arg(path, note));
    add(path, log, holes);
}

void WellLogs::readLas(const QString& path, const LoadOptions& options)
{
    LasFile las = readLasFile(path, options.encoding);
    auto log = std::make_shared<Log>();
    log->intervals = false;
    log->from = std::move(las.depths);
    log->columns = std::move(las.curves);
    QStringList holes;
    for (std::size_t row = 0; row < log->from.size(); ++row)
        holes.append(las.well);
    m_notes += las.notes;
    add(path, log, holes);
}

std::vector<double> WellLogs::depthsOf(const Rows& rows)
{
    std::vector<double> depths;
    for (const std::size_t row : rows.rows) {
        depths.push_back(rows.log->from[row]);
        if (rows.log->intervals)
            depths.push_back(rows.log->to[row]);
    }
    return depths;
}

std::vector<double> WellLogs::depths(const QString& hole) const
{
    std::vector<double> depths;
    for (const Rows& rows : m_byHole.value(hole)) {
        const std::vector<double> own = depthsOf(rows);
        depths.insert(depths.end(), own.begin(), own.end());
    }
    return depths;
}

AttributeColumn WellLogs::valuesOfIntervals(const AttributeColumn& source, const Rows& rows,
                                            const std::vector<std::optional<std::size_t>>& held)
{
    Picker picker(source);
    for (const auto& index : held) {
        if (index)
            picker.add(source, rows.rows[*index]);
        else
            picker.addMissing();
    }
    return picker.take();
}

AttributeColumn WellLogs::valuesOfCurve(const AttributeColumn& source, const Rows& rows,
                                        const std::vector<double>& depths)
{
    const Log& log = *rows.log;
    Picker picker(source);
    std::size_t next = 0; // the first row below the depth
    for (const double depth : depths) {
        while (next < rows.rows.size() && log.from[rows.rows[next]] <= depth)
            ++next;
        if (next == 0) {
            picker.addMissing();
            continue;
        }
        const std::size_t row = rows.rows[next - 1];
        const bool last = next == rows.rows.size();
        if (depth == log.from[row] || (!last && source.kind != AttributeKind::Real)) {
            picker.add(source, row);
        } else if (last || isMissing(source, row) || isMissing(source, rows.rows[next])) {
            picker.addMissing();
        } else {
            const std::size_t below = rows.rows[next];
            const double share = (depth - log.from[row]) / (log.from[below] - log.from[row]);
            const double above = (*source.numbers)[row];
            picker.addNumber(above + share * ((*source.numbers)[below] - above));
        }
    }
    return picker.take();
}

std::vector<AttributeColumn> WellLogs::at(const QString& hole, const std::vector<double>& depths) const
{
    std::vector<AttributeColumn> columns;
    const auto logs = m_byHole.value(hole);
    for (const Rows& rows : logs) {
        std::vector<std::optional<std::size_t>> held;
        if (rows.log->intervals)
            held = heldAt(rows, depths);
        for (const AttributeColumn& source : rows.log->columns)
            columns.push_back(rows.log->intervals ? valuesOfIntervals(source, rows, held)
                                                  : valuesOfCurve(source, rows, depths));
    }
    return columns;
}

} // namespace kpFormats
