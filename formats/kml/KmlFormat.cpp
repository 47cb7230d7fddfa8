// SPDX-License-Identifier: MIT
#include "formats/kml/KmlFormat.h"

#include "export/CommonSettings.h"
#include "formats/kml/KmlFile.h"

#include <QFileInfo>

namespace kpFormats
{

FormatInfo KmlFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("kml");
    info.valuesOfFeatures = true;
    info.displayName = QStringLiteral("KML (globe viewers)");
    info.fileFormatName = QStringLiteral("KML");
    info.defaultExtension = QStringLiteral("kml");
    info.patterns = QStringLiteral("*.kml *.kmz");
    info.types = {ObjectType::Pins,         ObjectType::Polygons,     ObjectType::Polylines,
                  ObjectType::Posts,        ObjectType::Wells,        ObjectType::Images,
                  ObjectType::Labels,       ObjectType::VertexClouds, ObjectType::GridSurfaces,
                  ObjectType::MeshSurfaces, ObjectType::CrossSections};
    return info;
}

SettingsTable KmlFormat::settings() const
{
    using S = KmlExportSettings;
    SettingsTable table;
    table.addText("crs", &S::crs, tr("CRS"), tr("coordinate system of objects that have none, such as EPSG:28350"));
    table.addChoice("altitudeMode", &S::altitudeMode, tr("Altitude mode"),
                    {{QStringLiteral("clamp"), tr("on the ground")},
                     {QStringLiteral("relative"), tr("above the ground")},
                     {QStringLiteral("absolute"), tr("above sea level")}},
                    tr("heights are left out, above the ground, or above sea level"));
    table.addBoolean("compress", &S::compress, tr("Compress"), tr("one .kmz file with its pictures"));
    table.addBoolean("attributes", &S::attributes, tr("Attributes"), tr("attributes as tables in the descriptions"));
    table.addBoolean("boundingArea", &S::boundingArea, tr("Bounding area"),
                     tr("a half-transparent rectangle around everything"));
    addGrouping(table, &S::grouping);
    return table;
}

std::vector<PlannedFile> KmlFormat::files(const ExportSelection& selection, const SettingsValue& values) const
{
    const auto& settings = values.as<KmlExportSettings>();
    std::vector<PlannedFile> files =
        planFiles(selection, settings.grouping, settings.compress ? QStringLiteral("kmz") : QStringLiteral("kml"));
    for (PlannedFile& file : files) {
        // An archive under the other name would not be recognised.
        if (settings.compress && QFileInfo(file.path).suffix().compare(QLatin1String("kml"), Qt::CaseInsensitive) == 0)
            file.path = file.path.chopped(3) + QStringLiteral("kmz");
    }
    return files;
}

std::unique_ptr<PreparedFile> KmlFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<KmlFile>(file, selection, settings.as<KmlExportSettings>(), findings);
}

} // namespace kpFormats
