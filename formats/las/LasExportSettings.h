// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "model/OutputUnit.h"

#include <QString>

namespace kpFormats
{

/// How a LAS file looks. There is always one file per well.
struct LasExportSettings
{
    enum class Index { MeasuredDepth, VerticalDepth };

    Index index = Index::MeasuredDepth;        ///< the depth by which the rows go
    QString filePrefix;                        ///< of several files in a directory
    OutputUnit lengthUnit = OutputUnit::Model; ///< of depths and positions, metres or feet; curves stay as they are
    double nullValue = -999.25;                ///< stands for a missing value; another where a value equals it
    int decimals = automaticDecimals;          ///< of every column; -1 for as many as each needs
    bool coordinates = true;                   ///< curves X, Y and Z of the path
};

} // namespace kpFormats
