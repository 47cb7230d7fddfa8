// SPDX-License-Identifier: MIT
#pragma once

#include "model/AttributeColumn.h"
#include "readers/LoadOptions.h"

#include <QHash>

#include <memory>
#include <optional>
#include <vector>

namespace kpFormats
{

/// What was measured along holes: tables of intervals (FROM, TO) and LAS files.
class WellLogs
{
public:
    /// Reads every file. \throws LoadError naming the line
    explicit WellLogs(const LoadOptions& options);

    /// Whether something was measured along the hole.
    bool has(const QString& hole) const { return m_byHole.contains(hole); }
    /// The depths at which values of the hole begin, end or stand.
    std::vector<double> depths(const QString& hole) const;
    /// Every column at those depths, which increase: within an interval its value, the lower one where two meet, the one
    /// that begins deepest where they overlap; between the samples of a curve the value on the straight line between them,
    /// a text or whole number that of the sample above.
    std::vector<AttributeColumn> at(const QString& hole, const std::vector<double>& depths) const;
    /// Holes with values, to see which have no collar.
    QStringList holes() const { return m_byHole.keys(); }
    const LoadNotes& notes() const { return m_notes; }

private:
    /// The rows of one file.
    struct Log
    {
        bool intervals = true;
        std::vector<double> from;
        std::vector<double> to; ///< of intervals
        std::vector<AttributeColumn> columns;
    };
    struct Rows
    {
        std::shared_ptr<const Log> log;
        std::vector<std::size_t> rows; ///< by depth, of those that begin together the longest first
    };

    static std::vector<double> depthsOf(const Rows& rows);
    static std::vector<std::optional<std::size_t>> heldAt(const Rows& rows, const std::vector<double>& depths);
    static AttributeColumn valuesOfIntervals(const AttributeColumn& source, const Rows& rows,
                                             const std::vector<std::optional<std::size_t>>& held);
    static AttributeColumn valuesOfCurve(const AttributeColumn& source, const Rows& rows,
                                         const std::vector<double>& depths);
    void readIntervals(const QString& path, const LoadOptions& options);
    void readLas(const QString& path, const LoadOptions& options);
    void add(const QString& path, std::shared_ptr<const Log> log, const QStringList& holes);

    QHash<QString, std::vector<Rows>> m_byHole;
    LoadNotes m_notes;
};

/// Names of the column that says which hole a row belongs to.
const QStringList& holeNames();

} // namespace kpFormats
