// SPDX-License-Identifier: MIT
#include "formats/kml/KmlLosses.h"

#include "formats/kml/KmlFindings.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

bool hasAnyHeight(const ModelObject& object)
{
    return std::any_of(object.z->begin(), object.z->end(), [](double z) { return std::isfinite(z); });
}

} // namespace

QString undrawable(const ModelObject& object)
{
    switch (object.type) {
    case ObjectType::Images:
    case ObjectType::GridSurfaces:
        if (!object.grid)
            return QStringLiteral("it has no rows and columns of nodes");
        if (object.grid->columns < 2 || object.grid->rows < 2)
            return QStringLiteral("it has a single row or column of nodes");
        return hasAnyHeight(object) ? QString() : QStringLiteral("none of its nodes has a value");
    case ObjectType::MeshSurfaces:
        return object.triangles.empty() ? QStringLiteral("it has no triangles") : QString();
    case ObjectType::Polygons:
    case ObjectType::Polylines:
        return object.parts.empty() ? QStringLiteral("it has no lines") : QString();
    default:
        return object.vertexCount() == 0 ? QStringLiteral("it has no positions") : QString();
    }
}

void noteVertexAttributes(const ModelObject& object, const KmlExportSettings& settings,
                          const ExportSelection& selection, Findings& findings)
{
    if (!settings.attributes)
        return;
    qint64 lost = 0;
    QString first;
    for (const AttributeColumn& column : object.vertexAttributes) {
        if (selection.wantsAttribute(column.name) && lost++ == 0)
            first = column.name;
    }
    findings.note(kmlFinding::attributeOfVerticesNotDrawn, object, lost, QStringLiteral("first %1").arg(first));
}

void noteLinesOnGround(const ModelObject& section, const KmlExportSettings& settings, Findings& findings)
{
    if (settings.altitudeMode != KmlExportSettings::AltitudeMode::Clamp || !section.section)
        return;
    findings.note(kmlFinding::lineOnASectionLeftOut, section, static_cast<qint64>(section.section->segments.size()),
                  QStringLiteral("it has no place on the ground; set altitudeMode=absolute"));
}

} // namespace kpFormats
