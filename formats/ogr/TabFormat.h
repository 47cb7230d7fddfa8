// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// MapInfo tables (.tab with .dat, .map and .id). Coordinates lie on a grid made for the data; there is no z.
/// One file per geometry type.
class KPFORMATS_EXPORT TabFormat : public OgrFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    QStringList sidecars() const override;

protected:
    OgrTraits traits() const override;
    QStringList extensions() const override;
    void tune(Output& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
    void addStyle(const Output& output, Findings& findings) const override;
    void check(const Output& output, Findings& findings) const override;
};

} // namespace kpFormats
