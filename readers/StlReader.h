// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads an STL file, text or binary, as a mesh surface; corners at the same position become one vertex.
/// \throws LoadError naming the line or the facet
KPFORMATS_EXPORT LoadNotes readStl(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
