// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/Model.h"
#include "app/readers/LoadOptions.h"

namespace refhost
{

/// Reads wells from a table of collars and LoadOptions::survey, a table of stations (hole, depth along the hole,
/// azimuth, dip positive down, in degrees). The path follows the minimum curvature method: between two stations the
/// hole is an arc of a circle (Taylor and Mason, "A Systematic Approach to Well Surveying Calculations", 1972).
/// \throws LoadError
LoadNotes readWells(Model& model, const QString& path, const LoadOptions& options);

} // namespace refhost
