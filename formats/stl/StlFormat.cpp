// SPDX-License-Identifier: MIT
#include "formats/stl/StlFormat.h"

#include "export/CommonSettings.h"
#include "formats/stl/StlFile.h"

namespace kpFormats
{

FormatInfo StlFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("stl");
    info.displayName = QStringLiteral("STL (binary)");
    info.fileFormatName = QStringLiteral("STL");
    info.defaultExtension = QStringLiteral("stl");
    info.patterns = QStringLiteral("*.stl");
    info.types = {ObjectType::GridSurfaces, ObjectType::MeshSurfaces};
    info.supportsAttributes = false;
    return info;
}

SettingsTable StlFormat::settings() const
{
    using S = StlExportSettings;
    SettingsTable table;
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    addCoordinateOrigin(table, &S::origin);
    return table;
}

std::vector<PlannedFile> StlFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<StlExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> StlFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<StlFile>(file, selection, settings.as<StlExportSettings>(), findings);
}

} // namespace kpFormats
