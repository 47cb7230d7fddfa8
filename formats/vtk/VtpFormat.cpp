// SPDX-License-Identifier: MIT
#include "formats/vtk/VtpFormat.h"

#include "export/CommonSettings.h"
#include "formats/vtk/VtkFile.h"

namespace kpFormats
{

FormatInfo VtpFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("vtp");
    info.displayName = QStringLiteral("VTK PolyData");
    info.fileFormatName = QStringLiteral("VTK PolyData");
    info.defaultExtension = QStringLiteral("vtp");
    info.patterns = QStringLiteral("*.vtp");
    info.types = positionedObjectTypes();
    return info;
}

SettingsTable VtpFormat::settings() const
{
    using S = VtkExportSettings;
    SettingsTable table;
    addGrouping(table, &S::grouping);
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    table.addBoolean("texts", &S::texts, tr("Texts"),
                     tr("arrays of texts, names, coordinate systems and units; some readers know numbers only"));
    table.addBoolean("colours", &S::colours, tr("Colours"), tr("the object's colour at each cell, as an array"));
    return table;
}

std::vector<PlannedFile> VtpFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    const auto& own = settings.as<VtkExportSettings>();
    return planFiles(selection, own.grouping, info().defaultExtension, own.filePrefix);
}

std::unique_ptr<PreparedFile> VtpFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<VtkFile>(VtkKind::PolyData, file, selection, settings.as<VtkExportSettings>(), findings);
}

} // namespace kpFormats
