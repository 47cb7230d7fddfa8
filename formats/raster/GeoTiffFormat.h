// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// GeoTIFF: heights and attributes as bands, in single or double precision, values at points, rotated where the grid is.
/// The format: https://docs.ogc.org/is/19-008r4/19-008r4.html
class KPFORMATS_EXPORT GeoTiffFormat : public RasterFormat
{
public:
    RasterTraits traits() const override;
};

} // namespace kpFormats
