// SPDX-License-Identifier: MIT
#include "formats/ogr/SqliteFormat.h"

#include "formats/ogr/SqliteFiles.h"

namespace kpFormats
{

FormatInfo SqliteFormat::info() const
{
    FormatInfo info = vectorInfo();
    info.key = QStringLiteral("sqlite");
    info.displayName = QStringLiteral("SQLite database");
    info.fileFormatName = QStringLiteral("SQLite");
    return info;
}

SettingsTable SqliteFormat::settings() const
{
    return commonSettings();
}

QStringList SqliteFormat::extensions() const
{
    return {QStringLiteral("sqlite"), QStringLiteral("db")};
}

QStringList SqliteFormat::sidecars() const
{
    return sqliteJournals(extensions());
}

OgrTraits SqliteFormat::traits() const
{
    OgrTraits traits;
    traits.driver = QStringLiteral("SQLite");
    traits.fileKind = QStringLiteral("SQLite database");
    traits.names.reserved = QStringList{QStringLiteral("ogc_fid"), QStringLiteral("geometry")};
    traits.reserved = QStringList{QStringLiteral("sqlite_"), QStringLiteral("idx_"), QStringLiteral("geometry_columns"),
                                  QStringLiteral("spatial_ref_sys")};
    traits.moments = {TextMeaning::Date, TextMeaning::Time, TextMeaning::DateTime};
    traits.utc = true;
    traits.mostFields = mostSqliteFields;
    traits.manyLayers = true;
    traits.configuration = fastSqlite();
    return traits;
}

void SqliteFormat::requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>&) const
{
    requireRoomForJournal(file.path, traits().fileKind);
}

void SqliteFormat::tune(OgrOutput&, kpBaseExport::OGRExporterOptions& options, Findings&,
                        const kpBase::AbstractProgress*) const
{
    // Names as they are, and geometries that other programs know.
    options.layerOptions += QStringList{QStringLiteral("LAUNDER=NO"), QStringLiteral("FORMAT=WKB")};
}

} // namespace kpFormats
