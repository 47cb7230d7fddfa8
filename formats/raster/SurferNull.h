// SPDX-License-Identifier: MIT
#pragma once

namespace kpFormats
{

/// What Surfer's grids have for a node without a value, as a number of single precision.
inline constexpr double surferNull = 1.701410009187828e+38;
/// From there on a reader takes a number for a missing one.
inline constexpr double surferMost = 1.7e+38;

} // namespace kpFormats
