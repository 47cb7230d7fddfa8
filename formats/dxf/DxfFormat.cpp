// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfFormat.h"
#include "export/CommonFindings.h"

#include "export/ExportError.h"
#include "formats/dxf/DxfDrawing.h"
#include "formats/dxf/DxfEntityWriter.h"
#include "formats/dxf/DxfLosses.h"
#include "formats/dxf/DxfReadBack.h"
#include "geo/CoordinateSystems.h"

#include <algorithm>

namespace kpFormats
{

FormatInfo DxfFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("dxf");
    info.displayName = QStringLiteral("DXF (drawing, release 12)");
    info.fileFormatName = QStringLiteral("DXF");
    info.defaultExtension = QStringLiteral("dxf");
    info.patterns = QStringLiteral("*.dxf");
    info.types = positionedObjectTypes();
    info.types.push_back(ObjectType::CrossSections);
    info.supportsAttributes = false;
    return info;
}

SettingsMap DxfFormat::settings()
{
    SettingsMap map;
    map.addChoice("dimension", m_settings.dimension, {"3d", "map", "section"},
                  "in space, flat as seen from above, or flat as seen from the side");
    map.addChoice("layers", m_settings.layers, {"set", "type", "none"},
                  "a layer for each set, each type of object, or one");
    map.addBoolean("unicodeLayers", m_settings.unicodeLayers,
                   "layer names keep letters that are not ASCII, as \\U+XXXX");
    map.addBoolean("faces", m_settings.faces, "surfaces as faces");
    map.addBoolean("meshPoints", m_settings.meshPoints, "surfaces as points");
    map.addBoolean("boundaries", m_settings.boundaries, "surfaces as their boundary lines");
    map.addChoice("grouping", m_settings.grouping, {"single", "object", "set"},
                  "one file, one per object, one per set");
    map.addText("filePrefix", m_settings.filePrefix, "front of the names of several files in a directory");
    map.addChoice("lengthUnit", m_settings.lengthUnit, outputUnitKeys(), "unit of the coordinates");
    map.addText("crs", m_settings.crs, "coordinate system to write; objects of another are transformed");
    map.addReal("textHeight", m_settings.textHeight, 0, 1e9, "height of names; 0 fits it to the drawing");
    return map;
}

std::vector<PlannedFile> DxfFormat::plan(const ExportSelection& selection) const
{
    return planFiles(selection, m_settings.grouping, QStringLiteral("dxf"), m_settings.filePrefix);
}

void DxfFormat::foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const
{
    if (!m_settings.crs.isEmpty() && wktOf(m_settings.crs).isEmpty())
        throw ExportError(file.path, QStringLiteral("\"%1\" is no coordinate system that is known").arg(m_settings.crs),
                          QStringLiteral("set crs to one like EPSG:28350"));
    const auto hopeless = [this](const ModelObject* object) { return !undrawable(*object, m_settings).isEmpty(); };
    const ModelObject& first = *file.objects.front();
    if (std::all_of(file.objects.begin(), file.objects.end(), hopeless))
        throw ExportError(
            file.path, QStringLiteral("nothing of %1 can be drawn: %2").arg(first.name, undrawable(first, m_settings)),
            QStringLiteral("check its type in the model file and the settings, or choose another object"));
    OutputRules rules(wktOf(m_settings.crs), m_settings.lengthUnit);
    noteMixture(file.objects, m_settings, findings);
    for (const ModelObject* object : file.objects) {
        rules.of(*object, false);
        const QString fault = undrawable(*object, m_settings);
        findings.note(finding::objectLeftOut, object->name, fault.isEmpty() ? 0 : 1, fault);
        noteColour(object->color, object->name, findings);
        noteAttributes(*object, selection, findings);
    }
}

qint64 DxfFormat::write(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                        Findings& findings, kpBase::AbstractProgress* progress)
{
    const int passes = (m_settings.faces ? 1 : 0) + (m_settings.meshPoints ? 1 : 0) + (m_settings.boundaries ? 1 : 0);
    double weight = 0;
    for (const ModelObject* object : file.objects) {
        const bool surface = object->type == ObjectType::GridSurfaces || object->type == ObjectType::MeshSurfaces;
        weight += object->weight() + (surface ? object->vertexCount() * (passes - 1.0) : 0.0);
    }
    ProgressTicker ticker(progress, weight);
    DxfEntityWriter writer(path);
    writer.useTruePath = true;
    if (!writer.fileOpen())
        throw ExportError(file.path, QStringLiteral("the file could not be opened for writing"),
                          QStringLiteral("check the directory's permissions and the disk"));
    DxfDrawing drawing(writer, m_settings, ticker, findings);
    const qint64 entities = drawing.draw(file.objects, selection);
    writer.fileClose();
    if (writer.writeFailed())
        throw ExportError(file.path, QStringLiteral("the file could not be written completely"),
                          QStringLiteral("make room on the disk or choose another"));
    return entities;
}

Verification DxfFormat::verify(const PlannedFile& file, const QString& path, const ExportSelection& selection)
{
    DxfReadBack readBack(path);
    ProgressTicker ticker(nullptr, 1);
    Findings ignored;
    DxfDrawing drawing(readBack, m_settings, ticker, ignored);
    drawing.draw(file.objects, selection);
    return readBack.result();
}

} // namespace kpFormats
