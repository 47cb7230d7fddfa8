// SPDX-License-Identifier: MIT
#include "formats/deviation/DeviationSurvey.h"

#include "export/WellDirections.h"
#include "readers/WellPath.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

constexpr double degree = M_PI / 180.0;

double rounded(double angle)
{
    const double scale = std::pow(10.0, deviationAngleDecimals);
    return std::round(angle * scale) / scale;
}

} // namespace

std::vector<DeviationStation> deviationStations(const WellDepths& depths)
{
    std::vector<DeviationStation> stations;
    std::vector<std::array<double, 3>> places;
    std::vector<double> measured;
    for (std::size_t vertex = 0; vertex < depths.size(); ++vertex) {
        const auto& place = depths.place(vertex);
        const bool known = std::isfinite(depths.measured(vertex)) && std::isfinite(place[0]) && std::isfinite(place[1])
                           && std::isfinite(place[2]);
        if (!known)
            continue;
        places.push_back(place);
        measured.push_back(depths.measured(vertex));
        stations.push_back(
            {static_cast<int>(vertex), depths.measured(vertex), 0.0, 0.0, depths.vertical(vertex), place});
    }
    const std::vector<WellDirection> directions = wellDirections(places, measured);
    for (std::size_t row = 0; row < stations.size(); ++row) {
        const WellDirection& way = directions[row];
        const double across = std::hypot(way[0], way[1]);
        stations[row].inclination = rounded(std::atan2(across, -way[2]) / degree);
        // Straight down or up there is no azimuth; that of the row before goes on.
        const double azimuth =
            across < 1e-9 ? (row > 0 ? stations[row - 1].azimuth : 0.0) : rounded(std::atan2(way[0], way[1]) / degree);
        stations[row].azimuth = azimuth < 0.0 ? azimuth + 360.0 : azimuth;
    }
    return stations;
}

double distanceOfPath(const std::vector<DeviationStation>& stations)
{
    std::vector<WellStation> survey;
    for (const DeviationStation& station : stations)
        survey.push_back({station.measuredDepth, station.azimuth * degree, M_PI / 2.0 - station.inclination * degree});
    const WellPath path(survey);
    const auto begin = path.at(stations.front().measuredDepth);
    double worst = 0.0;
    for (const DeviationStation& station : stations) {
        const auto there = path.at(station.measuredDepth);
        double square = 0.0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double wanted = station.place[axis] - stations.front().place[axis];
            square += std::pow(there[axis] - begin[axis] - wanted, 2);
        }
        worst = std::max(worst, std::sqrt(square));
    }
    return worst;
}

} // namespace kpFormats
