// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How a table of cell centres looks. There is always one file per grid.
struct CellCentersExportSettings
{
    QString filePrefix;                        ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model; ///< of the centres
    bool zIsElevation = true;                  ///< a column z, positive up; else a column depth
    int decimals = automaticDecimals;          ///< of the centres; -1 for as many as they need
    bool inactiveCells = true;                 ///< also the cells that are not active, told by a column of their own
    bool remarks = false;                      ///< lines with "#" before the table: name, units, coordinate system
};

} // namespace kpFormats
