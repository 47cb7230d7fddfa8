// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// SQL that makes tables in a PostgreSQL database with PostGIS, a table per geometry type, rows as "COPY" lines and
/// geometries as extended WKB.
/// The format: https://www.postgresql.org/docs/current/sql-copy.html,
/// https://postgis.net/docs/using_postgis_dbmanagement.html#EWKB_EWKT
class KPFORMATS_EXPORT PgDumpFormat : public OgrFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::PgDumpFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    OgrTraits traits() const override;
    QStringList extensions() const override;
    GDALDatasetUniquePtr open(const QString& path) const override;
    WrittenSystem writtenSystem(OgrOutput& output, Findings& findings) const override;
    void tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
    void check(const OgrOutput& output, Findings& findings) const override;
};

} // namespace kpFormats
