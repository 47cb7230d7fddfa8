// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Verification.h"
#include "formats/las/LasExportSettings.h"

namespace kpFormats
{

/// Reads a LAS file with the program's reader and compares well, depths, positions and curves with the model.
Verification verifyLas(const ModelObject& object, const QString& path, const ExportSelection& selection,
                       const LasExportSettings& settings, OutputUnit unit);

} // namespace kpFormats
