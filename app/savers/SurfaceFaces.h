// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ProgressTicker.h"
#include "app/model/ModelObject.h"

#include <array>
#include <utility>
#include <vector>

namespace refhost
{

/// A face of a surface by its vertices; a triangle repeats its last.
using Face = std::array<int, 4>;

/// How many faces a surface could have: cells of a grid, triangles of a mesh.
qint64 faceCount(const ModelObject& surface);
/// The face with that number. A grid cell of four nodes with values is a quadrilateral, one of three a triangle; false
/// where there is none.
bool faceAt(const ModelObject& surface, qint64 number, Face& face);

/// The boundary of a surface: the edges that belong to one face only, joined to lines. The last vertex of a closed line
/// is its first. None when the user cancels.
std::vector<std::vector<int>> boundaryLines(const ModelObject& surface, ProgressTicker& ticker);

} // namespace refhost
