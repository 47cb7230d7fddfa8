// SPDX-License-Identifier: MIT
#include "formats/las/LasFormat.h"

#include "export/CommonSettings.h"
#include "formats/las/LasWellFile.h"

namespace kpFormats
{

FormatInfo LasFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("las");
    info.displayName = QStringLiteral("LAS 2.0 (well logs)");
    info.fileFormatName = QStringLiteral("LAS");
    info.defaultExtension = QStringLiteral("las");
    info.patterns = QStringLiteral("*.las");
    info.types = {ObjectType::Wells};
    return info;
}

SettingsTable LasFormat::settings() const
{
    using S = LasExportSettings;
    SettingsTable table;
    table.addChoice("index", &S::index, tr("Index"),
                    {{QStringLiteral("md"), tr("measured depth")}, {QStringLiteral("tvd"), tr("true vertical depth")}},
                    tr("the depth by which the rows go"));
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of depths and positions, m or ft"));
    table.addReal("nullValue", &S::nullValue, -1e30, 1e30, tr("Null value"),
                  tr("stands for a missing value; another is taken where a value equals it"));
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of every column; -1 for as many as each needs"));
    table.addBoolean("coordinates", &S::coordinates, tr("Coordinates"), tr("curves X, Y and Z of the path"));
    return table;
}

std::vector<PlannedFile> LasFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<LasExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> LasFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<LasWellFile>(file, selection, settings.as<LasExportSettings>(), findings);
}

} // namespace kpFormats
