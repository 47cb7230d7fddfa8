// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/gocad/GocadWell.h"

namespace kpFormats
{

/// Reads a GOCAD file with the program's reader and compares its objects with those that it was written from, one
/// after the other: kind, name, colour, unit, every vertex and property, segments and triangles,
/// depths along wells.
Verification verifyGocad(const std::vector<GocadEntry>& entries, const QString& path,
                         const GocadExportSettings& settings);

} // namespace kpFormats
