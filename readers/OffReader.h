// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads a Geomview OFF file (text, three dimensions) as one mesh surface. Polygons of more than three corners become
/// fans of triangles; colours, normals and texture coordinates are passed over.
/// The format: http://javaview.de/doc/userManual/formats/Format_Off.html, from the Geomview manual.
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readOff(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
