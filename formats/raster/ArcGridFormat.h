// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Arc ASCII grid: text with chosen decimals, square cells, not rotated, its coordinate system in a .prj beside it.
/// The format: https://desktop.arcgis.com/en/arcmap/latest/manage-data/raster-and-images/esri-ascii-raster-format.htm
class KPFORMATS_EXPORT ArcGridFormat : public RasterFormat
{
public:
    RasterTraits traits() const override;
};

} // namespace kpFormats
