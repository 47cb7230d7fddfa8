// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/Model.h"
#include "app/readers/LoadOptions.h"

namespace refhost
{

/// Reads the polygons of a Wavefront OBJ file, one mesh surface for each "o" that has any. Normals, texture
/// coordinates, materials, lines and curves are passed over.
/// The format: http://paulbourke.net/dataformats/obj/
/// \throws LoadError naming the line
LoadNotes readObj(Model& model, const QString& path, const LoadOptions& options);

} // namespace refhost
