// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::ogrFinding
{

inline constexpr FindingKind zDropped("z dropped", "the height of a vertex was left out",
                                      "the heights of %1 vertices were left out");
inline constexpr FindingKind unknownHeightWrittenAs0("unknown height written as 0",
                                                     "an unknown height was written as 0",
                                                     "%1 unknown heights were written as 0");
inline constexpr FindingKind nodeWithoutAHeightLeftOut("node without a height left out",
                                                       "a node without a height was left out",
                                                       "%1 nodes without a height were left out");
inline constexpr FindingKind cellLeftOut("cell without a height left out", "a cell of a grid was left out",
                                         "%1 cells of grids were left out");
inline constexpr FindingKind transformed("transformed", "a vertex was taken to another coordinate system",
                                         "%1 vertices were taken to another coordinate system");
inline constexpr FindingKind coordinateSystemAssumed("coordinate system assumed", "a coordinate system was assumed",
                                                     "the coordinate systems of %1 objects were assumed");
inline constexpr FindingKind coordinateSystemApproximate(
    "coordinate system approximate", "the coordinate system is written by the numbers of its datum, near enough",
    "the coordinate systems of %1 files are written by the numbers of their datums, near enough");
inline constexpr FindingKind coordinatesOnAGrid("coordinates on a grid",
                                                "a position was rounded to the grid of the table",
                                                "%1 positions were rounded to the grid of the table");
inline constexpr FindingKind coordinatesRounded("coordinates rounded", "the coordinates were rounded",
                                                "the coordinates of %1 files were rounded");
inline constexpr FindingKind unitNotCarried("unit not carried", "the unit of an attribute was not written",
                                            "the units of %1 attributes were not written");
inline constexpr FindingKind largerThanTwoGigabytes("larger than 2 GB", "a part of the file is larger than 2 GB",
                                                    "%1 parts of files are larger than 2 GB");
inline constexpr FindingKind attributeLeftOut("attribute left out", "an attribute was left out",
                                              "%1 attributes were left out");
inline constexpr FindingKind attributeOfVerticesNotCarried("attribute of vertices not carried",
                                                           "an attribute of the vertices was not written",
                                                           "%1 attributes of vertices were not written");
inline constexpr FindingKind truthAsNumber("yes or no written as 1 or 0",
                                           "an attribute of yes and no was written as 1 and 0",
                                           "%1 attributes of yes and no were written as 1 and 0");
inline constexpr FindingKind directionBeforeType("type has Horizontal or Vertical before it",
                                                 "a text of the field type has Horizontal or Vertical before it",
                                                 "%1 texts of the field type have Horizontal or Vertical before them");
inline constexpr FindingKind momentAsText("dates written as texts",
                                          "an attribute of dates or times was written as texts",
                                          "%1 attributes of dates or times were written as texts");
inline constexpr FindingKind textCut("text cut", "a text was cut", "%1 texts were cut");
inline constexpr FindingKind characterLeftOut("text without the characters that the format does not have",
                                              "a text was written without characters that the format does not have",
                                              "%1 texts were written without characters that the format does not have");
inline constexpr FindingKind textsOfSeveralScripts("texts of several scripts", "the texts are of several scripts",
                                                   "the texts of %1 files are of several scripts");
inline constexpr FindingKind emptyText("empty text, read back as missing",
                                       "an empty text will be read as a missing one",
                                       "%1 empty texts will be read as missing ones");
inline constexpr FindingKind missingTextAsEmpty("missing text written as an empty one",
                                                "a missing text was written as an empty one",
                                                "%1 missing texts were written as empty ones");
inline constexpr FindingKind missingNumberWrittenAs0("missing number written as 0", "a missing number was written as 0",
                                                     "%1 missing numbers were written as 0");
inline constexpr FindingKind numberRounded("number rounded", "a number was rounded", "%1 numbers were rounded");
inline constexpr FindingKind numberNotFinite("number that is not finite written as missing",
                                             "a number that is not finite was written as missing",
                                             "%1 numbers that are not finite were written as missing");
inline constexpr FindingKind numberTooWide("number wider than its field, written as missing",
                                           "a number too wide for its field was written as missing",
                                           "%1 numbers too wide for their fields were written as missing");
inline constexpr FindingKind colourNotCarried("colour not carried", "a colour was not written",
                                              "%1 colours were not written");
inline constexpr FindingKind changedByTheDriver("changed by the driver", "the driver made a change",
                                                "the driver made %1 changes");

} // namespace kpFormats::ogrFinding
