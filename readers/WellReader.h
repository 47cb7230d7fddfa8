// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads wells from a table of collars and LoadOptions::survey, a table of stations (hole, depth along the hole,
/// azimuth, dip positive down, in degrees). The path follows the minimum curvature method: between two stations the
/// hole is an arc of a circle (Taylor and Mason, "A Systematic Approach to Well Surveying Calculations", 1972).
/// \throws LoadError
KPFORMATS_EXPORT LoadNotes readWells(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
