// SPDX-License-Identifier: MIT
#include "formats/vtk/VtiFormat.h"

#include "export/CommonSettings.h"
#include "formats/vtk/VtkFile.h"

namespace kpFormats
{

FormatInfo VtiFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("vti");
    info.displayName = QStringLiteral("VTK ImageData");
    info.fileFormatName = QStringLiteral("VTK ImageData");
    info.defaultExtension = QStringLiteral("vti");
    info.patterns = QStringLiteral("*.vti");
    info.types = {ObjectType::GridSurfaces};
    return info;
}

SettingsTable VtiFormat::settings() const
{
    using S = VtkExportSettings;
    SettingsTable table;
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    table.addBoolean("texts", &S::texts, tr("Texts"),
                     tr("arrays of texts, names, coordinate systems and units; some readers know numbers only"));
    return table;
}

std::vector<PlannedFile> VtiFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<VtkExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> VtiFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<VtkFile>(VtkKind::Image, file, selection, settings.as<VtkExportSettings>(), findings);
}

} // namespace kpFormats
