// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/raster/RasterNumbers.h"

#include <QStringList>

namespace kpFormats
{

/// Reads a netCDF grid with GDAL, variable by variable, and compares where every node is, its height and every value with
/// the surface. \a names are those of the variables of the bands.
Verification verifyNetcdf(const QString& path, const ModelObject& object, const RasterExportSettings& settings,
                          const RasterNumbers& numbers, const std::vector<RasterGrid::Band>& bands,
                          const QStringList& names);

} // namespace kpFormats
