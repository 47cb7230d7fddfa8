// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/ogr/OgrLayers.h"
#include "formats/ogr/OgrSystems.h"
#include "formats/ogr/OgrTable.h"

namespace kpFormats
{

class OgrFormat;

/// What a vector file must hold.
struct OgrFileExpectation
{
    std::vector<OgrLayer> layers;
    std::vector<OgrTable> tables; ///< one per layer
    OgrSystems systems;
    WrittenSystem written;
    OgrTraits traits;
    OgrExportSettings settings;
};

/// Opens a vector file with GDAL and compares it with the model: layers, coordinate system, fields, and of each feature
/// its parts, rings, positions and values. Positions are expected where the model's own are in the file's system.
/// Not compared: which rings are holes in Shapefiles and MapInfo tables, where readers find that by position.
Verification verifyOgrFile(const QString& path, const OgrFormat& format, OgrFileExpectation expected);

} // namespace kpFormats
