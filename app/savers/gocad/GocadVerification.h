// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportSelection.h"
#include "app/jobs/Verification.h"
#include "app/savers/gocad/GocadExportSettings.h"

namespace refhost
{

/// Reads a GOCAD file with the program's reader and compares its objects with those that it was written from, one
/// after the other: kind, vertices, properties, segments and triangles.
Verification verifyGocad(const std::vector<const ModelObject*>& objects, const QString& path,
                         const ExportSelection& selection, const GocadExportSettings& settings);

} // namespace refhost
