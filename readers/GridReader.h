// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads the first band of a raster as a grid surface. Nodes lie at the centres of the pixels, row 0 in the south; a
/// pixel without data becomes a node whose z is NaN.
/// \throws LoadError
KPFORMATS_EXPORT LoadNotes readGrid(Model& model, const QString& path, const LoadOptions& options);

/// True for a file that begins as a ZMap+ grid does, whatever its extension.
KPFORMATS_EXPORT bool isZMapGrid(const QString& path);

} // namespace kpFormats
