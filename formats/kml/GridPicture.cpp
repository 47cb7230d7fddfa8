// SPDX-License-Identifier: MIT
#include "formats/kml/GridPicture.h"

#include "geo/CoordinateSystems.h"
#include "geo/CoordinateTransform.h"
#include "model/GridSampler.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

constexpr int mostPixels = 2048; ///< of a side

/// Colours from low to high in even steps, as red, green, blue.
constexpr double ramp[][3] = {{38, 98, 64},   {120, 158, 82}, {222, 205, 130},
                              {168, 110, 66}, {120, 82, 70},  {250, 248, 245}};

QRgb colourOf(double share)
{
    constexpr int steps = static_cast<int>(std::size(ramp)) - 1;
    const double place = std::clamp(share, 0.0, 1.0) * steps;
    const int lower = std::min(static_cast<int>(place), steps - 1);
    const double way = place - lower;
    const auto mixed = [&](int component) {
        return static_cast<int>(std::lround(ramp[lower][component] * (1 - way) + ramp[lower + 1][component] * way));
    };
    return qRgb(mixed(0), mixed(1), mixed(2));
}

/// The range of the finite values; false when there are none.
bool findRange(const std::vector<double>& values, double& lowest, double& highest)
{
    bool found = false;
    for (const double value : values) {
        if (!std::isfinite(value))
            continue;
        lowest = found ? std::min(lowest, value) : value;
        highest = found ? std::max(highest, value) : value;
        found = true;
    }
    return found;
}

/// The box around the outline of a grid; false when no part of it has a place on the earth.
bool findBox(const ModelObject& surface, const QString& crs, DegreeBox& box)
{
    const int columns = surface.grid->columns;
    const int rows = surface.grid->rows;
    PositionBlock edge;
    const auto add = [&](int column, int row) {
        const auto node =
            static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column);
        edge.x.push_back((*surface.x)[node]);
        edge.y.push_back((*surface.y)[node]);
        edge.z.push_back(0.0);
    };
    for (int column = 0; column < columns; ++column) {
        add(column, 0);
        add(column, rows - 1);
    }
    for (int row = 0; row < rows; ++row) {
        add(0, row);
        add(columns - 1, row);
    }
    CoordinateTransform(crs, wktOf(QStringLiteral("EPSG:4326"))).transform(edge.x, edge.y, edge.z);
    edge.x.erase(std::remove_if(edge.x.begin(), edge.x.end(), [](double x) { return std::abs(x) > 180; }),
                 edge.x.end());
    edge.y.erase(std::remove_if(edge.y.begin(), edge.y.end(), [](double y) { return std::abs(y) > 90; }), edge.y.end());
    return findRange(edge.x, box.west, box.east) && findRange(edge.y, box.south, box.north) && box.west < box.east
           && box.south < box.north;
}

} // namespace

std::optional<GridPicture> drawGrid(const ModelObject& surface, const QString& crs, ProgressTicker& ticker,
                                    double weight)
{
    GridPicture picture;
    if (!surface.grid || surface.grid->columns < 2 || surface.grid->rows < 2
        || !findRange(*surface.z, picture.lowest, picture.highest) || !findBox(surface, crs, picture.box))
        return std::nullopt;
    const int width = std::clamp(surface.grid->columns, 2, mostPixels);
    const int height = std::clamp(surface.grid->rows, 2, mostPixels);
    picture.coarser = width < surface.grid->columns || height < surface.grid->rows;
    picture.image = QImage(width, height, QImage::Format_ARGB32);
    picture.image.fill(Qt::transparent);
    const CoordinateTransform back(wktOf(QStringLiteral("EPSG:4326")), crs);
    const GridSampler sample(surface);
    const double range = picture.highest > picture.lowest ? picture.highest - picture.lowest : 1.0;
    PositionBlock line;
    for (int y = 0; y < height && !ticker.cancelled(); ++y) {
        line.resize(static_cast<std::size_t>(width));
        for (std::size_t x = 0; x < line.size(); ++x) {
            line.x[x] =
                picture.box.west + (static_cast<double>(x) + 0.5) / width * (picture.box.east - picture.box.west);
            line.y[x] = picture.box.north - (y + 0.5) / height * (picture.box.north - picture.box.south);
            line.z[x] = 0.0;
        }
        back.transform(line.x, line.y, line.z);
        auto* pixels = reinterpret_cast<QRgb*>(picture.image.scanLine(y));
        for (std::size_t x = 0; x < line.size(); ++x) {
            const double value = sample(line.x[x], line.y[x]);
            if (std::isfinite(value))
                pixels[x] = colourOf((value - picture.lowest) / range);
        }
        ticker.step(weight / height);
    }
    if (ticker.cancelled())
        return std::nullopt;
    return picture;
}

} // namespace kpFormats
