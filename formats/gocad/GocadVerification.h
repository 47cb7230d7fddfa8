// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Verification.h"
#include "formats/gocad/GocadExportSettings.h"

namespace kpFormats
{

/// Reads a GOCAD file with the program's reader and compares its objects with those that it was written from, one
/// after the other: kind, name, colour, unit, every vertex and property, segments and triangles.
Verification verifyGocad(const std::vector<const ModelObject*>& objects, const QString& path,
                         const ExportSelection& selection, const GocadExportSettings& settings);

} // namespace kpFormats
