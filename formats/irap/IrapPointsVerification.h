// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/irap/IrapPointsExportSettings.h"
#include "model/ModelObject.h"

namespace kpFormats
{

/// Reads a file of Irap points or lines row by row and compares positions and ends of lines with the objects.
Verification verifyIrapPoints(const std::vector<const ModelObject*>& objects, const QString& path,
                              const IrapPointsExportSettings& settings);

} // namespace kpFormats
