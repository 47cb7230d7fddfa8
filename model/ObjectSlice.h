// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// A piece of an object, a sound object by itself: its first vertices with their parts and triangles, the middle rows of
/// a grid, or the first layers of cells. More than \a mostVertices where that ends within a ring, a row or a layer; a
/// cross-section is taken whole.
KPFORMATS_EXPORT ModelObject sliceOf(const ModelObject& object, int mostVertices);

} // namespace kpFormats
