// SPDX-License-Identifier: MIT
#include "formats/grdecl/GrdeclFile.h"
#include "formats/grdecl/GrdeclFindings.h"

#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "formats/grdecl/GrdeclWriter.h"
#include "readers/GrdeclReader.h"

#include <cmath>

namespace kpFormats
{

namespace
{

/// Compares the numbers of positions or depths; both in their own unit.
void compareLengths(const std::vector<double>& read, const std::vector<double>& expected, double factor,
                    const char* what, Verification& verification)
{
    if (read.size() != expected.size()) {
        verification.fault = QStringLiteral("%1 has %2 numbers instead of %3")
                                 .arg(QLatin1String(what))
                                 .arg(read.size())
                                 .arg(expected.size());
        return;
    }
    for (std::size_t index = 0; index < read.size(); ++index) {
        if (std::isfinite(expected[index]))
            verification.differs(read[index] / factor - expected[index]);
    }
}

QString compareActive(const CellGrid& read, const CellGrid& expected)
{
    for (std::size_t cell = 0; cell < read.active.size(); ++cell) {
        if (read.active[cell] != (expected.active.empty() || expected.active[cell] != 0 ? 1 : 0))
            return QStringLiteral("cell %1 is %2")
                .arg(cell + 1)
                .arg(read.active[cell] != 0 ? QStringLiteral("active") : QStringLiteral("inactive"));
    }
    return {};
}

QString compareProperties(const CellGrid& read, const std::vector<NumberColumn>& expected, int cells, double nullValue)
{
    if (read.cellAttributes.size() != expected.size())
        return QStringLiteral("it has %1 properties instead of %2")
            .arg(read.cellAttributes.size())
            .arg(expected.size());
    for (std::size_t index = 0; index < expected.size(); ++index) {
        const NumberColumn column(read.cellAttributes[index]);
        for (int cell = 0; cell < cells; ++cell) {
            const double value = expected[index].at(cell);
            if (column.at(cell) != (std::isfinite(value) ? value : nullValue))
                return QStringLiteral("cell %1 has another %2").arg(cell + 1).arg(column.name());
        }
    }
    return {};
}

void noteUnit(const ModelObject& object, const GrdeclExportSettings& settings, OutputUnit unit, Findings& findings)
{
    if (settings.lengthUnit == OutputUnit::Model && writtenUnit(object.lengthUnit, unit) != object.lengthUnit)
        findings.note(grdeclFinding::lengthUnitChanged, object.name, 1,
                      QStringLiteral("%1 is written in %2; GRDECL knows metres and feet")
                          .arg(object.lengthUnit, writtenUnit(object.lengthUnit, unit)));
}

/// \throws ExportError when there are none
const ModelObject& gridOf(const PlannedFile& file)
{
    const ModelObject& object = *file.objects.front();
    if (!object.cells)
        throw ExportError(file.path, QStringLiteral("the volume %1 has no cells").arg(object.name),
                          QStringLiteral("choose a corner-point grid"));
    return object;
}

} // namespace

GrdeclFile::GrdeclFile(PlannedFile planned, const ExportSelection& selected, GrdeclExportSettings settings,
                       Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_unit(grdeclUnit(gridOf(file()), m_settings, file().path))
{
    const ModelObject& object = gridOf(file());
    noteMissingAttributes(file().objects, selection(), findings);
    noteUnit(object, m_settings, m_unit, findings);
    noteCornersWithoutDepth(object, file().path, findings);
    m_columns = cellColumns(object, selection(), findings);
}

qint64 GrdeclFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *file().objects.front();
    BlockWriter out(path, file().path);
    GrdeclWriter writer(out, object, m_settings, m_unit, findings);
    if (writer.write(m_columns, progress))
        out.close();
    return static_cast<qint64>(object.cells->columns) * object.cells->rows * object.cells->layers;
}

Verification GrdeclFile::verify(const QString& path) const
{
    Verification verification;
    verification.reader = QStringLiteral("the program's GRDECL reader");
    const ModelObject& object = *file().objects.front();
    Model model;
    try {
        readGrdecl(model, path, LoadOptions());
        const CellGrid& read = *model.objects().front().cells;
        const CellGrid& expected = *object.cells;
        if (read.columns != expected.columns || read.rows != expected.rows || read.layers != expected.layers) {
            verification.fault =
                QStringLiteral("it has %1 x %2 x %3 cells").arg(read.columns).arg(read.rows).arg(read.layers);
            return verification;
        }
        verification.count = static_cast<qint64>(read.columns) * read.rows * read.layers;
        const double factor = unitFactor(object.lengthUnit, m_unit);
        compareLengths(read.coord, expected.coord, factor, "COORD", verification);
        if (verification.fault.isEmpty())
            compareLengths(read.zcorn, expected.zcorn, factor, "ZCORN", verification);
        if (verification.fault.isEmpty())
            verification.fault = compareActive(read, expected);
        if (verification.fault.isEmpty())
            verification.fault =
                compareProperties(read, m_columns, static_cast<int>(verification.count), m_settings.nullValue);
    } catch (const std::exception& error) {
        verification.fault = QString::fromUtf8(error.what());
    }
    return verification;
}

} // namespace kpFormats
