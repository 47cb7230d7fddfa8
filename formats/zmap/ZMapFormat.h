// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/zmap/ZMapExportSettings.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// ZMap+ (ZYCOR) grid: one regular grid per file, columns from west to east, each from north to south. Its axes are
/// parallel to the coordinates'; a rotated grid is refused.
/// The format: http://lists.osgeo.org/pipermail/gdal-dev/2011-June/029173.html; how GDAL takes the header's limits:
/// https://gdal.org/drivers/raster/zmap.html
class KPFORMATS_EXPORT ZMapFormat : public ExportFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override;
    void foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const override;
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection, Findings& findings,
                 kpBase::AbstractProgress* progress) override;
    Verification verify(const PlannedFile& file, const QString& path, const ExportSelection& selection) override;

private:
    ZMapExportSettings m_settings;
};

} // namespace kpFormats
