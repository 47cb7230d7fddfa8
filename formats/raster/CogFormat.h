// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Cloud optimized GeoTIFF: a GeoTIFF of tiles with overviews, in an order that lets a program read a part over the network.
/// The format: https://docs.ogc.org/is/21-026/21-026.html
class KPFORMATS_EXPORT CogFormat : public RasterFormat
{
public:
    RasterTraits traits() const override;
};

} // namespace kpFormats
