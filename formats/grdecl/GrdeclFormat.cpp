// SPDX-License-Identifier: MIT
#include "formats/grdecl/GrdeclFormat.h"

#include "export/CommonSettings.h"
#include "formats/grdecl/GrdeclFile.h"

namespace kpFormats
{

FormatInfo GrdeclFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("grdecl");
    info.displayName = QStringLiteral("Eclipse GRDECL");
    info.fileFormatName = QStringLiteral("GRDECL");
    info.defaultExtension = QStringLiteral("grdecl");
    info.patterns = QStringLiteral("*.grdecl");
    info.types = {ObjectType::GeoCellularVolumes};
    return info;
}

SettingsTable GrdeclFormat::settings() const
{
    using S = GrdeclExportSettings;
    SettingsTable table;
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("m or ft; model takes the one nearest to the grid's own"));
    table.addInteger("decimals", &S::decimals, 0, 9, tr("Decimals"), tr("decimals of positions and depths"));
    table.addChoice("origin", &S::origin, tr("Origin"),
                    {{QStringLiteral("map"), tr("that of the map")}, {QStringLiteral("local"), tr("the first pillar")}},
                    tr("positions on the map, or counted from the first pillar with MAPAXES"));
    table.addReal("nullValue", &S::nullValue, -1e30, 1e30, tr("Null value"), tr("stands for a missing property value"));
    return table;
}

std::vector<PlannedFile> GrdeclFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<GrdeclExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> GrdeclFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                    const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<GrdeclFile>(file, selection, settings.as<GrdeclExportSettings>(), findings);
}

} // namespace kpFormats
