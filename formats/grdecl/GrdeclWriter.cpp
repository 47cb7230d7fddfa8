// SPDX-License-Identifier: MIT
#include "formats/grdecl/GrdeclWriter.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "formats/grdecl/GrdeclFindings.h"
#include "geo/CoordinateSystems.h"
#include "writers/FixedNumber.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// A comment line that ends before column 128.
std::string commentLine(const QString& text)
{
    QByteArray line = "-- " + text.simplified().toUtf8();
    constexpr int widest = 120;
    if (line.size() > widest) {
        line.truncate(widest);
        // Not in the middle of a character.
        while (!line.isEmpty() && (static_cast<unsigned char>(line.back()) & 0x80U) != 0)
            line.chop(1);
    }
    return line.toStdString() + '\n';
}

/// The cell that a corner's depth belongs to.
std::size_t cellOf(const CellGrid& grid, std::size_t corner)
{
    const auto columns = static_cast<std::size_t>(grid.columns);
    const auto rows = static_cast<std::size_t>(grid.rows);
    const std::size_t i = corner % (2 * columns) / 2;
    const std::size_t j = corner / (2 * columns) % (2 * rows) / 2;
    const std::size_t k = corner / (8 * columns * rows);
    return (k * rows + j) * columns + i;
}

} // namespace

void noteCornersWithoutDepth(const ModelObject& object, const QString& file, Findings& findings)
{
    const CellGrid& grid = *object.cells;
    if (std::any_of(grid.coord.begin(), grid.coord.end(), [](double number) { return !std::isfinite(number); }))
        throw ExportError(file, QStringLiteral("a pillar of the grid %1 has no position").arg(object.name),
                          QStringLiteral("correct it at its source"));
    qint64 undefined = 0;
    for (std::size_t corner = 0; corner < grid.zcorn.size(); ++corner) {
        if (std::isfinite(grid.zcorn[corner]))
            continue;
        ++undefined;
        const std::size_t cell = cellOf(grid, corner);
        if (grid.active.empty() || grid.active[cell] != 0)
            throw ExportError(file,
                              QStringLiteral("cell %1 of the grid %2 is active and has a corner without a depth")
                                  .arg(cell + 1)
                                  .arg(object.name),
                              QStringLiteral("make the cell inactive or give it a depth"));
    }
    findings.note(grdeclFinding::cornerWithoutDepth, object, undefined,
                  QStringLiteral("the format has a number for every corner"));
}

GrdeclWriter::GrdeclWriter(BlockWriter& out, const ModelObject& object, const GrdeclExportSettings& settings,
                           OutputUnit unit, Findings& findings)
    : m_out(out)
    , m_object(object)
    , m_grid(*object.cells)
    , m_settings(settings)
    , m_findings(findings)
    , m_unit(unit)
    , m_factor(unitFactor(object.lengthUnit, m_unit))
{
    m_cells = m_grid.zcorn.size() / 8;
    if (settings.origin == GrdeclExportSettings::Origin::Local) {
        m_originX = m_grid.coord[0] * m_factor;
        m_originY = m_grid.coord[1] * m_factor;
    }
}

bool GrdeclWriter::write(const std::vector<NumberColumn>& columns, kpBase::AbstractProgress* progress)
{
    const std::size_t numbers = m_grid.coord.size() + m_grid.zcorn.size() + m_cells * (1 + columns.size());
    ProgressTicker loop(progress, static_cast<double>(numbers));
    writeHead();
    if (!writeCoordinates(loop) || !writeDepths(loop) || !writeActive(loop))
        return false;
    GrdeclNames names;
    for (const NumberColumn& column : columns) {
        const QString keyword = names.take(column.name());
        if (keyword != column.name())
            m_findings.note(finding::renamed, m_object, 1,
                            QStringLiteral("attribute %1 is written as %2").arg(column.name(), keyword));
        if (!writeProperty(column, keyword, loop))
            return false;
    }
    return true;
}

