// SPDX-License-Identifier: MIT
#include "formats/ogr/PgDumpFormat.h"

#include "export/CommonFindings.h"
#include "export/WriteErrors.h"
#include "geo/CoordinateSystems.h"
#include "readers/PgDumpReader.h"

#include <QFile>

namespace kpFormats
{

FormatInfo PgDumpFormat::info() const
{
    FormatInfo info = vectorInfo();
    info.key = QStringLiteral("pgdump");
    info.displayName = QStringLiteral("PostGIS dump (SQL)");
    info.fileFormatName = QStringLiteral("PostGIS dump");
    return info;
}

SettingsTable PgDumpFormat::settings() const
{
    SettingsTable table = commonSettings();
    table.addBoolean("spatialIndex", &OgrExportSettings::spatialIndex, tr("Spatial index"), tr("with a spatial index"));
    return table;
}

QStringList PgDumpFormat::extensions() const
{
    return {QStringLiteral("sql")};
}

OgrTraits PgDumpFormat::traits() const
{
    OgrTraits traits;
    traits.driver = QStringLiteral("PGDUMP");
    traits.fileKind = QStringLiteral("PostGIS dump");
    traits.configuration = QStringList{QStringLiteral("PG_USE_COPY=YES")};
    traits.names.mostBytes = 63;
    traits.names.reserved = QStringList{QStringLiteral("fid"), QStringLiteral("geom")};
    traits.layersAsFields = true;
    traits.mostFields = 1500; // a table has 1600 columns
    // A moment without a zone would be taken for one of the server's zone, so moments are texts.
    traits.moments = {TextMeaning::Date, TextMeaning::Time};
    traits.texts = OgrTraits::Texts::Copy;
    traits.digits = 15;
    traits.manyLayers = true;
    return traits;
}

GDALDatasetUniquePtr PgDumpFormat::open(const QString& path) const
{
    return readPgDump(path);
}

WrittenSystem PgDumpFormat::writtenSystem(OgrOutput& output, Findings& findings) const
{
    const QString& target = output.systems.target();
    if (target.isEmpty() || epsgCodeOf(target) > 0)
        return {target, 0.0};
    findings.note(finding::coordinateSystemNotCarried, QString(), 1,
                  QStringLiteral("%1 has no EPSG number").arg(crsName(target)));
    return {};
}

void PgDumpFormat::tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings&,
                        const kpBase::AbstractProgress*) const
{
    options.datasetOptions.append(QStringLiteral("LINEFORMAT=LF"));
    // Names as they are; a table of the name that is there already is not for us to drop.
    options.layerOptions += QStringList{QStringLiteral("LAUNDER=NO"), QStringLiteral("DROP_TABLE=NO"),
                                        QStringLiteral("FID=fid"), QStringLiteral("GEOMETRY_NAME=geom")};
    if (!output.settings.spatialIndex)
        options.layerOptions.append(QStringLiteral("SPATIAL_INDEX=NONE"));
}

void PgDumpFormat::check(const OgrOutput& output, Findings&) const
{
    const QByteArray ending = QByteArrayLiteral("\\.\nEND;\nCOMMIT;\n");
    QFile file(output.path);
    const bool opened = file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - ending.size()));
    if (!opened || file.readAll() != ending)
        failIncomplete(output.file.path, QStringLiteral("its end is not there"));
}

} // namespace kpFormats
