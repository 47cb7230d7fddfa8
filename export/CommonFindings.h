// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What several formats, or the run itself, lose or change.
namespace kpFormats::finding
{

inline constexpr FindingKind renamed("renamed", "a name was changed", "%1 names were changed");
inline constexpr FindingKind renamedFile("renamed file", "the file is named differently",
                                         "%1 files are named differently");
inline constexpr FindingKind lostOnLoading("left out on loading", "something was left out on loading",
                                           "%1 things were left out on loading");
inline constexpr FindingKind notVerified("not verified", "a file was not read again", "%1 files were not read again");
inline constexpr FindingKind typeNotTaken("object of a type that the format does not take",
                                          "an object was left out because the format does not take its type",
                                          "%1 objects were left out because the format does not take their types");
inline constexpr FindingKind objectLeftOut("object left out", "the object was left out", "%1 objects were left out");
inline constexpr FindingKind objectWithoutPosition("object without a position left out",
                                                   "the object was left out because it has no position",
                                                   "%1 objects were left out because they have no position");
inline constexpr FindingKind objectWithoutHeights("object without heights written at height 0",
                                                  "the object has no heights and was written at height 0",
                                                  "%1 objects have no heights and were written at height 0");
inline constexpr FindingKind positionLeftOut("position left out", "a position was left out",
                                             "%1 positions were left out");
inline constexpr FindingKind vertexWithoutPosition("vertex without a position left out",
                                                   "a vertex without a position was left out",
                                                   "%1 vertices without a position were left out");
inline constexpr FindingKind triangleWithoutPosition("triangle without a position left out",
                                                     "a triangle was left out because a corner has no position",
                                                     "%1 triangles were left out because a corner has no position");
inline constexpr FindingKind shortLine("line of fewer than two points left out",
                                       "a line of fewer than two points was left out",
                                       "%1 lines of fewer than two points were left out");
inline constexpr FindingKind shortRing("ring of fewer than three points left out",
                                       "a ring of fewer than three points was left out",
                                       "%1 rings of fewer than three points were left out");
inline constexpr FindingKind ringClosed("ring closed", "an open ring was closed", "%1 open rings were closed");
inline constexpr FindingKind countedFromAnOffset("coordinates counted from an offset",
                                                 "the coordinates count from an offset that the file states",
                                                 "the coordinates of %1 objects count from an offset that the file "
                                                 "states");
inline constexpr FindingKind missingAttribute("missing attribute", "an attribute is missing",
                                              "%1 attributes are missing");
inline constexpr FindingKind attributeNotNumeric("attribute that is not a number left out",
                                                 "an attribute was left out because it is not a number",
                                                 "%1 attributes were left out because they are not numbers");
inline constexpr FindingKind attributesLeftOut("the format has no attributes; left out",
                                               "an attribute was left out because the format has none",
                                               "%1 attributes were left out because the format has none");
inline constexpr FindingKind
    positionsAlike("neighbouring positions written alike",
                   "a position was written like the one before it, from which it differs",
                   "%1 positions were written like the ones before them, from which they differ");
inline constexpr FindingKind numberWrittenAs0("number rounded to 0", "a number was rounded to 0",
                                              "%1 numbers were rounded to 0");
inline constexpr FindingKind valueEqualToTheNullValue("value equal to the null value",
                                                      "a value is equal to the null value",
                                                      "%1 values are equal to the null value");
inline constexpr FindingKind coordinateSystemNotCarried("coordinate system not carried",
                                                        "the coordinate system was not written",
                                                        "%1 coordinate systems were not written");
inline constexpr FindingKind
    measuredDepthComputed("measured depth computed", "the well has no measured depth: it was computed along its path",
                          "%1 wells have no measured depth: it was computed along their paths");
inline constexpr FindingKind depthReferenceAssumed("elevation of depth 0 assumed",
                                                   "the elevation of depth 0 is not known and was taken from the path",
                                                   "the elevations of depth 0 of %1 wells are not known and were taken "
                                                   "from their paths");
inline constexpr FindingKind rowWithoutDepth("row without a depth left out", "a row without a depth was left out",
                                             "%1 rows without a depth were left out");
inline constexpr FindingKind lengthUnitChanged("length unit changed", "the unit of length was changed",
                                               "the units of length of %1 objects were changed");
inline constexpr FindingKind cellWithoutPosition("cell without a position left out",
                                                 "a cell was left out because a corner has no position",
                                                 "%1 cells were left out because a corner has no position");
inline constexpr FindingKind inactiveCellsLeftOut("inactive cells left out", "an inactive cell was left out",
                                                  "%1 inactive cells were left out");
inline constexpr FindingKind gridWithoutAnyValue("grid without any value", "the grid has no value at any node",
                                                 "%1 grids have no value at any node");
inline constexpr FindingKind
    attributesOfGridLeftOut("a grid file holds one value per node; attributes left out",
                            "an attribute was left out because a grid file holds one value per node",
                            "%1 attributes were left out because a grid file holds one value per node");

} // namespace kpFormats::finding