void GrdeclWriter::writeHead()
{
    const bool local = m_settings.origin == GrdeclExportSettings::Origin::Local;
    const std::string unit = m_unit == OutputUnit::Foot ? "'FEET'" : "'METRES'";
    std::string& text = m_out.text();
    text += commentLine(m_object.name);
    text += commentLine(QStringLiteral("lengths in %1, depths positive down")
                            .arg(m_unit == OutputUnit::Foot ? QStringLiteral("feet") : QStringLiteral("metres")));
    if (!m_object.crs.isEmpty())
        text += commentLine(QStringLiteral("coordinate system: %1").arg(crsName(m_object.crs)));
    const auto point = [&](double x, double y) {
        text += ' ';
        kpBaseExport::appendFixed(text, x, m_settings.decimals);
        text += ' ';
        kpBaseExport::appendFixed(text, y, m_settings.decimals);
        text += '\n';
    };
    // A point on the y axis, the origin, a point on the x axis; far enough apart for any number of decimals.
    constexpr double reach = 1000.0;
    text += "\nMAPUNITS\n " + unit + "\n/\n\nMAPAXES\n";
    point(m_originX, m_originY + reach);
    point(m_originX, m_originY);
    point(m_originX + reach, m_originY);
    text += "/\n\nGRIDUNIT\n " + unit + (local ? "" : " 'MAP'") + "\n/\n\nSPECGRID\n ";
    for (const int size : {m_grid.columns, m_grid.rows, m_grid.layers}) {
        appendInteger(text, size);
        text += ' ';
    }
    text += "1 F\n/\n\n";
}

bool GrdeclWriter::writeCoordinates(ProgressTicker& progress)
{
    // MAPAXES is rounded, so the rounded origin is what positions count from.
    const double scale = std::pow(10.0, m_settings.decimals);
    const double originX = std::round(m_originX * scale) / scale;
    const double originY = std::round(m_originY * scale) / scale;
    GrdeclRecord record(m_out, "COORD", GrdeclRecord::Style::Fixed, m_settings.decimals);
    for (std::size_t index = 0; index < m_grid.coord.size(); index += 3) {
        record.add(m_grid.coord[index] * m_factor - originX);
        record.add(m_grid.coord[index + 1] * m_factor - originY);
        record.add(m_grid.coord[index + 2] * m_factor);
        if (!(progress.next() && progress.next() && progress.next()))
            return false;
    }
    record.end();
    return true;
}

bool GrdeclWriter::writeDepths(ProgressTicker& progress)
{
    GrdeclRecord record(m_out, "ZCORN", GrdeclRecord::Style::Fixed, m_settings.decimals);
    for (const double depth : m_grid.zcorn) {
        record.add(std::isfinite(depth) ? depth * m_factor : 0.0);
        if (!progress.next())
            return false;
    }
    record.end();
    return true;
}

bool GrdeclWriter::writeActive(ProgressTicker& progress)
{
    GrdeclRecord record(m_out, "ACTNUM", GrdeclRecord::Style::Whole);
    for (std::size_t cell = 0; cell < m_cells; ++cell) {
        record.add(isActive(cell) ? 1.0 : 0.0);
        if (!progress.next())
            return false;
    }
    record.end();
    return true;
}

bool GrdeclWriter::writeProperty(const NumberColumn& column, const QString& keyword, ProgressTicker& progress)
{
    if (!column.unit().isEmpty())
        m_out.text() += commentLine(QStringLiteral("%1 in %2").arg(keyword, column.unit()));
    const auto style = column.kind() == AttributeKind::Real ? GrdeclRecord::Style::Real : GrdeclRecord::Style::Whole;
    GrdeclRecord record(m_out, keyword.toStdString(), style);
    qint64 missing = 0;
    for (std::size_t cell = 0; cell < m_cells; ++cell) {
        const double value = column.at(static_cast<int>(cell));
        const bool known = std::isfinite(value);
        missing += !known && isActive(cell) ? 1 : 0;
        record.add(known ? value : m_settings.nullValue);
        if (!progress.next())
            return false;
    }
    record.end();
    m_findings.note(grdeclFinding::missingValueOfActiveCell, m_object, missing,
                    QStringLiteral("first property %1; the format knows no missing value").arg(column.name()),
                    QStringLiteral("%1").arg(m_settings.nullValue));
    return true;
}

} // namespace kpFormats
