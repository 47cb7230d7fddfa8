// SPDX-License-Identifier: MIT
#include "formats/ply/PlyFormat.h"

#include "export/CommonSettings.h"
#include "formats/ply/PlyFile.h"

namespace kpFormats
{

FormatInfo PlyFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("ply");
    info.displayName = QStringLiteral("PLY (binary)");
    info.fileFormatName = QStringLiteral("PLY");
    info.defaultExtension = QStringLiteral("ply");
    info.patterns = QStringLiteral("*.ply");
    info.types = {ObjectType::Pins,         ObjectType::Posts,        ObjectType::Labels,
                  ObjectType::VertexClouds, ObjectType::GridSurfaces, ObjectType::MeshSurfaces};
    return info;
}

SettingsTable PlyFormat::settings() const
{
    using S = PlyExportSettings;
    SettingsTable table;
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    addCoordinateOrigin(table, &S::origin);
    table.addBoolean("colours", &S::colours, tr("Colours"), tr("the object's colour at each vertex"));
    return table;
}

std::vector<PlannedFile> PlyFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<PlyExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> PlyFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<PlyFile>(file, selection, settings.as<PlyExportSettings>(), findings);
}

} // namespace kpFormats
