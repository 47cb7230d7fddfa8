// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads the polygons of a Wavefront OBJ file, one mesh surface for each "o" that has any. Normals, texture
/// coordinates, materials, lines and curves are passed over.
/// The format: http://paulbourke.net/dataformats/obj/
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readObj(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
