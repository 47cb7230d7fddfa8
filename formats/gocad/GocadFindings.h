// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::gocadFinding
{

inline constexpr FindingKind nameAndColourNotWritten("name and colour not written",
                                                     "the name and colour were not written",
                                                     "the names and colours of %1 objects were not written");

} // namespace kpFormats::gocadFinding
