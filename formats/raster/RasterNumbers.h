// SPDX-License-Identifier: MIT
#pragma once

#include "formats/raster/RasterExportSettings.h"
#include "formats/raster/RasterGrid.h"
#include "formats/raster/RasterTraits.h"

namespace kpFormats
{

/// How the numbers of a grid are written, settled for its values: nothing of the settings is left to choose.
struct RasterNumbers
{
    /// Looks at every value once; notes in \a findings what the numbers lose.
    RasterNumbers(const RasterGrid& grid, const RasterTraits& traits, const RasterExportSettings& settings,
                  Findings& findings);

    bool isMissing(double value) const { return !(std::abs(value) <= most); }
    /// How far a number of a band may be from that of the model.
    double allowed(std::size_t band) const;

    bool single = false;         ///< of single precision
    int decimals = -1;           ///< of a text; -1: it is none, or has as many as it takes
    bool digits = false;         ///< text of fourteen digits
    double null = 0.0;           ///< stands for a missing value
    double most = 0.0;           ///< numbers beyond this are written as missing
    std::vector<double> largest; ///< of each band, without its sign
};

} // namespace kpFormats
