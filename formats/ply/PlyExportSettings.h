// SPDX-License-Identifier: MIT
#pragma once

#include "export/MapOffset.h"

#include <QString>

namespace kpFormats
{

/// How a PLY export looks. There is always one file per object.
struct PlyExportSettings
{
    QString filePrefix;                              ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model;       ///< of coordinates
    bool zIsElevation = true;                        ///< false: z is depth, positive down
    CoordinateOrigin origin = CoordinateOrigin::Map; ///< of the file's coordinates
    bool colours = true;                             ///< the object's colour at each vertex
};

} // namespace kpFormats
