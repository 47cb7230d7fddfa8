// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Shapefiles after the "ESRI Shapefile Technical Description" (1998), with a table in UTF-8, its .cpg and .prj.
/// One file per geometry type.
class KPFORMATS_EXPORT ShpFormat : public OgrFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::ShpFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    QStringList sidecars() const override;
    OgrTraits traits() const override;
    QStringList extensions() const override;
    void requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>& layers) const override;
    void tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
    void check(const OgrOutput& output, Findings& findings) const override;
};

} // namespace kpFormats
