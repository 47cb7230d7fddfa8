// SPDX-License-Identifier: MIT
#include "formats/deviation/DeviationFormat.h"

#include "export/CommonSettings.h"
#include "formats/deviation/DeviationFile.h"

namespace kpFormats
{

FormatInfo DeviationFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("deviation");
    info.displayName = QStringLiteral("Deviation table (wells)");
    info.fileFormatName = QStringLiteral("Deviation");
    info.defaultExtension = QStringLiteral("dev");
    info.patterns = QStringLiteral("*.dev");
    info.types = {ObjectType::Wells};
    info.supportsAttributes = false;
    return info;
}

SettingsTable DeviationFormat::settings() const
{
    using S = DeviationExportSettings;
    SettingsTable table;
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of depths and positions, m or ft"));
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of lengths; -1 for as many as they need"));
    return table;
}

std::vector<PlannedFile> DeviationFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<DeviationExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> DeviationFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                       const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<DeviationFile>(file, selection, settings.as<DeviationExportSettings>(), findings);
}

} // namespace kpFormats
