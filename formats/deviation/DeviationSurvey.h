// SPDX-License-Identifier: MIT
#pragma once

#include "export/WellDepths.h"

namespace kpFormats
{

/// A row of a deviation table: lengths in the file's unit, angles in degrees.
struct DeviationStation
{
    int vertex; ///< of the model
    double measuredDepth;
    double inclination; ///< from straight down
    double azimuth;     ///< clockwise from grid north, 0 to 360
    double verticalDepth;
    std::array<double, 3> place;
};

/// The stations of a well, of vertices with a depth and a place.
std::vector<DeviationStation> deviationStations(const WellDepths& depths);

/// How far the path that minimum curvature makes of depths and angles, as they are written, leaves the places.
double distanceOfPath(const std::vector<DeviationStation>& stations);

/// Of angles in the file.
constexpr int deviationAngleDecimals = 6;

} // namespace kpFormats
