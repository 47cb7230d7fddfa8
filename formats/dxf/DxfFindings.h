// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::dxfFinding
{

inline constexpr FindingKind cellWithoutValues("cell without values", "a cell without values was left out",
                                               "%1 cells without values were left out");
inline constexpr FindingKind boundaryLeftOut("boundary left out", "a boundary line was left out",
                                             "%1 boundary lines were left out");
inline constexpr FindingKind coordinateSystemsDiffer("coordinate systems differ",
                                                     "an object has another coordinate system",
                                                     "the objects have %1 different coordinate systems");
inline constexpr FindingKind lengthUnitsDiffer("length units differ", "an object has another unit of length",
                                               "the objects have %1 different units of length");
inline constexpr FindingKind attributeNotWritten("attribute not written", "an attribute was not written",
                                                 "%1 attributes were not written");
inline constexpr FindingKind textChanged("text changed", "a text was changed", "%1 texts were changed");
inline constexpr FindingKind colourChanged("colour changed", "a colour was changed", "%1 colours were changed");
inline constexpr FindingKind layerRenamed("layer renamed", "a layer is named differently",
                                          "%1 layers are named differently");

} // namespace kpFormats::dxfFinding
