// SPDX-License-Identifier: MIT
#include "formats/grdecl/GrdeclFile.h"

#include "export/ExportError.h"
#include "export/LengthFactors.h"
#include "export/NumberColumns.h"
#include "formats/grdecl/GrdeclVerification.h"
#include "formats/grdecl/GrdeclWriter.h"

namespace kpFormats
{

namespace
{

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
    , m_unit(metreOrFoot(gridOf(file()), m_settings.lengthUnit, QStringLiteral("GRDECL"), file().path))
{
    const ModelObject& object = gridOf(file());
    noteMissingAttributes(file().objects, selection(), findings);
    noteMetreOrFoot(object, m_settings.lengthUnit, m_unit, QStringLiteral("GRDECL"), findings);
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
