// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// GeoPackage (OGC 12-128): one file with a layer per geometry type.
class KPFORMATS_EXPORT GpkgFormat : public OgrFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    QStringList sidecars() const override;

protected:
    OgrTraits traits() const override;
    QStringList extensions() const override;
    void requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>& layers) const override;
    void tune(Output& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
    QString noSystem() const override;
    void addStyle(const Output& output, Findings& findings) const override;
};

} // namespace kpFormats
