// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Beyond anything that is measured; programs mark nodes without a value so.
constexpr double beyondHeights = 0.999e30;

/// A grid surface while its file is read. Row 0 is the one at the origin.
struct RegularGrid
{
    GridGeometry geometry;
    std::vector<double> x; ///< of the nodes; empty: as the geometry says
    std::vector<double> y;
    std::vector<double> z; ///< NaN: no value
    QString crs;           ///< as WKT
    QString unit;          ///< of the heights, "m", "ft", "ftUS", "km"; empty when the file says none
    std::vector<AttributeColumn> attributes;
};

/// Adds it to the model. Heights of 1e30 and beyond are nodes without a value, which is said.
LoadNotes addGrid(Model& model, const QString& path, const LoadOptions& options, RegularGrid grid);

} // namespace kpFormats
