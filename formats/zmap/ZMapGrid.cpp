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

std::optional<NumberColumn> attributeOf(const ModelObject& object, const QString& name, const QString& file)
{
    if (name.isEmpty())
        return std::nullopt;
    QStringList names;
    for (const AttributeColumn& column : object.vertexAttributes) {
        const bool number = column.kind != AttributeKind::Text && column.kind != AttributeKind::Color;
        if (number && column.name == name)
            return NumberColumn(column);
        if (number)
            names.append(column.name);
    }
    throw ExportError(file, QStringLiteral("the grid %1 has no numeric attribute \"%2\"").arg(object.name, name),
                      names.isEmpty() ? QStringLiteral("leave the attribute empty to write heights")
                                      : QStringLiteral("it has: %1").arg(names.join(QStringLiteral(", "))));
}

} // namespace

ZMapGrid::ZMapGrid(const ModelObject& object, const ZMapExportSettings& settings, const QString& file)
    : m_object(object)
    , m_factor(unitFactor(object.lengthUnit, settings.lengthUnit))
{
    const bool whole = object.grid && object.grid->columns > 0 && object.grid->rows > 0
                       && object.vertexCount() == static_cast<qint64>(object.grid->columns) * object.grid->rows;
    if (!whole)
        throw ExportError(file, QStringLiteral("the grid %1 is empty").arg(object.name),
                          QStringLiteral("choose a grid with nodes"));
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
    m_attribute = attributeOf(object, settings.attribute, file);
    // Only heights are lengths and have a direction.
    m_valueFactor = m_attribute ? 1.0 : (settings.zIsElevation ? m_factor : -m_factor);
    m_northFirst = grid.stepY < 0.0;
    m_west = grid.originX * m_factor;
    m_south = (grid.originY + (m_northFirst ? (grid.rows - 1) * grid.stepY : 0.0)) * m_factor;
}

double ZMapGrid::stepX() const
{
    return m_object.grid->stepX * m_factor;
}

double ZMapGrid::stepY() const
{
    return std::abs(m_object.grid->stepY) * m_factor;
}

} // namespace kpFormats
