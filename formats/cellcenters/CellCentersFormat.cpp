// SPDX-License-Identifier: MIT
#include "formats/cellcenters/CellCentersFormat.h"

#include "export/CommonSettings.h"
#include "formats/cellcenters/CellCentersFile.h"

namespace kpFormats
{

FormatInfo CellCentersFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("cellcenters");
    info.displayName = QStringLiteral("Table of cell centres (CSV)");
    info.fileFormatName = QStringLiteral("CSV");
    info.defaultExtension = QStringLiteral("csv");
    info.patterns = QStringLiteral("*.csv");
    info.types = {ObjectType::GeoCellularVolumes};
    return info;
}

SettingsTable CellCentersFormat::settings() const
{
    using S = CellCentersExportSettings;
    SettingsTable table;
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of the centres; model keeps the grid's own"));
    addElevation(table, &S::zIsElevation);
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of the centres; -1 for as many as they need"));
    table.addBoolean("inactiveCells", &S::inactiveCells, tr("Inactive cells"),
                     tr("also the cells that are not active; the column \"active\" says which they are"));
    table.addBoolean("remarks", &S::remarks, tr("Remarks"),
                     tr("lines with # before the table: name, units and coordinate system; some readers know none"));
    return table;
}

std::vector<PlannedFile> CellCentersFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<CellCentersExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> CellCentersFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                         const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<CellCentersFile>(file, selection, settings.as<CellCentersExportSettings>(), findings);
}

} // namespace kpFormats
