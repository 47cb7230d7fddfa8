// SPDX-License-Identifier: MIT
#pragma once

#include "export/FileGrouping.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How an export to one of VTK's XML formats looks.
struct VtkExportSettings
{
    FileGrouping grouping =
        FileGrouping::Single;                  ///< of points, lines and surfaces; volumes and images have a file each
    QString filePrefix;                        ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model; ///< of coordinates
    bool zIsElevation = true;                  ///< false: z is depth, positive down
    bool texts = true;                         ///< arrays of texts, and the names, systems and units of the objects
    bool colours = true;                       ///< the object's colour at each cell
    bool inactiveCells = true;                 ///< of volumes: also the cells that are not active
};

} // namespace kpFormats
