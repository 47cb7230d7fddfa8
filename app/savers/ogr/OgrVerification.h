// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/Verification.h"
#include "app/savers/ogr/OgrLayers.h"
#include "app/savers/ogr/OgrSystems.h"

namespace refhost
{

/// Opens a vector file with GDAL and compares every position, taken back to its object's own system, with the model.
/// Rings may run the other way round.
Verification verifyOgrFile(const QString& path, const QString& driver, const std::vector<OgrLayer>& layers,
                           OgrSystems& systems);

} // namespace refhost
