// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "formats/raster/RasterTraits.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// What the formats of grid surfaces that are written through GDAL share: one file per grid, a node per pixel, in the
/// grid's own coordinate system, as a regular grid stays regular in no other. A format of these says its traits.
class KPFORMATS_EXPORT RasterFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::RasterFormat)

public:
    virtual RasterTraits traits() const = 0;

    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
