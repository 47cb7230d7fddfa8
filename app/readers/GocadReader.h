// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/Model.h"
#include "app/readers/LoadOptions.h"

namespace refhost
{

/// Reads the objects of a GOCAD ASCII file: vertex sets as clouds, lines, triangulated surfaces as meshes. Depths
/// become elevations.
/// \throws LoadError naming the line
LoadNotes readGocad(Model& model, const QString& path, const LoadOptions& options);

} // namespace refhost
