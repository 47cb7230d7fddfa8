// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::gocadFinding
{

inline constexpr FindingKind objectWithoutPosition("object without a position left out",
                                                   "the object was left out because it has no position",
                                                   "%1 objects were left out because they have no position");
inline constexpr FindingKind objectWithoutHeights("object without heights written at height 0",
                                                  "the object has no heights and was written at height 0",
                                                  "%1 objects have no heights and were written at height 0");
inline constexpr FindingKind nameAndColourNotWritten("name and colour not written",
                                                     "the name and colour were not written",
                                                     "the names and colours of %1 objects were not written");

} // namespace kpFormats::gocadFinding
