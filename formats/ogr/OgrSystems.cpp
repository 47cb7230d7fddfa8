// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrSystems.h"

#include "geo/CoordinateSystems.h"
#include "model/OutputUnit.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <utility>

namespace kpFormats
{

namespace
{

constexpr std::size_t windowSize = 4096;

} // namespace

OgrSystems::OgrSystems(QString target, QString assumed, bool onGlobe)
    : m_target(std::move(target))
    , m_assumed(std::move(assumed))
    , m_onGlobe(onGlobe)
{
}

const CoordinateTransform* OgrSystems::to(const ModelObject& object)
{
    return way(m_to, object, false);
}

const CoordinateTransform* OgrSystems::back(const ModelObject& object)
{
    return way(m_back, object, true);
}

const CoordinateTransform* OgrSystems::way(Ways& ways, const ModelObject& object, bool back)
{
    const QString& own = object.crs.isEmpty() ? m_assumed : object.crs;
    if (m_target.isEmpty() || own.isEmpty() || own == m_target)
        return nullptr;
    std::shared_ptr<CoordinateTransform>& transform = ways[own];
    if (!transform)
        transform = back ? std::make_shared<CoordinateTransform>(m_target, own)
                         : std::make_shared<CoordinateTransform>(own, m_target);
    return transform->isIdentity() ? nullptr : transform.get();
}

double OgrSystems::heightFactor(const ModelObject& object) const
{
    return m_onGlobe ? unitFactor(object.lengthUnit, OutputUnit::Metre) : 1.0;
}

double metresApart(const QString& wkt, const QString& other, const std::vector<std::array<double, 2>>& places)
{
    constexpr double metresPerDegree = 111320.0;
    static const QString world = wktOf(QStringLiteral("EPSG:4326"));
    const double toRadians = std::acos(-1.0) / 180.0;
    std::vector<double> x[2];
    std::vector<double> y[2];
    try {
        for (std::size_t index = 0; index < 2; ++index) {
            for (const auto& place : places) {
                x[index].push_back(place[0]);
                y[index].push_back(place[1]);
            }
            std::vector<double> z(places.size(), 0.0);
            CoordinateTransform(index == 0 ? wkt : other, world).transform(x[index], y[index], z);
        }
    } catch (const std::exception&) {
        return std::nan("");
    }
    double worst = std::nan("");
    for (std::size_t place = 0; place < places.size(); ++place) {
        const double east = std::remainder(x[0][place] - x[1][place], 360.0) * std::cos(y[0][place] * toRadians);
        worst = std::fmax(worst, metresPerDegree * std::hypot(east, y[0][place] - y[1][place]));
    }
    return worst;
}

void OgrVertices::start(const ModelObject& object)
{
    m_object = &object;
    m_transform = m_systems.to(object);
    m_heightFactor = m_systems.heightFactor(object);
    m_x.clear();
}

const std::array<double, 3>& OgrVertices::at(std::size_t vertex)
{
    if (m_transform) {
        if (vertex < m_first || vertex >= m_first + m_x.size() || m_x.empty())
            fill(vertex);
        const std::size_t place = vertex - m_first;
        m_position = {m_x[place], m_y[place], m_z[place]};
    } else {
        m_position = {(*m_object->x)[vertex], (*m_object->y)[vertex], (*m_object->z)[vertex]};
    }
    const bool beyond = m_systems.isOnGlobe() && (std::abs(m_position[0]) > 180.0 || std::abs(m_position[1]) > 90.0);
    if (beyond || !std::isfinite(m_position[0]) || !std::isfinite(m_position[1]))
        m_position[0] = m_position[1] = std::numeric_limits<double>::quiet_NaN();
    m_position[2] *= m_heightFactor;
    return m_position;
}

void OgrVertices::fill(std::size_t vertex)
{
    const std::size_t count = m_object->x->size();
    m_first = vertex / windowSize * windowSize;
    const auto window = [this, count](const std::vector<double>& from, std::vector<double>& to) {
        const std::size_t end = std::min(count, m_first + windowSize);
        to.assign(from.begin() + static_cast<std::ptrdiff_t>(m_first), from.begin() + static_cast<std::ptrdiff_t>(end));
    };
    window(*m_object->x, m_x);
    window(*m_object->y, m_y);
    window(*m_object->z, m_z);
    // An unknown height is none of PROJ's business.
    std::vector<double> z = m_z;
    std::replace_if(
        z.begin(), z.end(), [](double height) { return !std::isfinite(height); }, 0.0);
    m_transform->transform(m_x, m_y, z);
    for (std::size_t place = 0; place < z.size(); ++place)
        m_z[place] = std::isfinite(m_z[place]) ? z[place] : std::numeric_limits<double>::quiet_NaN();
}

} // namespace kpFormats
