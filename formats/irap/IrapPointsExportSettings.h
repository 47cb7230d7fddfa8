// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "export/FileGrouping.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How Irap points and polygons look.
struct IrapPointsExportSettings
{
    enum class FlatObjects { LeaveOut, Zero };

    FileGrouping grouping = FileGrouping::Single;    ///< one file, a file per object, a file per set
    QString filePrefix;                              ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model;       ///< of coordinates
    bool zIsElevation = true;                        ///< false: z is depth, positive down
    int decimals = automaticDecimals;                ///< of coordinates; -1 for as many as they need
    FlatObjects flatObjects = FlatObjects::LeaveOut; ///< those without any height: left out, or at height 0
};

} // namespace kpFormats
