// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How a ZMap+ grid export looks. There is always one file per grid.
struct ZMapExportSettings
{
    enum class Registration { Nodes, Corners };

    QString attribute;                         ///< value of the nodes; empty: their height
    QString filePrefix;                        ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model; ///< of positions and heights
    bool zIsElevation = true;                  ///< false: heights are written as depth, positive down
    double nullValue = -99999.0;               ///< stands for a node without a value
    int decimals = automaticDecimals;          ///< of the values; -1 for as many as they need
    Registration registration =
        Registration::Nodes; ///< the header's limits: outermost nodes, or outer corners of the pixels around them
    int nodesPerLine = 5;    ///< values in a line
};

} // namespace kpFormats
