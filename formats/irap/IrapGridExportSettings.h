// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How an Irap classic grid looks. There is always one file per grid.
struct IrapGridExportSettings
{
    QString attribute;                         ///< value of the nodes; empty: their height
    QString filePrefix;                        ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model; ///< of positions and heights
    bool zIsElevation = true;                  ///< false: heights are written as depth, positive down
    int decimals = automaticDecimals;          ///< of the values of the text form; -1 for as many as they need
    int nodesPerLine = 6;                      ///< values in a line of the text form
};

} // namespace kpFormats
