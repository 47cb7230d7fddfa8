// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// GML 3.2 with the schema of its features (.xsd) beside it: one file with a layer per geometry type.
/// The format: https://www.ogc.org/standard/gml/
class KPFORMATS_EXPORT GmlFormat : public OgrFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::GmlFormat)

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
