// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <array>
#include <vector>

namespace kpFormats
{

/// Cuts a polygon of mesh vertices into triangles that cover it once, in the sense of its corners: a fan where it is
/// convex, else ear by ear, looked at along its own normal. \returns false, with nothing appended, where it is neither
/// convex nor of at most 1000 corners, which would take too long. A polygon that crosses itself becomes a fan.
KPFORMATS_EXPORT bool appendTriangles(const std::vector<int>& corners, const std::vector<double>& x,
                                      const std::vector<double>& y, const std::vector<double>& z,
                                      std::vector<std::array<int, 3>>& triangles);

} // namespace kpFormats
