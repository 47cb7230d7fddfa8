// SPDX-License-Identifier: MIT
#include "formats/raster/NetcdfFormat.h"

#include "formats/raster/NetcdfFile.h"

namespace kpFormats
{

RasterTraits NetcdfFormat::traits() const
{
    RasterTraits traits;
    traits.key = QStringLiteral("netcdf");
    traits.displayName = QStringLiteral("netCDF grid (CF)");
    traits.driver = QStringLiteral("netCDF");
    traits.fileKind = QStringLiteral("netCDF grid");
    traits.extensions = QStringList{QStringLiteral("nc")};
    traits.bands = true;
    traits.system = true;
    traits.stepsByExtent = true;
    return traits;
}

std::unique_ptr<PreparedFile> NetcdfFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                    const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<NetcdfFile>(traits(), file, selection, settings.as<RasterExportSettings>(), findings);
}

} // namespace kpFormats
