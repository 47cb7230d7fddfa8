// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How an OFF export looks. There is always one file per object.
struct OffExportSettings
{
    QString filePrefix;                        ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model; ///< of coordinates
    bool zIsElevation = true;                  ///< false: z is depth, positive down
    int decimals = automaticDecimals;          ///< of coordinates; -1 for as many as they need
    bool colours = false;                      ///< the object's colour at each face
    bool header = true;                        ///< comment lines with name, unit and direction of z
};

} // namespace kpFormats
