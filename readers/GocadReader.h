// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads the objects of a GOCAD ASCII file: vertex sets as clouds, lines, triangulated surfaces as meshes, wells.
/// Depths become elevations.
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readGocad(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
