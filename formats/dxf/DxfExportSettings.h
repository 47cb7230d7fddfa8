// SPDX-License-Identifier: MIT
#pragma once

#include "export/FileGrouping.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How a DXF export looks.
struct DxfExportSettings
{
    enum class Dimension { ThreeD, Map, Section };
    enum class Layers { Set, Type, None };

    Dimension dimension = Dimension::ThreeD;      ///< in space; flat as seen from above; flat as seen from the side
    Layers layers = Layers::Set;                  ///< a layer for each set, for each type of object, or one for all
    bool unicodeLayers = false;                   ///< layer names keep letters that are not ASCII, as \U+XXXX
    bool faces = true;                            ///< surfaces as faces
    bool meshPoints = false;                      ///< surfaces as points
    bool boundaries = false;                      ///< surfaces as their boundary lines
    FileGrouping grouping = FileGrouping::Single; ///< one file, a file per object, a file per set
    QString filePrefix;                           ///< front of the names of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model;    ///< of coordinates
    QString crs;                                  ///< coordinate system to write; empty: that of each object
    double textHeight = 0.0;                      ///< of names, in the unit of the file; 0: fit to the drawing
};

} // namespace kpFormats
