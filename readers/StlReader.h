// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// A binary STL file as it stands: its title of 80 characters and the corners of its facets, three each.
struct StlFacets
{
    std::string title;
    std::vector<std::array<double, 3>> corners;
    std::vector<std::array<double, 3>> normals; ///< one per facet; as the file says, whatever it is
};

/// \throws LoadError when it is no binary STL file
KPFORMATS_EXPORT StlFacets readStlFacets(const QString& path);

/// Reads an STL file, text or binary, as a mesh surface; corners at the same position become one vertex.
/// An offset that the title asks to add is added.
/// \throws LoadError naming the line or the facet
KPFORMATS_EXPORT LoadNotes readStl(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
