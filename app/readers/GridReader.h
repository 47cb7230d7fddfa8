// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/Model.h"
#include "app/readers/LoadOptions.h"

namespace refhost
{

/// Reads the first band of a raster as a grid surface. Nodes lie at the centres of the pixels, row 0 in the south; a
/// pixel without data becomes a node whose z is NaN.
/// \throws LoadError
LoadNotes readGrid(Model& model, const QString& path, const LoadOptions& options);

/// True for a file that begins as a ZMap+ grid does, whatever its extension.
bool isZMapGrid(const QString& path);

} // namespace refhost
