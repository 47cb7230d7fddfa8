// SPDX-License-Identifier: MIT
#include "model/ObjectCheck.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

bool holds(const AttributeColumn& column, std::size_t count)
{
    if (column.kind != AttributeKind::Real)
        return static_cast<std::size_t>(column.values.size()) == count;
    return column.numbers && column.numbers->size() == count && (!column.missing || column.missing->size() == count);
}

QString columnFault(const std::vector<AttributeColumn>& columns, std::size_t count)
{
    for (const AttributeColumn& column : columns) {
        if (!holds(column, count))
            return QStringLiteral("attribute %1 has another number of values than the object").arg(column.name);
    }
    return {};
}

QString cellFault(const CellGrid& cells)
{
    if (cells.columns < 1 || cells.rows < 1 || cells.layers < 1)
        return QStringLiteral("the grid has no cells");
    const auto columns = static_cast<std::size_t>(cells.columns);
    const auto rows = static_cast<std::size_t>(cells.rows);
    const std::size_t count = columns * rows * static_cast<std::size_t>(cells.layers);
    if (cells.coord.size() != 6 * (columns + 1) * (rows + 1) || cells.zcorn.size() != 8 * count)
        return QStringLiteral("the grid's pillars or corners are not as many as its size asks for");
    if (!cells.active.empty() && cells.active.size() != count)
        return QStringLiteral("the grid's active flags are not as many as its cells");
    return columnFault(cells.cellAttributes, count);
}

} // namespace

QString faultOf(const ModelObject& object)
{
    if (!object.x || !object.y || !object.z)
        return QStringLiteral("it has no coordinates");
    const std::size_t count = object.x->size();
    if (object.y->size() != count || object.z->size() != count)
        return QStringLiteral("its x, y and z are not equally many");
    const bool partOutside = std::any_of(object.parts.begin(), object.parts.end(), [count](const Part& part) {
        return part.first < 0 || part.count < 0
               || static_cast<std::size_t>(part.first) + static_cast<std::size_t>(part.count) > count;
    });
    if (partOutside)
        return QStringLiteral("a part reaches beyond its vertices");
    const bool triangleOutside =
        std::any_of(object.triangles.begin(), object.triangles.end(), [count](const auto& triangle) {
            return std::any_of(triangle.begin(), triangle.end(),
                               [count](int corner) { return corner < 0 || static_cast<std::size_t>(corner) >= count; });
        });
    if (triangleOutside)
        return QStringLiteral("a triangle has a corner that is none of its vertices");
    if (object.grid
        && (object.grid->columns < 1 || object.grid->rows < 1
            || static_cast<std::size_t>(object.grid->columns) * static_cast<std::size_t>(object.grid->rows) != count))
        return QStringLiteral("the grid's size is not that of its nodes");
    if (object.cells) {
        const QString fault = cellFault(*object.cells);
        if (!fault.isEmpty())
            return fault;
    }
    return columnFault(object.vertexAttributes, count);
}

} // namespace kpFormats
