// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/dxf/DxfExportSettings.h"
#include "model/ModelObject.h"

namespace kpFormats
{

/// Reads a drawing with GDAL and compares every entity with the objects: kind, layer, colour, text and positions.
Verification verifyDxf(const std::vector<const ModelObject*>& objects, const QString& path,
                       const DxfExportSettings& settings);

} // namespace kpFormats
