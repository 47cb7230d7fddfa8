// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/raster/RasterNumbers.h"

namespace kpFormats
{

/// What a raster must hold.
struct RasterExpectation
{
    const ModelObject& object;
    const RasterTraits& traits;
    const RasterExportSettings& settings;
    const RasterNumbers& numbers;
    const std::vector<RasterGrid::Band>& bands; ///< their names and attributes
    bool system;                                ///< it says the object's coordinate system
};

/// Reads a raster with GDAL and compares where every node is, its height and every value with the surface.
Verification verifyRaster(const QString& path, const RasterExpectation& expected);

} // namespace kpFormats
