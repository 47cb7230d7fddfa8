// SPDX-License-Identifier: MIT
#include "formats/obj/ObjFormat.h"

#include "export/CommonSettings.h"
#include "formats/obj/ObjFile.h"

namespace kpFormats
{

FormatInfo ObjFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("obj");
    info.displayName = QStringLiteral("Wavefront OBJ");
    info.fileFormatName = QStringLiteral("OBJ");
    info.defaultExtension = QStringLiteral("obj");
    info.patterns = QStringLiteral("*.obj");
    info.types = {ObjectType::GridSurfaces, ObjectType::MeshSurfaces};
    info.supportsAttributes = false;
    return info;
}

SettingsTable ObjFormat::settings() const
{
    using S = ObjExportSettings;
    SettingsTable table;
    addGrouping(table, &S::grouping);
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    addCoordinateOrigin(table, &S::origin);
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of coordinates; -1 for as many as they need"));
    table.addBoolean("header", &S::header, tr("Header"), tr("comment lines with unit and direction of z"));
    return table;
}

std::vector<PlannedFile> ObjFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    const auto& own = settings.as<ObjExportSettings>();
    return planFiles(selection, own.grouping, info().defaultExtension, own.filePrefix);
}

std::unique_ptr<PreparedFile> ObjFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<ObjFile>(file, selection, settings.as<ObjExportSettings>(), findings);
}

} // namespace kpFormats
