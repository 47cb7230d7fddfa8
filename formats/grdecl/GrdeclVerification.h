// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Verification.h"
#include "formats/grdecl/GrdeclExportSettings.h"

namespace kpFormats
{

/// Reads a GRDECL file with the program's reader and compares size, unit, pillars, depths, active cells and every
/// property with the grid. \a unit is the one that it was to be written in.
Verification verifyGrdecl(const ModelObject& object, const QString& path, const ExportSelection& selection,
                          const GrdeclExportSettings& settings, OutputUnit unit);

} // namespace kpFormats
