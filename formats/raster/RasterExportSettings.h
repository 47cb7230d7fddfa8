// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How a grid surface becomes a raster. There is always one file per grid. Each format offers the members that mean
/// something to it.
struct RasterExportSettings
{
    enum class Precision { Automatic, Single, Double };
    enum class Compression { None, Deflate, Lzw };

    QString attribute;                              ///< value of the nodes, where a file has one; empty: their height
    QString filePrefix;                             ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model;      ///< of heights; positions stay in their coordinate system
    bool zIsElevation = true;                       ///< false: heights are written as depth, positive down
    double nullValue = -99999.0;                    ///< stands for a node without a value
    Precision precision = Precision::Automatic;     ///< of the numbers; automatic: single where that changes none
    int decimals = automaticDecimals;               ///< of numbers in a text; -1 for as many as they need
    Compression compression = Compression::Deflate; ///< of a TIFF
    bool overviews = true;                          ///< coarser copies in the file, for quick drawing
};

} // namespace kpFormats
