// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::opentecFinding
{

inline constexpr FindingKind sectionWithoutLines("section without lines", "the section has no lines",
                                                 "%1 sections have no lines");
inline constexpr FindingKind unitNotStated("unit not stated", "the file does not say the unit of length",
                                           "%1 files do not say the unit of length");

} // namespace kpFormats::opentecFinding
