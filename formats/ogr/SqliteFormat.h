// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// SQLite database with a table per geometry type, geometries as WKB, and the tables "geometry_columns" and
/// "spatial_ref_sys" of OGC 05-134.
/// The format: https://gdal.org/drivers/vector/sqlite.html
class KPFORMATS_EXPORT SqliteFormat : public OgrFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::SqliteFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    QStringList sidecars() const override;
    OgrTraits traits() const override;
    QStringList extensions() const override;
    void requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>& layers) const override;
    void tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
};

} // namespace kpFormats
