// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <array>
#include <vector>

namespace kpFormats
{

/// A direction of a hole at a depth along it.
struct WellStation
{
    double depth;
    double azimuth; ///< radians, clockwise from north
    double dip;     ///< radians, positive down
};

/// The way of a hole from its collar: arcs of circles from station to station (minimum curvature), straight on before
/// the first and after the last.
class KPFORMATS_EXPORT WellPath
{
public:
    /// \a stations are sorted by depth and not empty.
    explicit WellPath(std::vector<WellStation> stations);

    /// East, north and up from the collar, in the unit of the depths.
    std::array<double, 3> at(double depth) const;

private:
    std::vector<WellStation> m_stations;
    std::vector<std::array<double, 3>> m_positions; ///< of the stations
};

} // namespace kpFormats
