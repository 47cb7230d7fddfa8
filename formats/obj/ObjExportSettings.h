// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "export/FileGrouping.h"
#include "export/MapOffset.h"

#include <QString>

namespace kpFormats
{

/// How an OBJ export looks.
struct ObjExportSettings
{
    FileGrouping grouping = FileGrouping::Single;
    QString filePrefix;                              ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model;       ///< of coordinates
    bool zIsElevation = true;                        ///< false: z is depth, positive down
    CoordinateOrigin origin = CoordinateOrigin::Map; ///< of the file's coordinates
    int decimals = automaticDecimals;                ///< of coordinates; -1 for as many as they need
    bool header = true;                              ///< comment lines with unit and direction of z
};

} // namespace kpFormats
