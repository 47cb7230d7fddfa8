// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// FlatGeobuf: one file per geometry type, features in the model's order, so without the index that sorts them.
/// The format: https://github.com/flatgeobuf/flatgeobuf/blob/master/doc/specification.md
class KPFORMATS_EXPORT FgbFormat : public OgrFormat
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::FgbFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    OgrTraits traits() const override;
    QStringList extensions() const override;
    void tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
              const kpBase::AbstractProgress* progress) const override;
};

} // namespace kpFormats
