// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Surfer 7 grid: double precision, not rotated.
/// The format: https://surferhelp.goldensoftware.com/topics/surfer_7_grid_file_format.htm
class KPFORMATS_EXPORT Surfer7Format : public RasterFormat
{
public:
    RasterTraits traits() const override;
};

} // namespace kpFormats
