// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "export/FileGrouping.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How a GOCAD export looks.
struct GocadExportSettings
{
    enum class GridsAs { Surface, Points };
    enum class WellsAs { Lines, Wells };

    FileGrouping grouping = FileGrouping::Single; ///< one file, a file per object, a file per set
    QString filePrefix;                           ///< of several files in a directory
    bool header = true;                           ///< the block with each object's name and colour
    bool zIsElevation = true;                     ///< false: z is depth, positive down; said in the file
    OutputUnit lengthUnit = OutputUnit::Model;    ///< of coordinates; said in the file
    int decimals = automaticDecimals;             ///< of coordinates; -1 for as many as they need
    double nullValue = -99999.0;                  ///< stands for a missing property value
    GridsAs gridsAs = GridsAs::Surface;           ///< grid surfaces as triangles or as points
    WellsAs wellsAs = WellsAs::Lines;             ///< well paths as lines or as wells with curves
};

} // namespace kpFormats
