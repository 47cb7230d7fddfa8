// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads a VTK file, XML or legacy: vertices as points, lines as lines, triangles and other faces as mesh surfaces, a flat
/// image as a grid surface. Arrays of points become attributes, and arrays of cells that are the same all over an object
/// attributes of the whole object. A file that this program wrote gives its objects again, cell grids too. Volumes of
/// other making are left out.
/// \throws LoadError naming the line, the byte or the array
KPFORMATS_EXPORT LoadNotes readVtk(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
