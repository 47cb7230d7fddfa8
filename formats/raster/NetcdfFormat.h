// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// netCDF, the classic format with offsets of 64 bits, by the conventions of CF: heights and attributes as variables over x
/// and y. Written by ourselves: GDAL's driver counts every grid without a coordinate system in degrees, notes the time, and
/// does not write through a file system of ours.
/// The format: https://docs.unidata.ucar.edu/netcdf-c/current/file_format_specifications.html; the conventions:
/// https://cfconventions.org/cf-conventions/cf-conventions.html
class KPFORMATS_EXPORT NetcdfFormat : public RasterFormat
{
public:
    RasterTraits traits() const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
