// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Surfer 6 binary grid: single precision, not rotated.
/// The format: https://surferhelp.goldensoftware.com/topics/surfer_6_grid_file_format.htm
class KPFORMATS_EXPORT Surfer6Format : public RasterFormat
{
public:
    RasterTraits traits() const override;
};

} // namespace kpFormats
