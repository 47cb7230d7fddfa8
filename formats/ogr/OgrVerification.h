// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/ogr/OgrLayers.h"
#include "formats/ogr/OgrSystems.h"

namespace kpFormats
{

/// Opens a vector file with GDAL and compares every position, taken back to its object's own system, with the model.
/// Rings may run the other way round.
Verification verifyOgrFile(const QString& path, const QString& driver, const std::vector<OgrLayer>& layers,
                           OgrSystems& systems);

} // namespace kpFormats
