// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/ProgressTicker.h"
#include "model/kpFormatsExport.h"

#include <array>
#include <utility>
#include <vector>

namespace kpFormats
{

/// A face of a surface by its vertices; a triangle repeats its last.
using Face = std::array<int, 4>;

/// True when all three coordinates of the vertex are finite.
KPFORMATS_EXPORT bool hasPosition(const ModelObject& object, int vertex);
KPFORMATS_EXPORT bool hasAnyPosition(const ModelObject& object);

/// How many faces a surface could have: cells of a grid, triangles of a mesh.
KPFORMATS_EXPORT qint64 faceCount(const ModelObject& surface);
/// The face with that number. Its vertices have positions: a grid cell of four such nodes is a quadrilateral, one of three a
/// triangle, counter-clockwise in a grid whose rows go north. False where there is none.
KPFORMATS_EXPORT bool faceAt(const ModelObject& surface, qint64 number, Face& face);
KPFORMATS_EXPORT bool hasAnyFace(const ModelObject& surface);

/// The boundary of a surface: the edges that belong to one face only, joined to lines. The last vertex of a closed line
/// is its first. \a weight is what finding them counts for in \a ticker. None when the user cancels.
KPFORMATS_EXPORT std::vector<std::vector<int>> boundaryLines(const ModelObject& surface, ProgressTicker& ticker,
                                                             double weight = 0.0);

} // namespace kpFormats
