// SPDX-License-Identifier: MIT
#pragma once

#include "export/FilePlan.h"
#include "formats/ogr/OgrExportSettings.h"
#include "formats/ogr/OgrLayers.h"
#include "formats/ogr/OgrSystems.h"
#include "formats/ogr/OgrTable.h"

namespace kpFormats
{

/// One file on its way through a driver.
struct OgrOutput
{
    const PlannedFile& file;
    const OgrExportSettings& settings;
    std::vector<OgrLayer> layers;
    QStringList names; ///< of the layers
    OgrSystems systems;
    std::vector<OgrTable> tables;
    WrittenSystem written = {};
    int decimals = -1;                 ///< that positions are rounded to; below 0 for none
    QString path = {};                 ///< where it is written
    std::vector<qint64> features = {}; ///< made per layer
};

} // namespace kpFormats
