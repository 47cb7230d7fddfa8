// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How a deviation table looks. There is always one file per well.
struct DeviationExportSettings
{
    QString filePrefix;                        ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model; ///< of depths and positions, metres or feet
    int decimals = automaticDecimals;          ///< of lengths; -1 for as many as they need
};

} // namespace kpFormats
