// SPDX-License-Identifier: MIT
#include "formats/off/OffFormat.h"

#include "export/CommonSettings.h"
#include "formats/off/OffFile.h"

namespace kpFormats
{

FormatInfo OffFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("off");
    info.displayName = QStringLiteral("Geomview OFF");
    info.fileFormatName = QStringLiteral("OFF");
    info.defaultExtension = QStringLiteral("off");
    info.patterns = QStringLiteral("*.off");
    info.types = {ObjectType::GridSurfaces, ObjectType::MeshSurfaces};
    info.supportsAttributes = false;
    return info;
}

SettingsTable OffFormat::settings() const
{
    using S = OffExportSettings;
    SettingsTable table;
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of coordinates; -1 for as many as they need"));
    table.addBoolean("colours", &S::colours, tr("Colours"), tr("the object's colour at each face"));
    table.addBoolean("header", &S::header, tr("Header"), tr("comment lines with name, unit and direction of z"));
    return table;
}

std::vector<PlannedFile> OffFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<OffExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> OffFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<OffFile>(file, selection, settings.as<OffExportSettings>(), findings);
}

} // namespace kpFormats
