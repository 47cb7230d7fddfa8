// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfLosses.h"

#include "formats/dxf/DxfFindings.h"
#include "formats/dxf/DxfText.h"
#include "geo/CoordinateSystems.h"
#include "model/SurfaceFaces.h"

#include <QSet>

namespace kpFormats
{

namespace
{

/// \a name is what has the colour.
void noteColour(const QColor& colour, const QString& name, Findings& findings)
{
    constexpr int blackOrWhite = 7; // one: what differs from the background
    const int index = nearestColourIndex(colour);
    const QColor shown = indexedColour(index);
    if (colour.isValid() && shown.rgb() != colour.rgb() && index != blackOrWhite)
        findings.note(dxfFinding::colourChanged, QString(), 1,
                      QStringLiteral("%1 of %2 is now %3").arg(colour.name(), name, shown.name()));
}

} // namespace

void noteMixture(const std::vector<const ModelObject*>& objects, const DxfExportSettings& settings, Findings& findings)
{
    QSet<QString> systems;
    QSet<QString> units;
    for (const ModelObject* object : objects) {
        systems.insert(crsName(object->crs));
        units.insert(object->lengthUnit);
    }
    if (settings.crs.isEmpty() && systems.size() > 1)
        findings.note(dxfFinding::coordinateSystemsDiffer, QString(), systems.size(),
                      QStringLiteral("set crs=EPSG:... or write a file for each"));
    if (settings.lengthUnit == OutputUnit::Model && units.size() > 1)
        findings.note(dxfFinding::lengthUnitsDiffer, QString(), units.size(), QStringLiteral("set lengthUnit=m"));
}

void noteAttributes(const ModelObject& object, const ExportSelection& selection, Findings& findings)
{
    qint64 lost = 0;
    QString first;
    const auto count = [&](const QString& name) {
        // The wizard does not ask which attributes to write where none can be.
        const bool wanted = selection.wantsAttribute(name) || selection.attributes->isEmpty();
        if (wanted && lost++ == 0)
            first = name;
    };
    for (const ObjectAttribute& attribute : object.objectAttributes)
        count(attribute.name);
    for (const AttributeColumn& column : object.vertexAttributes)
        count(column.name);
    findings.note(dxfFinding::attributeNotWritten, QString(), lost, QStringLiteral("%1 of %2").arg(first, object.name));
}

void noteColours(const ModelObject& object, Findings& findings)
{
    if (object.colorIsOwn)
        noteColour(object.color, object.name, findings);
    if (!object.section)
        return;
    for (const SectionSegment& segment : object.section->segments)
        noteColour(segment.color, segment.name, findings);
}

QString undrawable(const ModelObject& object, const DxfExportSettings& settings)
{
    if (isSwitchedOff(object, settings))
        return QStringLiteral("faces, meshPoints and boundaries are all off");
    switch (object.type) {
    case ObjectType::GridSurfaces:
    case ObjectType::MeshSurfaces:
        if (settings.meshPoints)
            break;
        return hasAnyFace(object) ? QString() : QStringLiteral("it has no faces; meshPoints would draw its points");
    case ObjectType::Polygons:
    case ObjectType::Polylines:
        return object.parts.empty() ? QStringLiteral("it has no lines") : QString();
    default:
        break;
    }
    return object.vertexCount() == 0 ? QStringLiteral("it has no positions") : QString();
}

bool isSwitchedOff(const ModelObject& object, const DxfExportSettings& settings)
{
    const bool surface = object.type == ObjectType::GridSurfaces || object.type == ObjectType::MeshSurfaces;
    return surface && !settings.faces && !settings.meshPoints && !settings.boundaries;
}

} // namespace kpFormats
