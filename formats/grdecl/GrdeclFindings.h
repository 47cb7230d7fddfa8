// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::grdeclFinding
{

inline constexpr FindingKind cornerWithoutDepth("corner of an inactive cell without a depth written as 0",
                                                "a corner of an inactive cell has no depth and was written as 0",
                                                "%1 corners of inactive cells have no depth and were written as 0");
inline constexpr FindingKind missingValueOfActiveCell("missing value of an active cell written as",
                                                      "a missing value of an active cell was written as",
                                                      "%1 missing values of active cells were written as");

} // namespace kpFormats::grdeclFinding
