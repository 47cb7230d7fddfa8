// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::deviationFinding
{

inline constexpr FindingKind
    pathOfAngles("path that the angles give is another",
                 "the path that a reader computes from depths and angles is another",
                 "the paths that a reader computes from depths and angles are others for %1 wells");

} // namespace kpFormats::deviationFinding
