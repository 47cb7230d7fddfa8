// SPDX-License-Identifier: MIT
#include "formats/irap/IrapGrid.h"

#include "export/ExportError.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kpFormats
{

namespace
{

std::array<double, 2> placeOf(const GridGeometry& grid, int column, int row)
{
    const double turned = grid.rotation * M_PI / 180.0;
    const double along = column * grid.stepX;
    const double across = row * grid.stepY;
    return {grid.originX + along * std::cos(turned) - across * std::sin(turned),
            grid.originY + along * std::sin(turned) + across * std::cos(turned)};
}

/// The same grid in the file's unit, from the corner at which both steps are positive.
GridGeometry ascending(const GridGeometry& grid, double factor)
{
    GridGeometry turned = grid;
    const auto corner = placeOf(grid, grid.stepX < 0.0 ? grid.columns - 1 : 0, grid.stepY < 0.0 ? grid.rows - 1 : 0);
    turned.originX = corner[0] * factor;
    turned.originY = corner[1] * factor;
    turned.stepX = std::abs(grid.stepX) * factor;
    turned.stepY = std::abs(grid.stepY) * factor;
    return turned;
}

double single(double number)
{
    return static_cast<double>(static_cast<float>(number));
}

} // namespace

IrapGrid::IrapGrid(const ModelObject& object, const IrapGridExportSettings& settings, const QString& file)
    : m_factors(object, settings.lengthUnit, settings.zIsElevation)
    , m_values(object, settings.attribute, m_factors, file)
    , m_geometry(ascending(*object.grid, m_factors.flat))
    , m_fromEnd{object.grid->stepX < 0.0, object.grid->stepY < 0.0}
{
    // A little below the mark, since values are rounded.
    constexpr double greatest = irapNull - 1.0;
    constexpr double least = -1e29;
    m_values.each([&](double value) {
        if (value > greatest || value < least)
            throw ExportError(
                file,
                QStringLiteral("the grid %1 has the value %2, and from %3 on a value says that there is none")
                    .arg(object.name)
                    .arg(value)
                    .arg(irapNull, 0, 'f', 0),
                QStringLiteral("choose another unit, or export it as ZMap+"));
    });
}

double IrapGrid::movedBySinglePrecision() const
{
    GridGeometry rounded = m_geometry;
    for (double* number : {&rounded.originX, &rounded.originY, &rounded.stepX, &rounded.stepY, &rounded.rotation})
        *number = single(*number);
    // Each coordinate is linear in column and row, so a corner moves most.
    double most = 0.0;
    for (const int column : {0, m_geometry.columns - 1}) {
        for (const int row : {0, m_geometry.rows - 1}) {
            const auto there = placeOf(rounded, column, row);
            const auto wanted = placeOf(m_geometry, column, row);
            most = std::max(most, std::hypot(there[0] - wanted[0], there[1] - wanted[1]));
        }
    }
    return most;
}

} // namespace kpFormats
