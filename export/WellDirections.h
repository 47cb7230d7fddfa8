// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <array>
#include <vector>

namespace kpFormats
{

using WellDirection = std::array<double, 3>;

/// The direction of a path at each of its places, of length 1, such that arcs of circles from place to place, each going
/// on as the one before ended, meet them all (minimum curvature). The first direction is the one with which the arcs are
/// as long as the \a measured depths say; where these do not fit, or are not given, the one with which directions are
/// nearest to those of the circles through three places. The latter are what a path has that is not smooth.
/// Repeated places have the direction of the one before.
KPFORMATS_EXPORT std::vector<WellDirection> wellDirections(const std::vector<std::array<double, 3>>& places,
                                                           const std::vector<double>& measured);

/// The length of an arc from its directions and its chord.
KPFORMATS_EXPORT double lengthOfArc(const WellDirection& begin, const WellDirection& end, double chord);

} // namespace kpFormats
