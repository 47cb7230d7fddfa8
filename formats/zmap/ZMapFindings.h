// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::zmapFinding
{

inline constexpr FindingKind gridWithoutAnyValue("grid without any value", "the grid has no value at any node",
                                                 "%1 grids have no value at any node");
inline constexpr FindingKind
    attributesOfGridLeftOut("a grid file holds one value per node; attributes left out",
                            "an attribute was left out because a grid file holds one value per node",
                            "%1 attributes were left out because a grid file holds one value per node");

} // namespace kpFormats::zmapFinding
