// SPDX-License-Identifier: MIT
#include "formats/ogr/GpkgFormat.h"

#include "export/WriteErrors.h"
#include "formats/ogr/GpkgIndex.h"
#include "formats/ogr/QgisStyle.h"
#include "formats/ogr/SqliteFiles.h"
#include "geo/CheckedWrites.h"
#include "geo/GdalSession.h"

#include <ogrsf_frmts.h>

namespace kpFormats
{

namespace
{

/// The table in which QGIS keeps the styles of a GeoPackage. Null when it cannot be made.
OGRLayer* makeStyleTable(GDALDataset& dataset)
{
    OGRLayer* table = dataset.CreateLayer("layer_styles", nullptr, wkbNone, nullptr);
    if (!table)
        return nullptr;
    for (const char* name : {"f_table_catalog", "f_table_schema", "f_table_name", "f_geometry_column", "styleName",
                             "styleQML", "styleSLD", "description", "owner", "ui"}) {
        OGRFieldDefn field(name, OFTString);
        if (table->CreateField(&field) != OGRERR_NONE)
            return nullptr;
    }
    OGRFieldDefn isDefault("useAsDefault", OFTInteger);
    isDefault.SetSubType(OFSTBoolean);
    OGRFieldDefn time("update_time", OFTDateTime);
    return table->CreateField(&isDefault) == OGRERR_NONE && table->CreateField(&time) == OGRERR_NONE ? table : nullptr;
}

bool addRow(OGRLayer& table, const char* layer, const QByteArray& style)
{
    const OGRFeatureUniquePtr row(OGRFeature::CreateFeature(table.GetLayerDefn()));
    row->SetField("f_table_catalog", "");
    row->SetField("f_table_schema", "");
    row->SetField("f_table_name", layer);
    row->SetField("f_geometry_column", "geom");
    row->SetField("styleName", "colours");
    row->SetField("styleQML", style.constData());
    row->SetField("description", "colours of the objects");
    row->SetField("useAsDefault", 1);
    return table.CreateFeature(row.get()) == OGRERR_NONE;
}

GDALDatasetUniquePtr openToAdd(const QString& path)
{
    return GDALDatasetUniquePtr(
        GDALDataset::Open(CheckedWrites::pathFor(path).toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
}

} // namespace

FormatInfo GpkgFormat::info() const
{
    FormatInfo info = vectorInfo();
    info.key = QStringLiteral("gpkg");
    info.displayName = QStringLiteral("GeoPackage");
    info.fileFormatName = QStringLiteral("GeoPackage");
    return info;
}

SettingsTable GpkgFormat::settings() const
{
    SettingsTable table = commonSettings();
    table.addBoolean("spatialIndex", &OgrExportSettings::spatialIndex, tr("Spatial index"), tr("with a spatial index"));
    return table;
}

QStringList GpkgFormat::extensions() const
{
    return {QStringLiteral("gpkg")};
}

QStringList GpkgFormat::sidecars() const
{
    return sqliteJournals(extensions());
}

OgrTraits GpkgFormat::traits() const
{
    OgrTraits traits;
    traits.driver = QStringLiteral("GPKG");
    traits.fileKind = QStringLiteral("GeoPackage");
    traits.names.reserved = QStringList{QStringLiteral("fid"), QStringLiteral("geom")};
    // The database keeps tables of its own under these, and its styles in the last.
    traits.reserved = QStringList{QStringLiteral("gpkg"), QStringLiteral("sqlite_"), QStringLiteral("rtree_"),
                                  QStringLiteral("layer_styles")};
    // Nor does the driver take a name that begins with one of these.
    for (const QChar sign : QStringLiteral("`~!@#$%^&*()+-={}|[]\\:\";'<>?,./"))
        traits.reserved.append(sign);
    traits.moments = {TextMeaning::Date, TextMeaning::DateTime};
    traits.utc = true;
    traits.mostFields = mostSqliteFields;
    traits.manyLayers = true;
    traits.configuration = fastSqlite();
    return traits;
}

void GpkgFormat::requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>&) const
{
    requireRoomForJournal(file.path, traits().fileKind);
}

void GpkgFormat::tune(OgrOutput&, kpBaseExport::OGRExporterOptions& options, Findings&,
                      const kpBase::AbstractProgress*) const
{
    // Made by complete(): the driver inserts feature by feature.
    options.layerOptions.append(QStringLiteral("SPATIAL_INDEX=NO"));
}

void GpkgFormat::complete(const OgrOutput& output, const kpBase::AbstractProgress* progress) const
{
    if (!output.settings.spatialIndex)
        return;
    const QuietGdal quiet;
    const GDALDatasetUniquePtr dataset = openToAdd(output.path);
    try {
        for (int index = 0; dataset && index < dataset->GetLayerCount(); ++index)
            addGpkgIndex(*dataset, *dataset->GetLayer(index), progress);
    } catch (const std::exception& error) {
        failIncomplete(output.file.path, QStringLiteral("its spatial index: %1").arg(QString::fromUtf8(error.what())));
    }
    if (!dataset)
        failIncomplete(output.file.path, QStringLiteral("its spatial index: %1").arg(QuietGdal::lastMessage()));
}

void GpkgFormat::addStyle(const OgrOutput& output, Findings& findings) const
{
    const QuietGdal quiet;
    GDALDatasetUniquePtr dataset = openToAdd(output.path);
    OGRLayer* const table = dataset ? makeStyleTable(*dataset) : nullptr;
    bool written = table != nullptr;
    for (int index = 0; written && index < static_cast<int>(output.layers.size()); ++index) {
        const QByteArray style = qgisStyle(output.layers[static_cast<std::size_t>(index)],
                                           output.settings.attributes && output.settings.color, findings);
        written = style.isEmpty() || addRow(*table, dataset->GetLayer(index)->GetName(), style);
    }
    CPLErrorReset();
    dataset.reset();
    if (!written || CPLGetLastErrorType() >= CE_Failure)
        failIncomplete(output.file.path, QStringLiteral("its styles: %1").arg(QuietGdal::lastMessage()));
}

QString GpkgFormat::noSystem() const
{
    // Known to the driver as number -1 of the standard; without it positions would count as degrees.
    return QStringLiteral("LOCAL_CS[\"Undefined Cartesian SRS\",LOCAL_DATUM[\"unknown\",32767],UNIT[\"metre\",1],"
                          "AXIS[\"Easting\",EAST],AXIS[\"Northing\",NORTH]]");
}

} // namespace kpFormats
