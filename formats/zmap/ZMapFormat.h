// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// ZMap+ (ZYCOR) grid: one regular grid per file, columns from west to east, each from north to south. Its axes are
/// parallel to the coordinates'; a rotated grid is refused.
/// The format: http://lists.osgeo.org/pipermail/gdal-dev/2011-June/029173.html; how GDAL takes the header's limits:
/// https://gdal.org/drivers/raster/zmap.html
class KPFORMATS_EXPORT ZMapFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::ZMapFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
