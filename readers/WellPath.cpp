// SPDX-License-Identifier: MIT
#include "readers/WellPath.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using Vector = std::array<double, 3>;

Vector directionOf(const WellStation& station)
{
    return {std::cos(station.dip) * std::sin(station.azimuth), std::cos(station.dip) * std::cos(station.azimuth),
            -std::sin(station.dip)};
}

double bendBetween(const Vector& a, const Vector& b)
{
    return std::acos(std::clamp(a[0] * b[0] + a[1] * b[1] + a[2] * b[2], -1.0, 1.0));
}

/// Where an arc of that length leads that begins in direction \a a and ends in \a b.
Vector arc(const Vector& a, const Vector& b, double length)
{
    const double bend = bendBetween(a, b);
    const double half = length / 2.0 * (bend < 1e-9 ? 1.0 : 2.0 / bend * std::tan(bend / 2.0));
    return {half * (a[0] + b[0]), half * (a[1] + b[1]), half * (a[2] + b[2])};
}

/// The direction on the way from one to the other.
Vector between(const Vector& a, const Vector& b, double share)
{
    const double bend = bendBetween(a, b);
    if (bend < 1e-9)
        return a;
    const double first = std::sin((1.0 - share) * bend) / std::sin(bend);
    const double second = std::sin(share * bend) / std::sin(bend);
    return {first * a[0] + second * b[0], first * a[1] + second * b[1], first * a[2] + second * b[2]};
}

Vector sum(const Vector& a, const Vector& b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

} // namespace

WellPath::WellPath(std::vector<WellStation> stations)
    : m_stations(std::move(stations))
{
    if (m_stations.front().depth > 0.0) {
        WellStation collar = m_stations.front();
        collar.depth = 0.0;
        m_stations.insert(m_stations.begin(), collar);
    }
    m_positions.push_back({0, 0, 0});
    for (std::size_t index = 1; index < m_stations.size(); ++index) {
        const WellStation& from = m_stations[index - 1];
        const WellStation& to = m_stations[index];
        m_positions.push_back(sum(m_positions.back(), arc(directionOf(from), directionOf(to), to.depth - from.depth)));
    }
}

std::array<double, 3> WellPath::at(double depth) const
{
    const auto after = std::lower_bound(m_stations.begin(), m_stations.end(), depth,
                                        [](const WellStation& station, double value) { return station.depth < value; });
    const auto index = static_cast<std::size_t>(after - m_stations.begin());
    if (after != m_stations.end() && (after->depth == depth || index == 0))
        return m_positions[index];
    const WellStation& from = m_stations[index - 1];
    const Vector start = directionOf(from);
    if (after == m_stations.end())
        return sum(m_positions.back(), arc(start, start, depth - from.depth));
    const double share = (depth - from.depth) / (after->depth - from.depth);
    return sum(m_positions[index - 1], arc(start, between(start, directionOf(*after), share), depth - from.depth));
}

} // namespace kpFormats
