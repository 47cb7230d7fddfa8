// SPDX-License-Identifier: MIT
#include "formats/grdecl/GrdeclFile.h"

#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "formats/grdecl/GrdeclFindings.h"
#include "formats/grdecl/GrdeclVerification.h"
#include "formats/grdecl/GrdeclWriter.h"

namespace kpFormats
{

namespace
{

void noteUnit(const ModelObject& object, const GrdeclExportSettings& settings, OutputUnit unit, Findings& findings)
{
    if (settings.lengthUnit == OutputUnit::Model && writtenUnit(object.lengthUnit, unit) != object.lengthUnit)
        findings.note(grdeclFinding::lengthUnitChanged, object, 1,
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

std::optional<Verification> GrdeclFile::verify(const QString& path) const
{
    return verifyGrdecl(*file().objects.front(), path, selection(), m_settings, m_unit);
}

} // namespace kpFormats
