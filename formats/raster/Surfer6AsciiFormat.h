// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterFormat.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Surfer 6 text grid: fourteen digits, not rotated.
/// The format: https://surferhelp.goldensoftware.com/topics/ascii_grid_file_format.htm
class KPFORMATS_EXPORT Surfer6AsciiFormat : public RasterFormat
{
public:
    RasterTraits traits() const override;
};

} // namespace kpFormats
