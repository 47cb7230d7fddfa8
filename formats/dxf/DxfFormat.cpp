// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfFormat.h"

#include "export/CommonSettings.h"
#include "formats/dxf/DxfFile.h"

namespace kpFormats
{

FormatInfo DxfFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("dxf");
    info.displayName = QStringLiteral("DXF (drawing, release 12)");
    info.fileFormatName = QStringLiteral("DXF");
    info.defaultExtension = QStringLiteral("dxf");
    info.patterns = QStringLiteral("*.dxf");
    info.types = positionedObjectTypes();
    info.types.push_back(ObjectType::CrossSections);
    info.supportsAttributes = false;
    return info;
}

SettingsTable DxfFormat::settings() const
{
    using S = DxfExportSettings;
    SettingsTable table;
    table.addChoice("dimension", &S::dimension, tr("Dimension"),
                    {{QStringLiteral("3d"), tr("in space")},
                     {QStringLiteral("map"), tr("from above")},
                     {QStringLiteral("section"), tr("from the side")}},
                    tr("in space, flat as seen from above, or flat as seen from the side"));
    table.addChoice("layers", &S::layers, tr("Layers"),
                    {{QStringLiteral("set"), tr("one for each set")},
                     {QStringLiteral("type"), tr("one for each type")},
                     {QStringLiteral("none"), tr("a single one")}},
                    tr("a layer for each set, each type of object, or one"));
    table.addBoolean("unicodeLayers", &S::unicodeLayers, tr("Unicode layers"),
                     tr("layer names keep letters that are not ASCII, as \\U+XXXX"));
    table.addBoolean("faces", &S::faces, tr("Faces"), tr("surfaces as faces"));
    table.addBoolean("meshPoints", &S::meshPoints, tr("Mesh points"), tr("surfaces as points"));
    table.addBoolean("boundaries", &S::boundaries, tr("Boundaries"), tr("surfaces as their boundary lines"));
    addGrouping(table, &S::grouping);
    table.addText("filePrefix", &S::filePrefix, filePrefixLabel(),
                  tr("front of the names of several files in a directory"));
    addLengthUnit(table, &S::lengthUnit, tr("unit of the coordinates"));
    table.addText("crs", &S::crs, tr("CRS"), tr("coordinate system to write; objects of another are transformed"))
        .isOutputSystem = true;
    table.addReal("textHeight", &S::textHeight, 0, 1e9, tr("Text height"),
                  tr("height of names; 0 fits it to the drawing"));
    return table;
}

std::vector<PlannedFile> DxfFormat::files(const ExportSelection& selection, const SettingsValue& values) const
{
    const auto& settings = values.as<DxfExportSettings>();
    return planFiles(selection, settings.grouping, QStringLiteral("dxf"), settings.filePrefix);
}

std::unique_ptr<PreparedFile> DxfFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<DxfFile>(file, selection, settings.as<DxfExportSettings>(), findings);
}

} // namespace kpFormats
