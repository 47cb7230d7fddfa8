// SPDX-License-Identifier: MIT
#pragma once

#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How an Eclipse GRDECL export looks. There is always one file per grid; depths count downwards.
struct GrdeclExportSettings
{
    enum class Origin { Map, Local };

    QString filePrefix;                        ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model; ///< metres or feet; Model: what is nearest to the grid's own
    int decimals = 3;                          ///< of positions and depths
    Origin origin = Origin::Map; ///< positions on the map, or counted from the first pillar, which MAPAXES gives
    double nullValue = 0.0;      ///< stands for a missing property value; the format knows none
};

} // namespace kpFormats
