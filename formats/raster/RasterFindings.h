// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only these formats lose or change.
namespace kpFormats::rasterFinding
{

inline constexpr FindingKind roundedToSingle("number rounded to single precision",
                                             "a number was rounded to single precision",
                                             "%1 numbers were rounded to single precision");
inline constexpr FindingKind numberTooLarge("number too large for the format, written as missing",
                                            "a number too large for the format was written as missing",
                                            "%1 numbers too large for the format were written as missing");

} // namespace kpFormats::rasterFinding
