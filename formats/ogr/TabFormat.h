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
    Q_DECLARE_TR_FUNCTIONS(kpFormats::TabFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    QStringList sidecars() const override;
    OgrTraits traits() const override;
    QStringList extensions() const override;
    void tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
    WrittenSystem writtenSystem(OgrOutput& output, Findings& findings) const override;
    void complete(const OgrOutput& output, const kpBase::AbstractProgress* progress) const override;
    void addStyle(const OgrOutput& output, Findings& findings) const override;
    void check(const OgrOutput& output, Findings& findings) const override;
};

} // namespace kpFormats
