// SPDX-License-Identifier: MIT
#include "formats/irap/IrapGridFormat.h"

#include "export/CommonSettings.h"
#include "formats/irap/IrapGridFile.h"

namespace kpFormats
{

SettingsTable IrapGridFormat::commonSettings()
{
    using S = IrapGridExportSettings;
    SettingsTable table;
    table.addText("attribute", &S::attribute, tr("Attribute"), tr("attribute to write; empty writes heights"));
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of positions and heights; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    return table;
}

std::vector<PlannedFile> IrapGridFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<IrapGridExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> IrapGridFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                      const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<IrapGridFile>(file, selection, m_form, settings.as<IrapGridExportSettings>(), findings);
}

} // namespace kpFormats
