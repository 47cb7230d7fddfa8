// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads a PLY file, text or binary: a mesh surface when it has faces, else a vertex cloud. Other properties of the
/// vertices become attributes, one colour of all vertices that of the object. Other elements are passed over. Remarks give
/// a name, units, the direction of z and an offset as this program writes them.
/// The format: http://paulbourke.net/dataformats/ply/
/// \throws LoadError naming the line, or the element
KPFORMATS_EXPORT LoadNotes readPly(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
