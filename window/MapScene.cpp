// SPDX-License-Identifier: MIT
#include "window/MapScene.h"

#include "geo/CoordinateSystems.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <stdexcept>
#include <utility>

namespace refhost
{

namespace
{

std::optional<QRectF> extentOf(const std::vector<double>& x, const std::vector<double>& y)
{
    double west = INFINITY;
    double east = -INFINITY;
    double south = INFINITY;
    double north = -INFINITY;
    for (std::size_t index = 0; index < x.size(); ++index) {
        if (!std::isfinite(x[index]) || !std::isfinite(y[index]))
            continue;
        west = std::min(west, x[index]);
        east = std::max(east, x[index]);
        south = std::min(south, y[index]);
        north = std::max(north, y[index]);
    }
    if (west > east)
        return std::nullopt;
    return QRectF(QPointF(west, south), QPointF(east, north));
}

/// In the grid's own system.
std::pair<std::vector<double>, std::vector<double>> cornersOf(const GridGeometry& grid)
{
    const double turned = grid.rotation * M_PI / 180.0;
    std::pair<std::vector<double>, std::vector<double>> corners;
    for (const auto& [column, row] :
         {std::pair(-0.5, -0.5), std::pair(grid.columns - 0.5, -0.5), std::pair(grid.columns - 0.5, grid.rows - 0.5),
          std::pair(-0.5, grid.rows - 0.5)}) {
        const double along = column * grid.stepX;
        const double across = row * grid.stepY;
        corners.first.push_back(grid.originX + along * std::cos(turned) - across * std::sin(turned));
        corners.second.push_back(grid.originY + along * std::sin(turned) + across * std::cos(turned));
    }
    return corners;
}

/// How PROJ brings positions from one system into another; null when it knows no way.
std::unique_ptr<CoordinateTransform> wayBetween(const QString& from, const QString& to)
{
    try {
        return std::make_unique<CoordinateTransform>(from, to);
    } catch (const std::runtime_error&) {
        return nullptr;
    }
}

} // namespace

MapScene::MapScene(const Model& model)
    : m_model(model)
{
}

void MapScene::update()
{
    const std::vector<ModelObject>& objects = m_model.objects();
    const QString earth = chooseEarth();
    if (earth != m_earth || objects.size() < m_places.size()) {
        m_earth = earth;
        m_places.clear();
        m_frames.clear();
        m_systems.clear();
    }
    m_places.reserve(objects.size());
    for (std::size_t index = m_places.size(); index < objects.size(); ++index)
        place(objects[index]);
}

/// The first system on the earth that has lengths, else the first one that counts in degrees.
QString MapScene::chooseEarth()
{
    QString degrees;
    for (const ModelObject& object : m_model.objects()) {
        const System& system = systemOf(object.crs);
        if (!system.onEarth)
            continue;
        if (!system.degrees)
            return object.crs;
        if (degrees.isEmpty())
            degrees = object.crs;
    }
    return degrees;
}

MapScene::System& MapScene::systemOf(const QString& crs)
{
    static const QString longitudes = wktOf(QStringLiteral("EPSG:4326"));
    const auto [known, isNew] = m_systems.try_emplace(crs);
    System& system = known->second;
    if (isNew && !crs.isEmpty()) {
        system.onEarth = wayBetween(crs, longitudes) != nullptr;
        system.degrees = unitsOf(crs).degrees;
    }
    return system;
}

void MapScene::enter(System& system, const QString& crs)
{
    if (system.onEarth) {
        system.way = wayBetween(crs, m_earth);
        // What was found to lie on the earth but has no way to the others is by itself.
        const bool together = system.way != nullptr;
        if (together && system.way->isIdentity())
            system.way.reset();
        for (std::size_t frame = 0; together && frame < m_frames.size(); ++frame) {
            if (m_frames[frame].crs == m_earth)
                system.frame = static_cast<int>(frame);
        }
        if (system.frame >= 0)
            return;
        m_frames.push_back({together ? m_earth : crs, crsUnit(together ? m_earth : crs), 0});
    } else {
        m_frames.push_back({crs, crsUnit(crs), 0});
    }
    system.frame = static_cast<int>(m_frames.size()) - 1;
}

void MapScene::place(const ModelObject& object)
{
    System& system = systemOf(object.crs);
    if (system.frame < 0)
        enter(system, object.crs);
    MapFrame& frame = m_frames[static_cast<std::size_t>(system.frame)];
    ++frame.objects;
    PlacedObject placed;
    placed.frame = system.frame;
    placed.x = object.x;
    placed.y = object.y;
    std::pair<std::vector<double>, std::vector<double>> corners;
    if (object.grid)
        corners = cornersOf(*object.grid);
    if (system.way) {
        const auto moved = [&way = *system.way](std::vector<double> x, std::vector<double> y) {
            std::vector<double> heights(x.size(), 0.0);
            way.transform(x, y, heights);
            return std::pair(std::move(x), std::move(y));
        };
        auto [x, y] = moved(*object.x, *object.y);
        placed.x = std::make_shared<const std::vector<double>>(std::move(x));
        placed.y = std::make_shared<const std::vector<double>>(std::move(y));
        corners = moved(std::move(corners.first), std::move(corners.second));
    }
    placed.extent = extentOf(*placed.x, *placed.y);
    for (std::size_t corner = 0; corner < corners.first.size(); ++corner)
        placed.outline.append(QPointF(corners.first[corner], corners.second[corner]));
    m_places.push_back(std::move(placed));
}

} // namespace refhost
