// SPDX-License-Identifier: MIT
#include "formats/zmap/ZMapFormat.h"

#include "export/CommonSettings.h"
#include "formats/zmap/ZMapFile.h"

namespace kpFormats
{

FormatInfo ZMapFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("zmap");
    info.displayName = QStringLiteral("ZMap+ grid");
    info.fileFormatName = QStringLiteral("ZMap");
    info.defaultExtension = QStringLiteral("dat");
    info.patterns = QStringLiteral("*.dat *.zmap");
    info.types = {ObjectType::GridSurfaces};
    info.supportsAttributes = false;
    return info;
}

SettingsTable ZMapFormat::settings() const
{
    using S = ZMapExportSettings;
    SettingsTable table;
    table.addText("attribute", &S::attribute, tr("Attribute"), tr("attribute to write; empty writes heights"));
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of positions and heights; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    table.addReal("nullValue", &S::nullValue, -1e30, 1e30, tr("Null value"), tr("stands for a node without a value"));
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of the values; -1 for as many as they need"));
    table.addChoice("registration", &S::registration, tr("Registration"),
                    {{QStringLiteral("nodes"), tr("outermost nodes")},
                     {QStringLiteral("corners"), tr("outer corners of the pixels")}},
                    tr("the header's limits: outermost nodes, or outer corners of the pixels around them"));
    table.addInteger("nodesPerLine", &S::nodesPerLine, 1, 20, tr("Nodes per line"), tr("values in a line"));
    return table;
}

std::vector<PlannedFile> ZMapFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<ZMapExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> ZMapFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                  const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<ZMapFile>(file, selection, settings.as<ZMapExportSettings>(), findings);
}

} // namespace kpFormats
