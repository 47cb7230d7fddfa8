// SPDX-License-Identifier: MIT
#include "formats/gocad/GocadFile.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "formats/gocad/GocadFindings.h"
#include "formats/gocad/GocadVerification.h"
#include "formats/gocad/GocadWriter.h"
#include "model/ShareOfProgress.h"
#include "model/SurfaceMesh.h"

#include <algorithm>
#include <utility>

namespace kpFormats
{

namespace
{

GocadEntry entryOf(const ModelObject& object, const ExportSelection& selection, const GocadExportSettings& settings,
                   Findings& findings)
{
    GocadEntry entry{&object, numberColumns(object, selection, findings), std::nullopt};
    if (isGocadWell(object, settings))
        entry.well = gocadWellOf(object, settings, findings);
    if (entry.well && !entry.well->attribute.isEmpty()) {
        // The path has them.
        const auto isDepth = [&entry](const NumberColumn& column) { return column.name() == entry.well->attribute; };
        entry.columns.erase(std::remove_if(entry.columns.begin(), entry.columns.end(), isDepth), entry.columns.end());
    }
    return entry;
}

} // namespace

GocadFile::GocadFile(PlannedFile planned, const ExportSelection& selected, GocadExportSettings settings,
                     Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
{
    noteMissingAttributes(file().objects, selection(), findings);
    for (const ModelObject* object : file().objects) {
        if (hasAnyPosition(*object)) {
            m_entries.push_back(entryOf(*object, selection(), m_settings, findings));
            noteGocadForm(*object, m_settings, findings);
        } else {
            findings.note(finding::objectWithoutPosition, *object, 1, object->name);
        }
    }
    if (m_entries.empty())
        throw ExportError(
            file().path,
            QStringLiteral("none of its objects has a position, the first is %1").arg(file().objects.front()->name),
            QStringLiteral("choose objects with coordinates"));
    std::vector<const ModelObject*> written;
    for (const GocadEntry& entry : m_entries)
        written.push_back(entry.object);
    m_settings.decimals = coordinateDecimals(written, m_settings.decimals, m_settings.lengthUnit, findings);
}

qint64 GocadFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    ShareOfProgress share(progress, weightOf(file().objects));
    BlockWriter out(path, file().path);
    GocadWriter writer(out, m_settings, findings);
    qint64 rows = 0;
    for (const GocadEntry& entry : m_entries) {
        share.next(entry.object->weight());
        if (share.isCancelled())
            return rows;
        rows += writer.write(entry, &share);
    }
    out.close();
    return rows;
}

std::optional<Verification> GocadFile::verify(const QString& path) const
{
    return verifyGocad(m_entries, path, m_settings);
}

} // namespace kpFormats
