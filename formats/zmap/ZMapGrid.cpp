// SPDX-License-Identifier: MIT
#include "formats/zmap/ZMapGrid.h"

#include "export/ExportError.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// How far the node farthest from the origin is from where an unrotated grid has it, in steps.
double displacement(const GridGeometry& grid)
{
    const double angle = grid.rotation * M_PI / 180.0;
    const double width = (grid.columns - 1) * std::abs(grid.stepX);
    const double height = (grid.rows - 1) * std::abs(grid.stepY);
    const double chord = 2.0 * std::abs(std::sin(angle / 2.0));
    return chord * std::hypot(width, height) / std::min(std::abs(grid.stepX), std::abs(grid.stepY));
}

} // namespace

ZMapGrid::ZMapGrid(const ModelObject& object, const ZMapExportSettings& settings, const QString& file)
    : m_object(object)
    , m_factors(object, settings.lengthUnit, settings.zIsElevation)
    , m_values(object, settings.attribute, m_factors, file)
{
    const GridGeometry& grid = *object.grid;
    // A reader takes the step from the limits.
    if (grid.columns < 2 || grid.rows < 2)
        throw ExportError(file,
                          QStringLiteral("the grid %1 has a single row or column, and a ZMap+ grid needs two of both")
                              .arg(object.name),
                          QStringLiteral("export it as ASCII or GOCAD"));
    constexpr double mostDisplacement = 1e-3;
    if (displacement(grid) > mostDisplacement)
        throw ExportError(file,
                          QStringLiteral("the grid %1 is rotated by %2 degrees, and a ZMap+ grid cannot be")
                              .arg(object.name)
                              .arg(grid.rotation),
                          QStringLiteral("resample it to a grid parallel to the axes, or export it as GOCAD or ASCII"));
    m_northFirst = grid.stepY < 0.0;
    m_west = grid.originX * m_factors.flat;
    m_south = (grid.originY + (m_northFirst ? (grid.rows - 1) * grid.stepY : 0.0)) * m_factors.flat;
}

double ZMapGrid::stepX() const
{
    return m_object.grid->stepX * m_factors.flat;
}

double ZMapGrid::stepY() const
{
    return std::abs(m_object.grid->stepY) * m_factors.flat;
}

} // namespace kpFormats
