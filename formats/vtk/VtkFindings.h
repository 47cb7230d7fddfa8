// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only these formats lose or change.
namespace kpFormats::vtkFinding
{

inline constexpr FindingKind missingTextEmpty("missing text written as an empty one",
                                              "a missing text was written as an empty one",
                                              "%1 missing texts were written as empty ones");
inline constexpr FindingKind textLeftOut("attribute of texts left out",
                                         "an attribute was left out because texts were not wanted",
                                         "%1 attributes were left out because texts were not wanted");
inline constexpr FindingKind namesNotWritten("name, system and unit not written",
                                             "the name, coordinate system and unit were not written",
                                             "the names, coordinate systems and units of %1 objects were not written");
inline constexpr FindingKind wholeNumberRounded("whole number rounded", "a whole number was rounded to 53 bits",
                                                "%1 whole numbers were rounded to 53 bits");
inline constexpr FindingKind textCut("text cut at a zero character", "a text was cut at a zero character",
                                     "%1 texts were cut at a zero character");

} // namespace kpFormats::vtkFinding
