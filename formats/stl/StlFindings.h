// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::stlFinding
{

inline constexpr FindingKind triangleCollapsed("triangle with corners that single precision merges",
                                               "a triangle has corners that single precision merges",
                                               "%1 triangles have corners that single precision merges");

inline constexpr FindingKind singlePrecision("coordinates rounded to single precision",
                                             "the coordinates were rounded to single precision",
                                             "the coordinates of %1 objects were rounded to single precision");

} // namespace kpFormats::stlFinding
