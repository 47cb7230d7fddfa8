// SPDX-License-Identifier: MIT
#include "formats/vtk/VtuFormat.h"

#include "export/CommonSettings.h"
#include "formats/vtk/VtkFile.h"

namespace kpFormats
{

FormatInfo VtuFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("vtu");
    info.displayName = QStringLiteral("VTK UnstructuredGrid");
    info.fileFormatName = QStringLiteral("VTK UnstructuredGrid");
    info.defaultExtension = QStringLiteral("vtu");
    info.patterns = QStringLiteral("*.vtu");
    info.types = {ObjectType::GeoCellularVolumes};
    return info;
}

SettingsTable VtuFormat::settings() const
{
    using S = VtkExportSettings;
    SettingsTable table;
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of coordinates; model keeps each object's own"));
    addElevation(table, &S::zIsElevation);
    table.addBoolean("texts", &S::texts, tr("Texts"),
                     tr("arrays of texts, names, coordinate systems and units; some readers know numbers only"));
    table.addBoolean("colours", &S::colours, tr("Colours"), tr("the object's colour at each cell, as an array"));
    table.addBoolean("inactiveCells", &S::inactiveCells, tr("Inactive cells"),
                     tr("also the cells that are not active; the array \"active\" says which they are"));
    return table;
}

std::vector<PlannedFile> VtuFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, info().defaultExtension, settings.as<VtkExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> VtuFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<VtkFile>(VtkKind::Cells, file, selection, settings.as<VtkExportSettings>(), findings);
}

} // namespace kpFormats
