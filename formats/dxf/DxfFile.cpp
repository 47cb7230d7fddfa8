// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfFile.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/WriteErrors.h"
#include "formats/dxf/DxfDrawing.h"
#include "formats/dxf/DxfEntityWriter.h"
#include "formats/dxf/DxfLosses.h"
#include "formats/dxf/DxfVerification.h"
#include "geo/CoordinateSystems.h"

#include <utility>

namespace kpFormats
{

DxfFile::DxfFile(PlannedFile planned, const ExportSelection& selected, DxfExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
{
    if (!m_settings.crs.isEmpty() && wktOf(m_settings.crs).isEmpty())
        throw ExportError(file().path, QStringLiteral("\"%1\" is not a known coordinate system").arg(m_settings.crs),
                          QStringLiteral("set crs to one like EPSG:28350"));
    OutputRules rules(wktOf(m_settings.crs), m_settings.lengthUnit);
    noteMixture(file().objects, m_settings, findings);
    for (const ModelObject* object : file().objects) {
        rules.of(*object, false);
        const QString fault = undrawable(*object, m_settings);
        if (!fault.isEmpty()) {
            m_undrawable.insert(object);
            findings.note(finding::objectLeftOut, *object, 1, fault);
        }
        noteColours(*object, findings);
        noteAttributes(*object, selection(), findings);
    }
    const ModelObject& first = *file().objects.front();
    const QSet<const ModelObject*> distinct(file().objects.begin(), file().objects.end());
    if (m_undrawable.size() == distinct.size())
        throw ExportError(
            file().path,
            QStringLiteral("nothing of %1 can be drawn: %2").arg(first.name, undrawable(first, m_settings)),
            QStringLiteral("check its type in the model file and the settings, or choose another object"));
}

qint64 DxfFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    const int passes = (m_settings.faces ? 1 : 0) + (m_settings.meshPoints ? 1 : 0) + (m_settings.boundaries ? 1 : 0);
    double weight = 0;
    for (const ModelObject* object : file().objects) {
        const bool surface = object->type == ObjectType::GridSurfaces || object->type == ObjectType::MeshSurfaces;
        weight += object->weight() + (surface ? object->vertexCount() * (passes - 1.0) : 0.0);
    }
    ProgressTicker ticker(progress, weight);
    DxfEntityWriter writer(path);
    openWriter(writer, file().path);
    DxfDrawing drawing(writer, m_settings, m_undrawable, ticker, findings);
    const qint64 entities = drawing.draw(file().objects);
    closeWriter(writer, file().path);
    return entities;
}

std::optional<Verification> DxfFile::verify(const QString& path) const
{
    return verifyDxf(file().objects, path, m_settings);
}

} // namespace kpFormats
