// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only these formats lose or change.
namespace kpFormats::irapFinding
{

inline constexpr FindingKind movedBySinglePrecision("position rounded to single precision",
                                                    "the grid was moved by rounding to single precision",
                                                    "%1 grids were moved by rounding to single precision");
inline constexpr FindingKind flatObjectLeftOut("object without heights left out",
                                               "the object was left out because it has no heights",
                                               "%1 objects were left out because they have no heights");
inline constexpr FindingKind nameNotWritten("name not written", "the object's name was not written",
                                            "the names of %1 objects were not written");
inline constexpr FindingKind holeAsPolygon("hole of a polygon written as a polygon",
                                           "a hole was written as a polygon, which is all that the format has",
                                           "%1 holes were written as polygons, which is all that the format has");
inline constexpr FindingKind coordinateOf999("coordinate of 999",
                                             "a coordinate is 999, which some readers take for an end",
                                             "%1 coordinates are 999, which some readers take for an end");

} // namespace kpFormats::irapFinding
