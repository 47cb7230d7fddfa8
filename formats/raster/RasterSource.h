// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterNumbers.h"

#include <gdal_priv.h>

namespace kpFormats
{

/// The grid as a data set that a driver of GDAL copies: it asks for line after line, and nothing is held twice.
class RasterSource : public GDALDataset
{
public:
    /// Both outlive this.
    RasterSource(const RasterGrid& grid, const RasterNumbers& numbers);

    CPLErr GetGeoTransform(double* transform) override;
    const OGRSpatialReference* GetSpatialRef() const override;

private:
    const RasterGrid& m_grid;
    OGRSpatialReference m_system;
};

} // namespace kpFormats
