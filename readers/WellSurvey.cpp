// SPDX-License-Identifier: MIT
#include "readers/WellSurvey.h"

#include "readers/LoadError.h"
#include "readers/TableReader.h"
#include "readers/TextTable.h"
#include "readers/WellLogs.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

constexpr double radians = M_PI / 180.0;

QStringList list(const char* names)
{
    return QString::fromLatin1(names).split(QLatin1Char(' '));
}

int need(const TextTable& table, const char* what, const QStringList& names)
{
    const int column = table.columnNamed(names);
    if (column < 0)
        throw LoadError(table.path(),
                        QStringLiteral("there is no column with the %1; the columns are %2")
                            .arg(QString::fromLatin1(what), table.columns().join(QStringLiteral(", "))),
                        QStringLiteral("name it %1").arg(names.first()));
    return column;
}

/// What a dip is multiplied with to count downwards. \throws LoadError when it cannot be told
double signOf(const TextTable& table, int dip, const std::vector<int>& rows, const QString& asked, LoadNotes& notes)
{
    if (!asked.isEmpty())
        return asked == QLatin1String("up") ? -1.0 : 1.0;
    int down = 0;
    int up = 0;
    int firstDown = 0;
    int firstUp = 0;
    for (const int row : rows) {
        const double value = *table.number(row, dip);
        if (value > 0 && down++ == 0)
            firstDown = table.line(row);
        if (value < 0 && up++ == 0)
            firstUp = table.line(row);
    }
    if (down > 0 && up > 0)
        throw LoadError(
            table.path(),
            QStringLiteral("%1 dips are positive (line %2) and %3 negative (line %4), so that it cannot be told "
                           "which of them go down")
                .arg(down)
                .arg(firstDown)
                .arg(up)
                .arg(firstUp),
            QStringLiteral("say \"dip\": \"down\" or \"dip\": \"up\", the way in which positive dips go, in "
                           "the entry of a model file"));
    if (up > 0)
        notes.append(QStringLiteral("%1: all dips are negative and are taken as downwards").arg(table.path()));
    return up > 0 ? -1.0 : 1.0;
}

} // namespace

WellSurvey::WellSurvey(const LoadOptions& options)
{
    const TextTable table(options.survey, options.encoding);
    m_notes = notesOf(table);
    const int hole = table.columnNamed(holeNames());
    m_named = hole >= 0;
    const int depth = need(table, "depth", list("AT DEPTH MD"));
    const int azimuth = need(table, "azimuth", list("AZ AZIMUTH AZI AZM BRG BEARING"));
    const int inclination = table.columnNamed(list("INC INCL INCLINATION"));
    const int dip = inclination >= 0 && table.columnNamed({QStringLiteral("DIP")}) < 0
                        ? inclination
                        : need(table, "dip or inclination", {QStringLiteral("DIP"), QStringLiteral("INC")});
    const bool fromVertical = dip == inclination;

    std::vector<int> rows;
    int incomplete = 0;
    int firstIncomplete = 0;
    int beyond = 0;
    for (int row = 0; row < table.rowCount(); ++row) {
        bool complete = true;
        for (const int column : {depth, azimuth, dip}) {
            const auto value = table.number(row, column);
            complete = complete && value && std::isfinite(*value);
        }
        if (!complete) {
            if (incomplete++ == 0)
                firstIncomplete = table.line(row);
        } else if (*table.number(row, depth) > options.maxDepth) {
            ++beyond;
        } else {
            rows.push_back(row);
        }
    }
    if (incomplete > 0)
        m_notes.append(QStringLiteral("%1: %2 stations lack a number and were left out; the first is line %3")
                           .arg(options.survey)
                           .arg(incomplete)
                           .arg(firstIncomplete));
    // A depth that the model file gives is the user's own choice.
    if (beyond > 0 && options.maxDepth == LoadOptions().maxDepth)
        m_notes.append(QStringLiteral("%1: %2 stations deeper than %3 are end marks and were left out")
                           .arg(options.survey)
                           .arg(beyond)
                           .arg(options.maxDepth));
    const double sign = fromVertical ? 1.0 : signOf(table, dip, rows, options.dip, m_notes);
    for (const int row : rows) {
        const double angle = *table.number(row, dip) * radians;
        const WellStation station{*table.number(row, depth), *table.number(row, azimuth) * radians,
                                  fromVertical ? M_PI / 2.0 - angle : sign * angle};
        const std::string_view name = m_named ? table.cell(row, hole) : std::string_view();
        m_stations[QString::fromUtf8(name.data(), static_cast<int>(name.size()))].push_back(station);
    }
    for (auto& stations : m_stations) {
        std::stable_sort(stations.begin(), stations.end(),
                         [](const WellStation& a, const WellStation& b) { return a.depth < b.depth; });
    }
}

std::vector<WellStation> WellSurvey::stations(const QString& hole, bool onlyHole) const
{
    if (!m_named && !onlyHole)
        return {};
    return m_stations.value(m_named ? hole : QString());
}

} // namespace kpFormats
