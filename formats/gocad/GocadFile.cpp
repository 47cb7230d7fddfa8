// SPDX-License-Identifier: MIT
#include "formats/gocad/GocadFile.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "formats/gocad/GocadFindings.h"
#include "formats/gocad/GocadVerification.h"
#include "formats/gocad/GocadWriter.h"
#include "model/ShareOfProgress.h"
#include "model/SurfaceMesh.h"

#include <utility>

namespace kpFormats
{

GocadFile::GocadFile(PlannedFile planned, const ExportSelection& selected, GocadExportSettings settings,
                     Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
{
    noteMissingAttributes(file().objects, selection(), findings);
    for (const ModelObject* object : file().objects) {
        if (hasAnyPosition(*object)) {
            m_entries.push_back({object, numberColumns(*object, selection(), findings)});
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
    for (const Entry& entry : m_entries)
        written.push_back(entry.object);
    m_settings.decimals = coordinateDecimals(written, m_settings.decimals, m_settings.lengthUnit, findings);
}

qint64 GocadFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    ShareOfProgress share(progress, weightOf(file().objects));
    BlockWriter out(path, file().path);
    GocadWriter writer(out, m_settings, findings);
    qint64 rows = 0;
    for (const Entry& entry : m_entries) {
        share.next(entry.object->weight());
        if (share.isCancelled())
            return rows;
        rows += writer.write(*entry.object, entry.columns, &share);
    }
    out.close();
    return rows;
}

std::optional<Verification> GocadFile::verify(const QString& path) const
{
    return verifyGocad(file().objects, path, selection(), m_settings);
}

} // namespace kpFormats
