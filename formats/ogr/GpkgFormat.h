// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// GeoPackage (OGC 12-128): one file with a layer per geometry type.
class KPFORMATS_EXPORT GpkgFormat : public OgrFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::GpkgFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    QStringList sidecars() const override;
    OgrTraits traits() const override;
    QStringList extensions() const override;
    void requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>& layers) const override;
    void tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
    QString noSystem() const override;
    void complete(const OgrOutput& output, const kpBase::AbstractProgress* progress) const override;
    void addStyle(const OgrOutput& output, Findings& findings) const override;
};

} // namespace kpFormats
