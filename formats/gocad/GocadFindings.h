// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::gocadFinding
{

inline constexpr FindingKind nameAndColourNotWritten("name and colour not written",
                                                     "the name and colour were not written",
                                                     "the names and colours of %1 objects were not written");

inline constexpr FindingKind colourNotWritten("colour of a well not written",
                                              "the colour was not written: a GOCAD well has none",
                                              "the colours of %1 wells were not written: GOCAD wells have none");
inline constexpr FindingKind wellWrittenAsLine("well written as a line", "the well was written as a line",
                                               "%1 wells were written as lines");

} // namespace kpFormats::gocadFinding
