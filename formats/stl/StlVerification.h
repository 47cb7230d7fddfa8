// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/stl/StlExportSettings.h"

namespace kpFormats
{

/// The 80 characters at the beginning of a file: unit, direction of z, offset.
std::string stlTitle(const ModelObject& object, const StlExportSettings& settings, const MapOffset& offset);

/// Reads a binary STL file facet by facet and compares every corner with the surface, less the offset, and the title.
Verification verifyStl(const ModelObject& object, const QString& path, const StlExportSettings& settings,
                       const MapOffset& offset);

} // namespace kpFormats
