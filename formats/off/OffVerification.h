// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/off/OffExportSettings.h"
#include "model/ModelObject.h"

namespace kpFormats
{

/// Reads an OFF file with the program's reader and compares every vertex, triangle and colour with the surface.
Verification verifyOff(const ModelObject& object, const QString& path, const OffExportSettings& settings);

} // namespace kpFormats
