// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// GeoJSON: in WGS 84 as RFC 7946 asks for, or in any system with the "crs" member of the 2008 specification.
/// One file per geometry type.
class KPFORMATS_EXPORT GeoJsonFormat : public OgrFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::GeoJsonFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    QStringList sidecars() const override;
    OgrTraits traits() const override;
    QStringList extensions() const override;
    void tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
    OgrSystems systems(const PlannedFile& file, const ExportSelection& selection,
                       const OgrExportSettings& settings) const override;
    WrittenSystem writtenSystem(OgrOutput& output, Findings& findings) const override;
    void check(const OgrOutput& output, Findings& findings) const override;
};

} // namespace kpFormats
