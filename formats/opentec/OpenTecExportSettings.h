// SPDX-License-Identifier: MIT
#pragma once

#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How an OpenTecLink export looks.
struct OpenTecExportSettings
{
    QString sections;  ///< names of the sections to write, separated by commas; empty: all
    QString traceLine; ///< section whose trace gives the positions on the map; empty: each its own
    double age = 0.0;  ///< age of the sections
    int decimals = 2;  ///< of every number
    OutputUnit lengthUnit = OutputUnit::Metre; ///< of coordinates; the format says metre whatever stands here
};

} // namespace kpFormats
