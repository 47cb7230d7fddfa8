// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::kmlFinding
{

inline constexpr FindingKind surfaceWrittenAsAPicture("surface written as a picture",
                                                      "the surface was written as a picture",
                                                      "%1 surfaces were written as pictures");
inline constexpr FindingKind pictureCoarserThanTheGrid("picture coarser than the grid",
                                                       "the picture is coarser than the grid",
                                                       "%1 pictures are coarser than their grids");
inline constexpr FindingKind triangleLeftOut("triangle left out", "a triangle was left out",
                                             "%1 triangles were left out");
inline constexpr FindingKind lineOnASectionLeftOut("line on a section left out", "a line on the section was left out",
                                                   "%1 lines on sections were left out");
inline constexpr FindingKind attributeOfVerticesNotDrawn("attribute of vertices not written",
                                                         "an attribute of the vertices was not written",
                                                         "%1 attributes of vertices were not written");
inline constexpr FindingKind attributeTextChanged("attribute text changed", "the text of an attribute was changed",
                                                  "the texts of %1 attributes were changed");

} // namespace kpFormats::kmlFinding
