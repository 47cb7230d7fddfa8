// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/zmap/ZMapExportSettings.h"
#include "model/ModelObject.h"

namespace kpFormats
{

/// Reads a ZMap+ grid with GDAL and compares where every node is, and its height or value, with the surface.
Verification verifyZMap(const ModelObject& object, const QString& path, const ZMapExportSettings& settings);

} // namespace kpFormats
