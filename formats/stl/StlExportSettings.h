// SPDX-License-Identifier: MIT
#pragma once

#include "export/MapOffset.h"

#include <QString>

namespace kpFormats
{

/// How an STL export looks. There is always one file per object.
struct StlExportSettings
{
    QString filePrefix;                                    ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model;             ///< of coordinates
    bool zIsElevation = true;                              ///< false: z is depth, positive down
    CoordinateOrigin origin = CoordinateOrigin::Automatic; ///< of the file's coordinates
};

} // namespace kpFormats
