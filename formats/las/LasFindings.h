// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::lasFinding
{

inline constexpr FindingKind nullValueChanged("null value changed", "another null value was taken",
                                              "other null values were taken for %1 wells");
inline constexpr FindingKind notAscii("text beyond ASCII",
                                      "a name has letters that old readers of LAS may show wrongly",
                                      "%1 names have letters that old readers of LAS may show wrongly");

} // namespace kpFormats::lasFinding
